// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <pluginterfaces/base/ibstream.h>

#include <vector>

/// A stream for tests over bytes in memory, which fails and lies as it is told to, and remembers
/// every request. Reading starts at the first byte, writing appends; the two do not share a
/// position. Lives on the stack: references to it are counted but do not free it.
class TestStream final : public Steinberg::IBStream
{
public:
    /// How a read goes that asks for more bytes than are left.
    enum class End {
        Fails, ///< nothing is delivered and the result is kResultFalse
        Lies   ///< what is left is delivered and the result is kResultOk
    };

    struct Request
    {
        bool isRead;
        Steinberg::int32 size;
        /// Whether the caller asked for the number of bytes moved.
        bool asksForCount;
    };

    explicit TestStream(QByteArray bytes = {}, End end = End::Fails);

    /// The bytes given plus those written.
    const QByteArray& bytes() const { return m_bytes; }
    const std::vector<Request>& requests() const { return m_requests; }
    /// How many bytes have been read.
    int position() const { return m_position; }
    /// References taken less references given back.
    int references() const { return m_references; }

    /// The \a n-th read or write (1 is the first) ends with \a result after moving \a moved bytes.
    void failCall(int n, Steinberg::tresult result, int moved = 0);
    /// A read delivers at most \a size bytes and says that it went well.
    void setPortion(int size);

    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID iid, void** obj) override;
    Steinberg::uint32 PLUGIN_API addRef() override;
    Steinberg::uint32 PLUGIN_API release() override;

    Steinberg::tresult PLUGIN_API read(void* buffer, Steinberg::int32 size,
                                       Steinberg::int32* count) override;
    Steinberg::tresult PLUGIN_API write(void* buffer, Steinberg::int32 size,
                                        Steinberg::int32* count) override;
    Steinberg::tresult PLUGIN_API seek(Steinberg::int64, Steinberg::int32,
                                       Steinberg::int64*) override;
    Steinberg::tresult PLUGIN_API tell(Steinberg::int64*) override;

private:
    bool isFailing() const;
    void deliver(void* buffer, int size, Steinberg::int32* count);
    void append(const void* buffer, int size, Steinberg::int32* count);

    QByteArray m_bytes;
    End m_end;
    std::vector<Request> m_requests;
    int m_position = 0;
    int m_references = 0;
    int m_portion = -1;
    int m_failingCall = 0;
    Steinberg::tresult m_failure = Steinberg::kResultOk;
    int m_movedByFailure = 0;
};
