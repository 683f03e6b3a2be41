// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the program with windows inside the test, to see what it shows.
#include "host/files/SessionFile.h"
#include "host/program/Application.h"
#include "host/program/CommandLineParser.h"
#include "host/window/EditorWindow.h"
#include "host/window/MixerWindow.h"
#include "tests/support/TestFiles.h"
#include "tests/support/TestObject.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>

#include <functional>

using namespace Qt::StringLiterals;

class tst_Application : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void showsNoMessageWithoutAnError();
    void showsWhatIsDamaged_data();
    void showsWhatIsDamaged();
    void messageIsInFront();
    void savesATakenSessionOnDemand();
    void editorIsForAStrip_data();
    void editorIsForAStrip();
    void asksWhenTheSessionCannotBeSavedAtTheEnd();

private:
    int run(const QStringList& arguments, const std::function<void()>& act) const;
    QStringList messages(const QStringList& arguments) const;
    QString write(const QString& name, const QByteArray& bytes) const
    {
        return TestFiles::write(m_folder.filePath(name), bytes);
    }

    QTemporaryDir m_folder;
};

namespace {

template <typename Window> QList<Window*> shownWindows()
{
    QList<Window*> shown;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* window = qobject_cast<Window*>(widget);
        if (window && window->isVisible())
            shown << window;
    }
    return shown;
}

QAbstractButton* buttonOf(const QMessageBox* box, QMessageBox::ButtonRole role)
{
    for (QAbstractButton* button : box->buttons()) {
        if (box->buttonRole(button) == role)
            return button;
    }
    return nullptr;
}

bool isCancelledByReturnAndEscape(const QMessageBox* box)
{
    QAbstractButton* cancel = box->button(QMessageBox::Cancel);
    return cancel && box->defaultButton() == cancel && box->escapeButton() == cancel;
}

} // namespace

void tst_Application::initTestCase()
{
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        qputenv(name, QFile::encodeName(m_folder.path()));
}

// Does something once the windows are open, and closes them.
int tst_Application::run(const QStringList& arguments, const std::function<void()>& act) const
{
    QTimer::singleShot(0, qApp, [&act] {
        act();
        QApplication::closeAllWindows();
    });
    const QStringList plugin = {u"zolta-host"_s, u"--plugin"_s,
                                QStringLiteral(HOST_TEST_PLUGINS "/libhost_stand_in.so")};
    return Application(CommandLineParser::parse(plugin + arguments).value(), QString()).run();
}

QStringList tst_Application::messages(const QStringList& arguments) const
{
    QStringList texts;
    const int code = run(arguments, [&texts] {
        for (const QMessageBox* box : shownWindows<QMessageBox>())
            texts << (box->isModal() ? u"modal"_s : box->text());
    });
    return code == 0 ? texts : QStringList(u"code %1"_s.arg(code));
}

void tst_Application::showsNoMessageWithoutAnError()
{
    QCOMPARE(messages({u"--session"_s, m_folder.filePath(u"new.json"_s)}), QStringList());
}

void tst_Application::showsWhatIsDamaged_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    QTest::newRow("session")
        << "session.json"
        << "The session %1 is damaged. The file is not valid JSON: illegal value at "
           "byte 1. The session is not used, and the file is kept as %1.damaged.";
    QTest::newRow("settings")
        << "zolta/editors.json"
        << "The editors' settings in %1 are damaged and ignored. The file is not "
           "valid JSON: illegal value at byte 1. The file is kept as "
           "%1.damaged.";
}

void tst_Application::showsWhatIsDamaged()
{
    QFETCH(const QString, name);
    QFETCH(const QString, expected);
    const QString file = write(name, "damaged");
    const QString session = m_folder.filePath(u"session.json"_s);
    QCOMPARE(messages({u"--session"_s, session}), QStringList(expected.arg(file)));
}

void tst_Application::messageIsInFront()
{
    const QString file = write(u"front.json"_s, "damaged");
    bool inFront = false;
    run({u"--session"_s, file}, [&inFront] {
        const auto boxes = shownWindows<QMessageBox>();
        inFront = boxes.size() == 1 && QTest::qWaitForWindowActive(boxes[0]) &&
                  boxes[0]->isAncestorOf(QApplication::focusWidget());
    });
    QVERIFY(inFront);
}

