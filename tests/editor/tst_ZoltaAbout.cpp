// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/ZoltaAbout.h"
#include "tests/editor/EditorFixture.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QTranslator>

class tst_ZoltaAbout : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void slotsAreOpenAndClose();
    void panelItself();
    void widgetsAreThoseOfTheForm();
    void textsAreSetInCode();
    void picturesAskTheTranslation();
    void opacityDimsEverything();
    void fadesTickForTick();
    void openingTwiceStartsOneFade();
    void openingAShownPanelFadesItInAgain();
    void closingAHiddenPanelPlaysAnInvisibleFade();
    void clickingWhileFadingInReversesFromTheCurrentOpacity();
    void openingWhileFadingOutReverses();
    void pressGoesNoFurther();
    void ticksOfOtherTimersAreIgnored();
    void theEditorsPanelCoversItAndOpensByItsButton();
};

namespace {

/// A panel in a widget, and its clock.
struct Panel
{
    Panel() { parent.resize(977, 559); }

    void tick()
    {
        const Timers timers = timersOf(&about);
        if (timers.size() != 1)
            qFatal("%d timers run", int(timers.size()));
        fire(&about, timers.first().timerId);
    }
    void ticks(int count)
    {
        for (int i = 0; i < count; ++i)
            tick();
    }
    bool isFading() const { return !timersOf(const_cast<ZoltaAbout*>(&about)).isEmpty(); }
    double opacity() const
    {
        const double first = about.findChild<SvgLabel*>(QStringLiteral("m_pQuentaLogo"))->opacity();
        const double second = about.findChild<SvgLabel*>(QStringLiteral("m_pZoltaLogo"))->opacity();
        return first == second ? first : -1.0;
    }
    QLabel* label(const char* name) const { return about.findChild<QLabel*>(QLatin1String(name)); }
    int panelAlpha() const { return about.palette().color(QPalette::Window).alpha(); }
    int textAlpha() const
    {
        return label("m_pVersionLabel")->palette().color(QPalette::WindowText).alpha();
    }
    bool isShown() const { return !about.isHidden(); }

    QWidget parent;
    ZoltaAbout about{&parent};
};

struct Level
{
    double opacity;
    int panel;
    int text;
};

constexpr std::array<Level, 11> FadeIn = {{
    {0.1, 22, 26},
    {0.2, 45, 51},
    {0.30000000000000004, 67, 77},
    {0.4, 90, 102},
    {0.5, 112, 128},
    {0.6, 134, 153},
    {0.7, 157, 179},
    {0.7999999999999999, 179, 204},
    {0.8999999999999999, 202, 229},
    {0.9999999999999999, 224, 255},
    {1.0, 224, 255},
}};

constexpr std::array<Level, 11> FadeOut = {{
    {0.9, 202, 230},
    {0.8, 179, 204},
    {0.7, 157, 179},
    {0.6, 134, 153},
    {0.5, 112, 128},
    {0.4, 90, 102},
    {0.30000000000000004, 67, 77},
    {0.20000000000000007, 45, 51},
    {0.10000000000000009, 22, 26},
    {1.1102230246251565e-16, 0, 0},
    {0.0, 0, 0},
}};

bool shows(const Panel& panel, const Level& level)
{
    return panel.opacity() == level.opacity && panel.panelAlpha() == level.panel &&
           panel.textAlpha() == level.text;
}

} // namespace

void tst_ZoltaAbout::slotsAreOpenAndClose()
{
    const QMetaObject& type = ZoltaAbout::staticMetaObject;
    QCOMPARE(type.methodCount() - type.methodOffset(), 2);
    QCOMPARE(type.method(type.methodOffset()).methodSignature(), QByteArray("open()"));
    QCOMPARE(type.method(type.methodOffset() + 1).methodSignature(), QByteArray("close()"));
}

void tst_ZoltaAbout::panelItself()
{
    const Panel panel;
    QCOMPARE(panel.about.objectName(), QStringLiteral("ZoltaAbout"));
    QCOMPARE(panel.about.size(), QSize(977, 559));
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        QCOMPARE(panel.about.palette().color(group, QPalette::Window), QColor(0, 0, 0, 224));
    QCOMPARE(panel.about.font().family(), QStringLiteral("M+ 1c medium"));
    QCOMPARE(panel.about.focusPolicy(), Qt::ClickFocus);
    QVERIFY(panel.about.autoFillBackground());
    QVERIFY(panel.about.isHidden());
    QVERIFY(!panel.isFading());
}

