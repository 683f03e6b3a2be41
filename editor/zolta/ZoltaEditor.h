// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editor/base/EffectEditor.h"
#include "plugin/interfaces/IMeterObserver.h"
#include "plugin/interfaces/IPrmObserver.h"

class ZoltaComponent;
class ZoltaEqualizerGraph;

/// The equalizer's editor for one channel or stereo pair.
///
/// It owns the response graph and the state component. The model information and the parameter
/// memory are the host's; both must outlive the editor, or be detached first.
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

    /// The editor observes no parameter itself: its graph does. Both return 0.
    int Update(unsigned short parameter, unsigned short ch, int value, const char* text) override;
    int UpdateProperty(unsigned short parameter, unsigned short ch, int, int, int, bool,
                       const char* text) override;

    void notifyMeterLvlUpdated(unsigned int* values, unsigned int count) override;
    void notifyMeterDbUpdated(unsigned int* values, unsigned int count) override;

private:
    void setMeterObserver(bool registered);

    ZoltaEqualizerGraph* m_graph;
    ZoltaComponent* m_component;
    Steinberg::FUID m_uid;
    IMemAPI* m_memAPI = nullptr;
    int m_primaryCh = 0;
    int m_secondaryCh = 0;
};
