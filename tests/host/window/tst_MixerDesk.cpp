// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PullDownButtonController.h"
#include "host/window/EditorWindow.h"
#include "host/window/HostTheme.h"
#include "host/window/MasterStrip.h"
#include "host/window/MixerDesk.h"
#include "host/window/MixerWindow.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestObject.h"
#include "widgets/ChannelNameEdit.h"

#include <QApplication>
#include <QMenu>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace CommonController_MemAPI;
using namespace WindowTesting;

namespace {

constexpr int distance = MixerStrip::stripWidth + 2; // from strip to strip

} // namespace

/// The strips of a mixer with more or fewer channels than a new one has.
class tst_MixerDesk : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { applyHostTheme(); }
    void init();
    void cleanup();
    void countIsChosenInTheMenu_data();
    void countIsChosenInTheMenu();
    void countIsReachedByTheKeyboard();
    void windowFollowsTheCount_data();
    void windowFollowsTheCount();
    void editorsOfChannelsThatGoAreClosed_data();
    void editorsOfChannelsThatGoAreClosed();
    void lastEditorToGoLeavesTheMixer();
    void editorOfAChannelThatCameBackIsANewOne();
    void markStaysOnAStripThatIsThere();
    void tabWalksFromTheFirstStripToTheMaster();
    void tabScrollsToWholeStrips_data();
    void tabScrollsToWholeStrips();
    void wheelScrollsSideways();
    void numbersAreSeenInEveryLanguage();
    void masterIsAsHighAsTheStrips();
    void monoLeavesTheScrollingAlone();
    void pressLeavesTheScrollingAlone();
    void inputsFollowTheCount_data();
    void inputsFollowTheCount();
    void soloOfAChannelThatGoesEnds();

private:
    MixerModel& model() { return m_mixer->mixerModel; }
    QUndoStack& stack() { return model().history().stack(); }
    MixerStrip* strip(int channel) const { return stripOf(m_window.get(), channel); }
    MixerDesk* desk() const { return m_window->findChild<MixerDesk*>(); }
    QScrollBar* bar() const { return desk()->findChild<QScrollArea*>()->horizontalScrollBar(); }
    void choose(int count) { actionOf(m_window.get(), QString::number(count))->trigger(); }
    QList<int> openChannels() const;
    QRect placeOf(const QWidget* widget) const
    {
        return {widget->mapTo(m_window.get(), QPoint()), widget->size()};
    }
    void activate();

    std::unique_ptr<Mixer> m_mixer;
    std::unique_ptr<MixerWindow> m_window;
};

void tst_MixerDesk::init()
{
    TestObject::init();
    m_mixer = std::make_unique<Mixer>();
    loadStandIn(*m_mixer);
    m_window = std::make_unique<MixerWindow>(*m_mixer, EditorSettings());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QCoreApplication::processEvents(); // the groups' buttons join them
}

void tst_MixerDesk::cleanup()
{
    m_window.reset();
    m_mixer.reset();
}

QList<int> tst_MixerDesk::openChannels() const
{
    QList<int> channels;
    for (const EditorWindow* editor : m_window->editors())
        channels << editor->settings().channel;
    return channels;
}

void tst_MixerDesk::activate()
{
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void tst_MixerDesk::countIsChosenInTheMenu_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {2, 4, 12, 32})
        QTest::addRow("%d", count) << count;
}

void tst_MixerDesk::countIsChosenInTheMenu()
{
    QFETCH(const int, count);
    const auto shows = [this](int channels) {
        QCoreApplication::processEvents(); // layouts show what is new
        QCOMPARE(model().channelCount(), channels);
        QCOMPARE(desk()->strips().size(), channels);
        QCOMPARE(m_window->findChildren<MixerStrip*>().size(), channels);
        QCOMPARE(metersRead(*m_mixer).size(), channels);
        for (int ch = 0; ch < channels; ++ch) {
            QCOMPARE(strip(ch)->isVisible(), ch % 2 == 0);
        }
        for (int ch = 2; ch < channels; ch += 2)
            QTRY_VERIFY(strip(ch)->x() > strip(ch - 2)->x());
        for (int each = minChannelCount; each <= maxChannelCount; each += 2)
            QCOMPARE(actionOf(m_window.get(), QString::number(each))->isChecked(),
                     each == channels);
    };
    shows(8);
    choose(count);
    shows(count);
    QCOMPARE(stack().count(), 1);
    choose(count); // is no other one
    QCOMPARE(stack().count(), 1);
    stack().undo();
    shows(8);
    stack().redo();
    shows(count);
    m_window->hide();
    QCOMPARE(metersRead(*m_mixer), QList<int>());
    choose(8);
    QCOMPARE(metersRead(*m_mixer), QList<int>());
}

