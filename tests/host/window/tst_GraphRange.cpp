// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/EditorWindow.h"
#include "host/window/GraphRange.h"
#include "host/window/HostTheme.h"
#include "host/window/MixerWindow.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QMenu>

using namespace Qt::StringLiterals;
using namespace WindowTesting;

class tst_GraphRange : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void widensForWhatLeavesIt_data();
    void widensForWhatLeavesIt();
    void widensWhenTheEditorOpens();
    void waitsForTheEndOfADrag();
    void isChosenInTheMenu();
    void stayingIsTheUsersChoice();
    void isKeptForEachChannel();

private:
    void setGain(int number, int tenths, int channel = 0)
    {
        m_mixer->memory.setValue(parameterId(static_cast<std::size_t>(number - 1)),
                                 static_cast<unsigned short>(channel), tenths, 0, 0, 1);
    }
    EditorWindow* open(int channel = 0);
    static int rangeOf(EditorWindow* window)
    {
        return EditorSession::graphRanges[static_cast<std::size_t>(window->session().graphRange())];
    }
    static QString checkedItem(const EditorWindow* window);

    std::unique_ptr<Mixer> m_mixer;
    std::unique_ptr<MixerWindow> m_window;
};

void tst_GraphRange::init()
{
    TestObject::init();
    applyHostTheme();
    m_mixer = std::make_unique<Mixer>();
    QVERIFY(m_mixer->library.load(QStringLiteral(HOST_REAL_PLUGIN)).isOk());
    m_window = std::make_unique<MixerWindow>(*m_mixer, EditorSettings());
}

void tst_GraphRange::cleanup()
{
    m_window.reset();
    m_mixer.reset();
}

EditorWindow* tst_GraphRange::open(int channel)
{
    EditorWindow* window = m_window->openEditor(channel, true);
    QCoreApplication::processEvents();
    return window;
}

QString tst_GraphRange::checkedItem(const EditorWindow* window)
{
    for (QMenu* menu : window->findChildren<QMenu*>()) {
        if (menu->title().remove(u'&') != "Graph Range"_L1)
            continue;
        Q_EMIT menu->aboutToShow();
        for (const QAction* action : menu->actions()) {
            if (action->isChecked() && action->actionGroup())
                return action->text();
        }
    }
    return {};
}

void tst_GraphRange::widensForWhatLeavesIt_data()
{
    QTest::addColumn<QList<QPoint>>("values"); // number of the parameter, raw value
    QTest::addColumn<int>("range");
    QTest::newRow("flat") << QList<QPoint>{} << 12;
    QTest::newRow("at the edge") << QList<QPoint>{{11, 120}} << 12;
    QTest::newRow("a little more") << QList<QPoint>{{11, 121}} << 20;
    QTest::newRow("cut") << QList<QPoint>{{11, -150}} << 20;
    QTest::newRow("all of it") << QList<QPoint>{{11, 200}} << 20;
    QTest::newRow("two together") << QList<QPoint>{{7, 150}, {11, 150}, {6, 600}, {10, 600}} << 40;
    QTest::newRow("band that is off") << QList<QPoint>{{11, 200}, {12, 0}} << 12;
    QTest::newRow("pass filter has no gain") << QList<QPoint>{{1, 0}, {3, 200}} << 12;
    QTest::newRow("shelf") << QList<QPoint>{{1, 2}, {3, -130}} << 20;
}

void tst_GraphRange::widensForWhatLeavesIt()
{
    QFETCH(const QList<QPoint>, values);
    EditorWindow* window = open();
    for (const QPoint& value : values)
        setGain(value.x(), value.y());
    QCoreApplication::processEvents();
    QTEST(rangeOf(window), "range");
}

void tst_GraphRange::widensWhenTheEditorOpens()
{
    setGain(11, 180);
    QCOMPARE(rangeOf(open()), 20);
}

void tst_GraphRange::waitsForTheEndOfADrag()
{
    EditorWindow* window = open();
    QTest::mousePress(window, Qt::LeftButton);
    setGain(11, 180);
    QCoreApplication::processEvents();
    QCOMPARE(rangeOf(window), 12);
    QTest::mouseRelease(window, Qt::LeftButton);
    QTRY_COMPARE(rangeOf(window), 20);
}

void tst_GraphRange::isChosenInTheMenu()
{
    EditorWindow* window = open();
    QCOMPARE(checkedItem(window), u"±12 dB"_s);
    for (const int range : EditorSession::graphRanges) {
        const QString item = u"±%1 dB"_s.arg(range);
        actionOf(window, item)->trigger();
        QCOMPARE(rangeOf(window), range);
        QCOMPARE(checkedItem(window), item);
    }
    window->session().setGraphRange(4); // as the editor's own keys do
    QCOMPARE(checkedItem(window), u"±8 dB"_s);
}

void tst_GraphRange::stayingIsTheUsersChoice()
{
    EditorWindow* window = open();
    QAction* automatic = actionOf(window, u"Automatic"_s);
    QVERIFY(automatic->isChecked());
    actionOf(window, u"±4 dB"_s)->trigger();
    automatic->trigger();
    setGain(11, 180);
    QCoreApplication::processEvents();
    QCOMPARE(rangeOf(window), 4);
    automatic->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(rangeOf(window), 20);
}

void tst_GraphRange::isKeptForEachChannel()
{
    for (const int channel : {0, 2}) {
        EditorWindow* window = open(channel);
        window->session().setGraphRange(channel);
        const QPointer<EditorWindow> guard = window;
        window->close();
        QTRY_VERIFY(!guard);
    }
    QCOMPARE(open(0)->session().graphRange(), 0);
    QCOMPARE(open(2)->session().graphRange(), 2);
}

ZOLTA_TEST_MAIN(tst_GraphRange)

#include "tst_GraphRange.moc"
