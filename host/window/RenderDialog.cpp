// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/RenderDialog.h"

#include <QFileInfo>

namespace {

constexpr int steps = 1000;
constexpr int interval = 50; // ms

} // namespace

RenderDialog::RenderDialog(const AudioRenderer::Job& job, QWidget* parent)
    : QProgressDialog(parent)
    , m_renderer(job)
{
    setWindowTitle(tr("Render To File"));
    setLabelText(tr("Writing %1").arg(QFileInfo(job.output).fileName()));
    setCancelButtonText(tr("Cancel"));
    setRange(0, steps);
    setAutoReset(false);
    setAutoClose(false);
    setMinimumDuration(0);
    setWindowModality(Qt::WindowModal);
    connect(this, &QProgressDialog::canceled, this, [this] { m_cancelled = true; });
    connect(&m_watch, &QTimer::timeout, this, &RenderDialog::watch);
    m_watch.start(interval);
    m_thread = std::thread([this] {
        m_status = m_renderer.run([this](double done) {
            m_done = done;
            return !m_cancelled;
        });
        m_finished = true;
    });
}

RenderDialog::~RenderDialog()
{
    m_cancelled = true;
    if (m_thread.joinable())
        m_thread.join();
}

void RenderDialog::watch()
{
    if (m_finished)
        return finish();
    if (m_done < 0.0)
        setRange(0, 0);
    else if (!m_cancelled)
        setValue(static_cast<int>(m_done * steps));
}

void RenderDialog::finish()
{
    m_watch.stop();
    m_thread.join();
    hide();
    deleteLater();
    if (!m_status.isOk())
        Q_EMIT failed(m_status.error());
    else if (!m_renderer.wasEnded())
        Q_EMIT rendered(m_renderer.report(),
                        m_renderer.clipped() == 0
                            ? QString()
                            : tr("Clipped samples: %1. A lower output level avoids clipping.")
                                  .arg(m_renderer.clipped()));
}

#include "moc_RenderDialog.cpp"
