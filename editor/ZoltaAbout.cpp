// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/ZoltaAbout.h"

#include "ui_ZoltaAbout.h"

#include <QMouseEvent>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr int TickMilliseconds = 30;
constexpr double Step = 0.1;
constexpr double PanelAlpha = 224.0;
constexpr double TextAlpha = 255.0;

void setAlpha(QWidget* widget, QPalette::ColorRole role, Qt::GlobalColor colour, double alpha)
{
    QColor translucent(colour);
    translucent.setAlpha(static_cast<int>(std::lround(alpha)));
    QPalette palette = widget->palette();
    palette.setColor(role, translucent);
    widget->setPalette(palette);
}

} // namespace

ZoltaAbout::ZoltaAbout(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui_ZoltaAbout>())
{
    m_ui->setupUi(this);
    m_ui->m_pVersionLabel->setText(QStringLiteral("Zolta Ver 2.2.0"));
    m_ui->m_pCopyrightLabel->setText(QStringLiteral("Copyright (C) Zolta developers"));
    hide();
}

ZoltaAbout::~ZoltaAbout() = default;

void ZoltaAbout::setOpacity(double opacity)
{
    setAlpha(this, QPalette::Window, Qt::black, PanelAlpha * opacity);
    m_ui->m_pQuentaLogo->setOpacity(opacity);
    m_ui->m_pZoltaLogo->setOpacity(opacity);
    setAlpha(m_ui->m_pVersionLabel, QPalette::WindowText, Qt::white, TextAlpha * opacity);
    setAlpha(m_ui->m_pCopyrightLabel, QPalette::WindowText, Qt::white, TextAlpha * opacity);
}

void ZoltaAbout::open()
{
    if (m_running) {
        if (!m_opening)
            reverse();
        return;
    }
    setOpacity(Step);
    show();
    startFade(true);
}

void ZoltaAbout::close()
{
    if (m_running) {
        if (m_opening)
            reverse();
        return;
    }
    // A hidden panel is not shown first, deliberately: its fade stays invisible.
    setOpacity(0.9);
    startFade(false);
}

void ZoltaAbout::mousePressEvent(QMouseEvent* event)
{
    close();
    event->accept();
}

void ZoltaAbout::timerEvent(QTimerEvent* event)
{
    if (m_timerId == 0 || event->timerId() != m_timerId)
        return;
    // Ten steps of 0.1 add up to a little less than 1: the tenth tick from 0.1 ends the fade.
    m_progress += Step;
    if (m_progress >= 1.0) {
        m_running = false;
        killTimer(m_timerId);
        m_timerId = 0;
    }
    showProgress();
}

void ZoltaAbout::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_ui->retranslateUi(this);
}

void ZoltaAbout::startFade(bool opening)
{
    m_running = true;
    m_opening = opening;
    m_timerId = startTimer(TickMilliseconds, Qt::CoarseTimer);
    m_progress = Step;
}

void ZoltaAbout::reverse()
{
    m_opening = !m_opening;
    m_progress = 1.0 - m_progress;
}

void ZoltaAbout::showProgress()
{
    if (m_opening) {
        setOpacity(std::min(m_progress, 1.0));
    } else if (m_progress < 1.0) {
        setOpacity(1.0 - m_progress);
    } else {
        setOpacity(0.0);
        hide();
    }
}

#include "moc_ZoltaAbout.cpp"
