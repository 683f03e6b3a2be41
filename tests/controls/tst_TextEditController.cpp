// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/TextEditController.h"

#include "tests/controls/ControlTesting.h"
#include "tests/support/ImageDifference.h"
#include "tests/support/TestObject.h"

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QShortcut>
#include <QSignalSpy>

#include <limits>

using namespace ControlTesting;
using CommonController_MemAPI::TextEditController;
using Text = Ledgered<TextEditController>;

namespace {

constexpr int Largest = std::numeric_limits<int>::max();
constexpr int Smallest = std::numeric_limits<int>::min();

/// Takes what its children leave.
class Window : public QWidget
{
public:
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys << event->key(); }
    void keyReleaseEvent(QKeyEvent* event) override { keys << event->key(); }
};

/// A field of 100 by 20 on Parameter, 0 to 300, in an active window.
struct Fixture
{
    Fixture()
        : window(std::make_unique<Window>())
        , field(new Text(ledger, static_cast<Window*>(window.get())))
    {
        host.addParameter(Parameter, 0, 300, 100);
        host.setParser([this](const QByteArray&, unsigned short, const QByteArray& text) {
            parsed << QString::fromLatin1(text);
            bool ok = false;
            const double number = text.toDouble(&ok);
            return ok ? std::optional<int>(static_cast<int>(number)) : std::nullopt;
        });
        field->setGeometry(10, 10, 100, 20);
        bind(*field, host);
        QObject::connect(field.data(), &TextEditController::drag, [this](bool on) { drags << on; });
        QObject::connect(field.data(), &TextEditController::textEdit,
                         [this](bool on) { edits << on; });
    }
    /// Whether the window became active.
    bool show()
    {
        window->show();
        window->activateWindow();
        return QTest::qWaitForWindowActive(window.get());
    }
    QLineEdit* editor() const { return field->findChild<QLineEdit*>(); }
    /// Opens the editor and types over what it holds.
    void type(const QString& text) const
    {
        field->edit();
        QTest::keyClicks(editor(), text);
    }
    void postfix(const QByteArray& unit)
    {
        host.setFormatter([unit](const QByteArray&, unsigned short, int value) {
            return QByteArray::number(value) + unit;
        });
        field->setPostfix(QString::fromLatin1(unit));
    }
    int value() const { return host.value(Parameter, 0); }

    TestHost host;
    Ledger ledger;
    QStringList parsed;
    QList<bool> drags;
    QList<bool> edits;
    std::unique_ptr<QWidget> window;
    QPointer<Text> field;
};

} // namespace

class tst_TextEditController : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void settersActOnChange();

    void editTextLeavesThePostfixOut_data();
    void editTextLeavesThePostfixOut();
    void editTextExpandsTheUnit_data();
    void editTextExpandsTheUnit();
    void typedUnitIsExpanded_data();
    void typedUnitIsExpanded();
    void typedUnitIsKeptWithoutExpansion();
    void postfixIsNotDoubled();

    void doubleClickOpensTheEditor();
    void editorBlendsIn();
    void editorDoesNotOpenWithoutFocus();
    void editorDoesNotOpenWhileDisabledOrOpen();
    void returnCommits();
    void escapeRestoresAndWritesNothing();
    void unchangedTextWritesNothing();
    void unchangedTextDoesNotUndoTheHost();
    void longTextThatIsCutIsUnchanged();
    void textThatCannotBeParsedLeavesTheValue();
    void losingTheFocusCommits();
    void contextMenuKeepsTheEditOpen();
    void hidingCommits_data();
    void hidingCommits();
    void disablingCommits();
    void rebindingCancels();
    void destructionCancels();
    void lengthIsLimited();
    void resizeTakesTheEditorAlong();
    void keysStayInTheEditor();
    void shortcutsWaitWhileTyping();
    void wheelDoesNothingWhileTyping();
    void commitReportsModifiers();

    void drag_data();
    void drag();
    void fineDragReanchors();
    void leftAndRightAreSwallowed();
    void unusedKeysGoToTheWindow();
    void modifiersAreReported();
    void widestRangeDoesNotOverflow();
    void oneValueRangeDoesNotCrash();
    void everyFailureIsSurvived();

    void paintsTheText_data();
    void paintsTheText();
    void paintsNothingForAnEmptyText();
    void paintingAsksTheHostOnce();

    void accessibility();
    void editorAnnouncesItselfWithTheFieldsName();
    void valueChangesAreAnnounced();
};

