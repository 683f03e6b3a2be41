// SPDX-License-Identifier: GPL-3.0-or-later
// What the knob, the fader and the text field do alike.
#include "controls/FaderController.h"
#include "controls/KnobController.h"
#include "controls/TextEditController.h"
#include "tests/controls/ControlTesting.h"
#include "tests/support/Columns.h"
#include "tests/support/TestObject.h"
#include "tests/widgets/SvgFiles.h"

#include <QApplication>

#include <functional>
#include <limits>
#include <utility>

using namespace CommonController_MemAPI;
using namespace ControlTesting;

namespace {

/// What a control said, in a book that outlives it.
struct Book
{
    Ledger edits;
    QList<bool> drags;
    QList<std::pair<AbstractController*, Qt::KeyboardModifiers>> reports;
    std::function<void()> atChange = [] {}; ///< what is done when the value changes
};

using Make = std::function<QWidget*(Book&, QWidget* parent)>;

/// A control of 100 by 100 on a parameter of 0 to 300, which is 50 and by default 100.
struct Subject
{
    const char* name;
    Make make;
    QPoint from;  ///< where a press starts a drag
    QPoint to;    ///< where the drag goes; a press starts a drag here too, then
    int pressed;  ///< the value after the press
    int moved;    ///< and after the move
    QPoint reset; ///< where a Control-click resets
    int reports;  ///< of a drag with Alt held
};

template <class Control> Make making(std::function<void(Control&)> arrange)
{
    return [arrange](Book& book, QWidget* parent) -> QWidget* {
        auto* control = new Ledgered<Control>(book.edits, parent);
        QObject::connect(control, &Control::drag, qApp, [&book](bool on) { book.drags << on; });
        QObject::connect(control, &Control::modifiersChange, qApp,
                         [&book](AbstractController* which, Qt::KeyboardModifiers modifiers) {
                             book.reports.append({which, modifiers});
                         });
        QObject::connect(control, qOverload<int>(&Control::valueChanged), qApp,
                         [&book] { std::exchange(book.atChange, [] {})(); });
        arrange(*control);
        return control;
    };
}

Make knob(KnobController::OperationType type)
{
    return making<KnobController>([type](KnobController& made) { made.setOperationType(type); });
}

/// With a knob of 20 by 20 that travels 80 pixels; at 50 of 300 it covers y 67 to 87.
Make fader(FaderController::OperationType type, const QString& picture)
{
    return making<FaderController>([type, picture](FaderController& made) {
        made.setOperationType(type);
        made.setKnobSvg(picture);
    });
}

struct Fixture
{
    explicit Fixture(const Subject& subject)
        : window(std::make_unique<Window>())
        , control(subject.make(book, window.get()))
    {
        host.addParameter(Parameter, 0, 300, 100);
        host.set(Parameter, 0, 50);
        control->resize(100, 100);
        bind(controller(), host);
        window->show();
    }
    AbstractController& controller() { return dynamic_cast<AbstractController&>(*control); }
    int value() const { return host.value(Parameter, 0); }

    TestHost host;
    Book book;
    std::unique_ptr<QWidget> window;
    QPointer<QWidget> control;
};

} // namespace

class tst_DragGestures : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyDragEndsOnce_data()
    {
        interruptions(Interruptions + QStringList(QStringLiteral("released")));
    }
    void everyDragEndsOnce();
    void controlClickResetsAndStartsNoDrag_data() { rows(); }
    void controlClickResetsAndStartsNoDrag();
    void otherButtonsDoNothing_data() { rows(); }
    void otherButtonsDoNothing();
    void disabledDoesNotReact_data() { rows(); }
    void disabledDoesNotReact();
    void moveWithoutButtonOrMovementDoesNothing_data() { rows(); }
    void moveWithoutButtonOrMovementDoesNothing();
    void wheel_data();
    void wheel();
    void wheelRemainders_data() { rows(); }
    void wheelRemainders();
    void wheelTakesFocus_data() { rows(); }
    void wheelTakesFocus();
    void keys_data() { rows(); }
    void keys();
    void modifiersAreReported_data() { rows(); }
    void modifiersAreReported();
    void listenersMayEndTheDrag_data() { interruptions(Interruptions.mid(0, 6)); }
    void listenersMayEndTheDrag();
    void oneValueRange_data() { rows(); }
    void oneValueRange();
    void widestRange_data() { rows(); }
    void widestRange();

