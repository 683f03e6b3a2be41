// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "component/ZoltaComponent.h"
#include "interfaces/IMeterObserver.h"
#include "interfaces/IPrmObserver.h"
#include "interfaces/IVaskEffectEditor2.h"

#include <vector>

struct EqualizerParameter;

/// A plain editor that stands in for the real one in the host's tests: one bar for each of the 27
/// parameters of its channel, 400 x 240 at scale 1. It does everything that a host can ask for and
/// nothing else. Its dynamic property "calls" is the list of what the host called, in order,
/// "settings" its settings map and "meters" the words of the newest meter reading; a reading is
/// drawn as a white line along the top, as long as the channel's return meter is high.
class StandInEditor : public IVaskEffectEditor2, public IPrmObserver, public IMeterObserver
{
    Q_OBJECT

public:
    explicit StandInEditor(QWidget* parent);
    ~StandInEditor() override;

    Steinberg::FUID& uid() override { return m_uid; }
    void loadUids(std::vector<Steinberg::FUID>& uids) override { uids.push_back(m_uid); }
    Steinberg::Vst::IComponent* getVstComponent() const override { return &m_component; }
    void setMemAPI(IMemAPI* memAPI) override;
    void setModelInfo(IModelInfo* modelInfo) override;
    void setCh(int ch, int ch2) override;
    void setStereo(bool stereo) override;
    void setFs(int fs) override;
    void setOn(bool on) override;
    void setDialEditMode(int mode) override;
    void setSliderEditMode(int mode) override;
    void setScale(double scale) override;
    QMap<QString, QVariant> getEditorSettings() const override
    {
        return property("settings").toMap();
    }
    void setEditorSettings(const QMap<QString, QVariant>& settings) override;
    double scale() const override { return m_scale; }

    int Update(unsigned short parameter, unsigned short ch, int value, const char* text) override;
    int UpdateProperty(unsigned short, unsigned short, int, int, int, bool, const char*) override;
    void notifyMeterLvlUpdated(unsigned int*, unsigned int) override {}
    void notifyMeterDbUpdated(unsigned int* values, unsigned int count) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void log(const QString& call);
    void bind(bool on);
    unsigned short idOf(const EqualizerParameter& parameter) const;
    float positionOf(const EqualizerParameter& parameter) const;

    Steinberg::FUID m_uid = ZoltaComponent::classId();
    mutable ZoltaComponent m_component;
    IMemAPI* m_memory = nullptr;
    IModelInfo* m_model = nullptr;
    int m_channel = -1;
    double m_scale = 1.0;
};