void tst_ZoltaAbout::widgetsAreThoseOfTheForm()
{
    const Panel panel;
    const QObjectList children = panel.about.children();
    const std::array<std::pair<const char*, QRect>, 4> expected = {{
        {"m_pQuentaLogo", {22, 26, 135, 29}},
        {"m_pZoltaLogo", {143, 234, 691, 88}},
        {"m_pVersionLabel", {547, 505, 400, 14}},
        {"m_pCopyrightLabel", {547, 525, 400, 14}},
    }};
    QCOMPARE(children.size(), 4);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        auto* widget = qobject_cast<QLabel*>(children[static_cast<qsizetype>(i)]);
        QCOMPARE(widget->objectName(), QLatin1String(expected[i].first));
        QCOMPARE(widget->geometry(), expected[i].second);
        QCOMPARE(qobject_cast<SvgLabel*>(widget) != nullptr, i < 2);
        if (i < 2)
            continue;
        QCOMPARE(widget->font().family(), QStringLiteral("M+ 1c medium"));
        QCOMPARE(widget->font().pointSize(), 9);
        QVERIFY(widget->alignment().testFlag(Qt::AlignRight));
        QVERIFY(widget->alignment().testFlag(Qt::AlignVCenter));
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            QCOMPARE(widget->palette().color(group, QPalette::WindowText), QColor(Qt::white));
    }
    QCOMPARE(panel.about.findChild<SvgLabel*>(QStringLiteral("m_pQuentaLogo"))->svg(),
             QStringLiteral(":/image/zolta/about_quenta_logo.svg"));
    QCOMPARE(panel.about.findChild<SvgLabel*>(QStringLiteral("m_pZoltaLogo"))->svg(),
             QStringLiteral(":/image/zolta/about_zolta_logo.svg"));
}

void tst_ZoltaAbout::textsAreSetInCode()
{
    const Panel panel;
    QCOMPARE(panel.label("m_pVersionLabel")->text(), QStringLiteral("Zolta Ver 2.2.0"));
    QVERIFY(panel.label("m_pCopyrightLabel")->text().startsWith(QStringLiteral("Copyright")));
}

void tst_ZoltaAbout::picturesAskTheTranslation()
{
    struct Listener : QTranslator
    {
        QString translate(const char* context, const char* text, const char*, int) const override
        {
            if (QLatin1String(context) == QLatin1String("ZoltaAbout"))
                asked.append(QString::fromLatin1(text));
            return {};
        }
        bool isEmpty() const override { return false; }
        mutable QStringList asked;
    } listener;
    QVERIFY(QCoreApplication::installTranslator(&listener));
    const Panel panel;
    const QStringList pictures = {QStringLiteral(":/image/zolta/about_quenta_logo.svg"),
                                  QStringLiteral(":/image/zolta/about_zolta_logo.svg")};
    QCOMPARE(listener.asked, pictures);

    QEvent languageChange(QEvent::LanguageChange);
    QCoreApplication::sendEvent(const_cast<ZoltaAbout*>(&panel.about), &languageChange);
    QCOMPARE(listener.asked, pictures + pictures);
    QCOMPARE(panel.label("m_pVersionLabel")->text(), QStringLiteral("Zolta Ver 2.2.0"));
}

void tst_ZoltaAbout::opacityDimsEverything()
{
    Panel panel;
    panel.about.setOpacity(0.5);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(panel.about.palette().color(group, QPalette::Window), QColor(0, 0, 0, 112));
        for (const char* name : {"m_pVersionLabel", "m_pCopyrightLabel"})
            QCOMPARE(panel.label(name)->palette().color(group, QPalette::WindowText),
                     QColor(255, 255, 255, 128));
    }
    QCOMPARE(panel.opacity(), 0.5);
}

void tst_ZoltaAbout::fadesTickForTick()
{
    Panel panel;
    // A panel that was hidden again opens like a new one.
    for (const bool opening : {true, false, true, false}) {
        opening ? panel.about.open() : panel.about.close();
        const Timers timers = timersOf(&panel.about);
        QCOMPARE(timers.size(), 1);
        QCOMPARE(timers.first().interval, 30);
        QCOMPARE(timers.first().timerType, Qt::CoarseTimer);
        const auto& levels = opening ? FadeIn : FadeOut;
        QVERIFY(shows(panel, levels.front()));
        for (std::size_t i = 1; i < levels.size(); ++i) {
            panel.tick();
            QVERIFY2(shows(panel, levels[i]), qPrintable(QString::number(i)));
            QCOMPARE(panel.isFading(), i < 10);
            QCOMPARE(panel.isShown(), opening || i < 10);
        }
    }
}

