// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/GallerySection.h"

#include "host/window/MixerStyle.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

namespace {

constexpr int titlePixels = 17;
constexpr int captionPixels = 11;
constexpr int nameWidth = 120;
constexpr int margin = 16;

QLabel* label(const QString& text, int pixels, const QString& color, QWidget* parent)
{
    auto* result = new QLabel(text, parent);
    result->setStyleSheet(QStringLiteral("font-size: %1px; color: %2;").arg(pixels).arg(color));
    return result;
}

QLabel* captionLabel(const QString& text, QWidget* parent)
{
    auto* result = label(text, captionPixels, QStringLiteral("#8a9199"), parent);
    result->setAlignment(Qt::AlignCenter);
    return result;
}

} // namespace

GallerySection::GallerySection(const QString& title, QWidget* parent)
    : QFrame(parent)
    , m_title(label(title, titlePixels, QStringLiteral("#ffffff"), this))
    , m_rows(new QVBoxLayout(this))
{
    setObjectName(title);
    setStyleSheet(QStringLiteral("GallerySection { background: #22262b; border-radius: 6px; }"));
    m_rows->setContentsMargins(margin, margin * 3 / 4, margin, margin);
    m_rows->setSpacing(margin);
    m_rows->addWidget(m_title);
    MixerStyle::followFocus(this);
}

QString GallerySection::title() const { return m_title->text(); }

void GallerySection::addRow(const QString& name)
{
    m_row = new QHBoxLayout;
    m_row->setSpacing(margin);
    auto* nameLabel = label(name, captionPixels + 1, QStringLiteral("#d7dce1"), this);
    nameLabel->setFixedWidth(nameWidth);
    nameLabel->setWordWrap(true);
    m_row->addWidget(nameLabel);
    m_row->addStretch();
    m_rows->addLayout(m_row);
}

void GallerySection::add(QWidget* control, const QString& caption) { makeCell(control, caption); }

void GallerySection::addStaged(QWidget* control, const QString& caption,
                               const std::function<void()>& enter,
                               const std::function<void()>& leave)
{
    QWidget* cell = makeCell(control, caption);
    m_stages.push_back({cell, enter, leave});
}

void GallerySection::addFocused(QWidget* control)
{
    addStaged(
        control, QStringLiteral("keyboard focus"),
        [control] { control->setFocus(Qt::OtherFocusReason); },
        [control] { control->clearFocus(); });
}

void GallerySection::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    MixerStyle::drawFocus(painter, *this);
}

QWidget* GallerySection::makeCell(QWidget* control, const QString& caption)
{
    auto* cell = new QWidget(this);
    auto* layout = new QVBoxLayout(cell);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(margin / 4);
    layout->addStretch();
    layout->addWidget(control, 0, Qt::AlignHCenter);
    layout->addWidget(captionLabel(caption, cell), 0, Qt::AlignHCenter);
    control->setFixedSize(control->size());
    if (control->focusPolicy() == Qt::ClickFocus)
        control->setFocusPolicy(Qt::StrongFocus);
    m_row->insertWidget(m_row->count() - 1, cell);
    m_controls.push_back(control);
    return cell;
}

#include "moc_GallerySection.cpp"