void tst_MixerDesk::countIsReachedByTheKeyboard()
{
    activate();
    QMenu* menu = nullptr;
    for (QMenu* each : m_window->findChildren<QMenu*>()) {
        if (each->title() == u"&Number of Channels"_s)
            menu = each;
    }
    QVERIFY(menu);
    menu->popup(QPoint());
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    QCOMPARE(model().channelCount(), 4);
}

void tst_MixerDesk::windowFollowsTheCount_data()
{
    QTest::addColumn<QList<int>>("counts");
    QTest::addColumn<int>("strips"); // that the window is as wide as; 0: as the screen
    QTest::newRow("more than fit") << QList<int>{32} << 0;
    QTest::newRow("there and back") << QList<int>{32, 6} << 6;
    QTest::newRow("fewer") << QList<int>{2} << 6; // the transport has room
    QTest::newRow("fewer and more") << QList<int>{4, 10, 4} << 6;
    QTest::newRow("several steps") << QList<int>{6, 16, 2, 6} << 6;
}

// As wide as its strips where the screen has room, and it stays on the screen.
void tst_MixerDesk::windowFollowsTheCount()
{
    QFETCH(const QList<int>, counts);
    QFETCH(const int, strips);
    const QRect room = m_window->screen()->availableGeometry();
    m_window->move(room.right() - 400, 0);
    for (const int count : counts) {
        choose(count);
        QVERIFY(room.contains(QRect(m_window->frameGeometry().topLeft(), QSize(1, 1))));
        QVERIFY(m_window->frameGeometry().right() <= room.right());
    }
    const int whole = (strips + 1) * distance + 4;
    const int narrowest = m_window->minimumSizeHint().width();
    const int frame = m_window->frameGeometry().width() - m_window->width();
    QCOMPARE(m_window->width(),
             strips > 0 ? std::max(whole, narrowest) : std::max(room.width() - frame, narrowest));
    m_window->resize(narrowest, m_window->height());
    choose(24); // who made it narrow wants it narrow
    QCOMPARE(m_window->width(), narrowest);
    QTRY_VERIFY(bar()->maximum() > 0);
    QCOMPARE(placeOf(m_window->findChild<MasterStrip*>()).right(), m_window->width() - 3);
}

void tst_MixerDesk::editorsOfChannelsThatGoAreClosed_data()
{
    QTest::addColumn<QList<int>>("open");
    QTest::addColumn<int>("count");
    QTest::addColumn<QList<int>>("left");
    using Channels = QList<int>;
    QTest::newRow("some") << Channels{0, 7, 8, 14, 31} << 8 << Channels{0, 7};
    QTest::newRow("none") << Channels{0, 7} << 8 << Channels{0, 7};
    QTest::newRow("the last pair's") << Channels{2, 29, 30} << 30 << Channels{2, 29};
    QTest::newRow("all") << Channels{20, 22} << 2 << Channels{};
}

void tst_MixerDesk::editorsOfChannelsThatGoAreClosed()
{
    QFETCH(const QList<int>, open);
    QFETCH(const int, count);
    model().setChannelCount(32);
    for (const int channel : open) {
        m_mixer->memory.setStrip(channel & ~1, StripParameter::Stereo, 0);
        QVERIFY(m_window->openEditor(channel, false));
    }
    QCOMPARE(openChannels(), open);
    choose(count);
    QTEST(openChannels(), "left");
    QVERIFY(!m_window->openEditor(count, false)); // there is no such channel
    stack().undo();
    QTEST(openChannels(), "left"); // nobody asked for them
}

