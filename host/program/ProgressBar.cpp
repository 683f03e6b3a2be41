// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/ProgressBar.h"

#include <QString>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include <unistd.h>

namespace {

constexpr int width = 40;
constexpr std::chrono::milliseconds shortestPause{100};

// The line for a share from 0 to 1; -1 where that is not known.
QString line(double done)
{
    if (done < 0.0)
        return QStringLiteral("working ...");
    const double share = std::min(done, 1.0);
    const QString bar(static_cast<int>(std::floor(share * width)), QLatin1Char('#'));
    return QStringLiteral("[%1] %2 %")
        .arg(bar.leftJustified(width, QLatin1Char('.')))
        .arg(static_cast<int>(std::floor(share * 100.0)), 3);
}

} // namespace

ProgressBar::ProgressBar()
    : m_visible(::isatty(STDERR_FILENO) == 1)
{}

ProgressBar::~ProgressBar()
{
    if (m_shown)
        std::fputs("\r\033[K", stderr);
}

void ProgressBar::show(double done)
{
    const Clock::time_point now = Clock::now();
    if (!m_visible || (m_shown && now - *m_shown < shortestPause))
        return;
    m_shown = now;
    std::fprintf(stderr, "\r%s", line(done).toLocal8Bit().constData());
}
