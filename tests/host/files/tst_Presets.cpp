// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/files/PresetFolder.h"
#include "host/window/EditorWindow.h"
#include "host/window/Mixer.h"
#include "host/window/MixerWindow.h"
#include "parameters/FactoryPresets.h"
#include "parameters/ParameterText.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestFiles.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QDir>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>

using namespace Qt::StringLiterals;

class tst_Presets : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void factoryPreset_data();
    void factoryPreset();
    void factoryNamesAreTranslated();
    void factoryMenuLoadsOneStep();
    void savedPresetComesBack();
    void menuListsTheUsersOwn();
    void savingAsksForAName();
    void everyScriptsNamesAreTaken();
    void badNameIsAskedForAgain();
    void replacingIsAsked();
    void deletedPresetIsGone();
    void wrongNames_data();
    void wrongNames();
    void badFileIsExplained();
    void sortsAsPeopleDo();

private:
    QAction* action(const char* text) const
    {
        return WindowTesting::actionOf(m_editor, QLatin1String(text));
    }
    QString fileOf(const QString& name) const { return m_folder.fileOf(name); }
    template <typename Dialog, typename Act> static void whenAsked(Act act);

    Mixer m_mixer;
    PresetFolder m_folder{QString()};
    std::unique_ptr<MixerWindow> m_window;
    EditorWindow* m_editor = nullptr;
};

void tst_Presets::initTestCase()
{
    QStandardPaths::setTestModeEnabled(true);
    m_folder = PresetFolder(PresetFolder::standardFolder());
    WindowTesting::loadStandIn(m_mixer);
}

void tst_Presets::init()
{
    TestObject::init();
    QDir(PresetFolder::standardFolder()).removeRecursively();
    m_window = std::make_unique<MixerWindow>(m_mixer, EditorSettings());
    m_editor = m_window->openEditor(2, true);
}

void tst_Presets::cleanup()
{
    m_window.reset();
    m_mixer.memory.reset(2);
    m_mixer.mixerModel.history().clear();
    QDir(PresetFolder::standardFolder()).removeRecursively();
}

// Does something with the next dialog, which has to come.
template <typename Dialog, typename Act> void tst_Presets::whenAsked(Act act)
{
    QTimer::singleShot(0, qApp, [act] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog)
            qFatal("no dialog");
        act(dialog);
    });
}

void tst_Presets::factoryPreset_data()
{
    QTest::addColumn<int>("index");
    QVERIFY(factoryPresets().size() >= 12);
    QStringList names;
    for (std::size_t i = 0; i < factoryPresets().size(); ++i) {
        names << QLatin1String(factoryPresets()[i].name);
        QTest::newRow(factoryPresets()[i].name) << static_cast<int>(i);
    }
    QCOMPARE(names.removeDuplicates(), 0);
}

// Each setting names a parameter once, in the very text that the editor will show for it.
void tst_Presets::factoryPreset()
{
    QFETCH(const int, index);
    const FactoryPreset& preset = factoryPresets()[static_cast<std::size_t>(index)];
    const HostMemory::Values values = valuesOf(preset);
    HostMemory::Values expected = HostMemory().values(0);
    QStringList titles;
    for (const PresetSetting& setting : preset.settings) {
        titles << QLatin1String(setting.title);
        const auto found =
            std::find_if(parameterTable.begin(), parameterTable.end(), [&](const Parameter& p) {
                return std::string_view(p.title) == setting.title;
            });
        QVERIFY2(found != parameterTable.end(), setting.title);
        const auto raw = parseParameter(*found, setting.text);
        QVERIFY2(raw, setting.text);
        QVERIFY(found->allows(*raw));
        QCOMPARE(QString::fromStdString(*formatParameter(*found, *raw)),
                 QLatin1String(setting.text));
        expected[static_cast<std::size_t>(found - parameterTable.begin())] = *raw;
    }
    QCOMPARE(titles.removeDuplicates(), 0);
    QCOMPARE(values, expected);
    QVERIFY(values != HostMemory().values(0));
    QVERIFY(*preset.hint);
}

