// SPDX-License-Identifier: GPL-3.0-or-later
#include "interfaces/IVaskEffect.h"
#include "interfaces/IVaskEffectChFx.h"
#include "interfaces/IVaskEffectEditor2.h"
#include "tests/support/DataTable.h"
#include "tests/support/TestHost.h"
#include "tests/support/TestObject.h"
#include "tests/support/TestStream.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <QPointer>
#include <QProcess>
#include <QStyle>

#include <pluginterfaces/vst/ivstcomponent.h>

#include <algorithm>
#include <memory>

using Operation = TestHost::Operation;
using Channels = std::vector<unsigned short>;

/// The shared library as a mixer host meets it: loaded from its file.
class tst_Zolta : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void exportsTheTwoEntryFunctionsOnly();
    void metaDataBlockIsExact();
    void loaderReadsTheMetaData();
    void instanceIsOneAProcessAndComesBackAfterItsDeletion();
    void fxTypeIsTheSameThroughEitherInterface();
    void createAsksForEntriesUpToTheMatchingOne_data();
    void createAsksForEntriesUpToTheMatchingOne();
    void createGivesAnInitializedUnboundEditor();
    void settingsComeBackThroughTheComponent();

private:
    QPluginLoader m_loader{QStringLiteral(ZOLTA_PLUGIN_FILE)};
    IVaskEffect* effect() { return qobject_cast<IVaskEffect*>(m_loader.instance()); }
    std::unique_ptr<IVaskEffectEditor2> makeEditor(TestHost& host, unsigned short ch = 0)
    {
        return std::unique_ptr<IVaskEffectEditor2>(
            static_cast<IVaskEffectEditor2*>(effect()->create(nullptr, ch, host.model())));
    }
};

namespace {

QByteArray block()
{
    const auto query = reinterpret_cast<QPluginMetaData (*)()>(
        QLibrary::resolve(QStringLiteral(ZOLTA_PLUGIN_FILE), "qt_plugin_query_metadata"));
    if (!query)
        return {};
    const QPluginMetaData data = query();
    return QByteArray(static_cast<const char*>(data.data), static_cast<qsizetype>(data.size));
}

} // namespace

void tst_Zolta::exportsTheTwoEntryFunctionsOnly()
{
    QProcess nm;
    nm.start(QStringLiteral(ZOLTA_NM),
             {QStringLiteral("--dynamic"), QStringLiteral("--defined-only"),
              QStringLiteral("--format=just-symbols"), QStringLiteral(ZOLTA_PLUGIN_FILE)});
    QVERIFY(nm.waitForFinished());
    QCOMPARE(nm.exitCode(), 0);
    QList<QByteArray> symbols = nm.readAllStandardOutput().trimmed().split('\n');
    std::sort(symbols.begin(), symbols.end());
    QCOMPARE(symbols, (QList<QByteArray>{"qt_plugin_instance", "qt_plugin_query_metadata"}));
}

void tst_Zolta::metaDataBlockIsExact()
{
    QByteArray expected("QTMETADATA !");
    expected += QByteArray::fromHex("00060200");
    expected += "\xbf";
    expected += "\x02\x73"
                "org.zolta.fx.effect";
    expected += "\x03\x65"
                "Zolta";
    expected += "\x04\xa3";
    expected += "\x6c"
                "dependencies"
                "\x80";
    expected += "\x64"
                "name"
                "\x6a"
                "Zolta_Pelt";
    expected += "\x67"
                "version"
                "\x65"
                "2.0.0";
    expected += "\xff";
    QCOMPARE(expected.size(), 92);
    QCOMPARE(block(), expected);
}

void tst_Zolta::loaderReadsTheMetaData()
{
    const QJsonObject metaData = m_loader.metaData();
    QCOMPARE(metaData.value(QLatin1String("IID")).toString(), QLatin1String("org.zolta.fx.effect"));
    QCOMPARE(metaData.value(QLatin1String("className")).toString(), QLatin1String("Zolta"));
    const QJsonObject own = metaData.value(QLatin1String("MetaData")).toObject();
    QCOMPARE(own.keys(), (QStringList{QStringLiteral("dependencies"), QStringLiteral("name"),
                                      QStringLiteral("version")}));
    QVERIFY(own.value(QLatin1String("dependencies")).toArray().isEmpty());
    QCOMPARE(own.value(QLatin1String("name")).toString(), QLatin1String("Zolta_Pelt"));
    QCOMPARE(own.value(QLatin1String("version")).toString(), QLatin1String("2.0.0"));
}

void tst_Zolta::instanceIsOneAProcessAndComesBackAfterItsDeletion()
{
    using Instance = QObject* (*)();
    QVERIFY2(m_loader.load(), qPrintable(m_loader.errorString()));
    const auto instance = reinterpret_cast<Instance>(
        QLibrary::resolve(QStringLiteral(ZOLTA_PLUGIN_FILE), "qt_plugin_instance"));
    QPointer<QObject> first = instance();
    QVERIFY(first);
    QVERIFY(!first->parent());
    QCOMPARE(instance(), first.data());
    QCOMPARE(m_loader.instance(), first.data());

    delete first;
    QPointer<QObject> second = instance();
    QVERIFY(second);
    QCOMPARE(QByteArray(second->metaObject()->className()), QByteArray("Zolta"));
    QCOMPARE(instance(), second.data());
}

