// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace CommonController_MemAPI {
class FaderController;
}

/// A fader of levels with its groove and its scale in dB, as high as there is room for.
class LevelFader : public QWidget
{
    Q_OBJECT

public:
    static constexpr int faderWidth = 58;

    explicit LevelFader(QWidget* parent = nullptr);

    CommonController_MemAPI::FaderController& fader() const { return *m_fader; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    double yOf(int position) const;

    CommonController_MemAPI::FaderController* m_fader;
};
