// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPoint>

class QWidget;

/// Which band of an editor the user has to do with: that of the control or the handle that was
/// pressed, turned by the wheel, or reached by the keyboard last. The low band at first.
///
/// The editor's classes belong to the library: its controls are known by their names, which the
/// host's contract fixes, and the curve's handles as the children of its accessible interface.
class BandFocus : public QObject
{
    Q_OBJECT

public:
    /// For the editor on \a stage; watches the application's events.
    BandFocus(const QWidget* stage, QObject* parent);

    /// 0 (low) to 5 (high).
    int band() const { return m_band; }
    void setBand(int band);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void changed(int band);

private:
    void follow(const QWidget* part, const QPoint& place);
    void followHandle();

    const QWidget* m_stage;
    int m_band = 0;
};
