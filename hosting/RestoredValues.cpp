// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/RestoredValues.h"

#include "component/ZoltaComponent.h"
#include "hosting/HostMemory.h"
#include "hosting/HostModel.h"

#include <public.sdk/source/common/memorystream.h>

ChannelValues restoredValues(const QByteArray& state)
{
    HostMemory memory;
    HostModel model(memory);
    ZoltaComponent component;
    component.setModelInfo(&model);
    component.setMemAPI(&memory);
    QByteArray bytes = state;
    Steinberg::MemoryStream stream(bytes.data(), bytes.size());
    component.setState(&stream);
    return memory.values(0);
}
