// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/files/PresetFolder.h"
#include "host/window/EditorWindow.h"
#include "host/window/Mixer.h"
#include "host/window/MixerWindow.h"
#include "parameters/FactoryPresets.h"
#include "parameters/ParameterText.h"
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
    void everyScriptsNamesAreTaken_data();
    void everyScriptsNamesAreTaken();
    void badNameIsAskedForAgain();
    void replacingIsAsked();
    void deletedPresetIsGone();
    void wrongNames_data();
    void wrongNames();
    void badFilesAreExplained_data();
    void badFilesAreExplained();
    void sortsAsPeopleDo();

private:
    QAction* action(const QString& text) const;
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
    QCOMPARE(m_mixer.library.load(QStringLiteral(HOST_TEST_PLUGINS "/libhost_stand_in.so")).error(),
             QString());
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

QAction* tst_Presets::action(const QString& text) const
{
    for (QAction* found : m_editor->findChildren<QAction*>()) {
        if (found->text().remove(QLatin1Char('&')) == text)
            return found;
    }
    return nullptr;
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
    QAction* kick = action(QStringLiteral("Kick"));
    QVERIFY(kick);
    kick->trigger();
    const auto presets = factoryPresets();
    const auto found = std::find_if(presets.begin(), presets.end(), [](const FactoryPreset& p) {
        return std::string_view(p.name) == "Kick";
    });
    QCOMPARE(m_mixer.memory.values(2), valuesOf(*found));
    QCOMPARE(m_mixer.mixerModel.history().stack().count(), 1);
    QCOMPARE(m_mixer.mixerModel.history().stack().undoText(), QStringLiteral("Kick"));
    m_mixer.mixerModel.history().stack().undo();
    QCOMPARE(m_mixer.memory.values(2), HostMemory().values(2));
}

void tst_Presets::savedPresetComesBack()
{
    m_mixer.memory.write(2, valuesOf(factoryPresets()[0]));
    m_editor->savePreset(QStringLiteral("My vocal"));
    QVERIFY(QFile::exists(fileOf(QStringLiteral("My vocal"))));
    QCOMPARE(m_editor->statusBar()->currentMessage(), QStringLiteral("Saved My vocal."));
    m_mixer.memory.reset(2);
    m_mixer.mixerModel.history().clear();
    m_editor->loadPreset(QStringLiteral("My vocal"));
    QCOMPARE(m_mixer.memory.values(2), valuesOf(factoryPresets()[0]));
    QCOMPARE(m_mixer.mixerModel.history().stack().count(), 1);
    QCOMPARE(m_mixer.mixerModel.history().stack().undoText(), QStringLiteral("Load My vocal"));
}

void tst_Presets::menuListsTheUsersOwn()
{
    m_editor->savePreset(QStringLiteral("Rock & roll"));
    QAction* save = action(QStringLiteral("Save as Preset..."));
    auto* menu = qobject_cast<QMenu*>(save->associatedObjects().value(0));
    QVERIFY(menu);
    Q_EMIT menu->aboutToShow();
    QAction* mine = menu->actions().constLast();
    QCOMPARE(mine->text(), QStringLiteral("Rock && roll"));
    m_mixer.memory.setValue(parameterId(2), 2, 99, 0, 0, 1);
    mine->trigger();
    QCOMPARE(m_mixer.memory.values(2), HostMemory().values(2));
    Q_EMIT menu->aboutToShow();
}

void tst_Presets::savingAsksForAName()
{
    whenAsked<QInputDialog>([](QInputDialog* dialog) {
        dialog->setTextValue(QStringLiteral("  Asked   for "));
        dialog->accept();
    });
    action(QStringLiteral("Save as Preset..."))->trigger();
    QCOMPARE(m_folder.names(), QStringList{QStringLiteral("Asked for")});
}

void tst_Presets::everyScriptsNamesAreTaken_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("beyond the basic plane") << QString::fromUtf8("Vocal 𠮷");
    QTest::newRow("emoji") << QString::fromUtf8("🥁 loud");
    QTest::newRow("joined emoji") << QString::fromUtf8("👩\u200d🎤");
    QTest::newRow("Japanese") << QString::fromUtf8("ボーカル");
    QTest::newRow("combining accent") << QString::fromUtf8("Che\u0301rie");
}

void tst_Presets::everyScriptsNamesAreTaken()
{
    QFETCH(const QString, name);
    m_editor->savePreset(name);
    QCOMPARE(m_folder.names(), QStringList{name});
}

