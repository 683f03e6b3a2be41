// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/window/Retranslator.h"
#include "parameters/StripTable.h"

#include <QWidget>

#include <functional>

class ChannelNameEdit;
class FaderSection;
class MixerModel;

namespace CommonController_MemAPI {
class AbstractController;
class PullDownButtonController;
class PushButtonController;
} // namespace CommonController_MemAPI

/// One channel of the mixer, or a pair where the channel is the first of one: name, source, mono or
/// stereo, a picture of the equalizer, its switch and the way to its editor, mute, solo, balance,
/// fader and meters. Every control is bound to the memory; the strip holds no value of its own. Its
/// foot says when the solo of other strips silences it.
///
/// The meters show what leaves the fader: the level after the equalizer, or before it where that is
/// off, moved by the fader, and silence where the channel cannot be heard. The peaks stay for a
/// while.
class MixerStrip : public QWidget
{
    Q_OBJECT

public:
    static constexpr int stripWidth = 104;
    static constexpr int stripHeight = 590;
    static constexpr int minStripHeight = 480;
    static constexpr int margin = 12; ///< left and right
    static constexpr int innerWidth = stripWidth - 2 * margin;
    static constexpr int footHeight = 34; ///< below the faders

    /// \a mixerModel must outlive it.
    MixerStrip(MixerModel& mixerModel, int channel, QWidget* parent = nullptr);

    int channel() const { return m_channel; }
    /// Whether it stands for the channel and its partner.
    bool isPair() const;
    /// Marks the strip that the window's menus act on.
    void setSelected(bool selected);
    /// Shows a reading of the meters, laid out as HostModel says.
    void showMeters(const unsigned int* words, unsigned int count);
    /// Sets its texts again: in another language, or because the channel's name or width changed.
    void retranslate();

Q_SIGNALS:
    void editorWanted(int channel, bool stereo);
    /// The user turned to this strip.
    void selected(int channel);
    /// The user came to \a control, one of this strip's, by the keyboard.
    void walkedTo(QWidget* control);

protected:
    bool eventFilter(QObject* control, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    using Key = CommonController_MemAPI::PushButtonController;

    void buildName();
    void buildSource();
    void buildWidth();
    void buildKeys();
    void buildBalance();
    void buildFader();
    void buildMeters();
    void showName();
    void bind(CommonController_MemAPI::AbstractController* control, StripParameter parameter,
              int channel);
    Key* addKey(const QPoint& place, const QString& color);
    void name(QWidget* control, const std::function<QString(const QString&)>& text);
    void follow(int channel);
    void offerInputs();
    int levelOf(const unsigned int* words, int channel) const;
    bool isSilenced() const;
    QString footText() const;
    void drawBalance(QPainter& painter) const;

    MixerModel& m_mixerModel;
    int m_channel;
    bool m_selected = false;
    Retranslator m_texts;
    ChannelNameEdit* m_name = nullptr;
    CommonController_MemAPI::PullDownButtonController* m_source = nullptr;
    FaderSection* m_section = nullptr;
    bool m_silenced = false; // by the solo of others
    bool m_shownAsPair = false;
};
