// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <memory>

class Ui_ZoltaAbout;

/// A translucent panel over the editor with the logos, the version and the copyright. It is hidden
/// at first; open() fades it in, close() or a click on it fades it out, in ten steps of 30 ms. A
/// fade that is reversed continues from its current opacity.
class ZoltaAbout : public QWidget
{
    Q_OBJECT

public:
    explicit ZoltaAbout(QWidget* parent);
    ~ZoltaAbout() override;

    /// Shows everything at \a opacity, 0 to 1; the panel's own black is at most 224/255 opaque.
    void setOpacity(double opacity);

public Q_SLOTS:
    void open();
    /// Hides QWidget::close(), which would close the panel at once.
    void close();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void startFade(bool opening);
    void reverse();
    void showProgress();

    std::unique_ptr<Ui_ZoltaAbout> m_ui;
    bool m_running = false;
    bool m_opening = true; ///< the direction of this fade, or of the last one
    int m_timerId = 0;
    double m_progress = 0.0;
};
