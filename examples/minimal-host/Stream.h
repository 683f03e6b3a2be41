// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <pluginterfaces/base/ibstream.h>

#include <cstring>

/// A stream of bytes in memory, as components save into and restore from. Lives on the stack.
class Stream : public Steinberg::IBStream
{
public:
    QByteArray bytes;

    Steinberg::tresult PLUGIN_API read(void* to, Steinberg::int32 size, Steinberg::int32*) override
    {
        const QByteArray part = bytes.mid(m_position, size);
        m_position += part.size();
        std::memcpy(to, part.constData(), std::size_t(part.size()));
        return part.size() == size ? Steinberg::kResultOk : Steinberg::kResultFalse;
    }
    Steinberg::tresult PLUGIN_API write(void* from, Steinberg::int32 size,
                                        Steinberg::int32*) override
    {
        bytes.append(static_cast<const char*>(from), size);
        return Steinberg::kResultOk;
    }
    Steinberg::tresult PLUGIN_API seek(Steinberg::int64, Steinberg::int32,
                                       Steinberg::int64*) override
    {
        return Steinberg::kNotImplemented;
    }
    Steinberg::tresult PLUGIN_API tell(Steinberg::int64*) override
    {
        return Steinberg::kNotImplemented;
    }
    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID, void** object) override
    {
        *object = nullptr;
        return Steinberg::kNoInterface;
    }
    Steinberg::uint32 PLUGIN_API addRef() override { return 1; }
    Steinberg::uint32 PLUGIN_API release() override { return 1; }

private:
    qsizetype m_position = 0;
};
