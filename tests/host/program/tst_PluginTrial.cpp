// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/CommandLine.h"
#include "host/program/PluginTrial.h"
#include "tests/support/ProgramRunner.h"
#include "tests/support/TestObject.h"

#include <QTemporaryDir>

#include <pthread.h>

class tst_PluginTrial : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void triesForeignPlugins_data();
    void triesForeignPlugins();
    void programOutlivesAPlugin();

private:
    static inline int s_processes = 0; // that this one has started
};

void tst_PluginTrial::initTestCase()
{
    QCOMPARE(::pthread_atfork([] { ++s_processes; }, nullptr, nullptr), 0);
}

void tst_PluginTrial::triesForeignPlugins_data()
{
    QTest::addColumn<QString>("plugin");
    QTest::addColumn<Language>("language");
    QTest::addColumn<int>("processes");
    QTest::addColumn<QString>("error");
    const QString type7 = QStringLiteral(HOST_TEST_PLUGINS "/libhost_stand_in_type7.so");
    const auto row = [](const char* name, const QString& plugin, Language language, int processes,
                        const QString& error) {
        QTest::newRow(name) << plugin << language << processes << error;
    };
    row("none", {}, Language::English, 0, {});
    row("the program's", QStringLiteral(ZOLTA_PLUGIN_FILE), Language::English, 0, {});
    row("by another name", QStringLiteral(PROGRAM_FOLDER "/../bin/../lib/zolta/libZolta.so"),
        Language::English, 0, {});
    row("sound", QStringLiteral(HOST_TEST_PLUGINS "/libhost_stand_in.so"), Language::English, 1,
        {});
    row("unsuitable", type7, Language::English, 1,
        QStringLiteral("The plug-in %1 is an effect of type 7; an equalizer is type 8.")
            .arg(type7));
    row("unsuitable in German", type7, Language::German, 1,
        QStringLiteral("Das Plug-in %1 ist ein Effekt vom Typ 7; ein Equalizer hat den Typ 8.")
            .arg(type7));
}

void tst_PluginTrial::triesForeignPlugins()
{
    QFETCH(const QString, plugin);
    QFETCH(const Language, language);
    CommandLine commandLine;
    commandLine.plugin = plugin;
    commandLine.language = language;
    QByteArray name("zolta-host");
    char* arguments[] = {name.data(), nullptr};
    s_processes = 0;
    const LibraryTrial trial = tryPlugin(commandLine, QStringLiteral(PROGRAM_FOLDER), 1, arguments);
    QTEST(trial.status().error(), "error");
    QTEST(s_processes, "processes");
}

// It says what happened, and no word of the plug-in's.
void tst_PluginTrial::programOutlivesAPlugin()
{
    const QTemporaryDir folder;
    const ProgramRunner program(QStringLiteral(PROGRAM_FOLDER "/zolta-host"), folder.path());
    const QString plugin = QStringLiteral(HOST_TEST_PLUGINS "/libhost_trap_abort.so");
    const ProgramResult result =
        program.run({QStringLiteral("--list"), QStringLiteral("--plugin"), plugin});
    QCOMPARE(result.errors, QStringLiteral("zolta-host: The plug-in %1 cannot be loaded: it "
                                           "crashes (Aborted). Its file may be damaged.\n")
                                .arg(plugin));
    QCOMPARE(result.output, QString());
    QCOMPARE(result.code, 1);
}

QTEST_APPLESS_MAIN(tst_PluginTrial)

#include "tst_PluginTrial.moc"
