// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"
#include "widgets/ChannelNameEdit.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace {

const QString LongName =
    QStringLiteral("A channel name that is much longer than its field is wide");

/// A field inside a window that can take the focus, as in a mixer's channel strip.
struct Strip
{
    Strip()
        : edit(new ChannelNameEdit(&window))
        , other(new QLineEdit(&window))
    {
        window.resize(400, 200);
        edit->setGeometry(10, 10, 100, 24);
        other->setGeometry(10, 60, 100, 24);
        window.setFocusPolicy(Qt::StrongFocus);
        window.show();
        window.activateWindow();
        window.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QVERIFY(!edit->hasFocus());
        QObject::connect(edit, &ChannelNameEdit::channelNameChanged, edit,
                         [this](const QString& name) { changes.append(name); });
    }

    void open() const { QTest::mouseDClick(edit, Qt::LeftButton); }
    void type(const char* text) const { QTest::keyClicks(edit, QLatin1String(text)); }
    void press(Qt::Key key) const { QTest::keyClick(edit, key); }

    QString elided(const QString& name, int width) const
    {
        return edit->fontMetrics().elidedText(name, Qt::ElideRight, width);
    }

    QStringList changes; ///< the names that were reported
    QWidget window;
    ChannelNameEdit* edit;
    QLineEdit* other;
};

/// The offscreen platform says this of every popup; it is about the platform.
void expectPopup()
{
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support grabbing the keyboard");
}

} // namespace

class tst_ChannelNameEdit : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void isIdleAtFirst();
    void showsANameElided();
    void showsTheBeginningOfAName();
    void elidesByTheMarginWhenResized_data();
    void elidesByTheMarginWhenResized();
    void elidesFromAndToNothing();
    void wildMargins();
    void aSingleClickDoesNothing();
    void aDoubleClickEdits();
    void otherDoubleClicksDoNot();
    void clicksWorkWhileEditing();
    void returnCommits();
    void returnWithoutAParentCommits();
    void losingTheFocusCommits();
    void committingEmptyWithoutDefaultReportsTwice();
    void anEmptyNameTakesTheDefault();
    void theContextMenuKeepsTheEdit();
    void theContextMenuNeedsAnEdit();
    void anotherPopupCommitsOnce();
};

