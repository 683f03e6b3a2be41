// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/OutputFile.h"

#include "hosting/LockedFile.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using std::filesystem::path;

constexpr unsigned everybody = 0666; // less what the user's mask takes away
constexpr unsigned ownerOnly = 0600; // until it is clear who may read the file

Error cannotWrite(const QString& file, int number)
{
    return {QCoreApplication::translate("OutputFile", "The file %1 cannot be written: %2.")
                .arg(file, qt_error_string(number))};
}

Error notRegular(const QString& file, bool isFolder)
{
    const QString sentence =
        isFolder ? QCoreApplication::translate("OutputFile",
                                               "The file %1 cannot be written: it is a folder.")
                 : QCoreApplication::translate(
                       "OutputFile", "The file %1 cannot be written: it is not a regular file.");
    return {sentence.arg(file)};
}

// Where links lead, also where there is no file yet; 0, or an error as in errno.
int follow(path* file)
{
    constexpr int maxLinks = 40; // as many as the system follows
    std::error_code error;
    for (int i = 0; i <= maxLinks; ++i) {
        const auto type = std::filesystem::symlink_status(*file, error).type();
        if (type != std::filesystem::file_type::symlink)
            return type == std::filesystem::file_type::none ? error.value() : 0;
        *file = file->parent_path() / std::filesystem::read_symlink(*file, error);
    }
    return ELOOP;
}

// Always the same name for a file, and one that nobody else uses.
path draftOf(const path& file)
{
    const QByteArray name = QByteArray::fromStdString(file.filename().string());
    const QByteArray hash = QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex();
    return file.parent_path() / (".zolta-" + hash.left(16).toStdString() + ".part");
}

// 0, or an error as in errno.
int removeStray(const std::string& draft)
{
    LockedFile stray(draft, O_RDONLY);
    if (stray.isOpen() || stray.error() == EACCES || stray.error() == ELOOP)
        stray.remove();
    return stray.error() == EWOULDBLOCK ? EBUSY : 0;
}

// A disk that is full takes a part of the bytes first and gives its reason only for the rest.
int writeAll(int descriptor, const QByteArray& bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(descriptor, bytes.constData() + written,
                                      static_cast<std::size_t>(bytes.size() - written));
        if (count < 0 && errno != EINTR)
            return errno;
        written += std::max<ssize_t>(count, 0);
    }
    return 0;
}

// A group that is not the old one may do no more than everybody.
void keepOwner(int descriptor, const struct stat& old)
{
    mode_t mode = old.st_mode & 0777U;
    if (::fchown(descriptor, old.st_uid, old.st_gid) != 0 &&
        ::fchown(descriptor, static_cast<uid_t>(-1), old.st_gid) != 0)
        mode = (mode & ~070U) | ((mode & 07U) << 3U);
    static_cast<void>(::fchmod(descriptor, mode));
}

} // namespace

OutputFile::OutputFile(const QString& file)
{
    path target = QFile::encodeName(file).toStdString();
    m_error = follow(&target);
    m_file = target.string();
    m_draft = draftOf(target).string();
}

OutputFile::~OutputFile()
{
    if (m_hasName)
        m_output->remove();
}

int OutputFile::descriptor() const { return m_output->descriptor(); }

int OutputFile::open(Draft draft)
{
    if (m_error != 0)
        return m_error;
    struct stat old = {};
    const bool exists = ::stat(m_file.c_str(), &old) == 0;
    if (!exists && errno != ENOENT)
        return errno;
    if (exists && !S_ISREG(old.st_mode)) // a new file must not take a device's or a pipe's place
        return S_ISDIR(old.st_mode) ? EISDIR : EINVAL;
    if (exists && ::access(m_file.c_str(), W_OK) != 0)
        return errno;
    const int error = openDraft(draft, exists ? ownerOnly : everybody);
    if (error == 0 && exists)
        keepOwner(descriptor(), old);
    return error;
}

int OutputFile::openDraft(Draft draft, unsigned mode)
{
    if (const int error = removeStray(m_draft))
        return error;
    if (draft == Draft::Unnamed) {
        m_output = LockedFile::unnamed(path(m_file).parent_path().string(), mode);
        if (m_output->isOpen())
            return 0;
    }
    m_output = std::make_unique<LockedFile>(m_draft, O_RDWR | O_CREAT | O_EXCL, mode);
    m_hasName = m_output->isOpen();
    return m_output->error();
}

int OutputFile::commit()
{
    if (::fsync(descriptor()) != 0 && errno != EINVAL)
        return errno;
    if (const int error = nameDraft())
        return error;
    if (!m_output->rename(m_file))
        return errno;
    m_hasName = false;
    return 0;
}

int OutputFile::nameDraft()
{
    if (m_hasName)
        return 0;
    if (const int error = removeStray(m_draft))
        return error;
    m_hasName = m_output->link(m_draft);
    if (m_hasName)
        return 0;
    return errno == EEXIST ? EBUSY : errno;
}

Status writeFile(const QString& file, const QByteArray& bytes)
{
    OutputFile output(file);
    int error = output.open(OutputFile::Draft::Named);
    if (error == EISDIR || error == EINVAL)
        return notRegular(file, error == EISDIR);
    if (error == 0)
        error = writeAll(output.descriptor(), bytes);
    if (error == 0)
        error = output.commit();
    return error == 0 ? Status() : Status(cannotWrite(file, error));
}