void tst_Zolta::fxTypeIsTheSameThroughEitherInterface()
{
    QObject* object = m_loader.instance();
    auto* chFx = qobject_cast<IVaskEffectChFx*>(object);
    QVERIFY(chFx);
    QCOMPARE(chFx->fxType(), 8);
    auto* throughEffect = dynamic_cast<IVaskEffectChFx*>(effect());
    QCOMPARE(throughEffect, chFx);
    QCOMPARE(throughEffect->fxType(), 8);
}

void tst_Zolta::createAsksForEntriesUpToTheMatchingOne_data()
{
    addColumns<Channels, int, bool, int>("channels", "ch", "found", "asked");
    QTest::newRow("empty model") << Channels() << 0 << false << 0;
    QTest::newRow("first") << Channels{40, 7, 65535} << 40 << true << 1;
    QTest::newRow("in the middle") << Channels{40, 7, 65535} << 7 << true << 2;
    QTest::newRow("last") << Channels{40, 7, 65535} << 65535 << true << 3;
    QTest::newRow("unlisted") << Channels{40, 7, 65535} << 8 << false << 3;
}

void tst_Zolta::createAsksForEntriesUpToTheMatchingOne()
{
    QFETCH(Channels, channels);
    QFETCH(int, ch);
    QFETCH(bool, found);
    QFETCH(int, asked);
    TestHost host;
    host.setChannels(channels);
    QWidget parent;
    const qsizetype widgets = QApplication::allWidgets().size();
    QCOMPARE(effect()->create(&parent, static_cast<unsigned short>(ch), host.model()) != nullptr,
             found);
    QCOMPARE(QApplication::allWidgets().size() > widgets, found);
    QCOMPARE(parent.children().size(), found ? 1 : 0);
    QCOMPARE(host.count(Operation::GetChannelCount), 1);
    QCOMPARE(host.count(Operation::GetChannelEntry), asked);
    QVERIFY(!effect()->create(&parent, static_cast<unsigned short>(ch), nullptr));
}

void tst_Zolta::createGivesAnInitializedUnboundEditor()
{
    TestHost host;
    QWidget parent;
    IVaskEffectEditor* editor = effect()->create(&parent, 3, host.model());
    QVERIFY(editor);
    QCOMPARE(editor->parentWidget(), &parent);
    QCOMPARE(editor->size(), QSize(977, 559));
    QCOMPARE(editor->objectName(), QStringLiteral("ZoltaEditor"));
    QCOMPARE(editor->font().family(), QStringLiteral("M+ 1c"));
    QCOMPARE(editor->font().styleName(), QStringLiteral("Medium"));
    QVERIFY(editor->font().pixelSize() > 0);
    QCOMPARE(QByteArray(editor->style()->metaObject()->className()), QByteArray("EffectStyle"));
    QCOMPARE(host.observerCount(), 0);
    QCOMPARE(host.meterObserverCount(), 0);
    parent.setBackgroundRole(QPalette::Base);
    QCOMPARE(editor->palette().color(editor->backgroundRole()), QColor(Qt::black));

    static_cast<IVaskEffectEditor2*>(editor)->setScale(2.0);
    QCOMPARE(editor->size(), QSize(1954, 1118));
    const QList<QWidget*> widgets = editor->findChildren<QWidget*>();
    const auto graph = std::find_if(widgets.begin(), widgets.end(), [](const QWidget* widget) {
        return widget->inherits("ZoltaEqualizerGraph");
    });
    QVERIFY(graph != widgets.end());
    QCOMPARE((*graph)->geometry(), QRect(188, 44, 1358, 384));
}

void tst_Zolta::settingsComeBackThroughTheComponent()
{
    TestHost host;
    const auto editor = makeEditor(host, 1);
    Steinberg::Vst::IComponent* component = editor->getVstComponent();

    TestStream unbound;
    QCOMPARE(component->getState(&unbound), Steinberg::kResultFalse);
    QCOMPARE(unbound.bytes(), QByteArray("2620"));

    editor->setMemAPI(host.memory());
    editor->setCh(1, 1);
    host.set("fx_rackfx_prm_11", 1, 77);
    host.set("fx_rackfx_prm_11", 0, -5);
    TestStream saved;
    QCOMPARE(component->getState(&saved), Steinberg::kResultOk);
    QCOMPARE(saved.bytes().size(), 116);

    host.set("fx_rackfx_prm_11", 1, 0);
    QCOMPARE(component->setState(&saved), Steinberg::kResultOk);
    QCOMPARE(host.value("fx_rackfx_prm_11", 1), 77);
    QCOMPARE(host.value("fx_rackfx_prm_11", 0), -5);

    // A detached editor's component keeps the memory that it has.
    editor->setMemAPI(nullptr);
    TestStream detached;
    QCOMPARE(component->getState(&detached), Steinberg::kResultOk);
    QCOMPARE(detached.bytes(), saved.bytes());
}

ZOLTA_TEST_MAIN(tst_Zolta)
#include "tst_Zolta.moc"
