// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/AnalyzerBar.h"

#include "host/window/AnalyzerStore.h"
#include "host/window/HostTheme.h"
#include "host/window/ToolBarExtension.h"

#include <QComboBox>
#include <QEvent>

namespace {

QStringList sizes()
{
    QStringList texts;
    for (int order = AnalyzerSettings::smallestOrder; order <= AnalyzerSettings::largestOrder;
         ++order)
        texts << AnalyzerBar::tr("%1 samples").arg(1 << order);
    return texts;
}

QStringList smoothings()
{
    QStringList texts;
    for (const int parts : AnalyzerSettings::smoothings)
        texts << (parts == 0   ? AnalyzerBar::tr("No smoothing")
                  : parts == 1 ? AnalyzerBar::tr("1 octave")
                               : AnalyzerBar::tr("1/%1 octave").arg(parts));
    return texts;
}

QStringList tilts()
{
    QStringList texts;
    for (const double tilt : AnalyzerSettings::tilts)
        texts << (tilt == 0.0 ? AnalyzerBar::tr("No tilt")
                              : AnalyzerBar::tr("%1 dB/octave").arg(QString::number(tilt)));
    return texts;
}

} // namespace

AnalyzerBar::AnalyzerBar(AnalyzerStore& store, QWidget* parent)
    : QToolBar(parent)
    , m_store(store)
{
    m_texts.add([this] { setAccessibleName(tr("Analyzer")); });
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    applyHostSheet(this);
    addChoices();
    addSwitch(
        &AnalyzerSettings::peaks, [] { return tr("Peak hold"); },
        [] { return tr("Keep the highest levels in view"); });
    addSwitch(
        &AnalyzerSettings::curve, [] { return tr("Curve"); },
        [] { return tr("Show the equalizer's curve, drawn and measured"); });
    QAction* freeze =
        addKey([] { return tr("Freeze"); }, [] { return tr("Keep the picture as it is"); });
    freeze->setCheckable(true);
    connect(freeze, &QAction::toggled, this, &AnalyzerBar::freezeWanted);
    const QAction* reset =
        addKey([] { return tr("Reset"); }, [] { return tr("Begin averages and peaks anew"); });
    connect(reset, &QAction::triggered, this, &AnalyzerBar::resetWanted);
    completeToolBar(*this, m_texts);
}

void AnalyzerBar::changeEvent(QEvent* event)
{
    QToolBar::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_texts.retranslate();
}

void AnalyzerBar::addChoices()
{
    addChoice(
        &AnalyzerSettings::order, AnalyzerSettings::smallestOrder,
        [] { return tr("Samples of a transform"); }, sizes);
    addChoice(
        &AnalyzerSettings::window, 0, [] { return tr("Window"); },
        [] {
            return QStringList{tr("Hann"), tr("Blackman-Harris"), tr("Flat top")};
        });
    addChoice(
        &AnalyzerSettings::smoothing, 0, [] { return tr("Smoothing"); }, smoothings);
    addChoice(
        &AnalyzerSettings::tilt, 0, [] { return tr("Tilt"); }, tilts);
    addChoice(
        &AnalyzerSettings::speed, 0, [] { return tr("Speed"); },
        [] {
            return QStringList{tr("Fast"), tr("Medium"), tr("Slow"), tr("Infinite")};
        });
}

void AnalyzerBar::addChoice(int AnalyzerSettings::*member, int first,
                            const Retranslator::Text& name, const Items& items)
{
    QComboBox* box = m_texts.choice(this, items);
    m_texts.add([box, name] {
        box->setAccessibleName(name());
        box->setToolTip(name());
    });
    const auto show = [this, box, member, first] {
        box->setCurrentIndex(m_store.settings().*member - first);
    };
    connect(box, &QComboBox::activated, this, [this, member, first](int index) {
        AnalyzerSettings settings = m_store.settings();
        settings.*member = first + index;
        m_store.setSettings(settings);
    });
    connect(&m_store, &AnalyzerStore::changed, box, show);
    show();
    addWidget(box);
}

QAction* AnalyzerBar::addKey(const Retranslator::Text& text, const Retranslator::Text& tip)
{
    QAction* action = addAction(QString());
    m_texts.add([action, text, tip] {
        action->setText(text());
        action->setToolTip(tip());
    });
    return action;
}

void AnalyzerBar::addSwitch(bool AnalyzerSettings::*member, const Retranslator::Text& text,
                            const Retranslator::Text& tip)
{
    QAction* action = addKey(text, tip);
    action->setCheckable(true);
    const auto show = [this, action, member] { action->setChecked(m_store.settings().*member); };
    connect(action, &QAction::triggered, this, [this, member](bool on) {
        AnalyzerSettings settings = m_store.settings();
        settings.*member = on;
        m_store.setSettings(settings);
    });
    connect(&m_store, &AnalyzerStore::changed, action, show);
    show();
}

#include "moc_AnalyzerBar.cpp"