void tst_TextEditController::settersActOnChange()
{
    Fixture f;
    f.window->resize(300, 200);
    QVERIFY(f.show());
    Text& field = *f.field;
    QVERIFY(!repaints(field, [&] { field.setAlignment(Qt::AlignLeft | Qt::AlignVCenter); }));
    QVERIFY(repaints(field, [&] { field.setAlignment(Qt::AlignRight); }));
    QVERIFY(repaints(field, [&] { field.setTextTrim(true); }));
    QVERIFY(!repaints(field, [&] { field.setTextTrim(true); }));
    QVERIFY(repaints(field, [&] { field.setTextLeftMargin(3); }));
    QVERIFY(repaints(field, [&] { field.setTextRightMargin(3); }));
    QVERIFY(!repaints(field, [&] { field.setTextRightMargin(3); }));
    QVERIFY(!repaints(field, [&] { field.setExpandUnit(true); }));
    QVERIFY(repaints(field, [&] { field.setScale(3.0); }));
    QVERIFY(repaints(field, [&] { f.host.set(Parameter, 0, 7); }));
    QSignalSpy changes(&field, qOverload<int>(&TextEditController::valueChanged));
    QVERIFY(repaints(field, [&] { field.setPostfix(QStringLiteral("x")); }));
    field.setPostfix(QStringLiteral("x"));
    QCOMPARE(changes, (QList<QVariantList>{{7}}));
    field.setTextMaxLength(-4);
    QCOMPARE(field.textMaxLength(), 0);
}

void tst_TextEditController::editTextLeavesThePostfixOut_data()
{
    QTest::addColumn<QString>("string");
    QTest::addColumn<bool>("trim");
    QTest::addColumn<QString>("postfix");
    QTest::addColumn<QString>("expected");
    const QString hertz = QStringLiteral(" Hz");
    QTest::newRow("with it") << QStringLiteral("100 Hz") << false << hertz << QStringLiteral("100");
    QTest::newRow("without") << QStringLiteral("100") << false << hertz << QStringLiteral("100");
    QTest::newRow("once") << QStringLiteral("100 Hz Hz") << false << hertz
                          << QStringLiteral("100 Hz");
    QTest::newRow("not trimmed") << QStringLiteral(" 100 Hz ") << false << hertz
                                 << QStringLiteral(" 100 Hz ");
    QTest::newRow("trimmed") << QStringLiteral(" 100 Hz ") << true << hertz
                             << QStringLiteral("100");
    QTest::newRow("none") << QStringLiteral("100 Hz") << false << QString()
                          << QStringLiteral("100 Hz");
    QTest::newRow("empty") << QString() << true << hertz << QString();
}

void tst_TextEditController::editTextLeavesThePostfixOut()
{
    QFETCH(QString, string);
    QFETCH(bool, trim);
    QFETCH(QString, postfix);
    TextEditController field;
    field.setString(string);
    field.setTextTrim(trim);
    field.setPostfix(postfix);
    QTEST(field.editText(), "expected");
}

void tst_TextEditController::editTextExpandsTheUnit_data()
{
    QTest::addColumn<QString>("string");
    QTest::addColumn<QString>("expected");
    QTest::newRow("k") << QStringLiteral("1.5 k") << QStringLiteral("1500");
    QTest::newRow("with postfix") << QStringLiteral("1.5 kHz") << QStringLiteral("1500");
    QTest::newRow("m") << QStringLiteral("2m") << QStringLiteral("2e+06");
    QTest::newRow("no number") << QStringLiteral("k") << QStringLiteral("k");
    QTest::newRow("no letter") << QStringLiteral("20") << QStringLiteral("20");
}

void tst_TextEditController::editTextExpandsTheUnit()
{
    QFETCH(QString, string);
    TextEditController field;
    field.setPostfix(QStringLiteral("Hz"));
    field.setString(string);
    QVERIFY(field.editText() == string || string.endsWith(QLatin1String("Hz")));
    field.setExpandUnit(true);
    QTEST(field.editText(), "expected");
}

void tst_TextEditController::typedUnitIsExpanded_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("submitted");
    QTest::newRow("1.5k") << QStringLiteral("1.5k") << QStringLiteral("1500");
    QTest::newRow("2M") << QStringLiteral("2M") << QStringLiteral("2e+06");
    QTest::newRow("2m") << QStringLiteral("2m") << QStringLiteral("2e+06");
    QTest::newRow("a lone k") << QStringLiteral("k") << QStringLiteral("k");
    QTest::newRow("plain") << QStringLiteral("250") << QStringLiteral("250");
}

