// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/TextEditController.h"

#include "tests/controls/ControlTesting.h"
#include "tests/support/Columns.h"
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

#include <functional>

using namespace ControlTesting;
using CommonController_MemAPI::TextEditController;
using Text = Ledgered<TextEditController>;

namespace {

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
        other = new QLineEdit(window.get());
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
    /// Whether the editor opened and closed, and was submitted so many times.
    bool hasSubmitted(int count) const
    {
        return edits == QList<bool>{true, false} && parsed.size() == count && ledger.has(count) &&
               (!field || editor()->isHidden());
    }

    TestHost host;
    Ledger ledger;
    QStringList parsed;
    QList<bool> drags;
    QList<bool> edits;
    std::unique_ptr<QWidget> window;
    QLineEdit* other = nullptr; ///< beside the field
    QPointer<Text> field;
};

} // namespace

class tst_TextEditController : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void editTextLeavesThePostfixOut_data();
    void editTextLeavesThePostfixOut();
    void postfixIsNotDoubled();

    void doubleClickOpensTheEditor();
    void editorBlendsIn();
    void editorOpensOnceWithTheFocus();
    void commits_data();
    void commits();
    void cancels_data();
    void cancels();
    void submits_data();
    void submits();
    void unchangedTextDoesNotUndoTheHost();
    void contextMenuKeepsTheEditOpen();
    void keysAndWheelStayInTheEditor();
    void shortcutsWaitWhileTyping();
    void commitReportsModifiers();
    void drags_data();
    void drags();
    void leftAndRightAreSwallowed();

    void paintsTheText_data();
    void paintsTheText();
    void paintsNothingForAnEmptyText();

    void editorAnnouncesItselfWithTheFieldsName();
};

void tst_TextEditController::editTextLeavesThePostfixOut_data()
{
    addColumns<QString, bool, QString, QString, QString>("string", "trim", "postfix", "expected",
                                                         "expanded");
    QTest::newRow("with it") << "100 Hz" << false << " Hz"
                             << "100"
                             << "100";
    QTest::newRow("without") << "100" << false << " Hz"
                             << "100"
                             << "100";
    QTest::newRow("once") << "100 Hz Hz" << false << " Hz"
                          << "100 Hz"
                          << "100 Hz";
    QTest::newRow("not trimmed") << " 100 Hz " << false << " Hz"
                                 << " 100 Hz "
                                 << " 100 Hz ";
    QTest::newRow("trimmed") << " 100 Hz " << true << " Hz"
                             << "100"
                             << "100";
    QTest::newRow("none") << "100 Hz" << false << ""
                          << "100 Hz"
                          << "100 Hz";
    QTest::newRow("empty") << "" << true << " Hz"
                           << ""
                           << "";
    QTest::newRow("k") << "1.5 k" << false << "Hz"
                       << "1.5 k"
                       << "1500";
    QTest::newRow("k with postfix") << "1.5 kHz" << false << "Hz"
                                    << "1.5 k"
                                    << "1500";
}

void tst_TextEditController::editTextLeavesThePostfixOut()
{
    QFETCH(QString, string);
    QFETCH(bool, trim);
    QFETCH(QString, postfix);
    TextEditController field;
    field.setString(string);
    field.setTextTrim(trim);
    QSignalSpy changes(&field, qOverload<int>(&TextEditController::valueChanged));
    field.setPostfix(postfix);
    field.setPostfix(postfix);
    QCOMPARE(changes.count(), postfix.isEmpty() ? 0 : 1);
    QTEST(field.editText(), "expected");
    field.setExpandUnit(true);
    QTEST(field.editText(), "expanded");
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
    f.field->resize(150, 30);
    QCOMPARE(f.editor()->geometry(), QRect(0, 0, 150, 30));
    QCOMPARE(f.editor()->font().pixelSize(), 9);
    QCOMPARE(f.editor()->alignment(), Qt::Alignment(Qt::AlignRight));
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        QCOMPARE(f.editor()->palette().color(group, QPalette::Base), QColor(Qt::darkGreen));
    QCOMPARE(f.field->palette(), palette.resolve(f.field->palette()));
}

