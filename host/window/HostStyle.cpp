// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/HostStyle.h"

#include "host/window/HostGrounds.h"
#include "host/window/MixerStyle.h"

#include <QIcon>
#include <QPainter>
#include <QPolygonF>
#include <QStyleFactory>
#include <QStyleOption>
#include <QToolBar>

#include <algorithm>
#include <iterator>

namespace {

constexpr double boxSize = 12.0;
constexpr double boxRadius = 2.0;
constexpr double choiceRadius = 3.0; // as of the host sheet's buttons, and their edge
constexpr QColor edge(0x10, 0x12, 0x14);

struct Symbol
{
    QStyle::StandardPixmap symbol;
    const char* picture;
};
constexpr Symbol symbols[] = {
    {QStyle::SP_MessageBoxWarning, "notice_warning"},
    {QStyle::SP_MessageBoxCritical, "notice_error"},
    {QStyle::SP_MessageBoxQuestion, "notice_question"},
    {QStyle::SP_MessageBoxInformation, "notice_information"},
    {QStyle::SP_ArrowBack, "symbol_back"},
    {QStyle::SP_ArrowForward, "symbol_forward"},
    {QStyle::SP_FileDialogToParent, "symbol_up"},
    {QStyle::SP_FileDialogNewFolder, "symbol_new_folder"},
    {QStyle::SP_FileDialogListView, "symbol_list"},
    {QStyle::SP_FileDialogDetailedView, "symbol_details"},
    {QStyle::SP_DirIcon, "symbol_folder"},
    {QStyle::SP_DirClosedIcon, "symbol_folder"},
    {QStyle::SP_DirOpenIcon, "symbol_folder"},
    {QStyle::SP_DirHomeIcon, "symbol_home"},
    {QStyle::SP_FileIcon, "symbol_file"},
    {QStyle::SP_ComputerIcon, "symbol_computer"},
    {QStyle::SP_DriveHDIcon, "symbol_computer"},
};

void drawFrame(QPainter& painter, const QRectF& rect, const QColor& line, const QBrush& inside,
               double radius = boxRadius)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(line);
    painter.setBrush(inside);
    painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.restore();
}

void drawBox(QPainter& painter, const QStyleOption& option)
{
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool on = option.state & QStyle::State_On;
    QRectF box(0, 0, boxSize, boxSize);
    box.moveCenter(QRectF(option.rect).center());
    box.moveTopLeft(box.topLeft().toPoint());
    drawFrame(painter, box,
              !enabled ? MixerStyle::disabledLetters
              : on     ? MixerStyle::accent
                       : MixerStyle::dimLetters,
              on && enabled ? HostGrounds::chosen : HostGrounds::base);
    if (!on)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(enabled ? QColor(Qt::white) : MixerStyle::disabledLetters, 1.6,
                        Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF mark[] = {{3.2, 6.3}, {5.4, 8.7}, {9.0, 3.8}};
    const QPolygonF line(QList<QPointF>(std::begin(mark), std::end(mark)));
    painter.drawPolyline(line.translated(box.topLeft()));
    painter.restore();
}

} // namespace

HostStyle::HostStyle()
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{}

int HostStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* data) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

QIcon HostStyle::standardIcon(StandardPixmap symbol, const QStyleOption* option,
                              const QWidget* widget) const
{
    const auto* found = std::ranges::find(symbols, symbol, &Symbol::symbol);
    return found == std::end(symbols) ? QProxyStyle::standardIcon(symbol, option, widget)
                                      : QIcon(MixerStyle::image(QLatin1String(found->picture)));
}

void HostStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const
{
    switch (element) {
    case PE_FrameFocusRect:
        return drawFrame(*painter, option->rect, MixerStyle::accent, Qt::NoBrush);
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        return drawBox(*painter, *option);
    default:
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void HostStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const
{
    if (control != CC_ComboBox || !widget || !qobject_cast<QToolBar*>(widget->parentWidget()))
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    const bool enabled = option->state & State_Enabled;
    const bool hovered = enabled && option->state & State_MouseOver;
    drawFrame(*painter, option->rect, option->state & State_HasFocus ? MixerStyle::accent : edge,
              hovered ? HostGrounds::hovered : HostGrounds::button, choiceRadius);
    QStyleOption arrow;
    arrow.state = option->state;
    arrow.palette = option->palette;
    arrow.rect = proxy()->subControlRect(control, option, SC_ComboBoxArrow, widget);
    proxy()->drawPrimitive(PE_IndicatorArrowDown, &arrow, painter, widget);
}

void HostStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const
{
    const auto* choice = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (element != CE_ComboBoxLabel || !choice)
        return QProxyStyle::drawControl(element, option, painter, widget);
    QStyleOptionComboBox cut = *choice;
    const QRect room = proxy()->subControlRect(CC_ComboBox, choice, SC_ComboBoxEditField, widget);
    cut.currentText =
        choice->fontMetrics.elidedText(cut.currentText, Qt::ElideRight, room.width() - 2);
    QProxyStyle::drawControl(element, &cut, painter, widget);
}

#include "moc_HostStyle.cpp"