void tst_ChannelNameEdit::isIdleAtFirst()
{
    Strip strip;
    QCOMPARE(strip.edit->focusPolicy(), Qt::NoFocus);
    QCOMPARE(strip.edit->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(strip.edit->text(), QString());
    QCOMPARE(strip.edit->defaultName(), QString());
    QCOMPARE(strip.edit->elideMargin(), 0);
}

void tst_ChannelNameEdit::showsANameElided()
{
    Strip strip;
    strip.edit->setElideMargin(10);
    strip.edit->setChannelName(LongName);
    QCOMPARE(strip.edit->text(), strip.elided(LongName, 90));
    QVERIFY(strip.edit->text().endsWith(QChar(0x2026)));
    strip.edit->setChannelName(QStringLiteral("Voice"));
    QCOMPARE(strip.edit->text(), QStringLiteral("Voice"));
    QVERIFY(strip.changes.isEmpty());
}

// The field is narrower inside than the text may be wide; what is cut off is the ellipsis.
void tst_ChannelNameEdit::showsTheBeginningOfAName()
{
    Strip strip;
    const QString name = QStringLiteral("H with a name that is far too long for the field");
    strip.edit->setChannelName(QStringLiteral("H"));
    const auto leftEdge = [&strip] {
        return strip.edit->grab(QRect(0, 0, 8, strip.edit->height())).toImage();
    };
    const QImage expected = leftEdge();
    strip.edit->setChannelName(name);
    QCOMPARE(leftEdge(), expected);
}

void tst_ChannelNameEdit::elidesByTheMarginWhenResized_data()
{
    addColumns<int, QList<int>, QList<int>>("margin", "widths", "wanted");
    using Widths = QList<int>;
    QTest::newRow("growing, then shrinking") << 10 << Widths{150, 80} << Widths{140, 80};
    QTest::newRow("smaller") << 20 << Widths{99} << Widths{99};
    QTest::newRow("less than twice") << 20 << Widths{199} << Widths{179};
    QTest::newRow("twice") << 20 << Widths{200} << Widths{160};
    QTest::newRow("three times") << 20 << Widths{320} << Widths{260};
}

// By as often the margin as the old width goes into the new one.
void tst_ChannelNameEdit::elidesByTheMarginWhenResized()
{
    QFETCH(int, margin);
    QFETCH(QList<int>, widths);
    QFETCH(QList<int>, wanted);
    Strip strip;
    strip.edit->setElideMargin(margin);
    strip.edit->setChannelName(LongName);
    QCOMPARE(strip.edit->text(), strip.elided(LongName, 100 - margin));
    for (int i = 0; i < widths.size(); ++i) {
        strip.edit->resize(widths[i], 24);
        QCOMPARE(strip.edit->text(), strip.elided(LongName, wanted[i]));
    }
}

void tst_ChannelNameEdit::elidesFromAndToNothing()
{
    Strip strip;
    strip.edit->setChannelName(LongName);
    const QString before = strip.edit->text();
    strip.edit->resize(0, 24);
    QCOMPARE(strip.edit->text(), before);
    strip.edit->resize(150, 24);
    QCOMPARE(strip.edit->text(), before);
    strip.edit->resize(150, 30);
    QCOMPARE(strip.edit->text(), before);
    strip.edit->resize(200, 30);
    QCOMPARE(strip.edit->text(), strip.elided(LongName, 200));
}

void tst_ChannelNameEdit::wildMargins()
{
    Strip strip;
    for (const int margin : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        strip.edit->setElideMargin(margin);
        strip.edit->setChannelName(LongName);
        QCOMPARE(strip.edit->text(), margin < 0 ? LongName : strip.elided(LongName, 0));
        strip.edit->resize(strip.edit->width() * 3, 24);
        QCOMPARE(strip.edit->text(), margin < 0 ? LongName : strip.elided(LongName, 0));
    }
}

void tst_ChannelNameEdit::aSingleClickDoesNothing()
{
    Strip strip;
    strip.edit->setChannelName(LongName);
    strip.edit->setCursorPosition(0);
    const QString before = strip.edit->text();
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton}) {
        QTest::mouseClick(strip.edit, button, Qt::NoModifier, QPoint(50, 12));
        QVERIFY(!strip.edit->hasFocus());
        QCOMPARE(strip.edit->cursorPosition(), 0);
        QVERIFY(!strip.edit->hasSelectedText());
    }
    QTest::mousePress(strip.edit, Qt::LeftButton, Qt::NoModifier, QPoint(5, 12));
    QTest::mouseMove(strip.edit, QPoint(60, 12));
    QTest::mouseRelease(strip.edit, Qt::LeftButton, Qt::NoModifier, QPoint(60, 12));
    QVERIFY(!strip.edit->hasSelectedText());
    QCOMPARE(strip.edit->text(), before);
}

void tst_ChannelNameEdit::aDoubleClickEdits()
{
    Strip strip;
    strip.edit->setChannelName(LongName);
    strip.open();
    QVERIFY(strip.edit->hasFocus());
    QCOMPARE(strip.edit->focusPolicy(), Qt::ClickFocus);
    QCOMPARE(strip.edit->cursor().shape(), Qt::IBeamCursor);
    QCOMPARE(strip.edit->text(), LongName);
    QCOMPARE(strip.edit->selectedText(), LongName);
}

void tst_ChannelNameEdit::otherDoubleClicksDoNot()
{
    Strip strip;
    QTest::mouseDClick(strip.edit, Qt::RightButton);
    QVERIFY(!strip.edit->hasFocus());
    strip.edit->setEnabled(false);
    strip.open();
    QVERIFY(!strip.edit->hasFocus());
    QCOMPARE(strip.edit->focusPolicy(), Qt::NoFocus);
}

void tst_ChannelNameEdit::clicksWorkWhileEditing()
{
    Strip strip;
    strip.open();
    strip.type("Voice");
    QVERIFY(!strip.edit->hasSelectedText());
    strip.open();
    QCOMPARE(strip.edit->selectedText(), QStringLiteral("Voice"));
    QTest::mouseClick(strip.edit, Qt::LeftButton, Qt::NoModifier, QPoint(95, 12));
    QVERIFY(!strip.edit->hasSelectedText());
    QCOMPARE(strip.edit->cursorPosition(), 5);
}

void tst_ChannelNameEdit::returnCommits()
{
    Strip strip;
    strip.open();
    QTest::keyClicks(strip.edit, LongName);
    strip.press(Qt::Key_Return);
    QVERIFY(strip.window.hasFocus());
    QCOMPARE(strip.changes, QStringList{LongName});
    QCOMPARE(strip.edit->text(), strip.elided(LongName, 100));
    QCOMPARE(strip.edit->focusPolicy(), Qt::NoFocus);
    QCOMPARE(strip.edit->cursor().shape(), Qt::ArrowCursor);
    QVERIFY(!strip.edit->hasSelectedText());
}

