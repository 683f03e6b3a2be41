// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/ParameterListView.h"

#include "host/window/HostTheme.h"
#include "host/window/ParameterListModel.h"

#include <QEvent>
#include <QHeaderView>

namespace {

constexpr int smallestWidth = 260;
constexpr int wholeWidth = 460;
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
    setHorizontalScrollMode(ScrollPerPixel);
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
    return {wholeWidth,
            horizontalHeader()->sizeHint().height() + m_parameters->rowCount() * lineHeight};
}

void ParameterListView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_parameters->retranslate();
    fitColumns();
}

void ParameterListView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    fitColumns();
}

// The values take the room that is left. Without any the list scrolls and they stay whole.
void ParameterListView::fitColumns()
{
    constexpr int value = ParameterListModel::ValueColumn;
    QHeaderView* header = horizontalHeader();
    const int others = header->length() - columnWidth(value);
    const int needed = qMax(sizeHintForColumn(value), header->sectionSizeHint(value));
    const bool whole = others + needed <= viewport()->width();
    header->setSectionResizeMode(value,
                                 whole ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
}

#include "moc_ParameterListView.cpp"
