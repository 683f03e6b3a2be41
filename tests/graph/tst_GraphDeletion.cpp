// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/graph/GraphFocus.h"
#include "tests/graph/GraphMouse.h"
#include "tests/support/TestObject.h"

#include <QPointer>

#include <algorithm>
#include <new>
#include <span>

using Graph = ZoltaEqualizerGraph;
using Action = QAccessibleActionInterface;

namespace {

const QPointF Middle(350, 90);

/// A graph whose memory is filled with a pattern, and kept, when it is deleted: who reads it later
/// finds no valid pointer, and who writes it shows.
class DoomedGraph : public Graph
{
public:
    using Graph::Graph;

    static void* operator new(std::size_t size) { return ::operator new(size); }
    static void operator delete(void* memory, std::size_t size)
    {
        s_remains = {static_cast<unsigned char*>(memory), size};
        std::fill(s_remains.begin(), s_remains.end(), Pattern);
    }
    /// Frees what remains of the graph; true if there is such and nothing has touched it.
    static bool bury()
    {
        const bool isUntouched =
            !s_remains.empty() && std::all_of(s_remains.begin(), s_remains.end(),
                                              [](unsigned char byte) { return byte == Pattern; });
        ::operator delete(s_remains.data());
        s_remains = {};
        return isUntouched;
    }

private:
    /// Every bool is true and no pointer is an address.
    static constexpr unsigned char Pattern = 0x01;
    static inline std::span<unsigned char> s_remains;
};

/// A host with an editor and its graph, either of which may be deleted at any time.
struct Session
{
    Session()
        : editor(new GraphEditor)
        , graph(new DoomedGraph(editor))
    {
        editor->setModelInfo(host.model());
        editor->resize(GraphFixture::DesignSize);
        graph->resize(GraphFixture::DesignSize);
        graph->setMemAPI(host.memory());
        editor->show();
        editor->activateWindow();
        for (const int band : {0, 1, 3, 4, 5})
            host.set(onName(band), 0, 0);
    }
    ~Session() { delete editor; }

    void drag(Qt::KeyboardModifiers modifiers)
    {
        GraphMouse mouse(graph);
        mouse.press(Middle, modifiers);
        mouse.move(Middle + QPointF(20, 20), modifiers);
    }
    void key(Qt::Key key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(graph, &event);
    }
    QAccessibleInterface* handle()
    {
        return QAccessible::queryAccessibleInterface(graph)->child(2);
    }

    TestHost host;
    QPointer<GraphEditor> editor;
    QPointer<Graph> graph;
};

using Step = void (*)(Session&);
using Victim = QObject* (*)(Session&);

/// Deletes an object of the session when its n-th announcement is made.
class AnnouncementDeleter
{
public:
    AnnouncementDeleter(Session& session, Victim victim, int n)
        : m_left(n)
        , m_listener([this, &session, victim](QAccessibleEvent*) {
            if (--m_left == 0)
                delete victim(session);
        })
    {}

private:
    int m_left;
    AnnouncementListener m_listener;
};

const std::vector<std::pair<const char*, Victim>> Victims = {
    {"graph", [](Session& s) -> QObject* { return s.graph; }},
    {"editor", [](Session& s) -> QObject* { return s.editor; }},
};

} // namespace

Q_DECLARE_METATYPE(Step)
Q_DECLARE_METATYPE(Victim)

/// Whoever hears of a change may delete the graph or its editor.
class tst_GraphDeletion : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void insideAWrite_data();
    void insideAWrite();
    void insideAnAnnouncement_data();
    void insideAnAnnouncement();
};