void tst_Presets::factoryNamesAreTranslated()
{
    m_mixer.language.choose(Language::Japanese);
    for (const FactoryPreset& preset : factoryPresets()) {
        for (const char* text : {preset.name, preset.hint})
            QVERIFY2(QCoreApplication::translate("FactoryPreset", text) != QLatin1String(text),
                     text);
    }
    m_mixer.language.choose(Language::English);
}

void tst_Presets::factoryMenuLoadsOneStep()
{
    QAction* kick = action("Kick");
    kick->trigger();
    const auto presets = factoryPresets();
    const auto found = std::find_if(presets.begin(), presets.end(), [](const FactoryPreset& p) {
        return std::string_view(p.name) == "Kick";
    });
    QCOMPARE(m_mixer.memory.values(2), valuesOf(*found));
    QCOMPARE(m_mixer.mixerModel.history().stack().count(), 1);
    QCOMPARE(m_mixer.mixerModel.history().stack().undoText(), u"Kick"_s);
    m_mixer.mixerModel.history().stack().undo();
    QCOMPARE(m_mixer.memory.values(2), HostMemory().values(2));
}

void tst_Presets::savedPresetComesBack()
{
    m_mixer.memory.write(2, valuesOf(factoryPresets()[0]));
    m_editor->savePreset(u"My vocal"_s);
    QVERIFY(QFile::exists(fileOf(u"My vocal"_s)));
    QCOMPARE(m_editor->statusBar()->currentMessage(), u"Saved My vocal."_s);
    m_mixer.memory.reset(2);
    m_mixer.mixerModel.history().clear();
    m_editor->loadPreset(u"My vocal"_s);
    QCOMPARE(m_mixer.memory.values(2), valuesOf(factoryPresets()[0]));
    QCOMPARE(m_mixer.mixerModel.history().stack().count(), 1);
    QCOMPARE(m_mixer.mixerModel.history().stack().undoText(), u"Load My vocal"_s);
}

void tst_Presets::menuListsTheUsersOwn()
{
    m_editor->savePreset(u"Rock & roll"_s);
    QAction* save = action("Save as Preset...");
    auto* menu = qobject_cast<QMenu*>(save->associatedObjects().value(0));
    QVERIFY(menu);
    Q_EMIT menu->aboutToShow();
    QAction* mine = menu->actions().constLast();
    QCOMPARE(mine->text(), u"Rock && roll"_s);
    m_mixer.memory.setValue(parameterId(2), 2, 99, 0, 0, 1);
    mine->trigger();
    QCOMPARE(m_mixer.memory.values(2), HostMemory().values(2));
    Q_EMIT menu->aboutToShow();
}

void tst_Presets::savingAsksForAName()
{
    whenAsked<QInputDialog>([](QInputDialog* dialog) {
        dialog->setTextValue(u"  Asked   for "_s);
        dialog->accept();
    });
    action("Save as Preset...")->trigger();
    QCOMPARE(m_folder.names(), QStringList{u"Asked for"_s});
}

void tst_Presets::everyScriptsNamesAreTaken()
{
    for (const QString& name :
         {u"Vocal \U00020bb7"_s, u"\U0001f941 loud"_s, u"\U0001f469\u200d\U0001f3a4"_s,
          u"ボーカル"_s, u"Che\u0301rie"_s}) {
        m_editor->savePreset(name);
        QCOMPARE(m_folder.names(), QStringList{name});
        m_editor->deletePreset(name);
    }
}

