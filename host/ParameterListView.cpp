// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/ParameterListView.h"

#include "host/HostTheme.h"
#include "host/ParameterListModel.h"

#include <QEvent>
#include <QHeaderView>

namespace {

constexpr int smallestWidth = 460;
constexpr int lineHeight = 20;

} // namespace

ParameterListView::ParameterListView(HostMemory& memory, int channel, QWidget* parent)
    : QTableView(parent)
    , m_parameters(new ParameterListModel(memory, channel, this))
{
    connect(m_parameters, &ParameterListModel::refused, this, &ParameterListView::refused);
    applyHostSheet(this);
    setModel(m_parameters);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setIconSize(QSize(6, 14));
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setSelectionMode(SingleSelection);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(lineHeight);
    verticalHeader()->setDefaultSectionSize(lineHeight);
    horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    horizontalHeader()->setSectionResizeMode(ParameterListModel::ValueColumn, QHeaderView::Stretch);
    setMinimumWidth(smallestWidth);
}

QSize ParameterListView::sizeHint() const
{
    return {smallestWidth,
            horizontalHeader()->sizeHint().height() + m_parameters->rowCount() * lineHeight};
}

void ParameterListView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_parameters->sayAgain();
}

#include "moc_ParameterListView.cpp"