void tst_TextEditController::typedUnitIsExpanded()
{
    QFETCH(QString, typed);
    QFETCH(QString, submitted);
    Fixture f;
    QVERIFY(f.show());
    f.field->setExpandUnit(true);
    f.type(typed);
    QTest::keyClick(f.editor(), Qt::Key_Return);
    QCOMPARE(f.parsed, QStringList{submitted});
    QCOMPARE(f.edits, (QList<bool>{true, false}));
    QCOMPARE(f.ledger.begun, 1);
    QCOMPARE(f.ledger.ended, 1);
}

void tst_TextEditController::typedUnitIsKeptWithoutExpansion()
{
    Fixture f;
    QVERIFY(f.show());
    f.type(QStringLiteral("1.5k"));
    QTest::keyClick(f.editor(), Qt::Key_Return);
    QCOMPARE(f.parsed, QStringList{QStringLiteral("1.5k")});
}

void tst_TextEditController::postfixIsNotDoubled()
{
    Fixture f;
    QVERIFY(f.show());
    f.postfix(" Hz");
    const QImage withPostfix = painted(*f.field, 1.0, Qt::white);
    f.host.setFormatter({});
    f.field->setPostfix(QString());
    const QImage without = painted(*f.field, 1.0, Qt::white);
    f.field->setPostfix(QStringLiteral(" Hz"));
    QCOMPARE(imageDifference(painted(*f.field, 1.0, Qt::white), withPostfix), 0);
    QVERIFY(imageDifference(without, withPostfix) > 0);
    f.postfix(" Hz");
    f.field->edit();
    QCOMPARE(f.editor()->text(), QStringLiteral("100"));
}

void tst_TextEditController::doubleClickOpensTheEditor()
{
    Fixture f;
    QVERIFY(f.show());
    doubleClick(*f.field, {20, 5}, {}, Qt::RightButton);
    QVERIFY(f.editor()->isHidden());
    doubleClick(*f.field, {20, 5});
    QVERIFY(f.editor()->isVisible());
    QVERIFY(f.editor()->hasFocus());
    QCOMPARE(f.editor()->text(), QStringLiteral("100"));
    QCOMPARE(f.editor()->selectedText(), QStringLiteral("100"));
    QCOMPARE(f.edits, QList<bool>{true});
    QCOMPARE(f.drags, (QList<bool>{true, false}));
}

void tst_TextEditController::editorBlendsIn()
{
    Fixture f;
    QVERIFY(f.show());
    QFont font = f.field->font();
    font.setPixelSize(9);
    f.field->setFont(font);
    f.field->setAlignment(Qt::AlignRight);
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::darkGreen);
    f.field->setPalette(palette);
    QVERIFY(!f.editor()->hasFrame());
    QVERIFY(!f.editor()->testAttribute(Qt::WA_InputMethodEnabled));
    f.field->edit();
    QCOMPARE(f.editor()->geometry(), f.field->rect());
    QCOMPARE(f.editor()->font().pixelSize(), 9);
    QCOMPARE(f.editor()->alignment(), Qt::Alignment(Qt::AlignRight));
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        QCOMPARE(f.editor()->palette().color(group, QPalette::Base), QColor(Qt::darkGreen));
    QCOMPARE(f.field->palette(), palette.resolve(f.field->palette()));
}

void tst_TextEditController::editorDoesNotOpenWithoutFocus()
{
    Fixture f;
    f.field->edit();
    QVERIFY(f.editor()->isHidden());
    QVERIFY(f.edits.isEmpty());
}

void tst_TextEditController::editorDoesNotOpenWhileDisabledOrOpen()
{
    Fixture f;
    QVERIFY(f.show());
    f.type(QStringLiteral("7"));
    f.field->edit();
    QCOMPARE(f.editor()->text(), QStringLiteral("7"));
    QCOMPARE(f.edits, QList<bool>{true});
    f.field->editCancel();
    f.field->setEnabled(false);
    f.field->edit();
    QVERIFY(f.editor()->isHidden());
    QCOMPARE(f.edits, (QList<bool>{true, false}));
}

void tst_TextEditController::returnCommits()
{
    Fixture f;
    QVERIFY(f.show());
    f.type(QStringLiteral("222"));
    QCOMPARE(f.value(), 100);
    QTest::keyClick(f.editor(), Qt::Key_Return);
    QCOMPARE(f.value(), 222);
    QVERIFY(f.editor()->isHidden());
    QVERIFY(f.field->hasFocus());
    QCOMPARE(f.host.writes().size(), std::size_t(1));
    f.field->editFinish();
    f.field->editCancel();
    QCOMPARE(f.edits, (QList<bool>{true, false}));
}

