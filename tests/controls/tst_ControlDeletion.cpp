// SPDX-License-Identifier: GPL-3.0-or-later
// Whoever hears of a user's change may destroy the control, or the editor that it stands in; and
// whatever the host is asked may fail.
#include "controls/ButtonGroupController.h"
#include "controls/FaderController.h"
#include "controls/KnobController.h"
#include "controls/PeakMeterController.h"
#include "controls/PullDownButtonController.h"
#include "controls/PushButtonController.h"
#include "controls/TextEditController.h"
#include "tests/controls/ControlTesting.h"
#include "tests/support/Columns.h"
#include "tests/support/TestObject.h"
#include "tests/widgets/SvgFiles.h"

#include <QApplication>
#include <QLineEdit>
#include <QTimer>

#include <functional>

using namespace CommonController_MemAPI;
using namespace ControlTesting;

namespace {

/// Destroys its victim the n-th time that something happens at a place, and keeps the books on the
/// edits, which outlive the control.
struct Destroyer
{
    QByteArray place;
    int countdown = 0;
    QPointer<QWidget> victim;
    Ledger edits;

    void at(const char* where)
    {
        if (place == where && --countdown == 0)
            delete victim.data();
    }
};

template <class Control> class Mortal : public Control
{
public:
    Mortal(Destroyer& destroyer, QWidget* parent)
        : Control(parent)
        , m_destroyer(destroyer)
    {}
    ~Mortal() override { this->closeEdits(); }

protected:
    void beginEdit() override
    {
        ++m_destroyer.edits.begun;
        m_destroyer.at("beginEdit");
    }
    void endEdit() override
    {
        ++m_destroyer.edits.ended;
        m_destroyer.at("endEdit");
    }

private:
    Destroyer& m_destroyer;
};

/// Hears of a change before or after the control does.
struct Listener : IPrmObserver
{
    Listener(Destroyer& which, const char* where)
        : destroyer(which)
        , place(where)
    {}
    int Update(unsigned short, unsigned short, int, const char*) override
    {
        destroyer.at(place);
        return 0;
    }
    int UpdateProperty(unsigned short, unsigned short, int, int, int, bool, const char*) override
    {
        return 0;
    }

