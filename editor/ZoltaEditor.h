// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editor/DragFlags.h"
#include "effect/EffectEditor.h"
#include "interfaces/IMeterObserver.h"
#include "interfaces/IPrmObserver.h"

#include <pluginterfaces/base/funknown.h>

#include <memory>
#include <optional>

class EditorTraversal;
class IMeterNotifier;
class QWheelEvent;
class Ui_ZoltaEditor;
class ZoltaAbout;
class ZoltaComponent;
class ZoltaEqualizerGraph;
enum class EqualizerField;
struct EqualizerParameter;
struct ParameterRow;

namespace CommonController_MemAPI {
class AbstractController;
}

/// The equalizer's editor for one channel or stereo pair.
///
/// It owns the form, the response graph and the state component; the form's widgets and the about
/// panel are its children. The model information and the parameter memory are the host's; both must
/// outlive the editor, or be detached first. A host call that fails leaves out what it was for, and
/// nothing else.
///
/// The editor may be deleted inside the host's setValue() and by a slot that is connected to a
/// control's drag(bool). What was under way then ends at once, and calls the host no more.
class ZoltaEditor : public EffectEditor, public IPrmObserver, public IMeterObserver
{
    Q_OBJECT

public:
    explicit ZoltaEditor(QWidget* parent = nullptr);
    ~ZoltaEditor() override;

    Steinberg::FUID& uid() override;
    void loadUids(std::vector<Steinberg::FUID>& uids) override;
    Steinberg::Vst::IComponent* getVstComponent() const override;
    void setModelInfo(IModelInfo* modelInfo) override;
    /// Binds the editor to the host's memory; null detaches it. A null memory is not handed on to
    /// the component, which keeps the one it has.
    void setMemAPI(IMemAPI* memAPI) override;
    /// Shows the pair \a ch and \a ch2; equal channels mean the pair ch and ch + 1, a negative
    /// second channel means mono.
    void setCh(int ch, int ch2) override;
    void setFs(int fs) override;
    /// One entry, "GraphZoom": the graph's zoom index.
    QMap<QString, QVariant> getEditorSettings() const override;
    void setEditorSettings(const QMap<QString, QVariant>& settings) override;

    /// The editor observes no parameter itself: its controls and its graph do. Both return 0.
    int Update(unsigned short parameter, unsigned short ch, int value, const char* text) override;
    int UpdateProperty(unsigned short parameter, unsigned short ch, int, int, int, bool,
                       const char* text) override;

    /// Does nothing: the meters show decibels.
    void notifyMeterLvlUpdated(unsigned int* values, unsigned int count) override;
    /// Shows the levels of "meter_oxa_snd" as input and of "meter_oxa_rtn" as output. A channel
    /// that the model or \a values does not have keeps its last level.
    void notifyMeterDbUpdated(unsigned int* values, unsigned int count) override;

    /// Show \a value, in tenths of a dB, on the left (and mono) or right LED meter. A level below
    /// the lowest of LedMeterSvgTable changes nothing.
    void setLedMeterL(int value);
    void setLedMeterR(int value);

private Q_SLOTS:
    /// Lights the lamp of drive or of clean.
    void cleanDriveChange(bool drive);
    /// Only the filter types 2 and 3 have a gain; for all others its controls give way to the
    /// picture of a disabled knob.
    void lowTypeChange(int type);
    void highTypeChange(int type);
    /// Sets the gains, and the types of the outer bands that are on, to their defaults. Held for a
    /// second, everything but clean/drive follows.
    void beginFlat();
    void endFlat();

    // Every GainTextDrag writes the flag of its band's FrequencyTextDrag, deliberately.
    void lowTypeKnobDrag(bool drag);
    void lowFrequencyKnobDrag(bool drag);
    void lowFrequencyTextDrag(bool drag);
    void lowGainKnobDrag(bool drag);
    void lowGainTextDrag(bool drag);
    void middle1QualityKnobDrag(bool drag);
    void middle1QualityTextDrag(bool drag);
    void middle1FrequencyKnobDrag(bool drag);
    void middle1FrequencyTextDrag(bool drag);
    void middle1GainKnobDrag(bool drag);
    void middle1GainTextDrag(bool drag);
    void middle2QualityKnobDrag(bool drag);
    void middle2QualityTextDrag(bool drag);
    void middle2FrequencyKnobDrag(bool drag);
    void middle2FrequencyTextDrag(bool drag);
    void middle2GainKnobDrag(bool drag);
    void middle2GainTextDrag(bool drag);
    void middle3QualityKnobDrag(bool drag);
    void middle3QualityTextDrag(bool drag);
    void middle3FrequencyKnobDrag(bool drag);
    void middle3FrequencyTextDrag(bool drag);
    void middle3GainKnobDrag(bool drag);
    void middle3GainTextDrag(bool drag);
    void middle4QualityKnobDrag(bool drag);
    void middle4QualityTextDrag(bool drag);
    void middle4FrequencyKnobDrag(bool drag);
    void middle4FrequencyTextDrag(bool drag);
    void middle4GainKnobDrag(bool drag);
    void middle4GainTextDrag(bool drag);
    void highTypeKnobDrag(bool drag);
    void highFrequencyKnobDrag(bool drag);
    void highFrequencyTextDrag(bool drag);
    void highGainKnobDrag(bool drag);
    void highGainTextDrag(bool drag);

protected:
    /// Tab and Shift+Tab go through the editor's controls and the curve's handles, and leave the
    /// editor at either end.
    bool focusNextPrevChild(bool next) override;
    /// Return and F2 open the text field that has the focus, Escape closes the about panel.
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void spareNextFocus();
    void hideAlternatives();
    void connectControls();
    void connectDrag(QWidget* control, const char* slot);
    void watchControls();

    void setMeterObserver(bool registered);
    void updateParameters();
    void updateRow(const ParameterRow& row);
    void updateBinding(CommonController_MemAPI::AbstractController& control,
                       std::optional<unsigned short> id);
    void showChannels();
    std::optional<unsigned short> parameterId(const EqualizerParameter& parameter);
    std::optional<int> parameterValue(const EqualizerParameter& parameter);
    void resetParameter(const EqualizerParameter& parameter);
    /// Resets every parameter that holds one of \a fields, by number.
    void resetFields(const std::vector<EqualizerField>& fields);
    bool bandIsOn(int band);

    void setDrag(DragFlags::Source source, bool drag);
    void updateEditTarget();
    void switchByWheel(const QWheelEvent& event);
    bool openTextEntry(const QObject* knob);
    std::optional<int> meterValue(const char* name, int ch, const unsigned int* values,
                                  unsigned int count);
    void retranslate();

    Ui_ZoltaEditor* m_ui;
    ZoltaEqualizerGraph* m_graph = nullptr;
    ZoltaAbout* m_about = nullptr;
    std::unique_ptr<EditorTraversal> m_traversal;
    ZoltaComponent* m_component = nullptr;
    Steinberg::FUID m_uid;
    IMemAPI* m_memAPI = nullptr;
    int m_primaryCh = 0;
    int m_secondaryCh = 0;
    int m_flatTimerId = 0;
    DragFlags m_dragFlags;
    IMeterNotifier* m_meterNotifier = nullptr; ///< that the editor registered with
};
