// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/GalleryControls.h"
#include "gallery/GallerySection.h"
#include "gallery/GallerySections.h"
#include "widgets/ChannelNameEdit.h"
#include "widgets/SvgLabel.h"

#include <QCoreApplication>
#include <QMouseEvent>

using namespace Gallery;

namespace {

constexpr QSize labelSize(20, 20);
constexpr QSize nameSize(110, 24);

SvgLabel* lamp(double scale = 1.0)
{
    auto* label = new SvgLabel(nullptr);
    label->setSvg(artwork("led_drive_on.svg"));
    label->setDisableSvg(artwork("led_drive_off.svg"));
    label->resize((QSizeF(labelSize) * scale).toSize());
    return label;
}

SvgLabel* stretched()
{
    SvgLabel* label = lamp();
    label->setSvg(image("knob.svg"));
    label->resize(80, 40);
    return label;
}

SvgLabel* translucent()
{
    SvgLabel* label = lamp();
    label->setOpacity(0.5);
    return label;
}

ChannelNameEdit* nameEdit(const QString& name)
{
    auto* edit = new ChannelNameEdit(nullptr);
    edit->setFont(font());
    edit->setPalette(textPalette());
    edit->setFrame(false);
    edit->setElideMargin(12);
    edit->setDefaultName(QStringLiteral("CH 1"));
    edit->resize(nameSize);
    edit->setChannelName(name);
    return edit;
}

void doubleClick(QWidget& widget)
{
    const QPointF middle = QRectF(widget.rect()).center();
    QMouseEvent event(QEvent::MouseButtonDblClick, middle, widget.mapToGlobal(middle),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

GallerySection* makeSvgLabelSection(QWidget* parent)
{
    auto* section = new GallerySection(QStringLiteral("SvgLabel"), parent);
    section->addRow(QStringLiteral("States; sizes"));
    section->add(lamp(), QStringLiteral("enabled"));
    section->add(disabled(lamp()), QStringLiteral("disabled"));
    section->add(translucent(), QStringLiteral("opacity 0.5"));
    section->add(stretched(), QStringLiteral("stretched"));
    for (const double scale : scales)
        section->add(lamp(scale), times(scale));
    return section;
}

GallerySection* makeChannelNameSection(QWidget* parent)
{
    auto* section = new GallerySection(QStringLiteral("ChannelNameEdit"), parent);
    section->addRow(QStringLiteral("States"));
    section->add(nameEdit(QStringLiteral("Snare")), QStringLiteral("short"));
    section->add(nameEdit(QStringLiteral("Overheads left and right")), QStringLiteral("elided"));
    section->add(nameEdit(QString()), QStringLiteral("default name"));
    section->add(disabled(nameEdit(QStringLiteral("Snare"))), QStringLiteral("disabled"));
    ChannelNameEdit* editing = nameEdit(QStringLiteral("Overheads"));
    section->addStaged(
        editing, QStringLiteral("edit: double click"), [editing] { doubleClick(*editing); },
        [editing] { editing->clearFocus(); });
    return section;
}
