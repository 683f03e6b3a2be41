// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/PullDownMenu.h"
#include "controls/PushButtonController.h"
#include "widgets/Export.h"

#include <QList>
#include <QPointer>
#include <QStringList>

namespace CommonController_MemAPI {

/// A button that chooses one of several values from a menu: text i of the list stands for the
/// minimum + i. It shows the current item's text over the layers of a push button, and writes only
/// what is chosen from the menu.
class ZOLTA_EXPORT PullDownButtonController : public PushButtonController
{
    Q_OBJECT
    /// One text a value. Setting it sets the unbound maximum to that of the last text.
    Q_PROPERTY(QStringList textList READ textList WRITE setTextList)
    /// Shown when the list is empty.
    Q_PROPERTY(QString emptyText READ emptyText WRITE setEmptyText)
    /// Shown when the current item is hidden.
    Q_PROPERTY(QString invisibleText READ invisibleText WRITE setInvisibleText)
    /// Whether a press opens the menu.
    Q_PROPERTY(bool autoPullDown READ autoPullDown WRITE setAutoPullDown)
    /// The width of the column of the items' numbers in pixels at scale 1; items are not numbered
    /// at 0 or below.
    Q_PROPERTY(int indexWidth READ indexWidth WRITE setIndexWidth)
    /// The space after the numbers in pixels at scale 1.
    Q_PROPERTY(int indexMargin READ indexMargin WRITE setIndexMargin)
    /// The number of the first item.
    Q_PROPERTY(int indexOrigin READ indexOrigin WRITE setIndexOrigin)

public:
    /// Tells the milliseconds since a menu opened.
    using MenuClock = PullDownButtonControllerPrivate::Menu::Clock;

    /// \a menuClock is handed to every menu that the button opens.
    explicit PullDownButtonController(QWidget* parent = nullptr, const MenuClock& menuClock = {});
    ~PullDownButtonController() override;

    void setMemAPIValue(IMemAPI* memAPI, unsigned short parameter, unsigned short ch,
                        unsigned short index) override;

    QStringList textList() const { return m_textList; }
    void setTextList(const QStringList& texts);
    QString emptyText() const { return m_emptyText; }
    void setEmptyText(const QString& text);
    QString invisibleText() const { return m_invisibleText; }
    void setInvisibleText(const QString& text);
    bool autoPullDown() const { return m_autoPullDown; }
    void setAutoPullDown(bool on) { m_autoPullDown = on; }
    int indexWidth() const { return m_indexWidth; }
    void setIndexWidth(int width) { m_indexWidth = width; }
    int indexMargin() const { return m_indexMargin; }
    void setIndexMargin(int margin) { m_indexMargin = margin; }
    int indexOrigin() const { return m_indexOrigin; }
    void setIndexOrigin(int origin) { m_indexOrigin = origin; }

    /// Which items the menu offers; items beyond the list's end are visible.
    void setVisibleList(const QList<bool>& visible);

    /// What the button shows: the current item's text, or what stands for it; empty where the value
    /// has no text.
    QString currentText() const;

    /// Opens the menu below the button, at its left, and comes back when it has closed and the
    /// chosen value is written. Does nothing on a disabled button, with no visible item, or while
    /// the menu is open. The button may be gone afterwards.
    ///
    /// The menu closes, and nothing is chosen, when the button is disabled, hidden, bound elsewhere
    /// or destroyed meanwhile, or when its items change.
    void openPullDown();
    /// Whether the menu is open.
    bool isOpen() const;

    using PushButtonController::valueChanged;

Q_SIGNALS:
    /// An item was chosen.
    void selected();
    /// The choice changed the value; comes before selected().
    void changed();

protected:
    void valueChanged() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    /// Nothing: a pull-down button does not write on its own.
    void writeState(bool on) override;
    QString shownText() const override;

private:
    void buttonPress() override;

    qint64 currentIndex() const;
    bool isItemVisible(qsizetype index) const;
    bool hasVisibleItem() const;
    QString itemText(qsizetype index) const;
    void fill(PullDownButtonControllerPrivate::Menu& menu);
    void closePullDown();
    void choose(qsizetype index);

    MenuClock m_menuClock;
    QStringList m_textList;
    QString m_emptyText;
    QString m_invisibleText;
    bool m_autoPullDown = true;
    int m_indexWidth = 0;
    int m_indexMargin = 0;
    int m_indexOrigin = 1;
    QList<bool> m_visibleList;
    QPointer<PullDownButtonControllerPrivate::Menu> m_menu;
    QList<QAction*> m_actions;
};

} // namespace CommonController_MemAPI
