// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/Result.h"

#include <QCoreApplication>
#include <QImage>
#include <QPointer>
#include <QString>

#include <array>
#include <memory>

class IVaskEffectEditor2;
class SettingsFile;
struct Mixer;
class QWidget;

/// What an editor is opened with and can be switched between.
struct EditorSettings
{
    int channel = 0;
    bool stereo = true;     ///< shows the pair that the channel belongs to
    double scale = 1.0;     ///< zoom, 0.5 to 4
    int sampleRate = 48000; ///< Hz
    int dialMode = 2;       ///< how knobs are dragged: 0 circular, 1 relative circular, 2 linear
    int sliderMode = 0;     ///< how faders are dragged: 0 relative, 1 jump, 2 touch, 3 ramp

    /// Takes the modes that the user chose last, and keeps them for the next editor.
    void takeModes(const SettingsFile& file);
    void keepModes(SettingsFile* file) const;
};

/// One open editor on a channel: attached to the host's services, driven, detached, deleted.
///
/// The editor is the only child of \a stage and decides the stage's size. It begins with the
/// settings map that the mixer keeps for its channel and leaves its own there at the end. Mixer and
/// stage must outlive the session.
class EditorSession
{
    Q_DECLARE_TR_FUNCTIONS(EditorSession)

public:
    /// What graphs show, in dB up and down, by the number that editors know it by.
    static constexpr std::array graphRanges = {40, 20, 16, 12, 8, 4, 2};
    static constexpr int defaultGraphRange = 3;

    /// Null if the plug-in makes no editor for the channel.
    static std::unique_ptr<EditorSession> open(Mixer& mixer, const EditorSettings& settings,
                                               QWidget* stage);
    ~EditorSession();
    EditorSession(const EditorSession&) = delete;
    EditorSession& operator=(const EditorSession&) = delete;

    const EditorSettings& settings() const { return m_settings; }
    void setStereo(bool stereo);
    void setScale(double scale);
    void setSampleRate(int hertz);
    void setDialMode(int mode);
    void setSliderMode(int mode);
    /// The range of the graph, by its index in graphRanges.
    int graphRange() const;
    void setGraphRange(int number);

    /// Loads the channel's settings from \a file through the editor's component, as one step of
    /// the mixer's history; changes nothing if the file is not sound.
    Status loadState(const QString& file);
    Status saveState(const QString& file) const;

    /// Saves the editor's settings map in the mixer now, before the end.
    void saveMap();
    /// Gives the editor the keyboard focus.
    void takeFocus();

    /// The editor alone at its scale, one point of the picture for each pixel.
    QImage picture() const;

private:
    EditorSession(Mixer& mixer, const EditorSettings& settings, QWidget* stage,
                  IVaskEffectEditor2* editor);

    int partner() const;
    void applyChannels();
    void showMeters();
    void restoreMap();
    void guideUser();

    Mixer& m_mixer;
    EditorSettings m_settings;
    QWidget* m_stage;
    QPointer<QWidget> m_guard; // null once somebody else has deleted the editor
    IVaskEffectEditor2* m_editor;
};
