// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/files/PresetFolder.h"
#include "host/window/EditorPresets.h"
#include "host/window/EditorWindow.h"
#include "host/window/Mixer.h"
#include "host/window/MixerSession.h"
#include "host/window/MixerWindow.h"
#include "parameters/FactoryPresets.h"
#include "parameters/ParameterText.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestFiles.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QDesktopServices>
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
#include <QToolButton>
#include <QUndoStack>
#include <QUrl>

using namespace Qt::StringLiterals;
using WindowTesting::choose;

class DesktopHandler : public QObject
{
    Q_OBJECT

public:
    QUrl opened;

public Q_SLOTS:
    void open(const QUrl& url) { opened = url; }
};

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
    void questionsNameTheAction_data();
    void questionsNameTheAction();
    void barShowsThePresetAndWhetherItIsModified();
    void longNamesAreCut();
    void previousAndNextGoAround();
    void saveKeySavesAgain();
    void saveKeyAsksForANewName();
    void renamedPresetKeepsItsSettings();
    void knownValuesAreRecognized_data();
    void knownValuesAreRecognized();
    void sessionsKeepThePreset_data();
    void sessionsKeepThePreset();
    void folderIsShown();
    void deletedPresetIsGone();
    void wrongNames_data();
    void wrongNames();
    void badFileIsExplained();
    void sortsAsPeopleDo();

private:
    void openEditor();
    QAction* action(const char* text) const
    {
        return WindowTesting::actionOf(m_editor, QLatin1String(text));
    }
    EditorPresets& presets() const { return m_editor->presets(); }
    QToolButton* key(const char* name) const
    {
        return WindowTesting::named<QToolButton>(m_editor, QLatin1String(name));
    }
    void press(const char* name)
    {
        key(name)->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    }
    QToolButton* nameKey() const;
    QAction* deletionOf(const QString& name) const;
    QUndoStack& history() { return m_mixer.mixerModel.history().stack(); }
    void turn() { m_mixer.memory.setValue(parameterId(2), 2, 99, 0, 0, 1); }
    void saveTurned(const QString& name, int value);
    void happens(const QString& what, const QString& name);
    QString fileOf(const QString& name) const { return m_folder.fileOf(name); }
    template <typename Dialog, typename Act> static void whenAsked(Act act);

    Mixer m_mixer;
    PresetFolder m_folder{QString()};
    std::unique_ptr<MixerWindow> m_window;
    EditorWindow* m_editor = nullptr;
    inline static int unanswered = 0; // dialogs that are still to come
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
    openEditor();
}

void tst_Presets::openEditor()
{
    m_window = std::make_unique<MixerWindow>(m_mixer, EditorSettings());
    m_editor = m_window->openEditor(2, true);
}

void tst_Presets::cleanup()
{
    QCOMPARE(unanswered, 0);
    m_window.reset();
    m_mixer.memory.reset(2);
    m_mixer.mixerModel.presets().clear(2);
    m_mixer.mixerModel.history().clear();
    QDir(PresetFolder::standardFolder()).removeRecursively();
}

QToolButton* tst_Presets::nameKey() const
{
    const QString extension = u"qt_toolbar_ext_button"_s;
    for (QToolButton* each : m_editor->findChildren<QToolButton*>()) {
        if (each->menu() && !each->accessibleName().isEmpty() && each->objectName() != extension)
            return each;
    }
    qFatal("no name");
}

// In the menu of what can be deleted, as it is when the menu opens.
QAction* tst_Presets::deletionOf(const QString& name) const
{
    auto* menu = qobject_cast<QMenu*>(action("Rename...")->associatedObjects().value(0));
    Q_EMIT menu->aboutToShow();
    for (QAction* each : action("Delete")->menu()->actions()) {
        if (each->text() == name)
            return each;
    }
    qFatal("no deletion");
}

