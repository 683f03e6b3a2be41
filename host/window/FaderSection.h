// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class LevelFader;
class StripMeters;

namespace CommonController_MemAPI {
class FaderController;
class TextEditController;
} // namespace CommonController_MemAPI

/// What every strip has below: a fader, the meters beside it, as high as there is room for, and the
/// fader's level as text.
class FaderSection : public QWidget
{
    Q_OBJECT

public:
    explicit FaderSection(QWidget* parent = nullptr);

    CommonController_MemAPI::FaderController& fader() const;
    CommonController_MemAPI::TextEditController& level() const { return *m_level; }
    StripMeters& meters() const { return *m_meters; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    LevelFader* m_fader;
    CommonController_MemAPI::TextEditController* m_level;
    StripMeters* m_meters;
};