void tst_ChannelNameEdit::returnWithoutAParentCommits()
{
    ChannelNameEdit edit;
    edit.show();
    edit.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&edit));
    QSignalSpy changes(&edit, &ChannelNameEdit::channelNameChanged);
    QTest::mouseDClick(&edit, Qt::LeftButton);
    QTest::keyClicks(&edit, QStringLiteral("Voice"));
    QTest::keyClick(&edit, Qt::Key_Return);
    QVERIFY(!edit.hasFocus());
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes[0][0].toString(), QStringLiteral("Voice"));
}

void tst_ChannelNameEdit::losingTheFocusCommits()
{
    Strip strip;
    strip.open();
    strip.type("Drums");
    strip.other->setFocus();
    QVERIFY(strip.other->hasFocus());
    QCOMPARE(strip.changes, QStringList{QStringLiteral("Drums")});
}

void tst_ChannelNameEdit::committingEmptyWithoutDefaultReportsTwice()
{
    Strip strip;
    strip.edit->setChannelName(QStringLiteral("Voice"));
    strip.open();
    strip.press(Qt::Key_Delete);
    strip.press(Qt::Key_Return);
    QCOMPARE(strip.changes, QStringList({QString(), QStringLiteral("Voice")}));
    QCOMPARE(strip.edit->text(), QString());
    strip.open();
    QCOMPARE(strip.edit->text(), QStringLiteral("Voice"));
}

void tst_ChannelNameEdit::anEmptyNameTakesTheDefault()
{
    Strip strip;
    strip.edit->setDefaultName(QStringLiteral("Ch 1"));
    strip.edit->setChannelName(QString());
    QCOMPARE(strip.edit->text(), QStringLiteral("Ch 1"));
    QVERIFY(strip.changes.isEmpty());
    strip.edit->setChannelName(QStringLiteral("Voice"));
    strip.open();
    strip.press(Qt::Key_Delete);
    strip.press(Qt::Key_Return);
    QCOMPARE(strip.changes, QStringList{QStringLiteral("Ch 1")});
    QCOMPARE(strip.edit->text(), QStringLiteral("Ch 1"));
}

void tst_ChannelNameEdit::theContextMenuKeepsTheEdit()
{
    Strip strip;
    strip.open();
    strip.type("Drums");
    QContextMenuEvent request(QContextMenuEvent::Mouse, QPoint(5, 5),
                              strip.edit->mapToGlobal(QPoint(5, 5)));
    expectPopup();
    QApplication::sendEvent(strip.edit, &request);
    QVERIFY(request.isAccepted());
    QTRY_VERIFY(QApplication::activePopupWidget() != nullptr);
    QVERIFY(strip.changes.isEmpty());
    QCOMPARE(strip.edit->text(), QStringLiteral("Drums"));
    QApplication::activePopupWidget()->close();
    QTRY_VERIFY(strip.edit->hasFocus());
    QCOMPARE(strip.edit->focusPolicy(), Qt::ClickFocus);
    QVERIFY(strip.changes.isEmpty());
    strip.press(Qt::Key_Return);
    QCOMPARE(strip.changes, QStringList{QStringLiteral("Drums")});
}

void tst_ChannelNameEdit::theContextMenuNeedsAnEdit()
{
    Strip strip;
    QContextMenuEvent request(QContextMenuEvent::Mouse, QPoint(5, 5),
                              strip.edit->mapToGlobal(QPoint(5, 5)));
    request.accept();
    strip.edit->event(&request);
    QVERIFY(!request.isAccepted());
    QVERIFY(QApplication::activePopupWidget() == nullptr);
}

void tst_ChannelNameEdit::anotherPopupCommitsOnce()
{
    Strip strip;
    strip.open();
    strip.type("Drums");
    QMenu menu(&strip.window);
    menu.addAction(QStringLiteral("Colour"));
    expectPopup();
    menu.popup(strip.window.mapToGlobal(QPoint(5, 100)));
    QTRY_COMPARE(strip.changes.size(), 1);
    menu.close();
    QCOMPARE(strip.changes.size(), 1);
    QCOMPARE(strip.edit->focusPolicy(), Qt::NoFocus);
}

ZOLTA_TEST_MAIN(tst_ChannelNameEdit)

#include "tst_ChannelNameEdit.moc"
