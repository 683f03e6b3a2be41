// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/ParameterListView.h"

#include "host/window/HostTheme.h"
#include "host/window/ParameterDelegate.h"
#include "host/window/ParameterListModel.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>

namespace {

constexpr int smallestListWidth = 260;
constexpr int wholeWidth = 480;
constexpr int lineMargin = 1;
constexpr int markWidth = 6;

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
    setTabKeyNavigation(false);
    setItemDelegate(new ParameterDelegate(this));
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setSelectionMode(SingleSelection);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    fitRows();
    horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    horizontalHeader()->setSectionResizeMode(ParameterListModel::ValueColumn, QHeaderView::Stretch);
    setMinimumWidth(smallestListWidth);
}

QSize ParameterListView::sizeHint() const
{
    return {wholeWidth, horizontalHeader()->sizeHint().height() + verticalHeader()->length()};
}

void ParameterListView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitRows();
    if (event->type() != QEvent::LanguageChange)
        return;
    m_parameters->retranslate();
    fitColumns();
}

void ParameterListView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && state() != EditingState)
        focusNextPrevChild(true);
    else
        QTableView::keyPressEvent(event);
}

void ParameterListView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    fitColumns();
}

void ParameterListView::fitRows()
{
    const int height = fontMetrics().height() + lineMargin;
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
    setIconSize(QSize(markWidth, fontMetrics().ascent()));
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
