// SPDX-License-Identifier: GPL-3.0-or-later
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
    }

    void show()
    {
        window.show();
        window.activateWindow();
        window.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QVERIFY(!edit->hasFocus());
    }

    void open() { QTest::mouseDClick(edit, Qt::LeftButton); }

    QString elided(const QString& name, int width) const
    {
        return edit->fontMetrics().elidedText(name, Qt::ElideRight, width);
    }

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
    void anEmptyNameTakesTheDefault();
    void anEmptyNameWithoutDefaultKeepsTheName();
    void elidesByTheMarginWhenResized();
    void dropsTheMarginByWholeQuotients_data();
    void dropsTheMarginByWholeQuotients();
    void elidesFromAndToNothing();
    void wildMargins();
    void aSingleClickDoesNothing();
    void aDoubleClickEdits();
    void otherDoubleClicksDoNot();
    void aSecondDoubleClickSelectsAll();
    void clicksWorkWhileEditing();
    void returnCommits();
    void returnWithoutAParentCommits();
    void losingTheFocusCommits();
    void committingEmptyWithoutDefaultReportsTwice();
    void committingEmptyWithADefault();
    void theContextMenuKeepsTheEdit();
    void theContextMenuNeedsAnEdit();
    void anotherPopupCommitsOnce();
};

void tst_ChannelNameEdit::isIdleAtFirst()
{
    const Strip strip;
    QCOMPARE(strip.edit->focusPolicy(), Qt::NoFocus);
    QCOMPARE(strip.edit->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(strip.edit->text(), QString());
    QCOMPARE(strip.edit->defaultName(), QString());
    QCOMPARE(strip.edit->elideMargin(), 0);
}

void tst_ChannelNameEdit::showsANameElided()
{
    const Strip strip;
    QSignalSpy changes(strip.edit, &ChannelNameEdit::channelNameChanged);
    strip.edit->setElideMargin(10);
    strip.edit->setChannelName(LongName);
    QCOMPARE(strip.edit->text(), strip.elided(LongName, 90));
    QVERIFY(strip.edit->text().endsWith(QChar(0x2026)));
    strip.edit->setChannelName(QStringLiteral("Voice"));
    QCOMPARE(strip.edit->text(), QStringLiteral("Voice"));
    QCOMPARE(changes.count(), 0);
}

// The field is narrower inside than the text may be wide; what is cut off is the ellipsis.
void tst_ChannelNameEdit::showsTheBeginningOfAName()
{
    const Strip strip;
    const QString name = QStringLiteral("H with a name that is far too long for the field");
    strip.edit->setChannelName(QStringLiteral("H"));
    const auto leftEdge = [&strip] {
        return strip.edit->grab(QRect(0, 0, 8, strip.edit->height())).toImage();
    };
    const QImage expected = leftEdge();
    strip.edit->setChannelName(name);
    QCOMPARE(leftEdge(), expected);
}

void tst_ChannelNameEdit::anEmptyNameTakesTheDefault()
{
    const Strip strip;
    QSignalSpy changes(strip.edit, &ChannelNameEdit::channelNameChanged);
    strip.edit->setDefaultName(QStringLiteral("Ch 1"));
    strip.edit->setChannelName(QString());
    QCOMPARE(strip.edit->text(), QStringLiteral("Ch 1"));
    QCOMPARE(changes.count(), 0);
}

void tst_ChannelNameEdit::anEmptyNameWithoutDefaultKeepsTheName()
{
    const Strip strip;
    strip.edit->setChannelName(QStringLiteral("Voice"));
    QSignalSpy changes(strip.edit, &ChannelNameEdit::channelNameChanged);
    strip.edit->setChannelName(QString());
    QCOMPARE(strip.edit->text(), QString());
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes[0][0].toString(), QString());
}

void tst_ChannelNameEdit::elidesByTheMarginWhenResized()
{
    Strip strip;
    strip.show();
    strip.edit->setElideMargin(10);
    strip.edit->setChannelName(LongName);
    QCOMPARE(strip.edit->text(), strip.elided(LongName, 90));
    strip.edit->resize(150, 24);
    QCOMPARE(strip.edit->text(), strip.elided(LongName, 140));
    strip.edit->resize(80, 24);
    QCOMPARE(strip.edit->text(), strip.elided(LongName, 80));
}

void tst_ChannelNameEdit::dropsTheMarginByWholeQuotients_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("wanted");
    QTest::newRow("smaller") << 99 << 99;
    QTest::newRow("less than twice") << 199 << 179;
    QTest::newRow("twice") << 200 << 160;
    QTest::newRow("three times") << 320 << 260;
}

void tst_ChannelNameEdit::dropsTheMarginByWholeQuotients()
{
    QFETCH(int, width);
    QFETCH(int, wanted);
    Strip strip;
    strip.show();
    strip.edit->setElideMargin(20);
    strip.edit->setChannelName(LongName);
    strip.edit->resize(width, 24);
    QCOMPARE(strip.edit->text(), strip.elided(LongName, wanted));
}

void tst_ChannelNameEdit::elidesFromAndToNothing()
{
    Strip strip;
    strip.show();
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
    strip.show();
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
    strip.show();
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
    strip.show();
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
    strip.show();
    QTest::mouseDClick(strip.edit, Qt::RightButton);
    QVERIFY(!strip.edit->hasFocus());
    strip.edit->setEnabled(false);
    strip.open();
    QVERIFY(!strip.edit->hasFocus());
    QCOMPARE(strip.edit->focusPolicy(), Qt::NoFocus);
}

