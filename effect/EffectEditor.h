// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "effect/EffectStyle.h"
#include "interfaces/IVaskEffectEditor2.h"

#include <QList>
#include <QRect>

class IModelInfo;

/// The base of every effect editor: gives its widget tree the editors' look, zooms it, and looks
/// names up in the host's model. What an effect does not care about is answered neutrally.
///
/// The concrete editor's constructor builds the widgets; initialize() then runs once, before the
/// host sees the editor. Widgets that are added later are not zoomed, and none that existed then
/// may be deleted before the editor.
class EffectEditor : public IVaskEffectEditor2
{
    Q_OBJECT

public:
    /// A widget as it is at scale 1.
    struct WidgetInformation
    {
        QWidget* widget; ///< not owned
        QRect geometry;
        int pointSize; ///< -1 when the font is sized in pixels
        int pixelSize; ///< -1 when the font is sized in points
    };

    explicit EffectEditor(QWidget* parent);

    /// Applies the fonts, the style and the palette, and records every widget's geometry and font
    /// size as those of scale 1.
    void initialize();

    void setModelInfo(IModelInfo* modelInfo) override;
    void setStereo(bool stereo) override;
    void setFs(int fs) override;
    void setOn(bool on) override;
    /// Both pass the mode on to the controls of the tree (EditModes.h).
    void setDialEditMode(int mode) override;
    void setSliderEditMode(int mode) override;
    /// Zooms every recorded widget from its size at scale 1, so that calls do not add up: edges and
    /// sizes are rounded, font sizes truncated. scale() still gives the old factor while widgets
    /// are resized. A factor that is not a finite number is ignored.
    void setScale(double scale) override;
    /// Empty.
    QMap<QString, QVariant> getEditorSettings() const override;
    void setEditorSettings(const QMap<QString, QVariant>& settings) override;
    double scale() const override;

    /// Resolves the parameter called \a name to its address: the parameter id and the host's second
    /// word. Either output may be null. On failure (no model, unknown name) returns false and
    /// leaves the outputs alone.
    bool getParameter(const char* name, unsigned short* parameter, unsigned short* second);

    /// Where the first or \a second value of channel \a ch of the meter called \a name lies in the
    /// arrays of IMeterObserver, in 16 bits. \a index may be null. On failure (no model, unknown
    /// name, a channel that the meter does not have) returns false and leaves it alone.
    bool getMeterIndex(const char* name, unsigned short ch, bool second, unsigned short* index);

private:
    EffectStyle m_style;
    QList<WidgetInformation> m_widgetInformation;
    IModelInfo* m_modelInfo = nullptr;
    double m_scale = 1.0;
};

/// Appends the widgets of the tree of \a widget to \a list, parents before children, in child
/// order. Of a scroll area only itself and the tree of its content widget count.
void getWidgetInformationList(QWidget* widget, QList<EffectEditor::WidgetInformation>* list);