// Does something with the next dialog, which has to come.
template <typename Dialog, typename Act> void tst_Presets::whenAsked(Act act)
{
    ++unanswered;
    QTimer::singleShot(1, qApp, [act] { // a posted event would come too early
        --unanswered;
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return whenAsked<Dialog>(act);
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
    choose(kick);
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
    presets().save(u"My vocal"_s);
    QVERIFY(QFile::exists(fileOf(u"My vocal"_s)));
    QCOMPARE(m_editor->statusBar()->currentMessage(), u"Saved My vocal."_s);
    m_mixer.memory.reset(2);
    m_mixer.mixerModel.history().clear();
    presets().load({u"My vocal"_s});
    QCOMPARE(m_mixer.memory.values(2), valuesOf(factoryPresets()[0]));
    QCOMPARE(m_mixer.mixerModel.history().stack().count(), 1);
    QCOMPARE(m_mixer.mixerModel.history().stack().undoText(), u"Load My vocal"_s);
}

void tst_Presets::menuListsTheUsersOwn()
{
    presets().save(u"Rock & roll"_s);
    QAction* save = action("Save as Preset...");
    auto* menu = qobject_cast<QMenu*>(save->associatedObjects().value(0));
    QVERIFY(menu);
    Q_EMIT menu->aboutToShow();
    QAction* mine = menu->actions().constLast();
    QCOMPARE(mine->text(), u"Rock && roll"_s);
    m_mixer.memory.setValue(parameterId(2), 2, 99, 0, 0, 1);
    choose(mine);
    QCOMPARE(m_mixer.memory.values(2), HostMemory().values(2));
    Q_EMIT menu->aboutToShow();
}

void tst_Presets::savingAsksForAName()
{
    whenAsked<QInputDialog>([](QInputDialog* dialog) {
        dialog->setTextValue(u"  Asked   for "_s);
        dialog->accept();
    });
    choose(action("Save as Preset..."));
    QCOMPARE(m_folder.names(), QStringList{u"Asked for"_s});
}

void tst_Presets::everyScriptsNamesAreTaken()
{
    for (const QString& name :
         {u"Vocal \U00020bb7"_s, u"\U0001f941 loud"_s, u"\U0001f469\u200d\U0001f3a4"_s,
          u"ボーカル"_s, u"Che\u0301rie"_s}) {
        presets().save(name);
        QCOMPARE(m_folder.names(), QStringList{name});
        presets().remove(name);
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
    choose(action("Save as Preset..."));
    QCOMPARE(m_folder.names(), QStringList{u"AC-DC"_s});
}

void tst_Presets::replacingIsAsked()
{
    presets().save(u"Twice"_s);
    m_mixer.memory.setValue(parameterId(2), 2, 99, 0, 0, 1);
    const QByteArray before = TestFiles::read(fileOf(u"Twice"_s));
    whenAsked<QInputDialog>([](QInputDialog* dialog) {
        dialog->setTextValue(u"Twice"_s);
        whenAsked<QMessageBox>([](QMessageBox* box) { box->button(QMessageBox::Cancel)->click(); });
        dialog->accept();
    });
    choose(action("Save as Preset..."));
    QCOMPARE(TestFiles::read(fileOf(u"Twice"_s)), before);
}

// Return and Escape cancel; the other button says what it does.
void tst_Presets::questionsNameTheAction_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("key");
    for (const auto& [text, button] :
         {std::pair("Save as Preset...", "Replace"), std::pair("Rename...", "Replace"),
          std::pair("Mine", "Delete")}) {
        const QString action = QString::fromLatin1(text);
        const QString agreeing = QString::fromLatin1(button);
        QTest::addRow("%s, Return", text) << action << agreeing << int(Qt::Key_Return);
        QTest::addRow("%s, Escape", text) << action << agreeing << int(Qt::Key_Escape);
        QTest::addRow("%s, agreed", text) << action << agreeing << 0;
    }
}

void tst_Presets::questionsNameTheAction()
{
    QFETCH(const QString, action);
    QFETCH(const QString, button);
    QFETCH(const int, key);
    turn();
    presets().save(u"Other"_s);
    m_mixer.memory.reset(2);
    presets().save(u"Mine"_s);
    const QByteArray other = TestFiles::read(fileOf(u"Other"_s));
    QSet<QString> buttons;
    const auto answer = [&](QMessageBox* box) {
        QAbstractButton* agreeing = nullptr;
        for (QAbstractButton* each : box->buttons()) {
            buttons << each->text().remove(QLatin1Char('&'));
            agreeing = each->text() == button ? each : agreeing;
        }
        if (key != 0)
            QTest::keyClick(box, Qt::Key(key));
        else
            agreeing->click();
    };
    const auto name = [&](QInputDialog* dialog) {
        dialog->setTextValue(u"Other"_s);
        whenAsked<QMessageBox>(answer);
        dialog->accept();
    };
    if (action == "Mine"_L1)
        whenAsked<QMessageBox>(answer);
    else
        whenAsked<QInputDialog>(name);
    choose(action == "Mine"_L1 ? deletionOf(action) : this->action(qPrintable(action)));
    QCOMPARE(buttons, (QSet<QString>{button, u"Cancel"_s}));
    const bool isAsBefore = m_folder.names() == QStringList{u"Mine"_s, u"Other"_s} &&
                            TestFiles::read(fileOf(u"Other"_s)) == other;
    QCOMPARE(isAsBefore, key != 0);
}

void tst_Presets::barShowsThePresetAndWhetherItIsModified()
{
    QCOMPARE(nameKey()->text(), u"No preset"_s);
    choose(action("Kick"));
    QCOMPARE(nameKey()->text(), u"Kick"_s);
    QVERIFY(action("Kick")->isChecked());
    turn();
    QCOMPARE(nameKey()->text(), u"Kick *"_s);
    QCOMPARE(nameKey()->accessibleName(), u"Preset: Kick, modified"_s);
    for (const QString& text : {u"Kick"_s, u"No preset"_s}) {
        history().undo();
        QCOMPARE(nameKey()->text(), text);
    }
    history().redo();
    m_mixer.memory.setValue(parameterId(2), 4, 99, 0, 0, 1); // another channel's
    QCOMPARE(nameKey()->text(), u"Kick"_s);
    m_mixer.language.choose(Language::Japanese);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(nameKey()->text(), QCoreApplication::translate("FactoryPreset", "Kick"));
    m_mixer.language.choose(Language::English);
    QCoreApplication::sendPostedEvents();
    m_mixer.memory.reset(4);
}

void tst_Presets::longNamesAreCut()
{
    const QString name(80, QLatin1Char('W'));
    presets().save(name);
    QVERIFY(nameKey()->text().endsWith(QChar(0x2026)));
    QVERIFY(nameKey()->accessibleName().endsWith(name));
    QVERIFY(nameKey()->sizeHint().width() <= nameKey()->width());
    presets().save(u"Rock & roll"_s);
    QCOMPARE(nameKey()->text(), u"Rock && roll"_s);
}

void tst_Presets::previousAndNextGoAround()
{
    presets().save(u"Mine"_s);
    m_mixer.mixerModel.presets().clear(2);
    const QString first = QString::fromLatin1(factoryPresets().front().name);
    const QString last = QString::fromLatin1(factoryPresets().back().name);
    press("Next preset");
    QCOMPARE(nameKey()->text(), first);
    press("Previous preset");
    QCOMPARE(nameKey()->text(), u"Mine"_s);
    QCOMPARE(history().undoText(), u"Load Mine"_s);
    choose(action("Previous"));
    QCOMPARE(nameKey()->text(), last);
    QCOMPARE(m_mixer.memory.values(2), valuesOf(factoryPresets().back()));
    choose(action("Next"));
    choose(action("Next"));
    QCOMPARE(nameKey()->text(), first);
    m_mixer.mixerModel.presets().clear(2);
    press("Previous preset");
    QCOMPARE(nameKey()->text(), u"Mine"_s);
}

void tst_Presets::saveKeySavesAgain()
{
    presets().save(u"Mine"_s);
    QVERIFY(!key("Save the preset")->isEnabled());
    QVERIFY(!action("Save Preset Again")->isEnabled());
    turn();
    const HostMemory::Values values = m_mixer.memory.values(2);
    press("Save the preset");
    QCOMPARE(nameKey()->text(), u"Mine"_s);
    m_mixer.memory.reset(2);
    presets().load({u"Mine"_s});
    QCOMPARE(m_mixer.memory.values(2), values);
}

// Of one that comes with the mixer the user makes an own one.
void tst_Presets::saveKeyAsksForANewName()
{
    choose(action("Kick"));
    QVERIFY(!action("Rename...")->isEnabled());
    whenAsked<QInputDialog>([](QInputDialog* dialog) {
        dialog->setTextValue(u"My kick"_s);
        dialog->accept();
    });
    press("Save the preset");
    QCOMPARE(m_folder.names(), QStringList{u"My kick"_s});
    QCOMPARE(nameKey()->text(), u"My kick"_s);
    QVERIFY(action("Rename...")->isEnabled());
}

void tst_Presets::renamedPresetKeepsItsSettings()
{
    turn();
    presets().save(u"Old"_s);
    const QByteArray bytes = TestFiles::read(fileOf(u"Old"_s));
    whenAsked<QInputDialog>([](QInputDialog* dialog) {
        QCOMPARE(dialog->textValue(), u"Old"_s);
        dialog->setTextValue(u"New"_s);
        dialog->accept();
    });
    choose(action("Rename..."));
    QCOMPARE(m_folder.names(), QStringList{u"New"_s});
    QCOMPARE(TestFiles::read(fileOf(u"New"_s)), bytes);
    QCOMPARE(nameKey()->text(), u"New"_s);
    QCOMPARE(m_editor->statusBar()->currentMessage(), u"Old is called New now."_s);
    QVERIFY(QFile::remove(fileOf(u"New"_s)));
    whenAsked<QMessageBox>([](QMessageBox* box) {
        QVERIFY(box->text().startsWith(u"The preset New cannot be renamed"_s));
        box->accept();
    });
    presets().rename(u"New"_s, u"Newer"_s);
    QCOMPARE(nameKey()->text(), u"New"_s);
}

void tst_Presets::knownValuesAreRecognized_data()
{
    QTest::addColumn<bool>("isFactory");
    QTest::newRow("factory") << true;
    QTest::newRow("the user's") << false;
}

void tst_Presets::knownValuesAreRecognized()
{
    QFETCH(const bool, isFactory);
    turn();
    presets().save(u"Mine"_s);
    m_mixer.memory.write(4, isFactory ? valuesOf(factoryPresets()[1]) : m_mixer.memory.values(2));
    EditorWindow* other = m_window->openEditor(4, true);
    QCOMPARE(other->presets().current(),
             (isFactory ? PresetName{QString::fromLatin1(factoryPresets()[1].name), true}
                        : PresetName{u"Mine"_s, false}));
    QVERIFY(!other->presets().isModified());
    m_mixer.mixerModel.presets().clear(4);
    m_mixer.memory.reset(4);
}

// As the bar names it in the program's next run.
void tst_Presets::sessionsKeepThePreset_data()
{
    QTest::addColumn<QString>("preset");
    QTest::addColumn<bool>("isTurned");
    QTest::addColumn<QString>("meanwhile"); // happens to the preset's file
    QTest::addColumn<QString>("shown");
    QTest::newRow("none") << u""_s << true << u""_s << u"No preset"_s;
    QTest::newRow("factory") << u"Kick"_s << false << u""_s << u"Kick"_s;
    QTest::newRow("factory, modified") << u"Kick"_s << true << u""_s << u"Kick *"_s;
    QTest::newRow("own") << u"Mine"_s << false << u""_s << u"Mine"_s;
    QTest::newRow("own, modified") << u"Mine"_s << true << u""_s << u"Mine *"_s;
    QTest::newRow("replaced") << u"Mine"_s << false << u"replaced"_s << u"Mine *"_s;
    QTest::newRow("deleted") << u"Mine"_s << false << u"deleted"_s << u"No preset"_s;
    QTest::newRow("damaged") << u"Mine"_s << false << u"damaged"_s << u"No preset"_s;
    QTest::newRow("renamed") << u"Mine"_s << false << u"renamed"_s << u"Yours"_s;
}

void tst_Presets::sessionsKeepThePreset()
{
    QFETCH(const QString, preset);
    QFETCH(const bool, isTurned);
    QFETCH(const QString, meanwhile);
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"session.json"_s);
    auto session = std::make_unique<MixerSession>(m_mixer);
    QVERIFY(session->open(file).isOk());
    if (preset == "Kick"_L1)
        choose(action("Kick"));
    else if (!preset.isEmpty())
        saveTurned(preset, 70);
    if (isTurned)
        turn();
    QVERIFY(session->save());
    session.reset();
    happens(meanwhile, preset);
    m_window.reset();
    m_mixer.mixerModel.presets().clear(2);
    MixerSession next(m_mixer);
    QVERIFY(next.open(file).isOk());
    openEditor();
    QTEST(nameKey()->text(), "shown");
}

void tst_Presets::saveTurned(const QString& name, int value)
{
    m_mixer.memory.setValue(parameterId(2), 2, value, 0, 0, 1);
    presets().save(name);
}

void tst_Presets::happens(const QString& what, const QString& name)
{
    if (what == "replaced"_L1)
        saveTurned(name, 71);
    else if (what == "renamed"_L1)
        QVERIFY(QFile::rename(fileOf(name), fileOf(u"Yours"_s)));
    else if (what == "deleted"_L1)
        QVERIFY(QFile::remove(fileOf(name)));
    else if (what == "damaged"_L1)
        TestFiles::write(fileOf(name), "damaged");
}

void tst_Presets::folderIsShown()
{
    DesktopHandler handler;
    QDesktopServices::setUrlHandler(u"file"_s, &handler, "open");
    choose(action("Show Folder"));
    QDesktopServices::unsetUrlHandler(u"file"_s);
    QCOMPARE(handler.opened, QUrl::fromLocalFile(m_folder.path()));
    QVERIFY(QDir(m_folder.path()).exists());
}

void tst_Presets::deletedPresetIsGone()
{
    presets().save(u"Short-lived"_s);
    presets().remove(u"Short-lived"_s);
    QCOMPARE(m_folder.names(), QStringList());
    QCOMPARE(nameKey()->text(), u"No preset"_s);
    whenAsked<QMessageBox>([](QMessageBox* box) {
        QVERIFY(box->text().startsWith(u"The preset Short-lived cannot be deleted"_s));
        box->accept();
    });
    presets().remove(u"Short-lived"_s);
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
    presets().save(name);
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
    presets().load({u"Bad"_s});
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
