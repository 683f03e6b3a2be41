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
    void picturesAskTheTranslation();
    void opacityDimsEverything();
    void fadesTickForTick();
    void openingTwiceStartsOneFade();
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
        const double first = label<SvgLabel>("m_pQuentaLogo")->opacity();
        return first == label<SvgLabel>("m_pZoltaLogo")->opacity() ? first : -1.0;
    }
    template <class Label = QLabel> Label* label(const char* name) const
    {
        return about.findChild<Label*>(QLatin1String(name));
    }

    QWidget parent;
    ZoltaAbout about{&parent};
};

/// The opacities of a fade, tick for tick.
constexpr std::array FadeIn = {0.1,
                               0.2,
                               0.30000000000000004,
                               0.4,
                               0.5,
                               0.6,
                               0.7,
                               0.7999999999999999,
                               0.8999999999999999,
                               0.9999999999999999,
                               1.0};
constexpr std::array FadeOut = {0.9,
                                0.8,
                                0.7,
                                0.6,
                                0.5,
                                0.4,
                                0.30000000000000004,
                                0.20000000000000007,
                                0.10000000000000009,
                                1.1102230246251565e-16,
                                0.0};

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
    QVERIFY(panel.label("m_pCopyrightLabel")->text().startsWith(QStringLiteral("Copyright")));
}

void tst_ZoltaAbout::widgetsAreThoseOfTheForm()
{
    const Panel panel;
    const std::array<std::pair<const char*, QRect>, 4> expected = {{
        {"m_pQuentaLogo", {22, 26, 135, 29}},
        {"m_pZoltaLogo", {143, 234, 691, 88}},
        {"m_pVersionLabel", {547, 505, 400, 14}},
        {"m_pCopyrightLabel", {547, 525, 400, 14}},
    }};
    QCOMPARE(panel.about.children().size(), 4);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        auto* label = qobject_cast<QLabel*>(panel.about.children()[static_cast<qsizetype>(i)]);
        QCOMPARE(label->objectName(), QLatin1String(expected[i].first));
        QCOMPARE(label->geometry(), expected[i].second);
        QCOMPARE(qobject_cast<SvgLabel*>(label) != nullptr, i < 2);
        if (i < 2)
            continue;
        QCOMPARE(label->font().family(), QStringLiteral("M+ 1c medium"));
        QCOMPARE(label->font().pointSize(), 9);
        QCOMPARE(label->alignment(), Qt::AlignRight | Qt::AlignTrailing | Qt::AlignVCenter);
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            QCOMPARE(label->palette().color(group, QPalette::WindowText), QColor(Qt::white));
    }
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
    QCOMPARE(panel.label<SvgLabel>("m_pQuentaLogo")->svg(), pictures[0]);
    QCOMPARE(panel.label<SvgLabel>("m_pZoltaLogo")->svg(), pictures[1]);

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

// After a full fade-in the panel is at 1.0, after a full fade-out hidden and at 0.0; no timer runs.
// A panel that was hidden again opens like a new one, and a hidden one is faded out invisibly.
void tst_ZoltaAbout::fadesTickForTick()
{
    Panel panel;
    bool isShown = false;
    for (const bool opening : {false, true, false, true, true, false}) {
        opening ? panel.about.open() : panel.about.close();
        isShown = isShown || opening;
        const Timers timers = timersOf(&panel.about);
        QCOMPARE(timers.size(), 1);
        QCOMPARE(timers.first().interval, 30);
        QCOMPARE(timers.first().timerType, Qt::CoarseTimer);
        const auto& levels = opening ? FadeIn : FadeOut;
        for (std::size_t i = 0; i < levels.size(); ++i) {
            if (i > 0)
                panel.tick();
            isShown = isShown && (opening || i < 10);
            QCOMPARE(panel.opacity(), levels[i]);
            QCOMPARE(panel.isFading(), i < 10);
            QCOMPARE(!panel.about.isHidden(), isShown);
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

void tst_ZoltaAbout::clickingWhileFadingInReversesFromTheCurrentOpacity()
{
    Panel panel;
    panel.about.open();
    panel.ticks(2);
    QTest::mousePress(&panel.about, Qt::LeftButton);
    QCOMPARE(panel.opacity(), 0.30000000000000004);
    QCOMPARE(timersOf(&panel.about).size(), 1);
    panel.tick();
    QVERIFY(std::abs(panel.opacity() - 0.2) < 1e-9);
    QTest::mousePress(&panel.about, Qt::LeftButton);
    panel.tick();
    QVERIFY(std::abs(panel.opacity() - 0.1) < 1e-9);
    while (panel.isFading())
        panel.tick();
    QVERIFY(panel.about.isHidden());
    QCOMPARE(panel.opacity(), 0.0);
}

void tst_ZoltaAbout::openingWhileFadingOutReverses()
{
    Panel panel;
    panel.about.open();
    panel.ticks(10);
    panel.about.close();
    panel.ticks(3);
    panel.about.open();
    QVERIFY(std::abs(panel.opacity() - 0.6) < 1e-9);
    panel.tick();
    QVERIFY(std::abs(panel.opacity() - 0.7) < 1e-9);
    while (panel.isFading())
        panel.tick();
    QVERIFY(!panel.about.isHidden());
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
