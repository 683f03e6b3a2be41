// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/vst3/Vst3View.h"
#include "tests/daw/BundleCopy.h"
#include "tests/daw/HostWindow.h"
#include "tests/daw/vst3/Vst3Host.h"
#include "tests/support/TestObject.h"

#include <QSocketNotifier>

#include <cmath>
#include <cstring>
#include <map>

using namespace Steinberg;
using Vst3Host::Plugin;

namespace {

constexpr Vst::ParamID lowGain = 3;
constexpr Vst::ParamID outputMeterRight = 105;
constexpr Vst::ParamID channelCount = 107;

/// A workstation's frame with a run loop.
class Frame : public Vst3Host::Owned<IPlugFrame>, public Linux::IRunLoop
{
public:
    tresult PLUGIN_API queryInterface(const TUID asked, void** obj) override
    {
        const bool known = hasRunLoop && std::memcmp(asked, Linux::IRunLoop_iid, sizeof(TUID)) == 0;
        *obj = known ? static_cast<Linux::IRunLoop*>(this) : nullptr;
        return known ? kResultOk : kNoInterface;
    }
    uint32 PLUGIN_API addRef() override { return 1; }
    uint32 PLUGIN_API release() override { return 1; }

    tresult PLUGIN_API resizeView(IPlugView* view, ViewRect* size) override
    {
        wanted = QSize(size->getWidth(), size->getHeight());
        return view->onSize(size);
    }
    tresult PLUGIN_API registerEventHandler(Linux::IEventHandler* handler,
                                            Linux::FileDescriptor descriptor) override
    {
        auto notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
        QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                         [=] { handler->onFDIsSet(descriptor); });
        m_notifiers[handler] = std::move(notifier);
        return kResultOk;
    }
    tresult PLUGIN_API unregisterEventHandler(Linux::IEventHandler* handler) override
    {
        m_notifiers.erase(handler);
        return kResultOk;
    }
    tresult PLUGIN_API registerTimer(Linux::ITimerHandler*, Linux::TimerInterval) override
    {
        return kNotImplemented;
    }
    tresult PLUGIN_API unregisterTimer(Linux::ITimerHandler*) override { return kNotImplemented; }

    bool isEmpty() const { return m_notifiers.empty(); }

    bool hasRunLoop = true;
    QSize wanted;

private:
    std::map<Linux::IEventHandler*, std::unique_ptr<QSocketNotifier>> m_notifiers;
};

/// A plug-in with its view in a window.
struct Session
{
    explicit Session(const char* library = ZOLTA_VST3_LIBRARY)
        : module(library)
    {
        window.open(1954, 1118);
        view = owned(plugin.controller->createView(Vst::ViewType::kEditor));
        view->setFrame(&frame);
    }
    ~Session()
    {
        view->removed();
        view->setFrame(nullptr);
    }

    tresult attach()
    {
        return view->attached(reinterpret_cast<void*>(static_cast<std::uintptr_t>(window.id())),
                              kPlatformTypeX11EmbedWindowID);
    }
    QImage picture() const { return window.picture().copy(0, 0, 977, 559); }
    bool isShown() const { return window.picture().pixelColor(488, 4) != HostWindow::ground; }

    Vst3Host::Module module;
    Plugin plugin{module};
    HostWindow window;
    Frame frame;
    IPtr<IPlugView> view;
};

} // namespace

