// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtPlugin>

class IModelInfo;
class IVaskEffectEditor;
class QWidget;

/// An effect plug-in, as the mixer host sees it: a maker of editors.
///
/// The order of the operations is the host's binary contract.
class IVaskEffect
{
public:
    virtual ~IVaskEffect() = default;

    /// Makes the editor of channel \a ch as a child of \a parent, which then owns it.
    /// Returns null when \a modelInfo is null or does not list the channel.
    virtual IVaskEffectEditor* create(QWidget* parent, unsigned short ch,
                                      IModelInfo* modelInfo) = 0;
};

Q_DECLARE_INTERFACE(IVaskEffect, "org.zolta.IVaskEffect")
