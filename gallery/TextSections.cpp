// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/TextEditController.h"
#include "gallery/GalleryControls.h"
#include "gallery/GallerySection.h"
#include "gallery/GallerySections.h"

using namespace Gallery;
using CommonController_MemAPI::TextEditController;

namespace {

constexpr QSize fieldSize(72, 18);
constexpr double fontPixels = 12.0;

TextEditController* field(double scale = 1.0)
{
    auto* edit = new TextEditController;
    edit->setTextTrim(true);
    edit->setAlignment(Qt::AlignCenter);
    edit->setFont(font(fontPixels * scale));
    edit->setPalette(textPalette());
    return zoomed(edit, fieldSize, scale);
}

TextEditController* frequency(HostMemory& memory, int channel, double position, double scale = 1.0)
{
    TextEditController* edit = field(scale);
    edit->setPostfix(QStringLiteral("Hz"));
    edit->setExpandUnit(true);
    bindAt(*edit, memory, "fx_rackfx_prm_6", channel, position);
    return edit;
}

TextEditController* aligned(Qt::Alignment alignment)
{
    TextEditController* edit = field();
    edit->setAlignment(alignment | Qt::AlignVCenter);
    edit->setTextLeftMargin(6);
    edit->setTextRightMargin(6);
    edit->setAutoFillBackground(true);
    QPalette palette = textPalette();
    palette.setColor(QPalette::Window, 0xFF16191C);
    edit->setPalette(palette);
    edit->setString(QStringLiteral("1234"));
    return edit;
}

void addBoundFields(GallerySection& section, HostMemory& memory)
{
    section.addRow(QStringLiteral("Bound, with a unit"));
    for (std::size_t i = 0; i < positions.size(); ++i)
        section.add(frequency(memory, static_cast<int>(i), positions[i]), percent(positions[i]));
    section.add(disabled(frequency(memory, 5, 0.3)), QStringLiteral("disabled"));
    for (const double scale : scales)
        section.add(frequency(memory, 6, 0.6, scale), times(scale));
}

void addOtherFields(GallerySection& section, HostMemory& memory)
{
    section.addRow(QStringLiteral("Unbound; editing"));
    section.add(aligned(Qt::AlignLeft), QStringLiteral("left"));
    section.add(aligned(Qt::AlignHCenter), QStringLiteral("centre"));
    section.add(aligned(Qt::AlignRight), QStringLiteral("right"));
    section.addFocused(frequency(memory, 7, 0.4));
    TextEditController* editing = frequency(memory, 7, 0.4);
    section.addStaged(
        editing, QStringLiteral("edit: double click"), [editing] { editing->edit(); },
        [editing] {
            editing->editCancel();
            editing->clearFocus();
        });
}

} // namespace

GallerySection* makeTextSection(HostMemory& memory, QWidget* parent)
{
    auto* section = new GallerySection(QStringLiteral("TextEditController"), parent);
    addBoundFields(*section, memory);
    addOtherFields(*section, memory);
    return section;
}
