// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "effect/EffectEditor.h"

#include <pluginterfaces/base/funknown.h>

/// An effect editor with nothing of its own.
class PlainEditor : public EffectEditor
{
public:
    explicit PlainEditor(QWidget* parent = nullptr)
        : EffectEditor(parent)
    {}

    Steinberg::FUID& uid() override { return m_uid; }
    void loadUids(std::vector<Steinberg::FUID>& uids) override { uids.push_back(m_uid); }
    Steinberg::Vst::IComponent* getVstComponent() const override { return nullptr; }
    void setMemAPI(IMemAPI*) override {}
    void setCh(int, int) override {}

private:
    Steinberg::FUID m_uid;
};