void tst_TextEditController::escapeRestoresAndWritesNothing()
{
    Fixture f;
    QVERIFY(f.show());
    f.type(QStringLiteral("222"));
    QTest::keyClick(f.editor(), Qt::Key_Escape, Qt::AltModifier);
    QVERIFY(f.editor()->isVisible());
    QTest::keyClick(f.editor(), Qt::Key_Escape);
    QVERIFY(f.editor()->isHidden());
    QVERIFY(f.field->hasFocus());
    QCOMPARE(f.editor()->text(), QStringLiteral("100"));
    QCOMPARE(f.edits, (QList<bool>{true, false}));
    QCOMPARE(f.host.count(TestHost::Operation::SetValue), 0);
    QCOMPARE(f.ledger.begun, 0);
}

void tst_TextEditController::unchangedTextWritesNothing()
{
    Fixture f;
    QVERIFY(f.show());
    f.type(QStringLiteral("100"));
    QTest::keyClick(f.editor(), Qt::Key_Enter);
    QCOMPARE(f.edits, (QList<bool>{true, false}));
    QVERIFY(f.parsed.isEmpty());
    QCOMPARE(f.ledger.begun, 0);
}

void tst_TextEditController::unchangedTextDoesNotUndoTheHost()
{
    Fixture f;
    QVERIFY(f.show());
    f.field->edit();
    f.host.set(Parameter, 0, 180);
    f.field->editFinish();
    QCOMPARE(f.value(), 180);
    QCOMPARE(f.edits, (QList<bool>{true, false}));
}

void tst_TextEditController::longTextThatIsCutIsUnchanged()
{
    Fixture f;
    QVERIFY(f.show());
    f.field->setTextMaxLength(2);
    f.field->edit();
    QCOMPARE(f.editor()->text(), QStringLiteral("10"));
    f.field->editFinish();
    QCOMPARE(f.value(), 100);
    QVERIFY(f.parsed.isEmpty());
}

void tst_TextEditController::textThatCannotBeParsedLeavesTheValue()
{
    Fixture f;
    QVERIFY(f.show());
    f.type(QStringLiteral("loud"));
    QTest::keyClick(f.editor(), Qt::Key_Return);
    QCOMPARE(f.parsed, QStringList{QStringLiteral("loud")});
    QCOMPARE(f.value(), 100);
    QVERIFY(f.editor()->isHidden());
    QCOMPARE(f.edits, (QList<bool>{true, false}));
    QCOMPARE(f.ledger.ended, 1);
}

void tst_TextEditController::losingTheFocusCommits()
{
    Fixture f;
    QLineEdit other(f.window.get());
    QVERIFY(f.show());
    for (const auto reason : {Qt::MouseFocusReason, Qt::ActiveWindowFocusReason,
                              Qt::PopupFocusReason, Qt::OtherFocusReason}) {
        f.host.setSilently(Parameter, 0, 100);
        f.edits.clear();
        f.parsed.clear();
        f.type(QStringLiteral("50"));
        other.setFocus(reason);
        QCOMPARE(f.value(), 50);
        QCOMPARE(f.parsed.size(), 1);
        QCOMPARE(f.edits, (QList<bool>{true, false}));
        QVERIFY(other.hasFocus());
    }
}

void tst_TextEditController::contextMenuKeepsTheEditOpen()
{
    Fixture f;
    QVERIFY(f.show());
    f.type(QStringLiteral("50"));
    // Of the platform, not of the menu.
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support grabbing the keyboard");
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5},
                            f.editor()->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(f.editor(), &event);
    QPointer<QWidget> menu = QApplication::activePopupWidget();
    QVERIFY(qobject_cast<QMenu*>(menu));
    QCOMPARE(menu->style(), f.editor()->style());
    QVERIFY(f.editor()->isVisible());
    f.field->editFinish();
    QCOMPARE(f.edits, QList<bool>{true});
    menu->close();
    QVERIFY(f.editor()->isVisible());
    f.field->editFinish();
    QCOMPARE(f.value(), 50);
    QCOMPARE(f.edits, (QList<bool>{true, false}));
}

void tst_TextEditController::hidingCommits_data()
{
    QTest::addColumn<bool>("parent");
    QTest::newRow("itself") << false;
    QTest::newRow("with its window") << true;
}

