// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QMenu>
#include <QPointer>

#include <functional>

namespace CommonController_MemAPI::PullDownButtonControllerPrivate {

/// The menu of one opening of a pull-down button, a window of its own. Styles draw it by its
/// owner's index column and zoom, which they get here without knowing the button's class.
class Menu : public QMenu
{
    Q_OBJECT

public:
    /// The milliseconds since the menu opened.
    using Clock = std::function<qint64()>;

    /// The release of the click that opens a menu comes within so many milliseconds of the opening.
    static constexpr qint64 OpeningClick = 100;

    /// A child of \a owner, the button, in its font and style. Without a \a clock the menu measures
    /// the time from now.
    explicit Menu(QWidget* owner, const Clock& clock = {});

    /// The button that the menu was opened by; null once that is gone.
    QWidget* owner() const;
    /// The owner's properties of these names as they are now, in pixels at scale 1; 0 without an
    /// owner.
    int indexWidth() const;
    int indexMargin() const;

protected:
    /// Lets the release of the opening click pass without picking an item.
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int ownersProperty(const char* name) const;

    QPointer<QWidget> m_owner;
    QElapsedTimer m_timer;
    Clock m_clock;
};

} // namespace CommonController_MemAPI::PullDownButtonControllerPrivate
