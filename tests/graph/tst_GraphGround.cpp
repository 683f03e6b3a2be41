// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/graph/GraphFixture.h"
#include "tests/support/Columns.h"
#include "tests/support/TestObject.h"
#include "tests/widgets/SvgFiles.h"
#include "widgets/SvgLabel.h"

#include <QApplication>
#include <QGraphicsOpacityEffect>
#include <QScreen>

namespace {

/// A graph over a label, in a window.
struct GroundFixture : GraphFixture
{
    explicit GroundFixture(const QString& svg)
        : label(new SvgLabel(&editor))
    {
        label->setSvg(svg);
        label->resize(700, 240);
        label->lower();
        graph->move(11, 17);
        editor.resize(720, 260);
        setBand(2, 500, 80);
        bind();
        editor.show();
    }

    QImage shown()
    {
        QApplication::processEvents();
        return editor.screen()->grabWindow(editor.winId()).toImage();
    }

    SvgLabel* label;
};

using Action = std::function<void(GroundFixture&)>;

void addEffect(QWidget* widget)
{
    auto* effect = new QGraphicsOpacityEffect(widget);
    effect->setOpacity(0.5);
    widget->setGraphicsEffect(effect);
}

/// A red panel of its own next to the graph's corner.
QWidget* addPanel(QWidget* parent)
{
    auto* panel = new QWidget(parent);
    panel->setPalette(QPalette(Qt::red));
    panel->setAutoFillBackground(true);
    panel->setGeometry(30, 40, 60, 50);
    panel->show();
    return panel;
}

} // namespace

class tst_GraphGround : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowLooksTheSame_data();
    void windowLooksTheSame();
    void withoutLabel();

private:
    SvgFiles m_files;
};

void tst_GraphGround::windowLooksTheSame_data()
{
    addColumns<Action>("action");
    const auto row = [](const char* name, const Action& action) { QTest::newRow(name) << action; };
    row("bare", [](auto&) {});
    row("part of the graph", [](auto& f) { f.graph->repaint(40, 30, 90, 50); });
    row("part of the label", [](auto& f) { f.label->repaint(5, 5, 300, 100); });
    row("several parts", [](auto& f) {
        f.label->repaint(QRegion(0, 0, 50, 60) + QRegion(100, 50, 80, 80) + QRegion(5, 220, 9, 9));
    });
    row("all of the window", [](auto& f) { f.editor.repaint(); });
    row("another label", [](auto& f) { f.label->setSvg(QString()); });
    row("hidden label", [](auto& f) { f.label->hide(); });
    row("faint label", [](auto& f) { f.label->setOpacity(0.4); });
    row("label with a text", [](auto& f) { f.label->setText(QStringLiteral("Text")); });
    row("label above", [](auto& f) { f.label->raise(); });
    row("label that is moved", [](auto& f) { f.label->move(3, 5); });
    row("label that is too small", [](auto& f) { f.label->resize(400, 240); });
    row("label that fades", [](auto& f) { addEffect(f.label); });
    row("hidden graph", [](auto& f) { f.graph->hide(); });
    row("graph that is moved", [](auto& f) { f.graph->move(1, 2); });
    row("graph without a plot", [](auto& f) { f.graph->resize(40, 192); });
    row("graph that fades", [](auto& f) { addEffect(f.graph); });
    row("graph with a mask", [](auto& f) { f.graph->setMask(QRegion(100, 50, 200, 100)); });
    row("graph that is not updated", [](auto& f) {
        f.graph->setUpdatesEnabled(false);
        f.label->repaint();
    });
    row("panel between", [](auto& f) {
        addPanel(&f.editor)->stackUnder(f.graph);
        f.editor.repaint();
    });
    row("panel on the label", [](auto& f) { addPanel(f.label); });
    row("panel above", [](auto& f) { addPanel(&f.editor); });
    row("picture of the editor", [](auto& f) { f.editor.grab(); });
}

void tst_GraphGround::windowLooksTheSame()
{
    QFETCH(Action, action);
    const QString svg = m_files.picture("ground", 700, 240,
                                        "<rect width='700' height='240' fill='#234'/><circle "
                                        "cx='350' cy='120' r='99' fill='#852'/>");
    GroundFixture plain(svg);
    GroundFixture known(svg);
    known.graph->setGround(known.label);
    known.editor.repaint();
    QCOMPARE(known.shown(), plain.shown());
    for (GroundFixture* f : {&plain, &known}) {
        QApplication::processEvents();
        action(*f);
    }
    QCOMPARE(known.shown(), plain.shown());
    for (const int gain : {90, -120}) {
        for (GroundFixture* f : {&plain, &known})
            f->set(gainName(2), gain);
        QCOMPARE(known.shown(), plain.shown());
        QCOMPARE(known.editor.grab().toImage(), plain.editor.grab().toImage());
    }
}

// The label goes on without the graph, and the graph without the label.
void tst_GraphGround::withoutLabel()
{
    const QString svg = m_files.plain("ground", 700, 240, "#234");
    GroundFixture other(svg);
    GroundFixture f(svg);
    f.graph->setGround(f.label);
    f.graph->setGround(nullptr);
    QCOMPARE(f.shown(), other.shown());
    f.graph->setGround(f.label);
    f.editor.repaint();
    for (GroundFixture* each : {&f, &other}) {
        delete each->graph;
        each->graph = nullptr;
        each->editor.repaint();
    }
    QCOMPARE(f.shown(), other.shown());

    GroundFixture last(svg);
    last.graph->setGround(last.label);
    delete last.label;
    QVERIFY(!last.shown().isNull());
}

ZOLTA_TEST_MAIN(tst_GraphGround)

#include "tst_GraphGround.moc"
