// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>

#include <functional>
#include <vector>

class QBoxLayout;
class QLabel;

/// A state that only one widget of a window can be in, or that passes: the keyboard focus, an open
/// editor. A picture brings it about, paints the widget once more, and takes it back.
struct GalleryStage
{
    QWidget* cell; ///< what is painted again
    std::function<void()> enter;
    std::function<void()> leave;
};

/// One control of the library on the gallery's sheet: rows of cells, each of them a control in one
/// state above a caption.
class GallerySection : public QFrame
{
    Q_OBJECT

public:
    GallerySection(const QString& title, QWidget* parent);

    QString title() const;
    /// Further cells go into a new row, which \a name stands before.
    void addRow(const QString& name);
    /// The section takes \a control over, whose size becomes fixed.
    void add(QWidget* control, const QString& caption);
    /// A cell whose picture is taken while \a enter holds.
    void addStaged(QWidget* control, const QString& caption, const std::function<void()>& enter,
                   const std::function<void()>& leave);
    /// A cell whose picture shows the control with the keyboard focus.
    void addFocused(QWidget* control);

    const std::vector<GalleryStage>& stages() const { return m_stages; }
    /// Every control that was added.
    const std::vector<QWidget*>& controls() const { return m_controls; }

protected:
    /// With a line around what has the focus, which Tab moves.
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeCell(QWidget* control, const QString& caption);

    QLabel* m_title;
    QBoxLayout* m_rows;
    QBoxLayout* m_row = nullptr;
    std::vector<GalleryStage> m_stages;
    std::vector<QWidget*> m_controls;
};
