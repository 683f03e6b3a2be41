// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class AnalyzerStore;
class AnalyzerView;
class MixerModel;

/// An analyzer with the bar that sets it.
class AnalyzerPanel : public QWidget
{
    Q_OBJECT

public:
    /// \a mixerModel and \a store must outlive it.
    AnalyzerPanel(MixerModel& mixerModel, AnalyzerStore& store, int channel,
                  QWidget* parent = nullptr);

    AnalyzerView* view() const { return m_view; }

private:
    AnalyzerView* m_view;
};