    Destroyer& destroyer;
    const char* place;
};

using Step = std::function<void(QWidget& control)>;
using Make = std::function<QWidget*(Destroyer&, QWidget* window)>;

Step press(QPoint point, Qt::KeyboardModifiers modifiers = NoKeys)
{
    return [=](QWidget& control) { ControlTesting::press(control, point, modifiers); };
}
Step moveTo(QPoint point, Qt::KeyboardModifiers modifiers = NoKeys)
{
    return [=](QWidget& control) { ControlTesting::moveTo(control, point, modifiers); };
}
Step release(QPoint point, Qt::KeyboardModifiers modifiers = NoKeys)
{
    return [=](QWidget& control) { ControlTesting::release(control, point, modifiers); };
}
Step doubleClick(QPoint point, Qt::KeyboardModifiers modifiers = NoKeys)
{
    return [=](QWidget& control) {
        sendMouse(control, QEvent::MouseButtonDblClick, point, Qt::LeftButton, Qt::LeftButton,
                  modifiers);
    };
}
Step key(Qt::Key which, Qt::KeyboardModifiers modifiers = NoKeys,
         QEvent::Type type = QEvent::KeyPress)
{
    return [=](QWidget& control) { ControlTesting::key(control, which, modifiers, type); };
}
Step type(Qt::Key which, const char* text)
{
    return [=](QWidget& control) {
        auto* line = control.findChild<QLineEdit*>();
        line->setText(QString::fromLatin1(text));
        QKeyEvent event(QEvent::KeyPress, which, Qt::NoModifier);
        QCoreApplication::sendEvent(line, &event);
    };
}

const Step wheel = [](QWidget& control) {
    ControlTesting::wheel(control, {0, 240}, Qt::AltModifier);
};
const Step disable = [](QWidget& control) { control.setEnabled(false); };
const Step unbindIt = [](QWidget& control) { unbind(dynamic_cast<AbstractController&>(control)); };
const Step accessibleIncrease = [](QWidget& control) {
    QAccessible::queryAccessibleInterface(&control)->actionInterface()->doAction(
        QAccessibleActionInterface::increaseAction());
};
const Step focus = [](QWidget& control) {
    control.setFocusPolicy(Qt::StrongFocus);
    control.setFocus();
};
const Step focusElsewhere = [](QWidget& control) {
    control.window()->findChild<QWidget*>(QStringLiteral("other"))->setFocus();
};
const Step clickMember = [](QWidget& control) {
    control.findChildren<QAbstractButton*>().last()->click();
};
const Step resetMember = [](QWidget& control) {
    ControlTesting::press(*control.findChildren<QAbstractButton*>().first(), {5, 5},
                          Qt::ControlModifier);
};

const Step pickNext = [](QWidget& control) {
    QTimer::singleShot(0, [] {
        for (const Qt::Key which : {Qt::Key_Down, Qt::Key_Return}) {
            if (QWidget* menu = QApplication::activePopupWidget())
                QTest::keyClick(menu, which);
        }
    });
    ControlTesting::press(control, {5, 5}, Qt::AltModifier);
};

struct Use
{
    const char* name;
    QList<Step> steps;
};

constexpr auto Alt = Qt::AltModifier;
constexpr auto Shift = Qt::ShiftModifier;
constexpr auto Control = Qt::ControlModifier;

const QList<Step> drag = {press({50, 10}, Alt), moveTo({90, 50}, Alt), moveTo({60, 90}, Shift),
                          moveTo({50, 10}, Alt), release({50, 10})};

QList<Use> usesOfAny()
{
    return {{"drag", drag},
            {"drag, disabled", {press({50, 10}, Alt), moveTo({90, 50}, Alt), disable}},
            {"drag, unbound", {press({50, 10}, Alt), moveTo({90, 50}, Alt), unbindIt}},
            {"drag, pressed again", {press({50, 10}), press({90, 50}, Alt), release({90, 50})}},
            {"Control-click", {press({50, 90}, Control), release({50, 90})}},
            {"wheel", {focusElsewhere, wheel}},
            {"key", {key(Qt::Key_Up, Alt)}},
            {"assistive technology", {accessibleIncrease}}};
}

QList<Use> usesOfFaders()
{
    return usesOfAny() + QList<Use>{{"double click", {doubleClick({50, 90}, Alt)}}};
}

QList<Use> usesOfTexts()
{
    return usesOfAny() +
           QList<Use>{
               {"typed", {doubleClick({5, 5}), type(Qt::Key_Return, "7")}},
               {"cancelled", {doubleClick({5, 5}), type(Qt::Key_Escape, "7")}},
               {"typed, elsewhere", {doubleClick({5, 5}), type(Qt::Key_8, "7"), focusElsewhere}},
               {"typed, unbound", {doubleClick({5, 5}), type(Qt::Key_8, "7"), unbindIt}}};
}

QList<Use> usesOfButtons()
{
    const Step space = key(Qt::Key_Space, Alt);
    const Step spaceUp = key(Qt::Key_Space, Alt, QEvent::KeyRelease);
    return {{"click", {press({5, 5}, Alt), release({5, 5}, Alt)}},
            {"dragged off", {press({5, 5}, Alt), moveTo({-5, 5}), moveTo({5, 5}), release({5, 5})}},
            {"Space", {focus, space, spaceUp}},
            {"Space, focus elsewhere", {focus, space, focusElsewhere}},
            {"held, focus elsewhere", {press({5, 5}, Alt), focusElsewhere}},
            {"held, disabled", {press({5, 5}, Alt), disable}},
            {"held, unbound", {press({5, 5}, Alt), unbindIt}}};
}

QList<Use> usesOfPullDowns()
{
    return {{"chosen", {pickNext}}, {"assistive technology", {accessibleIncrease}}};
}

QList<Use> usesOfGroups() { return {{"click", {clickMember}}, {"Control-click", {resetMember}}}; }

template <class Control> void report(Control& control, Destroyer& destroyer)
{
    QObject::connect(&control, qOverload<int>(&Control::valueChanged), qApp,
                     [&destroyer] { destroyer.at("valueChanged"); });
    QObject::connect(&control, &Control::modifiersChange, qApp,
                     [&destroyer] { destroyer.at("modifiersChange"); });
}

template <class Control, class Arrange> Make making(Arrange arrange)
{
    return [arrange](Destroyer& destroyer, QWidget* window) -> QWidget* {
        auto* control = new Mortal<Control>(destroyer, window);
        report<Control>(*control, destroyer);
        if constexpr (requires { &Control::drag; }) {
            QObject::connect(control, &Control::drag, qApp, [&destroyer](bool on) {
                destroyer.at(on ? "drag begins" : "drag ends");
            });
        }
        if constexpr (requires { &Control::textEdit; }) {
            QObject::connect(control, &Control::textEdit, qApp,
                             [&destroyer] { destroyer.at("textEdit"); });
        }
        if constexpr (requires { &Control::sideChanged; }) {
            for (const auto& [signal, place] : {std::pair(&QAbstractButton::pressed, "pressed"),
                                                {&QAbstractButton::released, "released"}})
                QObject::connect(control, signal, qApp,
                                 [&destroyer, place = place] { destroyer.at(place); });
            QObject::connect(control, &QAbstractButton::clicked, qApp,
                             [&destroyer] { destroyer.at("clicked"); });
            QObject::connect(control, &QAbstractButton::toggled, qApp,
                             [&destroyer] { destroyer.at("toggled"); });
            QObject::connect(control, &Control::sideChanged, qApp,
                             [&destroyer] { destroyer.at("sideChanged"); });
        }
        if constexpr (requires { &Control::selected; }) {
            QObject::connect(control, &Control::changed, qApp,
                             [&destroyer] { destroyer.at("changed"); });
            QObject::connect(control, &Control::selected, qApp,
                             [&destroyer] { destroyer.at("selected"); });
        }
        arrange(*control);
        return control;
    };
}

/// A control of 100 by 100 in an editor in a window, on a parameter of 0 to 300 between two other
/// listeners of the host.
struct Stage
{
    Stage(const Make& make, const char* place)
        : destroyer{place, 0, {}, {}}
        , editor(new QWidget(&window))
        , control(make(destroyer, editor))
    {
        host.addParameter(Parameter, 0, 300, 100);
        host.set(Parameter, 0, 20);
        other->setObjectName(QStringLiteral("other"));
        other->setFocusPolicy(Qt::StrongFocus);
        window.setGeometry(200, 150, 200, 200); // away from the mouse pointer
        editor->resize(100, 100);
        control->resize(100, 100);
    }
    /// Binds the control and shows the window; whether it became active.
    bool show()
    {
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            return false;
        other->setFocus();
        host.memory()->registerObserver(host.id(Parameter), 0, &before);
        bind(dynamic_cast<AbstractController&>(*control), host);
        host.memory()->registerObserver(host.id(Parameter), 0, &after);
        return true;
    }
    /// Uses the control, as long as there is one.
    void play(const Use& use)
    {
        for (const Step& step : use.steps) {
            if (control)
                step(*control);
        }
        destroyer.victim = nullptr;
    }
    /// Whether nothing is left behind when the editor is gone.
    bool isBalanced()
    {
        delete editor.data();
        host.memory()->unregisterObserver(host.id(Parameter), 0, &before);
        host.memory()->unregisterObserver(host.id(Parameter), 0, &after);
        return destroyer.edits.open() == 0 && host.observerCount() == 0;
    }