private:
    void rows();
    void interruptions(const QStringList& kinds);
    const Subject& row() const;

    SvgFiles m_files;
    QList<Subject> m_subjects;
};

void tst_DragGestures::initTestCase()
{
    const QString picture = m_files.plain("knob.svg", 20, 20, "#0000ff");
    const QPoint at12(50, 10);
    const QPoint at3(90, 50);
    const QPoint onKnob(50, 76);
    m_subjects = {
        {"circular knob", knob(KnobController::Circular), at12, at3, 150, 240, at12, 1},
        {"relative circular knob", knob(KnobController::RelativeCircular), at12, at3, 50, 140, at12,
         1},
        {"linear knob", knob(KnobController::Linear), at12, {70, 10}, 50, 70, at12, 1},
        {"Touch", fader(FaderController::Touch, picture), onKnob, {50, 56}, 50, 125, onKnob, 1},
        {"Jump", fader(FaderController::Jump, picture), {50, 50}, {50, 30}, 150, 225, {9, 9}, 2},
        {"Ramp", fader(FaderController::Ramp, picture), {50, 50}, {50, 30}, 55, 55, onKnob, 1},
        {"Relative",
         fader(FaderController::Relative, picture),
         {9, 20},
         {9, 0},
         50,
         125,
         onKnob,
         1},
        {"text field",
         making<TextEditController>([](TextEditController&) {}),
         {20, 5},
         {40, 5},
         50,
         70,
         {20, 5},
         1}};
}

void tst_DragGestures::rows()
{
    QTest::addColumn<int>("subject");
    for (int i = 0; i < m_subjects.size(); ++i)
        QTest::newRow(m_subjects[i].name) << i;
}

const Subject& tst_DragGestures::row() const
{
    QFETCH(int, subject);
    return m_subjects[subject];
}

void tst_DragGestures::interruptions(const QStringList& kinds)
{
    addColumns<int, QString>("subject", "how");
    for (int i = 0; i < m_subjects.size(); ++i) {
        for (const QString& how : kinds)
            QTest::addRow("%s, %s", m_subjects[i].name, qPrintable(how)) << i << how;
    }
}

void tst_DragGestures::everyDragEndsOnce()
{
    QFETCH(QString, how);
    Fixture f(row());
    press(*f.control, row().from);
    QCOMPARE(f.value(), row().pressed);
    QCOMPARE(f.book.drags, QList<bool>{true});
    QCOMPARE(f.book.edits.open(), 1);
    moveTo(*f.control, row().to);
    QCOMPARE(f.value(), row().moved);

    const bool again = how == QLatin1String("pressed again");
    const auto writes = f.host.writes().size();
    if (again)
        press(*f.control, row().to, Qt::ShiftModifier);
    else if (how == QLatin1String("released"))
        release(*f.control, row().to);
    else
        interrupt(how, f.window, f.control, f.host);
    QCOMPARE(f.book.drags, again ? (QList<bool>{true, false, true}) : (QList<bool>{true, false}));
    QCOMPARE(f.book.edits.open(), again ? 1 : 0);
    if (f.control && !again) {
        moveTo(*f.control, row().from);
        release(*f.control, row().from);
        QCOMPARE(f.host.writes().size(), writes);
    }
    if (f.control)
        release(*f.control, row().to);
    QCOMPARE(f.book.drags.count(true), f.book.drags.count(false));
    QCOMPARE(f.book.edits.open(), 0);
    QCOMPARE(f.book.edits.begun, again ? 2 : 1);
    f.window.reset();
    QCOMPARE(f.host.observerCount(), 0);
}

