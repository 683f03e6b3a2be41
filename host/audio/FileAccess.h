// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <sndfile.h>

#include <cstdint>

/// The open file below the sound file library. It keeps the system's reason for the first access
/// that failed, which the library would forget. The descriptor belongs to somebody else.
class FileAccess
{
public:
    explicit FileAccess(int descriptor, std::int64_t size = 0)
        : m_descriptor(descriptor)
        , m_size(size)
    {}
    FileAccess(const FileAccess&) = delete;
    FileAccess& operator=(const FileAccess&) = delete;

    /// What sf_open_virtual() takes, with this object as its user data.
    static SF_VIRTUAL_IO* operations();

    bool hasFailed() const { return m_error != 0; }
    /// Why the first access failed that did, in the system's words.
    QString reason() const;

    /// What read() gives from \a offset on in place of the file's bytes there.
    void cover(std::int64_t offset, const QByteArray& bytes);

    std::int64_t seek(std::int64_t offset, int whence);
    std::int64_t read(void* bytes, std::int64_t count);
    std::int64_t write(const void* bytes, std::int64_t count);
    std::int64_t position() const { return m_position; }
    std::int64_t size() const { return m_size; }

private:
    bool failed();
    void startWriteBack();
    void showCover(char* bytes, std::int64_t start, std::int64_t count) const;

    int m_descriptor;
    int m_error = 0;
    std::int64_t m_position = 0;
    std::int64_t m_size;
    std::int64_t m_coverStart = 0;
    QByteArray m_cover;
    std::int64_t m_handedOver = 0; // bytes that the system has been told to bring to the disk
};