// Undone in the only window, which is the editor of a channel that goes by that.
void tst_MixerDesk::lastEditorToGoLeavesTheMixer()
{
    model().chooseChannelCount(32);
    EditorWindow* editor = m_window->openEditor(30, true);
    m_window->hide();
    actionOf(editor, u"Undo"_s)->trigger();
    QCOMPARE(openChannels(), QList<int>());
    QVERIFY(m_window->isVisible());
}

void tst_MixerDesk::editorOfAChannelThatCameBackIsANewOne()
{
    model().setChannelCount(16);
    const QPointer<EditorWindow> before = m_window->openEditor(14, true);
    model().setChannelCount(8);
    model().setChannelCount(16);
    const QPointer<EditorWindow> after = m_window->openEditor(14, true);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!before);
    QVERIFY(after && after->isVisible());
    m_mixer->memory.setStrip(14, StripParameter::Mute, 1);
    QCOMPARE(openChannels(), QList<int>{14});
}

void tst_MixerDesk::markStaysOnAStripThatIsThere()
{
    choose(16);
    desk()->select(12);
    choose(14);
    QCOMPARE(m_window->selectedChannel(), 12);
    choose(12);
    QCOMPARE(m_window->selectedChannel(), 10); // the last pair's first channel
    m_mixer->memory.setStrip(2, StripParameter::Stereo, 0);
    choose(4);
    QCOMPARE(m_window->selectedChannel(), 3);
}

void tst_MixerDesk::tabWalksFromTheFirstStripToTheMaster()
{
    for (const int count : {2, 6, 4, 12})
        choose(count);
    activate();
    QWidgetList owners{strip(0)};
    strip(0)->findChild<PullDownButtonController*>()->setFocus(Qt::TabFocusReason);
    const auto* master = m_window->findChild<MasterStrip*>();
    for (int step = 0; step < 400 && owners.constLast() != master; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QWidget* owner = QApplication::focusWidget();
        while (owner && !qobject_cast<MixerStrip*>(owner) && !qobject_cast<MasterStrip*>(owner))
            owner = owner->parentWidget();
        QVERIFY(owner);
        if (owner != owners.constLast())
            owners << owner;
    }
    QCOMPARE(owners.size(), 7); // six pairs and the master
    for (int pair = 0; pair < 6; ++pair)
        QCOMPARE(owners[pair], strip(2 * pair));
}

void tst_MixerDesk::tabScrollsToWholeStrips_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("onward") << Qt::Key_Tab;
    QTest::newRow("back") << Qt::Key_Backtab;
}

void tst_MixerDesk::tabScrollsToWholeStrips()
{
    QFETCH(const Qt::Key, key);
    choose(32);
    m_window->resize(500, m_window->height());
    activate();
    m_window->findChild<MasterStrip*>()->findChild<QAbstractButton*>()->setFocus(
        Qt::TabFocusReason);
    QSet<const QWidget*> seen;
    for (int step = 0; step < 400 && seen.size() < 16; ++step) {
        QTest::keyClick(QApplication::focusWidget(), key);
        for (const MixerStrip* each : desk()->strips()) {
            if (!each->isAncestorOf(QApplication::focusWidget()))
                continue;
            seen << each;
            QVERIFY(placeOf(each).left() >= 2);
            QVERIFY(placeOf(each).right() < placeOf(m_window->findChild<MasterStrip*>()).left());
        }
    }
    QCOMPARE(seen.size(), 16);
}

void tst_MixerDesk::wheelScrollsSideways()
{
    choose(32);
    m_window->resize(500, m_window->height());
    QTRY_VERIFY(bar()->maximum() > 700);
    const auto turn = [this](int angle) {
        const QPointF place(3, 300); // of the panel, where there is no control
        QWheelEvent wheel(place, strip(0)->mapToGlobal(place), QPoint(), QPoint(0, angle),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&wheel); // only such ones are passed on
        qApp->notify(strip(0), &wheel);
        return bar()->value();
    };
    QVERIFY(turn(-120) > 0);
    QCOMPARE(turn(120), 0);
}