void tst_Presets::badNameIsAskedForAgain()
{
    whenAsked<QInputDialog>([](QInputDialog* dialog) {
        dialog->setTextValue(QStringLiteral("AC/DC"));
        whenAsked<QMessageBox>([](QMessageBox* box) {
            whenAsked<QInputDialog>([](QInputDialog* again) {
                QCOMPARE(again->textValue(), QStringLiteral("AC/DC"));
                again->setTextValue(QStringLiteral("AC-DC"));
                again->accept();
            });
            box->accept();
        });
        dialog->accept();
    });
    action(QStringLiteral("Save as Preset..."))->trigger();
    QCOMPARE(m_folder.names(), QStringList{QStringLiteral("AC-DC")});
}

void tst_Presets::replacingIsAsked()
{
    m_editor->savePreset(QStringLiteral("Twice"));
    m_mixer.memory.setValue(parameterId(2), 2, 99, 0, 0, 1);
    QFile file(fileOf(QStringLiteral("Twice")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    whenAsked<QInputDialog>([](QInputDialog* dialog) {
        dialog->setTextValue(QStringLiteral("Twice"));
        whenAsked<QMessageBox>([](QMessageBox* box) { box->button(QMessageBox::No)->click(); });
        dialog->accept();
    });
    action(QStringLiteral("Save as Preset..."))->trigger();
    QFile after(fileOf(QStringLiteral("Twice")));
    QVERIFY(after.open(QIODevice::ReadOnly));
    QCOMPARE(after.readAll(), before);
}

void tst_Presets::deletedPresetIsGone()
{
    m_editor->savePreset(QStringLiteral("Short-lived"));
    m_editor->deletePreset(QStringLiteral("Short-lived"));
    QCOMPARE(m_folder.names(), QStringList());
    whenAsked<QMessageBox>([](QMessageBox* box) {
        QVERIFY(box->text().startsWith(QStringLiteral("The preset Short-lived cannot be deleted")));
        box->accept();
    });
    m_editor->deletePreset(QStringLiteral("Short-lived"));
}

void tst_Presets::wrongNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << QString();
    QTest::newRow("blank") << QStringLiteral("  ");
    QTest::newRow("path") << QStringLiteral("../etc");
    QTest::newRow("slash") << QStringLiteral("a/b");
    QTest::newRow("backslash") << QStringLiteral("a\\b");
    QTest::newRow("hidden") << QStringLiteral(".hidden");
    QTest::newRow("control character") << QStringLiteral("a\nb");
    QTest::newRow("line separator") << QString::fromUtf8("a\u2028b");
    QTest::newRow("half a letter") << QStringLiteral("a") + QChar(0xd842);
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

void tst_Presets::badFilesAreExplained_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("is empty.");
    QTest::newRow("noise") << QByteArray("hello")
                           << QStringLiteral("is neither an equalizer state");
    QTest::newRow("cut short") << QByteArray("VST3abc") << QStringLiteral("cut short");
}

void tst_Presets::badFilesAreExplained()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, reason);
    QVERIFY(m_folder.prepare().isOk());
    QFile file(fileOf(QStringLiteral("Bad")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    QString said;
    whenAsked<QMessageBox>([&said](QMessageBox* box) {
        said = box->text();
        box->accept();
    });
    m_editor->loadPreset(QStringLiteral("Bad"));
    QVERIFY2(said.contains(reason), qPrintable(said));
    QVERIFY(said.contains(QStringLiteral("Bad.vstpreset")));
    QCOMPARE(m_mixer.memory.values(2), HostMemory().values(2));
    QCOMPARE(m_mixer.mixerModel.history().stack().count(), 0);
}

void tst_Presets::sortsAsPeopleDo()
{
    const QTemporaryDir folder;
    for (const char* name : {"Take 10", "take 2", "Alpha", "Take 1"}) {
        QFile file(folder.filePath(QLatin1String(name) + QLatin1String(".vstpreset")));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QFile other(folder.filePath(QStringLiteral("other.txt")));
    QVERIFY(other.open(QIODevice::WriteOnly));
    QCOMPARE(PresetFolder(folder.path()).names(),
             (QStringList{QStringLiteral("Alpha"), QStringLiteral("Take 1"),
                          QStringLiteral("take 2"), QStringLiteral("Take 10")}));
}

ZOLTA_TEST_MAIN(tst_Presets)

#include "tst_Presets.moc"