void tst_TextEditController::hidingCommits()
{
    QFETCH(bool, parent);
    Fixture f;
    QVERIFY(f.show());
    f.type(QStringLiteral("50"));
    (parent ? f.window.get() : f.field.data())->hide();
    QCOMPARE(f.value(), 50);
    QCOMPARE(f.parsed.size(), 1);
    QCOMPARE(f.edits, (QList<bool>{true, false}));
    QVERIFY(f.editor()->isHidden());
}

void tst_TextEditController::disablingCommits()
{
    Fixture f;
    QVERIFY(f.show());
    f.type(QStringLiteral("50"));
    f.field->setEnabled(false);
    QCOMPARE(f.value(), 50);
    QCOMPARE(f.parsed.size(), 1);
    QCOMPARE(f.edits, (QList<bool>{true, false}));
    QVERIFY(f.editor()->isHidden());
}

void tst_TextEditController::rebindingCancels()
{
    Fixture f;
    QVERIFY(f.show());
    f.type(QStringLiteral("50"));
    bind(*f.field, f.host, Parameter, 3);
    QCOMPARE(f.edits, (QList<bool>{true, false}));
    QVERIFY(f.editor()->isHidden());
    f.type(QStringLiteral("60"));
    unbind(*f.field);
    QCOMPARE(f.edits, (QList<bool>{true, false, true, false}));
    QVERIFY(f.parsed.isEmpty());
}

void tst_TextEditController::destructionCancels()
{
    Fixture f;
    QVERIFY(f.show());
    f.type(QStringLiteral("50"));
    delete f.field.data();
    QCOMPARE(f.edits, (QList<bool>{true, false}));
    QVERIFY(f.parsed.isEmpty());
    QCOMPARE(f.host.observerCount(), 0);
}

void tst_TextEditController::lengthIsLimited()
{
    Fixture f;
    QVERIFY(f.show());
    QCOMPARE(f.editor()->maxLength(), 10);
    f.field->setTextMaxLength(3);
    f.type(QStringLiteral("12345"));
    QCOMPARE(f.editor()->text(), QStringLiteral("123"));
}

void tst_TextEditController::resizeTakesTheEditorAlong()
{
    Fixture f;
    QVERIFY(f.show());
    f.field->edit();
    f.field->resize(150, 30);
    QCOMPARE(f.editor()->geometry(), QRect(0, 0, 150, 30));
}

void tst_TextEditController::keysStayInTheEditor()
{
    Fixture f;
    QVERIFY(f.show());
    f.field->edit();
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_PageDown, Qt::Key_F5, Qt::Key_A, Qt::Key_Left}) {
        QVERIFY(ControlTesting::key(*f.editor(), key));
        QVERIFY(ControlTesting::key(*f.editor(), key, {}, QEvent::KeyRelease));
    }
    QCOMPARE(f.value(), 100);
    QVERIFY(static_cast<Window*>(f.window.get())->keys.isEmpty());
}

void tst_TextEditController::shortcutsWaitWhileTyping()
{
    Fixture f;
    QVERIFY(f.show());
    QShortcut escape(QKeySequence(Qt::Key_Escape), f.window.get());
    QShortcut save(QKeySequence(Qt::CTRL | Qt::Key_S), f.window.get());
    QSignalSpy escapes(&escape, &QShortcut::activated);
    QSignalSpy saves(&save, &QShortcut::activated);
    f.type(QStringLiteral("50"));
    QTest::keyClick(f.editor(), Qt::Key_S, Qt::ControlModifier);
    QTest::keyClick(f.editor(), Qt::Key_Escape);
    QCOMPARE(saves.count(), 1);
    QCOMPARE(escapes.count(), 0);
    QVERIFY(f.editor()->isHidden());
    QTest::keyClick(f.field.data(), Qt::Key_Escape);
    QCOMPARE(escapes.count(), 1);
}

void tst_TextEditController::wheelDoesNothingWhileTyping()
{
    Fixture f;
    QVERIFY(f.show());
    f.field->edit();
    QVERIFY(ControlTesting::wheel(*f.field, {0, 120}));
    QVERIFY(f.editor()->isVisible());
    QCOMPARE(f.value(), 100);
    QCOMPARE(f.ledger.begun, 0);
}