void tst_GraphDeletion::insideAWrite_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<Step>("write");
    QTest::addColumn<Victim>("victim");
    const auto add = [](const char* tag, const QByteArray& name, Step write) {
        for (const auto& [what, victim] : Victims)
            QTest::addRow("%s, %s", tag, what) << name << write << victim;
    };
    const auto gain = gainName(2);
    add("drag, frequency", frequencyName(2), [](Session& s) { s.drag(Qt::NoModifier); });
    add("drag, gain", gain, [](Session& s) { s.drag(Qt::NoModifier); });
    add("frequency drag", frequencyName(2), [](Session& s) { s.drag(Qt::AltModifier); });
    add("gain drag", gain, [](Session& s) { s.drag(Qt::ControlModifier); });
    add("quality drag", qualityName(2), [](Session& s) { s.drag(Qt::ShiftModifier); });
    add("key", gain, [](Session& s) {
        s.graph->focusHandle(Graph::EditTargetMiddle2);
        s.key(Qt::Key_Up);
    });
    add("step", gain, [](Session& s) { s.graph->stepHandle(targetOf(2), Graph::Field::Gain, 1); });
    add("set", gain, [](Session& s) { s.graph->setHandle(targetOf(2), Graph::Field::Gain, 3.0); });
    add("accessible value", gain,
        [](Session& s) { s.handle()->valueInterface()->setCurrentValue(3.0); });
    add("accessible increase", gain,
        [](Session& s) { s.handle()->actionInterface()->doAction(Action::increaseAction()); });
    add("accessible decrease", gain,
        [](Session& s) { s.handle()->actionInterface()->doAction(Action::decreaseAction()); });
}

void tst_GraphDeletion::insideAWrite()
{
    QFETCH(QByteArray, name);
    QFETCH(Step, write);
    QFETCH(Victim, victim);
    Session s;
    QVERIFY(QTest::qWaitForWindowActive(s.editor));
    Listener deleter(s.host, name, [&] { delete victim(s); });
    write(s);
    QVERIFY(!s.graph);
    QVERIFY(DoomedGraph::bury());
    // Nothing is written after the end; before a gain that is dragged comes its frequency.
    QCOMPARE(s.host.writes().back().name, name);
    QCOMPARE(s.host.observerCount(), 1);
}

void tst_GraphDeletion::insideAnAnnouncement_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<Step>("step");
    QTest::addColumn<Victim>("victim");
    const auto add = [](const char* tag, int number, Step step) {
        for (const auto& [what, victim] : Victims)
            QTest::addRow("%s, %s", tag, what) << number << step << victim;
    };
    add("value", 1, [](Session& s) { s.host.set(gainName(2), 0, 10); });
    add("own step", 1, [](Session& s) { s.graph->stepHandle(targetOf(2), Graph::Field::Gain, 1); });
    add("drag", 1, [](Session& s) { s.drag(Qt::NoModifier); });
    add("switched", 1, [](Session& s) { s.host.set(onName(2), 0, 0); });
    add("focused handle", 1, [](Session& s) { s.graph->focusHandle(targetOf(2)); });
    add("accessible focus", 1,
        [](Session& s) { s.handle()->actionInterface()->doAction(Action::setFocusAction()); });
    add("handle switched off", 2, [](Session& s) {
        s.graph->focusHandle(targetOf(2));
        s.host.set(onName(2), 0, 0);
    });
    add("mark given up", 3, [](Session& s) {
        s.graph->focusHandle(targetOf(2));
        s.host.set(onName(2), 0, 0);
    });
    add("other channel", 2, [](Session& s) {
        s.graph->focusHandle(targetOf(2));
        s.host.setSilently(onName(2), 3, 0);
        s.graph->setCh(3);
    });
    add("memory again", 2, [](Session& s) {
        s.graph->focusHandle(targetOf(2));
        s.host.setSilently(onName(2), 0, 0);
        s.graph->setMemAPI(s.host.memory());
    });
}

void tst_GraphDeletion::insideAnAnnouncement()
{
    QFETCH(int, number);
    QFETCH(Step, step);
    QFETCH(Victim, victim);
    Session s;
    QVERIFY(QTest::qWaitForWindowActive(s.editor));
    AnnouncementDeleter deleter(s, victim, number);
    step(s);
    QVERIFY(!s.graph);
    QVERIFY(DoomedGraph::bury());
    QCOMPARE(s.host.observerCount(), 0);
}

ZOLTA_TEST_MAIN(tst_GraphDeletion)

#include "tst_GraphDeletion.moc"
