// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PullDownMenu.h"

#include <QFont>
#include <QMouseEvent>
#include <QVariant>

namespace CommonController_MemAPI::PullDownButtonControllerPrivate {

Menu::Menu(QWidget* owner, const Clock& clock)
    : QMenu(owner)
    , m_owner(owner)
    , m_clock(clock)
{
    QFont ownFont = owner->font();
    ownFont.setResolveMask(QFont::AllPropertiesResolved);
    setFont(ownFont);
    setStyle(owner->style());
    m_timer.start();
}

QWidget* Menu::owner() const { return m_owner; }

int Menu::indexWidth() const { return ownersProperty("indexWidth"); }

int Menu::indexMargin() const { return ownersProperty("indexMargin"); }

void Menu::mouseReleaseEvent(QMouseEvent* event)
{
    const qint64 elapsed = m_clock ? m_clock() : m_timer.elapsed();
    if (elapsed < OpeningClick)
        QWidget::mouseReleaseEvent(event);
    else
        QMenu::mouseReleaseEvent(event);
}

int Menu::ownersProperty(const char* name) const
{
    return m_owner ? m_owner->property(name).toInt() : 0;
}

} // namespace CommonController_MemAPI::PullDownButtonControllerPrivate

#include "moc_PullDownMenu.cpp"