void tst_DragGestures::controlClickResetsAndStartsNoDrag()
{
    Fixture f(row());
    press(*f.control, row().reset, Qt::ControlModifier);
    QCOMPARE(f.value(), 100);
    QCOMPARE(f.book.edits.ended, 1);
    moveTo(*f.control, row().to, Qt::ControlModifier);
    release(*f.control, row().to, Qt::ControlModifier);
    QCOMPARE(f.value(), 100);
    QCOMPARE(f.book.edits.begun, 1);
    QVERIFY(f.book.drags.isEmpty());
    QCOMPARE(f.book.reports.size(), 1);
    QCOMPARE(f.book.reports[0].first, &f.controller());
    QCOMPARE(f.book.reports[0].second, Qt::KeyboardModifiers(Qt::ControlModifier));

    Fixture unchanged(row());
    unchanged.host.setDefault(Parameter, 50);
    press(*unchanged.control, row().reset, Qt::ControlModifier);
    QCOMPARE(unchanged.book.edits.ended, 1);
    QVERIFY(unchanged.book.reports.isEmpty());
}

void tst_DragGestures::otherButtonsDoNothing()
{
    Fixture f(row());
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        QVERIFY(!sendMouse(*f.control, QEvent::MouseButtonPress, row().from, button, button, {}));
        moveTo(*f.control, row().to, {}, button);
        release(*f.control, row().to, {}, button);
        doubleClick(*f.control, row().reset, Qt::ControlModifier, button);
    }
    QCOMPARE(f.value(), 50);
    QCOMPARE(f.book.edits.begun, 0);
    press(*f.control, row().from);
    release(*f.control, row().from, {}, Qt::RightButton);
    QCOMPARE(f.book.edits.open(), 1);
}

void tst_DragGestures::disabledDoesNotReact()
{
    Fixture f(row());
    f.control->setEnabled(false);
    doubleClick(*f.control, row().from);
    doubleClick(*f.control, row().reset, Qt::ControlModifier);
    ControlTesting::wheel(*f.control, {0, 120});
    key(*f.control, Qt::Key_Up);
    QCOMPARE(f.value(), 50);
    QCOMPARE(f.book.edits.begun, 0);
    QVERIFY(f.book.drags.isEmpty());
}

void tst_DragGestures::moveWithoutButtonOrMovementDoesNothing()
{
    Fixture f(row());
    moveTo(*f.control, row().to);
    press(*f.control, row().from);
    f.host.resetLedger();
    moveTo(*f.control, row().to, {}, Qt::NoButton);
    moveTo(*f.control, row().from + QPointF(0.3, 0.3));
    QCOMPARE(f.host.callCount(), 0);
}

void tst_DragGestures::wheel_data()
{
    addColumns<int, QPoint, bool, int>("subject", "angle", "inverted", "value");
    for (int i = 0; i < m_subjects.size(); ++i) {
        const auto add = [&](const char* name, QPoint angle, bool inverted, int value) {
            QTest::addRow("%s, %s", m_subjects[i].name, name) << i << angle << inverted << value;
        };
        add("away", {0, 120}, false, 51);
        add("towards", {0, -240}, false, 48);
        add("sideways", {240, -120}, false, 52);
        add("away, inverted by the system", {0, -120}, true, 51);
        add("less than a notch", {0, -119}, false, 50);
    }
}

void tst_DragGestures::wheel()
{
    QFETCH(QPoint, angle);
    QFETCH(bool, inverted);
    Fixture f(row());
    QVERIFY(ControlTesting::wheel(*f.control, angle, {}, inverted));
    QTEST(f.value(), "value");
    QVERIFY(f.book.edits.has(1));
}

void tst_DragGestures::wheelRemainders()
{
    Fixture f(row());
    for (int i = 0; i < 3; ++i)
        ControlTesting::wheel(*f.control, {0, 120}, Qt::ShiftModifier);
    QCOMPARE(f.value(), 51);
    for (int i = 0; i < 40; ++i)
        ControlTesting::wheel(*f.control, {0, 15});
    QCOMPARE(f.value(), 56);
    ControlTesting::wheel(*f.control, {0, 100});
    ControlTesting::wheel(*f.control, {0, -60}); // turning back discards
    QCOMPARE(f.value(), 56);
    ControlTesting::wheel(*f.control, {0, -60});
    QCOMPARE(f.value(), 55);
}

void tst_DragGestures::wheelTakesFocus()
{
    Fixture f(row());
    f.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(f.window.get()));
    QVERIFY(!f.control->hasFocus());
    QVERIFY(ControlTesting::wheel(*f.control, {0, 1}));
    QVERIFY(f.control->hasFocus());
}