void tst_ChannelNameEdit::aSecondDoubleClickSelectsAll()
{
    Strip strip;
    strip.show();
    strip.edit->setChannelName(QStringLiteral("Voice"));
    strip.open();
    QTest::keyClicks(strip.edit, QStringLiteral("Lead voice"));
    QVERIFY(!strip.edit->hasSelectedText());
    strip.open();
    QCOMPARE(strip.edit->selectedText(), QStringLiteral("Lead voice"));
}

void tst_ChannelNameEdit::clicksWorkWhileEditing()
{
    Strip strip;
    strip.show();
    strip.edit->setChannelName(QStringLiteral("Voice"));
    strip.open();
    QTest::mouseClick(strip.edit, Qt::LeftButton, Qt::NoModifier, QPoint(95, 12));
    QVERIFY(!strip.edit->hasSelectedText());
    QCOMPARE(strip.edit->cursorPosition(), 5);
}

void tst_ChannelNameEdit::returnCommits()
{
    Strip strip;
    strip.show();
    QSignalSpy changes(strip.edit, &ChannelNameEdit::channelNameChanged);
    strip.open();
    QTest::keyClicks(strip.edit, LongName);
    QTest::keyClick(strip.edit, Qt::Key_Return);
    QVERIFY(strip.window.hasFocus());
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes[0][0].toString(), LongName);
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
    strip.show();
    QSignalSpy changes(strip.edit, &ChannelNameEdit::channelNameChanged);
    strip.open();
    QTest::keyClicks(strip.edit, QStringLiteral("Drums"));
    strip.other->setFocus();
    QVERIFY(strip.other->hasFocus());
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes[0][0].toString(), QStringLiteral("Drums"));
}

void tst_ChannelNameEdit::committingEmptyWithoutDefaultReportsTwice()
{
    Strip strip;
    strip.show();
    strip.edit->setChannelName(QStringLiteral("Voice"));
    QSignalSpy changes(strip.edit, &ChannelNameEdit::channelNameChanged);
    strip.open();
    QTest::keyClick(strip.edit, Qt::Key_Delete);
    QTest::keyClick(strip.edit, Qt::Key_Return);
    QCOMPARE(changes.count(), 2);
    QCOMPARE(changes[0][0].toString(), QString());
    QCOMPARE(changes[1][0].toString(), QStringLiteral("Voice"));
    QCOMPARE(strip.edit->text(), QString());
    strip.open();
    QCOMPARE(strip.edit->text(), QStringLiteral("Voice"));
}

void tst_ChannelNameEdit::committingEmptyWithADefault()
{
    Strip strip;
    strip.show();
    strip.edit->setDefaultName(QStringLiteral("Ch 1"));
    strip.edit->setChannelName(QStringLiteral("Voice"));
    QSignalSpy changes(strip.edit, &ChannelNameEdit::channelNameChanged);
    strip.open();
    QTest::keyClick(strip.edit, Qt::Key_Delete);
    QTest::keyClick(strip.edit, Qt::Key_Return);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes[0][0].toString(), QStringLiteral("Ch 1"));
    QCOMPARE(strip.edit->text(), QStringLiteral("Ch 1"));
}

void tst_ChannelNameEdit::theContextMenuKeepsTheEdit()
{
    Strip strip;
    strip.show();
    QSignalSpy changes(strip.edit, &ChannelNameEdit::channelNameChanged);
    strip.open();
    QTest::keyClicks(strip.edit, QStringLiteral("Drums"));
    QContextMenuEvent request(QContextMenuEvent::Mouse, QPoint(5, 5),
                              strip.edit->mapToGlobal(QPoint(5, 5)));
    expectPopup();
    QApplication::sendEvent(strip.edit, &request);
    QVERIFY(request.isAccepted());
    QTRY_VERIFY(QApplication::activePopupWidget() != nullptr);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(strip.edit->text(), QStringLiteral("Drums"));
    QApplication::activePopupWidget()->close();
    QTRY_VERIFY(strip.edit->hasFocus());
    QCOMPARE(strip.edit->focusPolicy(), Qt::ClickFocus);
    QCOMPARE(changes.count(), 0);
    QTest::keyClick(strip.edit, Qt::Key_Return);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes[0][0].toString(), QStringLiteral("Drums"));
}

void tst_ChannelNameEdit::theContextMenuNeedsAnEdit()
{
    Strip strip;
    strip.show();
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
    strip.show();
    QSignalSpy changes(strip.edit, &ChannelNameEdit::channelNameChanged);
    strip.open();
    QTest::keyClicks(strip.edit, QStringLiteral("Drums"));
    QMenu menu(&strip.window);
    menu.addAction(QStringLiteral("Colour"));
    expectPopup();
    menu.popup(strip.window.mapToGlobal(QPoint(5, 100)));
    QTRY_COMPARE(changes.count(), 1);
    menu.close();
    QCOMPARE(changes.count(), 1);
    QCOMPARE(strip.edit->focusPolicy(), Qt::NoFocus);
}

ZOLTA_TEST_MAIN(tst_ChannelNameEdit)

#include "tst_ChannelNameEdit.moc"
