// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/AbstractController.h"
#include "widgets/Export.h"

#include <QGroupBox>
#include <QList>
#include <QTimer>

class QAbstractButton;

namespace CommonController_MemAPI {

/// An invisible container whose child buttons choose one of several values: the button that was
/// added as the i-th stands for the minimum + i.
///
/// A child joins the group as soon as control returns to the event loop, when it is whole; a button
/// becomes auto-exclusive then. The unbound maximum follows the number of buttons and is one more
/// than the last button's index, deliberately: the values beyond check no button.
class ZOLTA_EXPORT ButtonGroupController : public QGroupBox, public AbstractController
{
    Q_OBJECT
    /// Whether a Control-click on a button resets the parameter to its default.
    Q_PROPERTY(bool enableDefaultSet READ enableDefaultSet WRITE setEnableDefaultSet)

public:
    /// A new value reaches the buttons after so many milliseconds, with all those that came since.
    static constexpr int UpdateDelay = 10;

    explicit ButtonGroupController(QWidget* parent = nullptr);
    ~ButtonGroupController() override;

    void setScale(double scale) override;
    void setMemAPIValue(IMemAPI* memAPI, unsigned short parameter, unsigned short ch,
                        unsigned short index) override;

    bool enableDefaultSet() const { return m_enableDefaultSet; }
    void setEnableDefaultSet(bool on) { m_enableDefaultSet = on; }

    /// The member buttons, in the order they were added.
    QList<QAbstractButton*> buttons() const { return m_buttons; }

Q_SIGNALS:
    /// The control was refreshed and has \a value.
    void valueChanged(int value);
    /// A Control-click changed the value of \a pController, this group.
    void modifiersChange(AbstractController* pController, Qt::KeyboardModifiers modifiers);
    /// A child was added that may still be under construction.
    void childAdded(QObject* pObject);

protected:
    /// Schedules updateChild().
    void valueChanged() override;

private Q_SLOTS:
    void valueChangedRequest() override;
    void addChild(QObject* pObject);
    void updateChild();
    void updateButton(bool checked);

protected:
    void childEvent(QChildEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void removeChild(QObject* child);
    void registerChildren();
    void updateMaximum();
    qsizetype checkedIndex() const;
    bool isReset(QObject* watched, const QEvent& event) const;
    void reset(Qt::KeyboardModifiers modifiers);

    bool m_enableDefaultSet = false;
    QList<QAbstractButton*> m_buttons;
    QList<const QObject*> m_pending; // added and not yet registered; not looked into
    QTimer m_updateTimer;
};

} // namespace CommonController_MemAPI
