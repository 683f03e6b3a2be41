// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/EditorWindow.h"
#include "host/window/HostTheme.h"
#include "host/window/MixerWindow.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTableView>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace WindowTesting;

/// The windows in every language: nothing is cut, and nothing scrolls that does not in English.
class tst_TranslatedWindows : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup() { m_mixer.language.choose(Language::English); }
    void textsFit_data();
    void textsFit();
    void editorHasItsSizeInEveryLanguage();
    void lettersOfMenusAreTheirOwn_data();
    void lettersOfMenusAreTheirOwn();

private:
    void speak(Language language);
    QMainWindow* open(const QString& kind);
    static QStringList cutTexts(const QWidget* window);
    static QStringList scrollBars(const QWidget* window);

    Mixer m_mixer;
    std::unique_ptr<MixerWindow> m_mixerWindow;
};

namespace {

// How wide a widget must be for its text; 0 for what has none or shortens it by itself.
int neededBy(const QWidget* widget)
{
    const QFontMetrics metrics = widget->fontMetrics();
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        const bool shortens = label->minimumWidth() > 0 && label->toolTip().size() > 0;
        return shortens || label->wordWrap() ? 0 : metrics.horizontalAdvance(label->text());
    }
    if (const auto* choice = qobject_cast<const QComboBox*>(widget))
        return choice->minimumSizeHint().width();
    if (const auto* button = qobject_cast<const QToolButton*>(widget))
        return button->sizeHint().width();
    if (const auto* key = qobject_cast<const QAbstractButton*>(widget))
        return metrics.horizontalAdvance(key->text());
    return 0;
}

} // namespace

void tst_TranslatedWindows::initTestCase()
{
    applyHostTheme();
    QVERIFY(m_mixer.library.load(QStringLiteral(HOST_REAL_PLUGIN)).isOk());
}

void tst_TranslatedWindows::speak(Language language)
{
    m_mixer.language.choose(language);
    QCoreApplication::processEvents(); // texts, then layouts
}

QMainWindow* tst_TranslatedWindows::open(const QString& kind)
{
    m_mixerWindow = std::make_unique<MixerWindow>(m_mixer, EditorSettings());
    QMainWindow* window = m_mixerWindow.get();
    if (kind == "mixer"_L1) {
        window->show();
    } else {
        window = m_mixerWindow->openEditor(0, true);
        auto* panel = window->findChild<QDockWidget*>(kind);
        if (!panel)
            qFatal("no panel");
        panel->toggleViewAction()->trigger();
        window->resize(1440, 1000);
    }
    if (!QTest::qWaitForWindowExposed(window))
        qFatal("no window");
    return window;
}

QStringList tst_TranslatedWindows::cutTexts(const QWidget* window)
{
    QStringList cut;
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
        const int needed = neededBy(widget);
        if (widget->isVisible() && widget->window() == window && needed > widget->width())
            cut << QStringLiteral("%1 %2: %3 of %4")
                       .arg(QLatin1String(widget->metaObject()->className()),
                            widget->property("text").toString(), QString::number(widget->width()),
                            QString::number(needed));
    }
    for (const QTableView* table : window->findChildren<QTableView*>()) {
        const QHeaderView* header = table->horizontalHeader();
        for (int column = 0; table->isVisible() && column < header->count(); ++column) {
            if (header->sectionSize(column) < header->sectionSizeHint(column))
                cut << table->model()->headerData(column, Qt::Horizontal).toString();
        }
    }
    return cut;
}

QStringList tst_TranslatedWindows::scrollBars(const QWidget* window)
{
    QStringList bars;
    for (const QScrollBar* bar : window->findChildren<QScrollBar*>()) {
        if (bar->isVisible() && bar->maximum() > bar->minimum())
            bars << QLatin1String(bar->parentWidget()->parentWidget()->metaObject()->className());
    }
    std::ranges::sort(bars);
    return bars;
}

void tst_TranslatedWindows::textsFit_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("mixer") << u"mixer"_s;
    for (const char* panel : {"parameters", "measuredResponse", "analyzer"})
        QTest::newRow(panel) << QString::fromLatin1(panel);
}

void tst_TranslatedWindows::textsFit()
{
    QFETCH(const QString, kind);
    const QMainWindow* english = open(kind);
    const QStringList cut = cutTexts(english); // what the panel's form has no room for
    QCOMPARE_LE(cut.size(), 1);
    const QStringList bars = scrollBars(english);
    for (const Language language : languages) {
        speak(language);
        const QMainWindow* opened = open(kind);
        QCOMPARE(cutTexts(opened).join(u"; "_s), cut.join(u"; "_s));
        QCOMPARE(scrollBars(opened).join(u" "_s), bars.join(u" "_s));
        for (const Language other : languages) { // and where it is chosen in the open window
            speak(other);
            QTRY_COMPARE(cutTexts(opened).join(u"; "_s), cut.join(u"; "_s));
            QTRY_COMPARE(scrollBars(opened).join(u" "_s), bars.join(u" "_s));
        }
    }
}

void tst_TranslatedWindows::editorHasItsSizeInEveryLanguage()
{
    QList<QSize> sizes;
    for (const Language language : languages) {
        speak(language);
        m_mixerWindow = std::make_unique<MixerWindow>(m_mixer, EditorSettings());
        sizes << m_mixerWindow->size() << m_mixerWindow->openEditor(0, true)->size();
    }
    QCOMPARE(sizes.mid(2, 2), sizes.mid(0, 2));
    QCOMPARE(sizes.mid(4, 2), sizes.mid(0, 2));
}

void tst_TranslatedWindows::lettersOfMenusAreTheirOwn_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("mixer") << u"mixer"_s;
    QTest::newRow("editor") << u"parameters"_s;
}

// A letter that two entries share would only walk between them.
void tst_TranslatedWindows::lettersOfMenusAreTheirOwn()
{
    QFETCH(const QString, kind);
    static const QRegularExpression letter(u"&([^&])"_s);
    const QMainWindow* window = open(kind);
    QList<const QWidget*> menus{window->menuBar()};
    for (const QMenu* menu : window->findChildren<QMenu*>())
        menus << menu;
    for (const Language language : languages) {
        speak(language);
        for (const QWidget* menu : menus) {
            QStringList letters;
            for (const QAction* action : menu->actions()) {
                const QString own = letter.match(action->text()).captured(1).toUpper();
                QVERIFY2(own.isEmpty() || !letters.contains(own), qPrintable(action->text()));
                letters << own;
            }
        }
    }
}

ZOLTA_TEST_MAIN(tst_TranslatedWindows)

#include "tst_TranslatedWindows.moc"