void tst_ZoltaAbout::openingTwiceStartsOneFade()
{
    Panel panel;
    panel.about.open();
    panel.tick();
    panel.about.open();
    QCOMPARE(timersOf(&panel.about).size(), 1);
    QCOMPARE(panel.opacity(), 0.2);
    panel.ticks(9);
    QVERIFY(!panel.isFading());
}

void tst_ZoltaAbout::openingAShownPanelFadesItInAgain()
{
    Panel panel;
    panel.about.open();
    panel.ticks(10);
    panel.about.open();
    QCOMPARE(panel.opacity(), 0.1);
    panel.ticks(10);
    QCOMPARE(panel.opacity(), 1.0);
}

void tst_ZoltaAbout::closingAHiddenPanelPlaysAnInvisibleFade()
{
    Panel panel;
    panel.about.close();
    QCOMPARE(panel.opacity(), 0.9);
    for (int i = 0; i < 10; ++i) {
        QVERIFY(!panel.isShown());
        panel.tick();
    }
    QVERIFY(!panel.isShown());
    QCOMPARE(panel.opacity(), 0.0);
    QVERIFY(!panel.isFading());
}

void tst_ZoltaAbout::clickingWhileFadingInReversesFromTheCurrentOpacity()
{
    Panel panel;
    panel.about.open();
    panel.ticks(2);
    QCOMPARE(panel.opacity(), 0.30000000000000004);
    QTest::mousePress(&panel.about, Qt::LeftButton);
    QCOMPARE(panel.opacity(), 0.30000000000000004);
    QCOMPARE(timersOf(&panel.about).size(), 1);
    panel.tick();
    QVERIFY(std::abs(panel.opacity() - 0.2) < 1e-9);
    QTest::mousePress(&panel.about, Qt::LeftButton);
    panel.tick();
    QVERIFY(std::abs(panel.opacity() - 0.1) < 1e-9);
    panel.tick();
    if (panel.isFading())
        panel.tick();
    QVERIFY(!panel.isShown());
    QCOMPARE(panel.opacity(), 0.0);
}

void tst_ZoltaAbout::openingWhileFadingOutReverses()
{
    Panel panel;
    panel.about.open();
    panel.ticks(10);
    panel.about.close();
    panel.ticks(3);
    QVERIFY(std::abs(panel.opacity() - 0.6) < 1e-9);
    panel.about.open();
    QVERIFY(std::abs(panel.opacity() - 0.6) < 1e-9);
    panel.tick();
    QVERIFY(std::abs(panel.opacity() - 0.7) < 1e-9);
    while (panel.isFading())
        panel.tick();
    QVERIFY(panel.isShown());
    QCOMPARE(panel.opacity(), 1.0);
}

void tst_ZoltaAbout::pressGoesNoFurther()
{
    struct Parent : QWidget
    {
        void mousePressEvent(QMouseEvent*) override { ++presses; }
        int presses = 0;
    } parent;
    ZoltaAbout about(&parent);
    about.open();
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::RightButton,
                      Qt::RightButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&about, &press);
    QVERIFY(press.isAccepted());
    QCOMPARE(parent.presses, 0);
}

void tst_ZoltaAbout::ticksOfOtherTimersAreIgnored()
{
    Panel panel;
    fire(&panel.about, 0);
    fire(&panel.about, 12345);
    QCOMPARE(panel.opacity(), 1.0);
    panel.about.open();
    fire(&panel.about, timersOf(&panel.about).first().timerId + 1);
    QCOMPARE(panel.opacity(), 0.1);
}

void tst_ZoltaAbout::theEditorsPanelCoversItAndOpensByItsButton()
{
    const EditorFixture fixture;
    auto* about = fixture.editor->findChild<ZoltaAbout*>();
    QCOMPARE(about->parentWidget(), fixture.editor.get());
    QCOMPARE(about->geometry(), QRect(0, 0, 977, 559));
    QVERIFY(about->isHidden());
    QTest::mouseClick(fixture.widget("AboutButton"), Qt::LeftButton);
    QVERIFY(!about->isHidden());
    fixture.editor->setScale(2.0);
    QCOMPARE(about->size(), QSize(1954, 1118));
    QCOMPARE(about->findChild<SvgLabel*>(QStringLiteral("m_pZoltaLogo"))->geometry(),
             QRect(286, 468, 1382, 176));
}

ZOLTA_TEST_MAIN(tst_ZoltaAbout)
#include "tst_ZoltaAbout.moc"
