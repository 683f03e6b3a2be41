// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/lv2/Ports.h"
#include "daw/lv2/Turtle.h"
#include "daw/window/EmbeddedEditor.h"
#include "tests/daw/BundleCopy.h"
#include "tests/daw/HostWindow.h"
#include "tests/support/TestObject.h"

#include <lv2/atom/atom.h>
#include <lv2/core/lv2.h>
#include <lv2/options/options.h>
#include <lv2/parameters/parameters.h>
#include <lv2/ui/ui.h>
#include <lv2/urid/urid.h>

#include <QTimer>

#include <dlfcn.h>

namespace {

const LV2UI_Descriptor* loadedDescriptor(std::uint32_t index, const char* library = UI_LIBRARY)
{
    void* handle = ::dlopen(library, RTLD_NOW | RTLD_LOCAL);
    auto* get = reinterpret_cast<LV2UI_DescriptorFunction>(::dlsym(handle, "lv2ui_descriptor"));
    return get ? get(index) : nullptr;
}

std::uint32_t indexOf(std::string_view symbol, std::size_t channels = 2)
{
    const std::vector<Port> ports = portsOf(channels);
    std::uint32_t index = 0;
    while (symbolOf(ports[index], channels) != symbol)
        ++index;
    return index;
}

/// What hosts number their URIs with.
LV2_URID map(LV2_URID_Map_Handle handle, const char* uri)
{
    auto& uris = *static_cast<QByteArrayList*>(handle);
    if (!uris.contains(uri))
        uris << uri;
    return static_cast<LV2_URID>(uris.indexOf(uri) + 1);
}

/// A host with the editor open; what it hears is "touch 5", "5 = 6.5", "release 5".
class Host
{
public:
    explicit Host(const char* plugin = stereoUri, float scale = 1.0F,
                  const char* library = UI_LIBRARY)
        : m_descriptor(loadedDescriptor(0, library))
    {
        window.open(1954, 1118);
        const LV2_URID number = map(&m_uris, LV2_ATOM__Float);
        const LV2_Options_Option options[] = {
            {LV2_OPTIONS_INSTANCE, 0, map(&m_uris, LV2_UI__scaleFactor), sizeof scale, number,
             &scale},
            {LV2_OPTIONS_INSTANCE, 0, map(&m_uris, LV2_PARAMETERS__sampleRate), sizeof m_rate,
             number, &m_rate},
            {LV2_OPTIONS_INSTANCE, 0, 0, 0, 0, nullptr}};
        LV2_URID_Map uridMap{&m_uris, map};
        LV2UI_Resize resize{this, [](LV2UI_Feature_Handle handle, int width, int height) {
                                static_cast<Host*>(handle)->wanted = QSize(width, height);
                                return 0;
                            }};
        const LV2_Feature mapFeature{LV2_URID__map, &uridMap};
        const LV2_Feature optionsFeature{LV2_OPTIONS__options,
                                         const_cast<LV2_Options_Option*>(options)};
        const LV2_Feature resizeFeature{LV2_UI__resize, &resize};
        const LV2_Feature touchFeature{LV2_UI__touch, &m_touch};
        const LV2_Feature parentFeature{
            LV2_UI__parent, reinterpret_cast<void*>(static_cast<std::uintptr_t>(window.id()))};
        const LV2_Feature* const features[] = {&mapFeature,   &optionsFeature, &resizeFeature,
                                               &touchFeature, &parentFeature,  nullptr};
        m_handle =
            m_descriptor->instantiate(m_descriptor, plugin, "", write, this, &m_widget, features);
        const auto* idle = static_cast<const LV2UI_Idle_Interface*>(
            m_descriptor->extension_data(LV2_UI__idleInterface));
        QObject::connect(&m_timer, &QTimer::timeout, &window,
                         [this, idle] { idle->idle(m_handle); });
        m_timer.start(10);
    }
    ~Host()
    {
        m_timer.stop();
        if (m_handle)
            m_descriptor->cleanup(m_handle);
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    bool hasEditor() const { return m_handle && m_widget; }
    bool isShown() const
    {
        return pictureAt(wanted).pixelColor(wanted.width() / 2, 4) != HostWindow::ground;
    }
    QImage pictureAt(QSize size) const { return window.picture().copy(QRect(QPoint(), size)); }
    QImage picture() const { return pictureAt(wanted); }
    void setPort(std::uint32_t port, float value, std::uint32_t size = sizeof(float),
                 std::uint32_t format = 0)
    {
        m_descriptor->port_event(m_handle, port, size, format, &value);
    }
    void resize(int width, int height)
    {
        const auto* interface =
            static_cast<const LV2UI_Resize*>(m_descriptor->extension_data(LV2_UI__resize));
        wanted = {width, height};
        QCOMPARE(interface->ui_resize(m_handle, width, height), 0);
    }

    HostWindow window;
    QSize wanted;
    QStringList heard;

private:
    static void write(LV2UI_Controller controller, std::uint32_t port, std::uint32_t size,
                      std::uint32_t format, const void* data)
    {
        QCOMPARE(size, sizeof(float));
        QCOMPARE(format, 0U);
        static_cast<Host*>(controller)->heard
            << QStringLiteral("%1 = %2").arg(port).arg(double(*static_cast<const float*>(data)));
    }
    static void touch(LV2UI_Feature_Handle handle, std::uint32_t port, bool held)
    {
        static_cast<Host*>(handle)->heard
            << (held ? QStringLiteral("touch %1") : QStringLiteral("release %1")).arg(port);
    }

    const LV2UI_Descriptor* m_descriptor;
    QByteArrayList m_uris;
    float m_rate = 44100.0F;
    LV2UI_Touch m_touch{this, touch};
    LV2UI_Handle m_handle = nullptr;
    LV2UI_Widget m_widget = nullptr;
    QTimer m_timer;
};

} // namespace

class tst_Lv2Ui : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QTRY_COMPARE(childrenRunning(EDITOR_PROGRAM), QStringList()); }

    void thereIsOneEditor()
    {
        QCOMPARE(loadedDescriptor(0)->URI, uiUri);
        QVERIFY(!loadedDescriptor(1));
    }

    void portsReachTheEditor()
    {
        Host host;
        QVERIFY(host.hasEditor());
        QCOMPARE(host.wanted, QSize(977, 559));
        QTRY_VERIFY(host.isShown());
        settle(host.window);
        const QImage before = host.picture();
        host.setPort(indexOf("low_gain"), 6.0F);
        QTRY_VERIFY(host.picture() != before);
        host.setPort(indexOf("low_gain"), 0.0F);
        QTRY_COMPARE(host.picture(), before);
        host.setPort(indexOf("meter_in_l"), -6.0F);
        QTRY_VERIFY(host.picture() != before);
        QCOMPARE(host.heard, QStringList());
    }

    void whatIsNoValueOfAPortIsLeftOut()
    {
        Host host;
        QTRY_VERIFY(host.isShown());
        settle(host.window);
        const QImage before = host.picture();
        host.setPort(indexOf("low_gain"), std::numeric_limits<float>::quiet_NaN());
        host.setPort(indexOf("low_gain"), 6.0F, 8);
        host.setPort(indexOf("low_gain"), 6.0F, sizeof(float), 1);
        host.setPort(1000, 6.0F);
        host.setPort(indexOf("latency"), 78.0F);
        settle(host.window);
        QCOMPARE(host.picture(), before);
    }

    void theWheelIsATouchWithTheRoundNumber()
    {
        Host host;
        QTRY_VERIFY(host.isShown());
        host.setPort(indexOf("low_gain"), 2.0F);
        settle(host.window);
        xdotool({"mousemove", "306", "455", "click", "4"});
        const QString port = QString::number(indexOf("low_gain"));
        QTRY_COMPARE(host.heard.size(), 3);
        QCOMPARE(host.heard.first(), QStringLiteral("touch ") + port);
        QVERIFY2(host.heard[1].startsWith(port + QStringLiteral(" = 2.")),
                 qPrintable(host.heard[1]));
        QCOMPARE(host.heard.last(), QStringLiteral("release ") + port);
    }

    void aDenseDisplayGetsALargerEditor()
    {
        Host host(stereoUri, 2.0F);
        QCOMPARE(host.wanted, QSize(1954, 1118));
        QTRY_VERIFY(host.isShown());
        settle(host.window);
        QVERIFY(host.picture().pixelColor(1900, 1000) != HostWindow::ground);
    }

    void theHostMayResizeIt()
    {
        Host host;
        QTRY_VERIFY(host.isShown());
        host.resize(1466, 839);
        settle(host.window);
        QVERIFY(host.picture().pixelColor(1440, 100) != HostWindow::ground);
        QVERIFY(host.picture().pixelColor(1440, 820) != HostWindow::ground);
    }

    void monoHasOnePort()
    {
        Host host(monoUri);
        QTRY_VERIFY(host.isShown());
        settle(host.window);
        const QImage before = host.picture();
        host.setPort(indexOf("meter_out", 1), -3.0F);
        QTRY_VERIFY(host.picture() != before);
    }

    void aProgramInstalledLaterIsFoundByAClick()
    {
        if (BundleCopy::isProgramInSystem())
            QSKIP("The editor's program is installed on this machine.");
        const BundleCopy bundle(UI_LIBRARY, QStringLiteral("lib/lv2/zolta.lv2"));
        Host host(stereoUri, 1.0F, bundle.library());
        QVERIFY(host.hasEditor());
        settle(host.window);
        QVERIFY(!host.isShown());
        bundle.install(EDITOR_PROGRAM);
        xdotool({"mousemove", "20", "500", "click", "1"});
        QTRY_VERIFY(host.isShown());
    }

    void withoutAParentThereIsNone()
    {
        const LV2UI_Descriptor* descriptor = loadedDescriptor(0);
        const LV2_Feature* const none[] = {nullptr};
        LV2UI_Widget widget = nullptr;
        for (const LV2_Feature* const* features : {none, decltype(&none[0])(nullptr)})
            QVERIFY(!descriptor->instantiate(
                descriptor, stereoUri, "",
                [](LV2UI_Controller, std::uint32_t, std::uint32_t, std::uint32_t, const void*) {},
                nullptr, &widget, features));
    }
};

QTEST_MAIN(tst_Lv2Ui)
#include "tst_Lv2Ui.moc"
