// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include <sys/mman.h>
#include <unistd.h>

/// A file in memory, for what reads files by their names.
class MemoryFile
{
public:
    MemoryFile()
        : m_descriptor(::memfd_create("input", MFD_CLOEXEC))
    {}
    ~MemoryFile() { ::close(m_descriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    QString name() const { return QStringLiteral("/proc/self/fd/%1").arg(m_descriptor); }

    /// Puts \a size bytes in place of what it holds.
    void fill(const std::uint8_t* data, std::size_t size)
    {
        if (::ftruncate(m_descriptor, 0) != 0 ||
            ::pwrite(m_descriptor, data, size, 0) != static_cast<ssize_t>(size))
            std::abort();
    }

private:
    int m_descriptor;
};
