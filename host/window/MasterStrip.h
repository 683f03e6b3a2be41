// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/ChannelMeters.h"
#include "host/window/Retranslator.h"
#include "parameters/StripTable.h"

#include <QWidget>

class FaderSection;
class MixerModel;

namespace CommonController_MemAPI {
class AbstractController;
} // namespace CommonController_MemAPI

/// What all strips go through in the end: mute, dim, mono, fader, and the meters of what is played.
/// Every control is bound to the memory.
class MasterStrip : public QWidget
{
    Q_OBJECT

public:
    /// \a mixerModel must outlive it.
    explicit MasterStrip(MixerModel& mixerModel, QWidget* parent = nullptr);

    /// Left as sent, right as returned.
    void showLevels(const MeterLevels& levels);
    void retranslate();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void buildKeys();
    void buildSection();
    void bind(CommonController_MemAPI::AbstractController* control, MasterParameter parameter);
    void name(QWidget* control, const Retranslator::Text& text);

    MixerModel& m_mixerModel;
    Retranslator m_texts;
    FaderSection* m_section = nullptr;
};
