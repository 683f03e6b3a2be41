// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioRenderer.h"

#include <QProgressDialog>
#include <QTimer>

#include <atomic>
#include <thread>

/// Renders in a thread of its own, shows how far that is, and lets the user end it. Deletes itself
/// when it is done.
class RenderDialog : public QProgressDialog
{
    Q_OBJECT

public:
    RenderDialog(const AudioRenderer::Job& job, QWidget* parent);
    /// Ends the work, which leaves the output as it was.
    ~RenderDialog() override;

Q_SIGNALS:
    /// What was written, as a sentence; what the user may want to know of it besides, or nothing.
    void rendered(const QString& report, const QString& warning);
    void failed(const QString& sentence);

private:
    void watch();
    void finish();

    AudioRenderer m_renderer;
    Status m_status;
    std::atomic<double> m_done = 0.0;
    std::atomic<bool> m_cancelled = false;
    std::atomic<bool> m_finished = false;
    QTimer m_watch;
    std::thread m_thread;
};
