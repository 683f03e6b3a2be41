// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/LockedFile.h"

#include <cerrno>
#include <cstdio>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t everybody = 0666; // less what the user's mask takes away

}

// Whoever held the file may have removed or renamed it between opening and locking.
LockedFile::LockedFile(std::string name, int flags)
    : m_name(std::move(name))
{
    constexpr int maxAttempts = 10;
    for (int i = 0; i < maxAttempts && tryToOpen(flags) && !isStillInPlace(); ++i) {
        close();
        m_error = EWOULDBLOCK;
    }
}

LockedFile::~LockedFile() { close(); }

bool LockedFile::remove() { return ::unlink(m_name.c_str()) == 0; }

bool LockedFile::rename(const std::string& name)
{
    return std::rename(m_name.c_str(), name.c_str()) == 0;
}

bool LockedFile::tryToOpen(int flags)
{
    m_descriptor = ::open(m_name.c_str(), flags | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, everybody);
    m_error = isOpen() ? 0 : errno;
    if (isOpen() && ::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        close();
        m_error = EWOULDBLOCK;
    }
    return isOpen();
}

bool LockedFile::isStillInPlace() const
{
    struct stat here = {};
    struct stat there = {};
    return ::fstat(m_descriptor, &here) == 0 && ::lstat(m_name.c_str(), &there) == 0 &&
           here.st_dev == there.st_dev && here.st_ino == there.st_ino;
}

void LockedFile::close()
{
    if (isOpen())
        ::close(std::exchange(m_descriptor, -1));
}