    TestHost host;
    Destroyer destroyer;
    Listener before{destroyer, "before the control"};
    Listener after{destroyer, "after the control"};
    QWidget window;
    QWidget* other = new QWidget(&window);
    QPointer<QWidget> editor;
    QPointer<QWidget> control;
};

const char* const Places[] = {"beginEdit",         "endEdit",      "before the control",
                              "after the control", "valueChanged", "modifiersChange",
                              "drag begins",       "drag ends",    "textEdit",
                              "pressed",           "released",     "clicked",
                              "toggled",           "sideChanged",  "changed",
                              "selected"};

} // namespace

class tst_ControlDeletion : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void anyListenerMayDestroy_data() { rows(); }
    void anyListenerMayDestroy();
    void heldButtonGoesWithItsEditor_data();
    void heldButtonGoesWithItsEditor();
    void othersMayDestroyToo_data() { rows(); }
    void othersMayDestroyToo();
    void everyHostCallMayFail_data() { rows({false}); }
    void everyHostCallMayFail();

private:
    struct Subject
    {
        QByteArray name;
        Make make;
        QList<Use> uses;
    };
    void rows(std::initializer_list<bool> wholeEditors = {false, true});
    SvgFiles m_files;
    QList<Subject> m_subjects;
};

void tst_ControlDeletion::initTestCase()
{
    const QString picture = m_files.plain("knob.svg", 20, 20, "#0000ff");
    const auto add = [this](const char* name, const Make& make, const QList<Use>& uses) {
        m_subjects.append({name, make, uses});
    };
    for (const auto& [name, operation] : {std::pair("circular knob", KnobController::Circular),
                                          {"linear knob", KnobController::Linear}})
        add(name, making<KnobController>([type = operation](KnobController& knob) {
                knob.setOperationType(type);
            }),
            usesOfAny());
    for (const auto& [name, operation] : {std::pair("Jump", FaderController::Jump),
                                          {"Ramp", FaderController::Ramp},
                                          {"Relative", FaderController::Relative}})
        add(name, making<FaderController>([type = operation, picture](FaderController& fader) {
                fader.setOperationType(type);
                fader.setKnobSvg(picture);
                fader.setEnableDoubleClick(true);
            }),
            usesOfFaders());
    add("text field", making<TextEditController>([](TextEditController&) {}), usesOfTexts());
    add("momentary button", making<PushButtonController>([](PushButtonController&) {}),
        usesOfButtons());
    for (const auto& [name, edge] : {std::pair("switch", PushButtonController::Release),
                                     {"switch on press", PushButtonController::Press}})
        add(name, making<PushButtonController>([trigger = edge](PushButtonController& button) {
                button.setCheckable(true);
                button.setCheckTrigger(trigger | PushButtonController::On |
                                       PushButtonController::Off);
            }),
            usesOfButtons());
    add("pull-down", making<PullDownButtonController>([](PullDownButtonController& button) {
            button.setTextList({QStringLiteral("Low"), QStringLiteral("High")});
        }),
        usesOfPullDowns());
    add("meter", making<PeakMeterController>([](PeakMeterController&) {}), {});
    add("group", making<ButtonGroupController>([](ButtonGroupController& group) {
            group.setEnableDefaultSet(true);
            for (int i = 0; i < 3; ++i) {
                auto* button = new PushButtonController(&group);
                button->setCheckable(true);
                button->resize(10, 10);
            }
            QCoreApplication::processEvents();
        }),
        usesOfGroups());
}

