// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/analysis/AnalyzerSettings.h"

#include <QObject>

/// The settings that the analyzers of all windows share.
class AnalyzerStore : public QObject
{
    Q_OBJECT

public:
    const AnalyzerSettings& settings() const { return m_settings; }
    void setSettings(const AnalyzerSettings& settings);

Q_SIGNALS:
    void changed();

private:
    AnalyzerSettings m_settings;
};
