// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "interfaces/IVaskEffect.h"
#include "interfaces/IVaskEffectChFx.h"

#include <QObject>

/// The plug-in object: one a process, made by the library's entry function.
class Zolta : public QObject, public IVaskEffect, public IVaskEffectChFx
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.zolta.fx.effect" FILE "Zolta.json")
    Q_INTERFACES(IVaskEffect IVaskEffectChFx)

public:
    /// A ZoltaEditor, set up for the model and not yet bound to parameter memory.
    IVaskEffectEditor* create(QWidget* parent, unsigned short ch, IModelInfo* modelInfo) override;
    int fxType() override;
};