void tst_TextEditController::commitReportsModifiers()
{
    Fixture f;
    QVERIFY(f.show());
    QSignalSpy modifiers(f.field.data(), &TextEditController::modifiersChange);
    f.type(QStringLiteral("50"));
    QTest::keyClick(f.editor(), Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(f.value(), 50);
    QCOMPARE(modifiers.count(), 1);
    QCOMPARE(modifiers[0][1].value<Qt::KeyboardModifiers>(),
             Qt::KeyboardModifiers(Qt::ShiftModifier));
    f.type(QStringLiteral("60"));
    QTest::keyClick(f.editor(), Qt::Key_Return);
    QCOMPARE(modifiers.count(), 1);
}

void tst_TextEditController::drag_data()
{
    QTest::addColumn<QPointF>("by");
    QTest::addColumn<bool>("fine");
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("value");
    QTest::newRow("right") << QPointF(30, 0) << false << 1.0 << 130;
    QTest::newRow("up") << QPointF(0, -30) << false << 1.0 << 130;
    QTest::newRow("left and down") << QPointF(-10, 20) << false << 1.0 << 70;
    QTest::newRow("fine") << QPointF(30, 0) << true << 1.0 << 107;
    QTest::newRow("scaled") << QPointF(30, 0) << false << 2.0 << 115;
    QTest::newRow("beyond") << QPointF(3000, 0) << false << 1.0 << 300;
}

void tst_TextEditController::drag()
{
    QFETCH(QPointF, by);
    QFETCH(bool, fine);
    QFETCH(double, scale);
    QFETCH(int, value);
    Fixture f;
    f.field->setScale(scale);
    const Qt::KeyboardModifiers modifiers = fine ? Qt::ShiftModifier : Qt::NoModifier;
    const QPointF start(20, 5);
    press(*f.field, start, modifiers);
    QCOMPARE(f.drags, QList<bool>{true});
    QCOMPARE(f.ledger.open(), 1);
    moveTo(*f.field, start + by, modifiers);
    QCOMPARE(f.value(), value);
    moveTo(*f.field, start, modifiers);
    QCOMPARE(f.value(), 100);
    release(*f.field, start, modifiers);
    QCOMPARE(f.drags, (QList<bool>{true, false}));
    QCOMPARE(f.ledger.begun, 1);
    QCOMPARE(f.ledger.ended, 1);
}

void tst_TextEditController::fineDragReanchors()
{
    Fixture f;
    press(*f.field, {20, 5});
    moveTo(*f.field, {40, 5});
    QCOMPARE(f.value(), 120);
    moveTo(*f.field, {60, 5}, Qt::ShiftModifier);
    QCOMPARE(f.value(), 125);
    moveTo(*f.field, {70, 5});
    QCOMPARE(f.value(), 135);
}

void tst_TextEditController::leftAndRightAreSwallowed()
{
    Fixture f;
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right})
        QVERIFY(ControlTesting::key(*f.field, key));
    QVERIFY(static_cast<Window*>(f.window.get())->keys.isEmpty());
    QCOMPARE(f.value(), 100);
    QCOMPARE(f.ledger.begun, 0);
}

void tst_TextEditController::unusedKeysGoToTheWindow()
{
    Fixture f;
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End, Qt::Key_Space})
        ControlTesting::key(*f.field, key);
    QCOMPARE(static_cast<Window*>(f.window.get())->keys,
             (QList<int>{Qt::Key_Home, Qt::Key_End, Qt::Key_Space}));
    QCOMPARE(f.value(), 100);
}

void tst_TextEditController::modifiersAreReported()
{
    Fixture f;
    QSignalSpy modifiers(f.field.data(), &TextEditController::modifiersChange);
    key(*f.field, Qt::Key_Up);
    ControlTesting::wheel(*f.field, {0, 120});
    press(*f.field, {20, 5}, Qt::AltModifier);
    QCOMPARE(modifiers.count(), 0);
    moveTo(*f.field, {21, 5}, Qt::AltModifier);
    QCOMPARE(modifiers.count(), 1);
    moveTo(*f.field, {20, 4}, Qt::AltModifier);
    QCOMPARE(modifiers.count(), 1);
    release(*f.field, {20, 4});
    key(*f.field, Qt::Key_Up, Qt::AltModifier);
    ControlTesting::wheel(*f.field, {0, 120}, Qt::AltModifier);
    QCOMPARE(modifiers.count(), 3);
    QCOMPARE(modifiers[2][0].value<AbstractController*>(), f.field.data());
}

