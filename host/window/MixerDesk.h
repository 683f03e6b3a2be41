// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QWidget>

class MasterStrip;
class MixerModel;
class MixerStrip;
class QScrollArea;

/// The strips side by side, one for each channel, of which a pair shows the first one's, and the
/// master to the right of them. The strips scroll where there is no room for all of them, also to
/// the one that the user walks to by the keyboard; the master stays where it is. One strip is
/// marked.
class MixerDesk : public QWidget
{
    Q_OBJECT

public:
    /// \a mixerModel must outlive it.
    explicit MixerDesk(MixerModel& mixerModel, QWidget* parent = nullptr);

    /// By channel.
    const QList<MixerStrip*>& strips() const { return m_strips; }
    /// Adds the strips that the model's number of channels asks for, and removes the others.
    void followCount();
    /// Of a pair only the first strip is seen and marked.
    void showPairs();
    /// The channel whose strip is marked.
    int selectedChannel() const { return m_selected; }
    void select(int channel);

    /// Shows a reading of the meters, laid out as HostModel says.
    void showMeters(const unsigned int* words, unsigned int count);
    void retranslate();
    /// The size at which all strips fit, were they all mono, and what stands above them fits, too.
    QSize wholeSize() const;

Q_SIGNALS:
    void editorWanted(int channel, bool stereo);

private:
    void addStrip();
    bool isShown(int channel) const;
    void scrollTo(const MixerStrip& strip, QWidget* control);

    MixerModel& m_mixerModel;
    QWidget* m_row;
    QScrollArea* m_area;
    QList<MixerStrip*> m_strips;
    MasterStrip* m_master = nullptr;
    int m_selected = 0;
};
