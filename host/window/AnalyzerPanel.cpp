// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/AnalyzerPanel.h"

#include "host/window/AnalyzerBar.h"
#include "host/window/AnalyzerStore.h"
#include "host/window/AnalyzerView.h"

#include <QVBoxLayout>

AnalyzerPanel::AnalyzerPanel(MixerModel& mixerModel, AnalyzerStore& store, int channel,
                             QWidget* parent)
    : QWidget(parent)
    , m_view(new AnalyzerView(mixerModel, channel, this))
{
    auto* bar = new AnalyzerBar(store, this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar);
    column->addWidget(m_view, 1);
    setTabOrder(bar, m_view);
    connect(bar, &AnalyzerBar::freezeWanted, m_view, &AnalyzerView::setFrozen);
    connect(bar, &AnalyzerBar::resetWanted, m_view, &AnalyzerView::reset);
    connect(&store, &AnalyzerStore::changed, m_view,
            [this, &store] { m_view->setSettings(store.settings()); });
    m_view->setSettings(store.settings());
}

#include "moc_AnalyzerPanel.cpp"