class tst_Vst3View : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QTRY_COMPARE(childrenRunning(EDITOR_PROGRAM), QStringList()); }

    void onlyTheEditorIsAView()
    {
        const Session session;
        QVERIFY(!session.plugin.controller->createView("other"));
        QVERIFY(!session.plugin.controller->createView(nullptr));
        QCOMPARE(session.view->isPlatformTypeSupported(kPlatformTypeX11EmbedWindowID), kResultTrue);
        QCOMPARE(session.view->isPlatformTypeSupported("HWND"), kResultFalse);
        QCOMPARE(session.view->isPlatformTypeSupported(nullptr), kResultFalse);
        QVERIFY(childrenRunning(EDITOR_PROGRAM).isEmpty());
    }

    void valuesAndMetersReachTheEditor()
    {
        Session session;
        QCOMPARE(session.attach(), kResultOk);
        QTRY_VERIFY(session.isShown());
        settle(session.window);
        const QImage before = session.picture();
        session.plugin.controller->setParamNormalized(lowGain, 0.75);
        QTRY_VERIFY(session.picture() != before);
        session.plugin.controller->setParamNormalized(lowGain, 0.5);
        QTRY_COMPARE(session.picture(), before);
        session.plugin.controller->setParamNormalized(outputMeterRight, 1.0);
        QTRY_VERIFY(session.picture() != before);
        QVERIFY(session.plugin.handler.edits.empty());
    }

    void aStateOfTheWorkstationIsShown()
    {
        Session session;
        const QByteArray state = session.plugin.state();
        session.plugin.controller->setParamNormalized(lowGain, 0.75);
        QCOMPARE(session.attach(), kResultOk);
        QTRY_VERIFY(session.isShown());
        settle(session.window);
        const QImage before = session.picture();
        QVERIFY(session.plugin.setState(state));
        QTRY_VERIFY(session.picture() != before);
    }

    void theWheelIsOneGesture()
    {
        Session session;
        QCOMPARE(session.attach(), kResultOk);
        QTRY_VERIFY(session.isShown());
        settle(session.window);
        xdotool({"mousemove", "306", "455", "click", "4"});
        const std::vector<std::string> expected = {"begin 3", "perform 3", "end 3"};
        QTRY_COMPARE(session.plugin.handler.edits, expected);
        QVERIFY(session.plugin.handler.lastEdit > 0.5);
        QCOMPARE(session.plugin.controller->getParamNormalized(lowGain),
                 session.plugin.handler.lastEdit);
    }

    void theProcessorSaysWhatTheEditorMustKnow()
    {
        Session session;
        std::array<float, 64> block{};
        float* const channels[] = {block.data(), block.data()};
        session.plugin.process(channels, block.size());
        session.plugin.tellController();
        QCOMPARE(std::lround(session.plugin.controller->getParamNormalized(106) * 1e6), 48000L);
        QCOMPARE(std::lround(session.plugin.controller->getParamNormalized(channelCount) * 2), 2L);
    }

    void sizesKeepTheProportion_data()
    {
        QTest::addColumn<QSize>("asked");
        QTest::addColumn<QSize>("given");
        QTest::newRow("as it is") << QSize(977, 559) << QSize(977, 559);
        QTest::newRow("too wide") << QSize(3000, 559) << QSize(977, 559);
        QTest::newRow("too high") << QSize(977, 3000) << QSize(977, 559);
        QTest::newRow("double") << QSize(1954, 1118) << QSize(1954, 1118);
        QTest::newRow("too small") << QSize(1, 1) << QSize(489, 280);
        QTest::newRow("too large") << QSize(20000, 20000) << QSize(3908, 2236);
    }

    void sizesKeepTheProportion()
    {
        QFETCH(QSize, asked);
        QFETCH(QSize, given);
        const Session session;
        ViewRect rect(10, 20, 10 + asked.width(), 20 + asked.height());
        QCOMPARE(session.view->canResize(), kResultTrue);
        QCOMPARE(session.view->checkSizeConstraint(&rect), kResultTrue);
        QCOMPARE(QSize(rect.getWidth(), rect.getHeight()), given);
        QCOMPARE(QPoint(rect.left, rect.top), QPoint(10, 20));
    }

    void theContentScaleEnlargesAnOpenEditor()
    {
        Session session;
        QCOMPARE(session.attach(), kResultOk);
        QTRY_VERIFY(session.isShown());
        FUnknownPtr<IPlugViewContentScaleSupport> scale(session.view);
        QVERIFY(scale);
        QCOMPARE(scale->setContentScaleFactor(std::nanf("")), kInvalidArgument);
        QCOMPARE(scale->setContentScaleFactor(0.0F), kInvalidArgument);
        QCOMPARE(scale->setContentScaleFactor(2.0F), kResultTrue);
        QCOMPARE(session.frame.wanted, QSize(1954, 1118));
        QTRY_VERIFY(session.window.picture().pixelColor(1900, 4) != HostWindow::ground &&
                    session.window.picture().pixelColor(1900, 1100) != HostWindow::ground);
        QCOMPARE(childrenRunning(EDITOR_PROGRAM).size(), 1);
    }

    void withoutARunLoopThereIsNoEditor()
    {
        Session session;
        session.frame.hasRunLoop = false;
        QCOMPARE(session.attach(), kResultFalse);
        session.view->setFrame(nullptr);
        QCOMPARE(session.attach(), kResultFalse);
    }

    void removedLeavesNothingAndMayBeAttachedAgain()
    {
        Session session;
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(session.attach(), kResultOk);
            QCOMPARE(session.attach(), kResultFalse);
            QTRY_VERIFY(session.isShown());
            QCOMPARE(session.view->removed(), kResultOk);
            QVERIFY(session.frame.isEmpty());
            QVERIFY(childrenRunning(EDITOR_PROGRAM).isEmpty());
        }
    }

    void aProgramInstalledLaterIsFoundByAClick()
    {
        if (BundleCopy::isProgramInSystem())
            QSKIP("The editor's program is installed on this machine.");
        const BundleCopy bundle(ZOLTA_VST3_LIBRARY,
                                QStringLiteral("lib/vst3/zolta.vst3/Contents/x86_64-linux"));
        Session session(bundle.library());
        QCOMPARE(session.attach(), kResultOk);
        settle(session.window);
        QVERIFY(!session.isShown());
        bundle.install(EDITOR_PROGRAM);
        xdotool({"mousemove", "20", "500", "click", "1"});
        QTRY_VERIFY(session.isShown());
    }

    void theViewHoldsItsController()
    {
        Session session;
        TUID id;
        session.plugin.component->getControllerClassId(id);
        void* made = nullptr;
        session.module.factory()->createInstance(id, Vst::IEditController_iid, &made);
        auto* controller = static_cast<Vst::IEditController*>(made);
        session.view = owned(controller->createView(Vst::ViewType::kEditor));
        QCOMPARE(controller->release(), 1U);
        session.view->setFrame(&session.frame);
        QCOMPARE(session.attach(), kResultOk);
        QTRY_VERIFY(session.isShown());
    }
};

QTEST_MAIN(tst_Vst3View)
#include "tst_Vst3View.moc"
