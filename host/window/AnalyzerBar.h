// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/analysis/AnalyzerSettings.h"
#include "host/window/Retranslator.h"

#include <QToolBar>

class AnalyzerStore;
class QComboBox;

/// What an analyzer can be set to: the settings that all of them share, and what is one's own.
class AnalyzerBar : public QToolBar
{
    Q_OBJECT

public:
    /// \a store must outlive it.
    explicit AnalyzerBar(AnalyzerStore& store, QWidget* parent = nullptr);

Q_SIGNALS:
    void freezeWanted(bool frozen);
    void resetWanted();

protected:
    void changeEvent(QEvent* event) override;

private:
    using Items = std::function<QStringList()>;

    void addChoices();
    void addChoice(int AnalyzerSettings::*member, int first, const Retranslator::Text& name,
                   const Items& items);
    QAction* addKey(const Retranslator::Text& text, const Retranslator::Text& tip);
    void addSwitch(bool AnalyzerSettings::*member, const Retranslator::Text& text,
                   const Retranslator::Text& tip);

    AnalyzerStore& m_store;
    Retranslator m_texts;
};