void tst_ControlDeletion::rows(std::initializer_list<bool> wholeEditors)
{
    QTest::addColumn<int>("subject");
    QTest::addColumn<bool>("wholeEditor");
    for (int i = 0; i < m_subjects.size(); ++i) {
        for (const bool wholeEditor : wholeEditors)
            QTest::addRow("%s%s", m_subjects[i].name.constData(),
                          wholeEditor ? ", with its editor" : "")
                << i << wholeEditor;
    }
}

void tst_ControlDeletion::anyListenerMayDestroy()
{
    QFETCH(int, subject);
    QFETCH(bool, wholeEditor);
    int times = 0;
    for (const Use& use : m_subjects[subject].uses) {
        for (const char* place : Places) {
            bool isReached = true;
            for (int count = 1; isReached; ++count) {
                Stage stage(m_subjects[subject].make, place);
                QVERIFY(stage.show());
                stage.destroyer.victim = wholeEditor ? stage.editor : stage.control;
                stage.destroyer.countdown = count;
                stage.play(use);
                isReached = stage.destroyer.countdown <= 0;
                times += isReached ? 1 : 0;
                QVERIFY2(stage.isBalanced(),
                         qPrintable(QStringLiteral("%1, %2, %3")
                                        .arg(QLatin1String(use.name), QLatin1String(place))
                                        .arg(count)));
            }
        }
    }
    QVERIFY(times >= 3 * m_subjects[subject].uses.size());
}

