// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/FileAccess.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::int64_t writeBackStep = 16 << 20;

FileAccess* accessOf(void* user) { return static_cast<FileAccess*>(user); }

} // namespace

SF_VIRTUAL_IO* FileAccess::operations()
{
    static SF_VIRTUAL_IO table = {
        [](void* user) -> sf_count_t { return accessOf(user)->size(); },
        [](sf_count_t offset, int whence, void* user) -> sf_count_t {
            return accessOf(user)->seek(offset, whence);
        },
        [](void* bytes, sf_count_t count, void* user) -> sf_count_t {
            return accessOf(user)->read(bytes, count);
        },
        [](const void* bytes, sf_count_t count, void* user) -> sf_count_t {
            return accessOf(user)->write(bytes, count);
        },
        [](void* user) -> sf_count_t { return accessOf(user)->position(); }};
    return &table;
}

QString FileAccess::reason() const { return QString::fromLocal8Bit(std::strerror(m_error)); }

void FileAccess::cover(std::int64_t offset, const QByteArray& bytes)
{
    m_coverStart = offset;
    m_cover = bytes;
}

std::int64_t FileAccess::seek(std::int64_t offset, int whence)
{
    if (whence == SEEK_CUR)
        offset += m_position;
    else if (whence == SEEK_END)
        offset += m_size;
    m_position = std::max<std::int64_t>(offset, 0);
    return m_position;
}

std::int64_t FileAccess::read(void* bytes, std::int64_t count)
{
    std::int64_t done = 0;
    while (done < count) {
        const ssize_t part = ::pread(m_descriptor, static_cast<char*>(bytes) + done,
                                     static_cast<std::size_t>(count - done), m_position);
        if (part == 0 || (part < 0 && failed()))
            break;
        done += std::max<ssize_t>(part, 0);
        m_position += std::max<ssize_t>(part, 0);
    }
    showCover(static_cast<char*>(bytes), m_position - done, done);
    return done;
}

void FileAccess::showCover(char* bytes, std::int64_t start, std::int64_t count) const
{
    const std::int64_t first = std::max(start, m_coverStart);
    const std::int64_t last = std::min<std::int64_t>(start + count, m_coverStart + m_cover.size());
    if (first < last)
        std::copy_n(m_cover.begin() + (first - m_coverStart), last - first,
                    bytes + (first - start));
}

std::int64_t FileAccess::write(const void* bytes, std::int64_t count)
{
    std::int64_t done = 0;
    while (done < count) {
        const ssize_t part = ::pwrite(m_descriptor, static_cast<const char*>(bytes) + done,
                                      static_cast<std::size_t>(count - done), m_position);
        if (part < 0 && failed())
            break;
        done += std::max<ssize_t>(part, 0);
        m_position += std::max<ssize_t>(part, 0);
    }
    m_size = std::max(m_size, m_position);
    startWriteBack();
    return done;
}

// An access that a signal has interrupted is none that failed.
bool FileAccess::failed()
{
    if (errno == EINTR)
        return false;
    if (m_error == 0)
        m_error = errno;
    return true;
}

// The disk works while the next samples are computed, and the wait at the end is short.
void FileAccess::startWriteBack()
{
    if (m_size - m_handedOver < writeBackStep)
        return;
    ::sync_file_range(m_descriptor, m_handedOver, m_size - m_handedOver, SYNC_FILE_RANGE_WRITE);
    m_handedOver = m_size;
}
