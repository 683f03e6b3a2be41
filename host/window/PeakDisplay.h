// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>

/// The highest level since the last click, in dB, and a lamp that stays lit once a level was above
/// full scale. A click, or a key that presses buttons, clears both.
class PeakDisplay : public QAbstractButton
{
    Q_OBJECT

public:
    explicit PeakDisplay(QWidget* parent = nullptr);

    /// A level in tenths of a dB; 0 is full scale.
    void take(int level);
    void clear();

    int highest() const { return m_highest; }
    bool hasClipped() const { return m_highest > 0; }
    /// Sets its texts again, in another language.
    void retranslate();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_highest;
};
