// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtPlugin>

/// Tells the host which kind of channel effect a plug-in is. Never deleted through this interface.
class IVaskEffectChFx
{
public:
    /// The host's number for the kind of effect.
    virtual int fxType() = 0;

protected:
    ~IVaskEffectChFx() = default;
};

Q_DECLARE_INTERFACE(IVaskEffectChFx, "org.zolta.IVaskEffectChFx")