void tst_Application::savesATakenSessionOnDemand()
{
    const QString file = m_folder.filePath(u"taken.json"_s);
    SessionData data;
    SessionFile other;
    QVERIFY(other.open(file, &data).isOk());
    QStringList texts;
    const auto act = [&](bool anyway) {
        for (const QMessageBox* box : shownWindows<QMessageBox>()) {
            texts << box->text();
            QAbstractButton* save = buttonOf(box, QMessageBox::YesRole);
            QVERIFY(save);
            QVERIFY(isCancelledByReturnAndEscape(box));
            if (anyway)
                save->click();
        }
    };
    const QStringList arguments = {u"--session"_s, file};
    QCOMPARE(run(arguments, [&] { act(false); }), 0);
    QCOMPARE(texts, QStringList(u"Another program has the session %1 open, as its "
                                "lock file %1.lock says. Changes made here will not "
                                "be saved."_s.arg(file)));
    QVERIFY(!QFile::exists(file));
    QCOMPARE(run(arguments, [&] { act(true); }), 0);
    QVERIFY(QFile::exists(file));
}

void tst_Application::editorIsForAStrip_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("channel");
    QTest::addColumn<bool>("stereo");
    QTest::addColumn<QString>("width"); // of the pairs 0 + 1 and 4 + 5
    QTest::addColumn<int>("count");     // of all channels
    const auto row = [](const char* words, int channel, bool stereo, const char* width,
                        int count = 8) {
        QTest::newRow(words) << QString::fromLatin1(words).split(QLatin1Char(' ')) << channel
                             << stereo << QString::fromLatin1(width) << count;
    };
    row("--channel 0", 0, true, "Stereo Mono");
    row("--channel 1", 0, true, "Stereo Mono");
    row("--mono", 0, false, "Mono Mono");
    row("--channel 1 --mono", 1, false, "Mono Mono");
    row("--channel 5", 5, false, "Stereo Mono");
    row("--channels 32 --channel 31", 30, true, "Stereo Mono", 32);
    row("--channels 6 --channel 5", 5, false, "Stereo Mono", 6);
}

// What is set for a channel reaches what is heard of it.
void tst_Application::editorIsForAStrip()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const int, channel);
    const QString file =
        write(u"strips.json"_s, R"({"zolta-session": 1, "channels": )"
                                R"([{}, {}, {}, {}, {"strip": {"stereo": "Mono"}}]})");
    QList<EditorSettings> opened;
    const QStringList further = {u"--session"_s, file, u"--set"_s, u"fx_rackfx_prm_3=+6"_s};
    const int code = run(arguments + further, [&opened] {
        for (const EditorWindow* editor : shownWindows<EditorWindow>())
            opened << editor->settings();
    });
    QCOMPARE(code, 0);
    QCOMPARE(opened.size(), 1);
    QCOMPARE(opened[0].channel, channel);
    QTEST(opened[0].stereo, "stereo");
    const Result<SessionData> read = SessionFile::read(file);
    QVERIFY2(read.isOk(), qPrintable(read.error()));
    const SessionData& saved = read.value();
    QStringList widths;
    for (const std::size_t first : {0U, 4U}) {
        const int stereo =
            saved.channels[first].strip[static_cast<std::size_t>(StripParameter::Stereo)];
        widths << QString::fromStdString(*formatStrip(StripParameter::Stereo, stereo));
    }
    QTEST(widths.join(QLatin1Char(' ')), "width");
    QTEST(saved.channelCount, "count");
    QCOMPARE(saved.channels[static_cast<std::size_t>(channel)].equalizer[2], 60);
}

void tst_Application::asksWhenTheSessionCannotBeSavedAtTheEnd()
{
    const QString file = write(u"blocked"_s, "a file") + u"/session.json"_s;
    const auto quitAnswering = [](MixerWindow* mixer, QMessageBox::ButtonRole role) {
        QString question;
        QTimer::singleShot(0, mixer, [&] {
            const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            question = box && isCancelledByReturnAndEscape(box) ? box->text() : QString();
            if (QAbstractButton* button = box ? buttonOf(box, role) : nullptr)
                button->click();
        });
        mixer->quit();
        return question;
    };
    const QString expected = u"The session cannot be saved. The file %1 cannot be written: Not a "
                             "directory."_s.arg(file);
    run({u"--session"_s, file}, [&] {
        auto* mixer = shownWindows<MixerWindow>().value(0);
        QVERIFY(mixer);
        QCOMPARE(quitAnswering(mixer, QMessageBox::RejectRole), expected);
        QCOMPARE(shownWindows<QMainWindow>().size(), 2);
        QCOMPARE(quitAnswering(mixer, QMessageBox::DestructiveRole), expected);
        QCOMPARE(shownWindows<QMainWindow>().size(), 0);
    });
}

ZOLTA_TEST_MAIN(tst_Application)

#include "tst_Application.moc"
