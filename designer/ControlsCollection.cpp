// SPDX-License-Identifier: GPL-3.0-or-later
#include "designer/ControlsCollection.h"

#include "designer/ControlPlugin.h"

ControlsCollection::ControlsCollection(QObject* parent)
    : QObject(parent)
{
    for (const ControlEntry& entry : controlTable())
        m_controls.append(new ControlPlugin(entry, this));
}

#include "moc_ControlsCollection.cpp"