void tst_TextEditController::widestRangeDoesNotOverflow()
{
    Fixture f;
    f.host.setRange(Parameter, Smallest, Largest);
    f.host.setSilently(Parameter, 0, Largest - 1);
    key(*f.field, Qt::Key_PageUp);
    key(*f.field, Qt::Key_Up);
    ControlTesting::wheel(*f.field, {0, Largest});
    QCOMPARE(f.value(), Largest);
    press(*f.field, {20, 5});
    moveTo(*f.field, {30, 5});
    QCOMPARE(f.value(), Largest);
    release(*f.field, {30, 5});
    f.host.setSilently(Parameter, 0, Smallest + 1);
    key(*f.field, Qt::Key_PageDown);
    key(*f.field, Qt::Key_Down);
    ControlTesting::wheel(*f.field, {0, Smallest});
    QCOMPARE(f.value(), Smallest);
}

void tst_TextEditController::oneValueRangeDoesNotCrash()
{
    Fixture f;
    f.host.setRange(Parameter, 5, 5);
    f.host.setSilently(Parameter, 0, 5);
    press(*f.field, {20, 5}, Qt::ControlModifier);
    press(*f.field, {20, 5});
    moveTo(*f.field, {80, 5});
    release(*f.field, {80, 5});
    ControlTesting::wheel(*f.field, {0, 120});
    painted(*f.field, 1.0, Qt::white);
    QCOMPARE(f.value(), 5);
}

void tst_TextEditController::everyFailureIsSurvived()
{
    for (int n = 1;; ++n) {
        Fixture f;
        QVERIFY(f.show());
        f.field->setExpandUnit(true);
        f.host.resetLedger();
        f.host.failAnyCall(n);
        press(*f.field, {20, 5});
        moveTo(*f.field, {40, 5}, Qt::ShiftModifier);
        release(*f.field, {40, 5});
        press(*f.field, {20, 5}, Qt::ControlModifier);
        ControlTesting::wheel(*f.field, {0, 240}, Qt::AltModifier);
        key(*f.field, Qt::Key_PageUp, Qt::AltModifier);
        f.type(QStringLiteral("0.1k"));
        QTest::keyClick(f.editor(), Qt::Key_Return);
        f.type(QStringLiteral("7"));
        QTest::keyClick(f.editor(), Qt::Key_Escape);
        painted(*f.field, 1.0, Qt::white);
        QCOMPARE(f.edits, (QList<bool>{true, false, true, false}));
        press(*f.field, {20, 5});
        bind(*f.field, f.host, "fx_rackfx_prm_3", 1);
        QCOMPARE(f.ledger.open(), 0);
        press(*f.field, {20, 5});
        delete f.field.data();
        QCOMPARE(f.ledger.open(), 0);
        QCOMPARE(f.drags.count(true), f.drags.count(false));
        if (f.host.callCount() < n)
            return;
    }
}

void tst_TextEditController::paintsTheText_data()
{
    QTest::addColumn<QString>("string");
    QTest::addColumn<QString>("postfix");
    QTest::addColumn<bool>("trim");
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::addColumn<double>("scale");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QRect>("field");
    const Qt::Alignment left = Qt::AlignLeft | Qt::AlignVCenter;
    const QRect whole(5, 0, 92, 20);
    const auto text = [](const char* latin) { return QString::fromLatin1(latin); };
    QTest::newRow("plain") << text("100") << QString() << false << left << 1.0 << text("100")
                           << whole;
    QTest::newRow("postfix") << text("100") << text(" Hz") << false << left << 1.0 << text("100 Hz")
                             << whole;
    QTest::newRow("not doubled") << text("100 Hz") << text(" Hz") << false << left << 1.0
                                 << text("100 Hz") << whole;
    QTest::newRow("trimmed") << text("  100 ") << text(" Hz") << true << left << 1.0
                             << text("100 Hz") << whole;
    QTest::newRow("not trimmed") << text("  100") << QString() << false << left << 1.0
                                 << text("  100") << whole;
    QTest::newRow("right") << text("100") << QString() << false
                           << Qt::Alignment(Qt::AlignRight | Qt::AlignTop) << 1.0 << text("100")
                           << whole;
    QTest::newRow("scaled margins")
        << text("100") << QString() << false << Qt::Alignment(Qt::AlignRight) << 1.5 << text("100")
        << QRect(8, 0, 87, 20);
    QTest::newRow("one line") << text("100\n200") << QString() << false << left << 1.0
                              << text("100 200") << whole;
}

