// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

/// A file that this object has open and locked, so that no other LockedFile of any program has. The
/// system unlocks it when the program ends, however it ends: a file that somebody left behind, and
/// whatever it holds, is free. Where files cannot be locked, it is merely open.
class LockedFile
{
public:
    /// Opens \a name with the \a flags of open(2). Links are not followed.
    LockedFile(std::string name, int flags);
    ~LockedFile();
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    /// Why it is not open, as in errno; EWOULDBLOCK where another LockedFile has it.
    int error() const { return m_error; }
    int descriptor() const { return m_descriptor; }

    /// Both keep the lock.
    bool remove();
    bool rename(const std::string& name);

private:
    bool tryToOpen(int flags);
    bool isStillInPlace() const;
    void close();

    std::string m_name;
    int m_descriptor = -1;
    int m_error = 0;
};
