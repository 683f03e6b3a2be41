// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestStream.h"

#include <algorithm>
#include <cstring>
#include <utility>

using namespace Steinberg;

TestStream::TestStream(QByteArray bytes, End end)
    : m_bytes(std::move(bytes))
    , m_end(end)
{}

void TestStream::failCall(int n, tresult result, int moved)
{
    m_failingCall = n;
    m_failure = result;
    m_movedByFailure = moved;
}

void TestStream::setPortion(int size) { m_portion = size; }

tresult PLUGIN_API TestStream::queryInterface(const TUID, void** obj)
{
    *obj = nullptr;
    return kNoInterface;
}

uint32 PLUGIN_API TestStream::addRef() { return static_cast<uint32>(++m_references); }

uint32 PLUGIN_API TestStream::release() { return static_cast<uint32>(--m_references); }

tresult PLUGIN_API TestStream::read(void* buffer, int32 size, int32* count)
{
    m_requests.push_back({true, size, count != nullptr});
    const int left = static_cast<int>(m_bytes.size()) - m_position;
    if (isFailing()) {
        deliver(buffer, std::min({m_movedByFailure, size, left}), count);
        return m_failure;
    }
    if (size > left && m_end == End::Fails)
        return kResultFalse;
    const int portion = m_portion < 0 ? size : m_portion;
    deliver(buffer, std::min({portion, size, left}), count);
    return kResultOk;
}

tresult PLUGIN_API TestStream::write(void* buffer, int32 size, int32* count)
{
    m_requests.push_back({false, size, count != nullptr});
    if (isFailing()) {
        append(buffer, std::min(m_movedByFailure, size), count);
        return m_failure;
    }
    append(buffer, size, count);
    return kResultOk;
}

tresult PLUGIN_API TestStream::seek(int64, int32, int64*) { return kNotImplemented; }

tresult PLUGIN_API TestStream::tell(int64*) { return kNotImplemented; }

bool TestStream::isFailing() const { return static_cast<int>(m_requests.size()) == m_failingCall; }

void TestStream::deliver(void* buffer, int size, int32* count)
{
    std::memcpy(buffer, m_bytes.constData() + m_position, static_cast<std::size_t>(size));
    m_position += size;
    if (count != nullptr)
        *count = size;
}

void TestStream::append(const void* buffer, int size, int32* count)
{
    m_bytes.append(static_cast<const char*>(buffer), size);
    if (count != nullptr)
        *count = size;
}