void tst_TextEditController::editorOpensOnceWithTheFocus()
{
    Fixture f;
    f.field->edit(); // the window is not there yet, so there is no focus
    QVERIFY(f.editor()->isHidden());
    QVERIFY(f.edits.isEmpty());
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

void tst_TextEditController::commits_data()
{
    QTest::addColumn<std::function<void(Fixture&)>>("by");
    const auto row = [](const char* name, const std::function<void(Fixture&)>& by) {
        QTest::newRow(name) << by;
    };
    row("Return", [](Fixture& f) { QTest::keyClick(f.editor(), Qt::Key_Return); });
    row("Enter", [](Fixture& f) { QTest::keyClick(f.editor(), Qt::Key_Enter); });
    row("hidden", [](Fixture& f) { f.field->hide(); });
    row("hidden with its window", [](Fixture& f) { f.window->hide(); });
    row("disabled", [](Fixture& f) { f.field->setEnabled(false); });
    row("a click elsewhere", [](Fixture& f) { f.other->setFocus(Qt::MouseFocusReason); });
    row("another window", [](Fixture& f) { f.other->setFocus(Qt::ActiveWindowFocusReason); });
    row("a menu", [](Fixture& f) { f.other->setFocus(Qt::PopupFocusReason); });
    row("focus elsewhere", [](Fixture& f) { f.other->setFocus(Qt::OtherFocusReason); });
}

void tst_TextEditController::commits()
{
    QFETCH(std::function<void(Fixture&)>, by);
    Fixture f;
    QVERIFY(f.show());
    f.type(QStringLiteral("222"));
    QCOMPARE(f.value(), 100);
    by(f);
    QCOMPARE(f.value(), 222);
    QVERIFY(f.hasSubmitted(1));
    f.field->editFinish();
    f.field->editCancel();
    QVERIFY(f.hasSubmitted(1));
}

void tst_TextEditController::cancels_data()
{
    QTest::addColumn<std::function<void(Fixture&)>>("by");
    const auto row = [](const char* name, const std::function<void(Fixture&)>& by) {
        QTest::newRow(name) << by;
    };
    row("Escape", [](Fixture& f) {
        QTest::keyClick(f.editor(), Qt::Key_Escape, Qt::AltModifier);
        QVERIFY(f.editor()->isVisible());
        QTest::keyClick(f.editor(), Qt::Key_Escape);
        QVERIFY(f.field->hasFocus());
        QCOMPARE(f.editor()->text(), QStringLiteral("100"));
    });
    row("rebound", [](Fixture& f) { bind(*f.field, f.host, Parameter, 3); });
    row("unbound", [](Fixture& f) { unbind(*f.field); });
    row("destroyed", [](Fixture& f) { delete f.field.data(); });
}

void tst_TextEditController::cancels()
{
    QFETCH(std::function<void(Fixture&)>, by);
    Fixture f;
    QVERIFY(f.show());
    f.type(QStringLiteral("222"));
    by(f);
    QVERIFY(f.hasSubmitted(0));
    QCOMPARE(f.value(), 100);
}

void tst_TextEditController::submits_data()
{
    addColumns<QString, bool, int, QStringList>("typed", "expandUnit", "maximumLength",
                                                "submitted");
    const auto row = [](const char* name, const char* typed, bool expandUnit,
                        const QStringList& submitted) {
        QTest::newRow(name) << typed << expandUnit << 10 << submitted;
    };
    row("1.5k", "1.5k", true, {QStringLiteral("1500")});
    row("2M", "2M", true, {QStringLiteral("2e+06")});
    row("2m", "2m", true, {QStringLiteral("2e+06")});
    row("a lone k", "k", true, {QStringLiteral("k")});
    row("plain", "250", true, {QStringLiteral("250")});
    row("not expanded", "1.5k", false, {QStringLiteral("1.5k")});
    row("what the host cannot parse", "loud", false, {QStringLiteral("loud")});
    row("unchanged", "100", false, {});
    QTest::newRow("no more than fits")
        << "12345" << false << 3 << QStringList{QStringLiteral("123")};
    QTest::newRow("unchanged, cut") << "10" << false << 2 << QStringList();
}

void tst_TextEditController::submits()
{
    QFETCH(QString, typed);
    QFETCH(bool, expandUnit);
    QFETCH(int, maximumLength);
    QFETCH(QStringList, submitted);
    Fixture f;
    QVERIFY(f.show());
    QCOMPARE(f.editor()->maxLength(), 10);
    f.field->setTextMaxLength(maximumLength);
    f.field->setExpandUnit(expandUnit);
    f.type(typed);
    QTest::keyClick(f.editor(), Qt::Key_Return);
    QCOMPARE(f.parsed, submitted);
    QVERIFY(f.hasSubmitted(static_cast<int>(submitted.size())));
    if (typed == QLatin1String("loud"))
        QCOMPARE(f.value(), 100);
}

void tst_TextEditController::unchangedTextDoesNotUndoTheHost()
{
    Fixture f;
    QVERIFY(f.show());
    f.field->edit();
    f.host.set(Parameter, 0, 180);
    f.field->editFinish();
    QCOMPARE(f.value(), 180);
    QVERIFY(f.hasSubmitted(0));
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

void tst_TextEditController::keysAndWheelStayInTheEditor()
{
    Fixture f;
    QVERIFY(f.show());
    f.field->edit();
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_PageDown, Qt::Key_F5, Qt::Key_A, Qt::Key_Left}) {
        QVERIFY(ControlTesting::key(*f.editor(), key));
        QVERIFY(ControlTesting::key(*f.editor(), key, {}, QEvent::KeyRelease));
    }
    QVERIFY(ControlTesting::wheel(*f.field, {0, 120}));
    QVERIFY(f.editor()->isVisible());
    QCOMPARE(f.value(), 100);
    QVERIFY(f.ledger.has(0));
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

void tst_TextEditController::drags_data()
{
    constexpr auto shift = Qt::ShiftModifier;
    addColumns<double, Moves>("scale", "moves");
    QTest::newRow("there and back") << 1.0 << Moves{{{20, 5}, 100}, {{10, 25}, 70}, {{20, 5}, 100}};
    QTest::newRow("scaled") << 2.0 << Moves{{{20, 5}, 100}, {{50, 5}, 115}};
    QTest::newRow("beyond") << 1.0 << Moves{{{20, 5}, 100}, {{3000, 5}, 300}};
    QTest::newRow("fine on the way")
        << 1.0 << Moves{{{20, 5}, 100}, {{40, 5}, 120}, {{60, 5}, 125, shift}, {{70, 5}, 135}};
}

void tst_TextEditController::drags()
{
    QFETCH(double, scale);
    QFETCH(Moves, moves);
    Fixture f;
    f.field->setScale(scale);
    dragThrough(*f.field, moves);
    QCOMPARE(f.drags, (QList<bool>{true, false}));
    QVERIFY(f.ledger.has(1));
}

void tst_TextEditController::leftAndRightAreSwallowed()
{
    Fixture f;
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Home, Qt::Key_Right, Qt::Key_End})
        ControlTesting::key(*f.field, key);
    QCOMPARE(static_cast<Window*>(f.window.get())->keys, (QList<int>{Qt::Key_Home, Qt::Key_End}));
    QVERIFY(f.ledger.has(0));
}

void tst_TextEditController::paintsTheText_data()
{
    addColumns<QString, QString, bool, Qt::Alignment, double, QString, QRect>(
        "string", "postfix", "trim", "alignment", "scale", "shown", "field");
    const auto row = [](const char* name, const char* string, const char* postfix, bool trim,
                        const char* shown, Qt::Alignment alignment = Qt::AlignVCenter,
                        double scale = 1.0, QRect field = {5, 0, 92, 20}) {
        QTest::newRow(name) << string << postfix << trim << alignment << scale << shown << field;
    };
    row("plain", "100", "", false, "100");
    row("postfix", "100", " Hz", false, "100 Hz");
    row("not doubled", "100 Hz", " Hz", false, "100 Hz");
    row("trimmed", "  100 ", " Hz", true, "100 Hz");
    row("not trimmed", "  100", "", false, "  100");
    row("one line", "100\n200", "", false, "100 200");
    row("right", "100", "", false, "100", Qt::AlignRight | Qt::AlignTop);
    row("scaled margins", "100", "", false, "100", Qt::AlignRight, 1.5, {8, 0, 87, 20});
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

ZOLTA_TEST_MAIN(tst_TextEditController)

#include "tst_TextEditController.moc"