void tst_DragGestures::keys()
{
    for (const auto& [which, value] : {std::pair(Qt::Key_Up, 51),
                                       {Qt::Key_Down, 49},
                                       {Qt::Key_PageUp, 60},
                                       {Qt::Key_PageDown, 40}}) {
        Fixture f(row());
        QVERIFY(key(*f.control, which));
        QCOMPARE(f.value(), value);
        QVERIFY(f.book.edits.has(1));
        key(*f.control, Qt::Key_Space);
        key(*f.control, Qt::Key_A);
        QCOMPARE(static_cast<Window*>(f.window.get())->keys,
                 (QList<int>{Qt::Key_Space, Qt::Key_A}));
    }
}

void tst_DragGestures::modifiersAreReported()
{
    Fixture f(row());
    key(*f.control, Qt::Key_Up);
    ControlTesting::wheel(*f.control, {0, 120});
    QVERIFY(f.book.reports.isEmpty());
    key(*f.control, Qt::Key_Up, Qt::AltModifier);
    ControlTesting::wheel(*f.control, {0, 120}, Qt::MetaModifier);
    ControlTesting::wheel(*f.control, {0, 20}, Qt::MetaModifier);
    QCOMPARE(f.book.reports,
             (QList<std::pair<AbstractController*, Qt::KeyboardModifiers>>{
                 {&f.controller(), Qt::AltModifier}, {&f.controller(), Qt::MetaModifier}}));
    f.host.setSilently(Parameter, 0, 300);
    key(*f.control, Qt::Key_Up, Qt::AltModifier); // no change at the end
    QCOMPARE(f.book.reports.size(), 2);

    Fixture dragged(row());
    press(*dragged.control, row().from, Qt::AltModifier);
    moveTo(*dragged.control, row().to, Qt::AltModifier);
    QCOMPARE(dragged.book.reports.size(), row().reports);
}

// A drag that its own value ends, at the press or at the first move.
void tst_DragGestures::listenersMayEndTheDrag()
{
    QFETCH(QString, how);
    Fixture f(row());
    f.book.atChange = [&] { interrupt(how, f.window, f.control, f.host); };
    press(*f.control, row().from);
    moveTo(*f.control, row().to);
    moveTo(*f.control, row().from);
    QCOMPARE(f.book.edits.open(), 0);
    QCOMPARE(f.host.writes().size(), std::size_t(1));
    release(*f.control, row().from);
    QVERIFY(f.book.edits.has(1));
    QVERIFY(f.book.drags.isEmpty() || f.book.drags == (QList<bool>{true, false}));
}

void tst_DragGestures::oneValueRange()
{
    Fixture f(row());
    f.host.setRange(Parameter, 5, 5);
    f.host.setSilently(Parameter, 0, 5);
    press(*f.control, row().from, Qt::AltModifier);
    moveTo(*f.control, row().to, Qt::AltModifier);
    release(*f.control, row().to);
    press(*f.control, row().reset, Qt::ControlModifier);
    release(*f.control, row().reset);
    ControlTesting::wheel(*f.control, {0, 120}, Qt::AltModifier);
    key(*f.control, Qt::Key_PageUp, Qt::AltModifier);
    painted(*f.control);
    QCOMPARE(f.value(), 5);
    QVERIFY(f.book.reports.isEmpty());
    QCOMPARE(f.book.edits.open(), 0);
}

void tst_DragGestures::widestRange()
{
    constexpr int smallest = std::numeric_limits<int>::min();
    constexpr int largest = std::numeric_limits<int>::max();
    Fixture f(row());
    f.host.setRange(Parameter, smallest, largest);
    for (const int end : {smallest, largest}) {
        f.host.setSilently(Parameter, 0, end == smallest ? smallest + 1 : largest - 1);
        key(*f.control, end == smallest ? Qt::Key_PageDown : Qt::Key_PageUp);
        key(*f.control, end == smallest ? Qt::Key_Down : Qt::Key_Up);
        ControlTesting::wheel(*f.control, {0, end});
        QCOMPARE(f.value(), end);
    }
    press(*f.control, row().from);
    moveTo(*f.control, row().to);
    release(*f.control, row().to);
    painted(*f.control);
}

ZOLTA_TEST_MAIN(tst_DragGestures)

#include "tst_DragGestures.moc"