void tst_MixerDesk::numbersAreSeenInEveryLanguage()
{
    choose(32);
    for (const Language language : languages) {
        m_mixer->language.choose(language);
        QCoreApplication::processEvents();
        for (const MixerStrip* each : desk()->strips()) {
            const QString shown = each->findChild<ChannelNameEdit*>()->text();
            QVERIFY2(shown.endsWith(QString::number(each->channel() + 1)), qPrintable(shown));
        }
    }
}

void tst_MixerDesk::masterIsAsHighAsTheStrips()
{
    const auto* master = m_window->findChild<MasterStrip*>();
    QCOMPARE(master->height(), strip(0)->height() + 4);
    choose(32);
    m_window->resize(500, m_window->height());
    QTRY_VERIFY(bar()->isVisible());
    QTRY_COMPARE(master->height(), strip(0)->height() + 4);
    choose(2);
    m_window->resize(700, m_window->height());
    QTRY_COMPARE(master->height(), strip(0)->height() + 4);
}

void tst_MixerDesk::monoLeavesTheScrollingAlone()
{
    choose(32);
    m_window->resize(500, m_window->height());
    QTRY_VERIFY(bar()->maximum() > 700);
    bar()->setValue(660);
    const int most = bar()->maximum();
    const QRect before = placeOf(strip(12));
    m_mixer->memory.setStrip(12, StripParameter::Stereo, 0);
    QTRY_COMPARE(bar()->maximum(), most + distance);
    QVERIFY(strip(13)->x() > strip(12)->x());
    QCOMPARE(placeOf(strip(12)), before);
    stack().undo();
    QTRY_COMPARE(bar()->maximum(), most);
    QCOMPARE(placeOf(strip(12)), before);
}

// What is under the pointer stays under it.
void tst_MixerDesk::pressLeavesTheScrollingAlone()
{
    choose(32);
    m_window->resize(500, m_window->height());
    QTRY_VERIFY(bar()->maximum() > 700);
    bar()->setValue(60); // the first strip is cut off
    activate();
    QTest::mouseClick(named<QWidget>(strip(0), u"Solo of Channel 1"_s), Qt::LeftButton);
    strip(0)->findChild<PullDownButtonController*>()->setFocus(Qt::MouseFocusReason);
    QCOMPARE(bar()->value(), 60);
    QCOMPARE(m_window->selectedChannel(), 0);
}

void tst_MixerDesk::inputsFollowTheCount_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("inputs");
    QTest::newRow("2") << 2 << 8;
    QTest::newRow("8") << 8 << 8;
    QTest::newRow("10") << 10 << 10;
    QTest::newRow("32") << 32 << 32;
}

void tst_MixerDesk::inputsFollowTheCount()
{
    QFETCH(const int, count);
    QFETCH(const int, inputs);
    choose(count);
    auto* source = strip(0)->findChild<PullDownButtonController*>();
    const auto offered = [this, source] {
        qsizetype items = 0;
        QTimer::singleShot(0, this, [&items] {
            QWidget* menu = QApplication::activePopupWidget();
            if (!menu)
                qFatal("no menu");
            const QList<QAction*> actions = menu->actions();
            items = std::ranges::count_if(actions, &QAction::isVisible);
            menu->close();
        });
        source->openPullDown();
        return items - 3; // besides test signal, file and off
    };
    QCOMPARE(offered(), inputs);
    QCOMPARE(source->currentText(), u"Off"_s);
    m_mixer->memory.setStrip(0, StripParameter::Source, SourceInput1 + 31);
    QCOMPARE(source->currentText(), u"Input 32"_s);
    QCOMPARE(offered(), inputs == 32 ? 32 : inputs + 1);
    m_mixer->memory.setStrip(0, StripParameter::Source, SourceFile);
    QCOMPARE(offered(), inputs);
}

void tst_MixerDesk::soloOfAChannelThatGoesEnds()
{
    choose(16);
    const QImage before = strip(0)->grab().toImage();
    m_mixer->memory.setStrip(14, StripParameter::Solo, 1);
    QVERIFY(strip(0)->grab().toImage() != before);
    choose(8);
    QCOMPARE(strip(0)->grab().toImage(), before);
}

ZOLTA_TEST_MAIN(tst_MixerDesk)

#include "tst_MixerDesk.moc"