void tst_ControlDeletion::heldButtonGoesWithItsEditor_data()
{
    QTest::addColumn<bool>("bySpace");
    QTest::addColumn<bool>("checkable");
    for (const bool checkable : {false, true}) {
        QTest::addRow("Space, %d", checkable) << true << checkable;
        QTest::addRow("mouse, %d", checkable) << false << checkable;
    }
}

// The focus that the button loses with its editor is told to the whole application.
void tst_ControlDeletion::heldButtonGoesWithItsEditor()
{
    QFETCH(bool, bySpace);
    QFETCH(bool, checkable);
    TestHost host;
    host.addParameter(Parameter, 0, 1, 0);
    Destroyer destroyer;
    QWidget window;
    auto* editor = new QWidget(&window);
    auto* button = new Mortal<PushButtonController>(destroyer, editor);
    button->setCheckable(checkable);
    bind(*button, host);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    button->setFocus();
    QVERIFY(button->hasFocus());
    if (bySpace)
        ControlTesting::key(*button, Qt::Key_Space);
    else
        ControlTesting::press(*button, {5, 5});
    QVERIFY(button->isDown());
    delete editor;
    QCOMPARE(host.value(Parameter, 0), 0);
    QCOMPARE(host.writes().size(), std::size_t(checkable ? 0 : 2));
    QCOMPARE(destroyer.edits.open(), 0);
    QCOMPARE(host.observerCount(), 0);
}

// Not of a gesture, but of the device or of the program.
void tst_ControlDeletion::othersMayDestroyToo()
{
    QFETCH(int, subject);
    QFETCH(bool, wholeEditor);
    struct Change
    {
        bool isBound;
        std::function<void(AbstractController&, TestHost&)> make;
    };
    const QList<Change> changes = {
        {true, [](auto&, TestHost& host) { host.set(Parameter, 0, 7); }},
        {true, [](auto&, TestHost& host) { host.notifyProperty(Parameter, 0); }},
        {true, [](auto& control, auto&) { control.setValue(8); }},
        {true, [](auto& control, auto&) { control.setNormalized(0.75f); }},
        {true, [](auto& control, auto&) { control.setString(QStringLiteral("9")); }},
        {true, [](auto& control, auto&) { control.editString(QStringLiteral("9")); }},
        {true, [](auto& control, TestHost& host) { bind(control, host, Parameter, 1); }},
        {true, [](auto& control, auto&) { unbind(control); }},
        {false, [](auto& control, TestHost& host) { bind(control, host); }},
        {false, [](auto& control, auto&) { control.setMaximumValue(-2000); }},
        {false, [](auto& control, auto&) { control.setString(QStringLiteral("9")); }}};
    for (const Change& change : changes) {
        Stage stage(m_subjects[subject].make, "valueChanged");
        auto& controller = dynamic_cast<AbstractController&>(*stage.control);
        if (change.isBound)
            bind(controller, stage.host);
        stage.destroyer.victim = wholeEditor ? stage.editor : stage.control;
        stage.destroyer.countdown = 1;
        change.make(controller, stage.host);
        QVERIFY(!stage.control);
        QVERIFY(stage.isBalanced());
    }
}

void tst_ControlDeletion::everyHostCallMayFail()
{
    QFETCH(int, subject);
    const Step fromOutside = [](QWidget& control) {
        auto& controller = dynamic_cast<AbstractController&>(control);
        IMemAPI* memory = controller.memAPI();
        controller.setValue(33);
        controller.setString(QStringLiteral("34"));
        painted(control);
        controller.setMemAPIValue(memory, controller.parameter(), 1, 0);
        painted(control);
        unbind(controller);
    };
    for (Use use : m_subjects[subject].uses + QList<Use>{{"from outside", {}}}) {
        use.steps << fromOutside;
        int calls = 1;
        for (int n = 1; n <= calls; ++n) {
            Stage stage(m_subjects[subject].make, "");
            QVERIFY(stage.show());
            stage.host.resetLedger();
            stage.host.failAnyCall(n);
            stage.play(use);
            calls = stage.host.callCount();
            stage.host.clearErrors();
            delete stage.control;
            QVERIFY2(stage.destroyer.edits.open() == 0, use.name);
        }
    }
}

ZOLTA_TEST_MAIN(tst_ControlDeletion)

#include "tst_ControlDeletion.moc"
