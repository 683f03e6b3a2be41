// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/HostMemory.h"

#include <QImage>
#include <QWidget>

#include <vector>

class GallerySection;

/// The whole control library on one sheet: a section for each control, with every state it can be
/// in. Controls are bound to the mixer's parameter memory (the channels hold different values,
/// which the sheet writes) or work alone. On a screen all of them can be operated.
class GallerySheet : public QWidget
{
    Q_OBJECT

public:
    /// \a memory must outlive the sheet.
    explicit GallerySheet(HostMemory& memory, QWidget* parent = nullptr);

    const std::vector<GallerySection*>& sections() const { return m_sections; }
    /// The section of that title, or null.
    GallerySection* section(const QString& title) const;

    /// The sheet as a screen of the device pixel ratio \a ratio shows it, with every control that
    /// is to have the keyboard focus or an open editor in that state. Shows the sheet's window off
    /// the screen if it is not visible.
    QImage picture(double ratio = 1.0);
    /// The same of one section.
    QImage picture(GallerySection& section, double ratio = 1.0);

private:
    void settle();

    std::vector<GallerySection*> m_sections;
};
