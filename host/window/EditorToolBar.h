// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/window/Retranslator.h"

#include <QToolBar>

class EditorSession;
class QComboBox;
class QSpinBox;

/// What an open editor can be switched between.
class EditorToolBar : public QToolBar
{
    Q_OBJECT

public:
    /// \a session must outlive its use.
    explicit EditorToolBar(EditorSession& session, QWidget* parent = nullptr);

    void setStereo(bool stereo);
    void setScale(double scale);
    void zoomBy(int steps);
    /// Holds the sampling rate at that of the sound, which cannot be chosen then; with 0 it stays
    /// where it is and can be.
    void followRate(int hertz);
    /// Leaves users no choice of the channels.
    void fixChannel();

Q_SIGNALS:
    /// The editor has been switched between the pair and the channel alone.
    void stereoChanged();
    /// The user did so.
    void stereoChosen(bool stereo);
    void sampleRateChanged(int hertz);
    /// As EditorSettings numbers them.
    void modesChanged();
    /// The editor has its new size.
    void scaleChanged();

protected:
    void changeEvent(QEvent* event) override;

private:
    void addZoom();
    void addStereo();
    void addSampleRate();
    void chooseRate(int hertz);
    void addModes();
    void addNamed(QWidget* control, const Retranslator::Text& name);

    EditorSession& m_session;
    Retranslator m_texts;
    QSpinBox* m_zoom = nullptr;
    QComboBox* m_stereo = nullptr;
    QComboBox* m_rates = nullptr;
};
