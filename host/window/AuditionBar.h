// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/window/Retranslator.h"

#include <QObject>
#include <QTimer>

class BandFocus;
class BandListen;
class MixerModel;
class QComboBox;
class QMenu;
class QToolBar;
class QToolButton;
class QWidget;

/// What an editor's window has to compare by ear: the channel's A and B settings; a switch that
/// lets the sound past the equalizer, as loud as through it; and a button to hold, with its band,
/// that lets one hear what a band changes. The last two end with the window.
class AuditionBar : public QObject
{
    Q_OBJECT

public:
    /// For \a channel, whose editor stands on \a stage. \a window has the keys and owns this.
    AuditionBar(MixerModel& mixerModel, int channel, const QWidget* stage, QWidget* window);
    ~AuditionBar() override;

    /// Adds all of it at the end of \a bar.
    void addTo(QToolBar* bar);
    /// Adds the switch with its key.
    void fillMenu(QMenu* menu, Retranslator& texts);
    void retranslate();

Q_SIGNALS:
    /// A sentence on what is heard now; empty for the equalized sound.
    void said(const QString& sentence);

private:
    void buildCompare();
    QAction* buildCompareChoice(const QString& letter, bool isB);
    void showCompare();
    void buildBypass();
    void buildListen();
    void show();
    void showBypass();
    void sayListening();
    QString bypassText(double gain) const;

    MixerModel& m_mixerModel;
    int m_channel;
    BandFocus* m_focus;
    BandListen* m_listen;
    QWidget* m_window;
    Retranslator m_texts;
    QAction* m_chooseA = nullptr;
    QAction* m_chooseB = nullptr;
    QAction* m_bypassItem = nullptr; // in the menu
    QToolButton* m_bypass = nullptr;
    QToolButton* m_hold = nullptr;
    QComboBox* m_bands = nullptr;
    QTimer m_refresh; // of the gain
};