void tst_TextEditController::paintsTheText()
{
    QFETCH(QString, string);
    QFETCH(QString, postfix);
    QFETCH(bool, trim);
    QFETCH(Qt::Alignment, alignment);
    QFETCH(double, scale);
    QFETCH(QString, shown);
    QFETCH(QRect, field);
    TextEditController control;
    control.resize(100, 20);
    QPalette palette;
    palette.setColor(QPalette::WindowText, Qt::white);
    control.setPalette(palette);
    control.setString(string);
    control.setPostfix(postfix);
    control.setTextTrim(trim);
    control.setAlignment(alignment);
    control.setTextLeftMargin(5);
    control.setTextRightMargin(3);
    control.setScale(scale);

    QImage expected(control.size(), QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::black);
    QPainter painter(&expected);
    painter.setFont(control.font());
    painter.setPen(Qt::white);
    const bool atRight = alignment.testFlag(Qt::AlignRight);
    const QRect used = painter.fontMetrics().boundingRect(field, int(alignment), shown);
    painter.drawText(field, int(alignment) | Qt::TextSingleLine, shown);
    painter.end();
    QCOMPARE(imageDifference(painted(control), expected), 0);
    QVERIFY(expected != painted(*std::make_unique<TextEditController>()));
    QCOMPARE(atRight ? used.right() : used.left(), atRight ? field.right() : field.left());
}

void tst_TextEditController::paintsNothingForAnEmptyText()
{
    TextEditController control;
    control.resize(100, 20);
    QImage blank(control.size(), QImage::Format_ARGB32_Premultiplied);
    blank.fill(Qt::black);
    QCOMPARE(imageDifference(painted(control), blank), 0);
    control.setString(QStringLiteral("  "));
    control.setTextTrim(true);
    QCOMPARE(imageDifference(painted(control), blank), 0);
}

void tst_TextEditController::paintingAsksTheHostOnce()
{
    Fixture f;
    f.host.resetLedger();
    painted(*f.field, 1.0, Qt::white);
    QCOMPARE(f.host.count(TestHost::Operation::GetValue), 1);
    QCOMPARE(f.host.count(TestHost::Operation::ValueToString), 1);
    QCOMPARE(f.host.callCount(), 2);
}

void tst_TextEditController::accessibility()
{
    Fixture f;
    QVERIFY(f.show());
    f.postfix(" Hz");
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(f.field);
    QVERIFY(interface);
    QCOMPARE(interface->role(), QAccessible::SpinBox);
    QCOMPARE(interface->text(QAccessible::Value), QStringLiteral("100 Hz"));
    QVERIFY(!interface->textInterface());
    QVERIFY(!interface->editableTextInterface());
    QAccessibleValueInterface* number = interface->valueInterface();
    QVERIFY(number);
    QCOMPARE(number->currentValue(), QVariant(100));
    QCOMPARE(number->minimumValue(), QVariant(0));
    QCOMPARE(number->maximumValue(), QVariant(300));
    QCOMPARE(number->minimumStepSize(), QVariant(1));
    number->setCurrentValue(140);
    QCOMPARE(f.value(), 140);
    interface->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    QCOMPARE(f.value(), 141);
    interface->actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
    QCOMPARE(f.value(), 140);
    QCOMPARE(f.ledger.begun, 3);
    QCOMPARE(f.ledger.ended, 3);
}

void tst_TextEditController::editorAnnouncesItselfWithTheFieldsName()
{
    Fixture f;
    QVERIFY(f.show());
    f.field->edit();
    QAccessibleInterface* editor = QAccessible::queryAccessibleInterface(f.editor());
    QVERIFY(editor->textInterface());
    const QString name = QAccessible::queryAccessibleInterface(f.field)->text(QAccessible::Name);
    QVERIFY(!name.isEmpty());
    QCOMPARE(editor->text(QAccessible::Name), name);
    f.field->editCancel();
    f.field->setAccessibleName(QStringLiteral("Low gain"));
    f.field->edit();
    QCOMPARE(editor->text(QAccessible::Name), QStringLiteral("Low gain"));
}

void tst_TextEditController::valueChangesAreAnnounced()
{
    Fixture f;
    const Announcements announcements;
    f.host.set(Parameter, 0, 33);
    key(*f.field, Qt::Key_Up);
    const QList<std::pair<const QObject*, QVariant>> expected = {{f.field.data(), 33},
                                                                 {f.field.data(), 34}};
    QCOMPARE(announcements.values(), expected);
}

ZOLTA_TEST_MAIN(tst_TextEditController)

#include "tst_TextEditController.moc"
