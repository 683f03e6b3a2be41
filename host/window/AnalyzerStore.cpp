// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/AnalyzerStore.h"

void AnalyzerStore::setSettings(const AnalyzerSettings& settings)
{
    if (m_settings == settings)
        return;
    m_settings = settings;
    Q_EMIT changed();
}

#include "moc_AnalyzerStore.cpp"
