// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

/// A file that this object has open and locked, so that no other LockedFile of any program has. The
/// system unlocks it when the program ends, however it ends: a file that somebody left behind, and
/// whatever it holds, is free. Where files cannot be locked, it is merely open.
class LockedFile
{
public:
    /// Opens \a name with the \a flags and the \a mode of open(2). Links are not followed.
    LockedFile(std::string name, int flags, unsigned mode = 0666);
    /// A new file without a name in \a folder, to read and to write, which is gone with its object
    /// unless link() gives it a name. Not open where the file system knows no such files.
    static std::unique_ptr<LockedFile> unnamed(const std::string& folder, unsigned mode = 0666);
    ~LockedFile();
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    /// Why it is not open, as in errno; EWOULDBLOCK where another LockedFile has it.
    int error() const { return m_error; }
    int descriptor() const { return m_descriptor; }

    /// All keep the lock. Where they fail, the reason is in errno: EBUSY where the name is another
    /// file's by now. A file that cannot be opened can be removed nevertheless.
    bool link(const std::string& name);
    bool remove();
    bool rename(const std::string& name);

private:
    LockedFile() = default;

    bool tryToOpen(int flags, unsigned mode);
    bool mayTouch() const;
    bool isStillInPlace() const;
    void close();

    std::string m_name;
    int m_descriptor = -1;
    int m_error = 0;
};
