// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/LockedFile.h"

#include <cerrno>
#include <cstdio>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

// Whoever held the file may have removed or renamed it between opening and locking.
LockedFile::LockedFile(std::string name, int flags, unsigned mode)
    : m_name(std::move(name))
{
    constexpr int maxAttempts = 10;
    for (int i = 0; i < maxAttempts && tryToOpen(flags, mode) && !isStillInPlace(); ++i) {
        close();
        m_error = EWOULDBLOCK;
    }
}

LockedFile::~LockedFile() { close(); }

std::unique_ptr<LockedFile> LockedFile::unnamed(const std::string& folder, unsigned mode)
{
    std::unique_ptr<LockedFile> file(new LockedFile);
    file->m_name = folder.empty() ? "." : folder + "/."; // also where the folder is a link
    file->tryToOpen(O_RDWR | O_TMPFILE, mode);
    return file;
}

bool LockedFile::link(const std::string& name)
{
    const std::string self = "/proc/self/fd/" + std::to_string(m_descriptor);
    if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0)
        return false;
    m_name = name;
    return true;
}

bool LockedFile::remove() { return mayTouch() && ::unlink(m_name.c_str()) == 0; }

bool LockedFile::rename(const std::string& name)
{
    return mayTouch() && std::rename(m_name.c_str(), name.c_str()) == 0;
}

bool LockedFile::tryToOpen(int flags, unsigned mode)
{
    m_descriptor = ::open(m_name.c_str(), flags | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, mode);
    m_error = isOpen() ? 0 : errno;
    if (isOpen() && ::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        close();
        m_error = EWOULDBLOCK;
    }
    return isOpen();
}

// Where locks do not count, as on some network disks, the name may be another file's by now.
bool LockedFile::mayTouch() const
{
    if (!isOpen() || isStillInPlace())
        return true;
    errno = EBUSY;
    return false;
}

// Where the system does not tell, it is.
bool LockedFile::isStillInPlace() const
{
    struct stat here = {};
    struct stat there = {};
    if (::fstat(m_descriptor, &here) != 0 || ::lstat(m_name.c_str(), &there) != 0)
        return errno != ENOENT;
    return here.st_dev == there.st_dev && here.st_ino == there.st_ino;
}

void LockedFile::close()
{
    if (isOpen())
        ::close(std::exchange(m_descriptor, -1));
}