void tst_Presets::badNameIsAskedForAgain()
{
    whenAsked<QInputDialog>([](QInputDialog* dialog) {
        dialog->setTextValue(u"AC/DC"_s);
        whenAsked<QMessageBox>([](QMessageBox* box) {
            whenAsked<QInputDialog>([](QInputDialog* again) {
                QCOMPARE(again->textValue(), u"AC/DC"_s);
                again->setTextValue(u"AC-DC"_s);
                again->accept();
            });
            box->accept();
        });
        dialog->accept();
    });
    action("Save as Preset...")->trigger();
    QCOMPARE(m_folder.names(), QStringList{u"AC-DC"_s});
}

void tst_Presets::replacingIsAsked()
{
    m_editor->savePreset(u"Twice"_s);
    m_mixer.memory.setValue(parameterId(2), 2, 99, 0, 0, 1);
    const QByteArray before = TestFiles::read(fileOf(u"Twice"_s));
    whenAsked<QInputDialog>([](QInputDialog* dialog) {
        dialog->setTextValue(u"Twice"_s);
        whenAsked<QMessageBox>([](QMessageBox* box) { box->button(QMessageBox::No)->click(); });
        dialog->accept();
    });
    action("Save as Preset...")->trigger();
    QCOMPARE(TestFiles::read(fileOf(u"Twice"_s)), before);
}

void tst_Presets::deletedPresetIsGone()
{
    m_editor->savePreset(u"Short-lived"_s);
    m_editor->deletePreset(u"Short-lived"_s);
    QCOMPARE(m_folder.names(), QStringList());
    whenAsked<QMessageBox>([](QMessageBox* box) {
        QVERIFY(box->text().startsWith(u"The preset Short-lived cannot be deleted"_s));
        box->accept();
    });
    m_editor->deletePreset(u"Short-lived"_s);
}

void tst_Presets::wrongNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << QString();
    QTest::newRow("blank") << u"  "_s;
    QTest::newRow("path") << u"../etc"_s;
    QTest::newRow("slash") << u"a/b"_s;
    QTest::newRow("backslash") << u"a\\b"_s;
    QTest::newRow("hidden") << u".hidden"_s;
    QTest::newRow("control character") << u"a\nb"_s;
    QTest::newRow("line separator") << u"a\u2028b"_s;
    QTest::newRow("half a letter") << u"a"_s + QChar(0xd842);
    QTest::newRow("too long") << QString(81, QLatin1Char('x'));
}

void tst_Presets::wrongNames()
{
    QFETCH(const QString, name);
    QString said;
    whenAsked<QMessageBox>([&said](QMessageBox* box) {
        said = box->text();
        box->accept();
    });
    m_editor->savePreset(name);
    QCOMPARE(said, PresetFolder::checkName(name).error());
    QVERIFY(!said.isEmpty());
    QCOMPARE(m_folder.names(), QStringList());
}

// What else can be wrong with a file is up to StateFile.
void tst_Presets::badFileIsExplained()
{
    TestFiles::write(fileOf(u"Bad"_s), "hello");
    QString said;
    whenAsked<QMessageBox>([&said](QMessageBox* box) {
        said = box->text();
        box->accept();
    });
    m_editor->loadPreset(u"Bad"_s);
    QVERIFY2(said.contains("Bad.vstpreset is neither an equalizer state"_L1), qPrintable(said));
    QCOMPARE(m_mixer.memory.values(2), HostMemory().values(2));
    QCOMPARE(m_mixer.mixerModel.history().stack().count(), 0);
}

void tst_Presets::sortsAsPeopleDo()
{
    const QTemporaryDir folder;
    for (const char* name : {"Take 10.vstpreset", "take 2.vstpreset", "Alpha.vstpreset",
                             "Take 1.vstpreset", "other.txt"})
        TestFiles::write(folder.filePath(QLatin1String(name)), "");
    QCOMPARE(PresetFolder(folder.path()).names(),
             (QStringList{u"Alpha"_s, u"Take 1"_s, u"take 2"_s, u"Take 10"_s}));
}

ZOLTA_TEST_MAIN(tst_Presets)

#include "tst_Presets.moc"
