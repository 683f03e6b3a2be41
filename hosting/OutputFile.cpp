// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/OutputFile.h"

#include "hosting/LockedFile.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using std::filesystem::path;

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

// Where links lead, also where there is no file yet; nothing where they lead nowhere.
std::optional<path> followed(path file)
{
    constexpr int maxLinks = 40; // as many as the system follows
    std::error_code error;
    for (int i = 0; i <= maxLinks; ++i) {
        if (!std::filesystem::is_symlink(file, error))
            return file;
        file = file.parent_path() / std::filesystem::read_symlink(file, error);
    }
    return std::nullopt;
}

// Always the same name for a file, and one that nobody else uses.
path draftOf(const path& file)
{
    const QByteArray name = QByteArray::fromStdString(file.filename().string());
    const QByteArray hash = QCryptographicHash::hash(name, QCryptographicHash::Sha1).toHex();
    return file.parent_path() / (".zolta-" + hash.left(16).toStdString() + ".part");
}

// 0, or an error as in errno.
int removeStray(const path& draft)
{
    LockedFile stray(draft.string(), O_RDONLY);
    if (stray.isOpen() || stray.error() == EACCES)
        stray.remove();
    return stray.error() == EWOULDBLOCK ? EBUSY : 0;
}

// A disk that is full takes a part of the bytes first and gives its reason only for the rest.
bool writeAll(int descriptor, const QByteArray& bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t count = ::write(descriptor, bytes.constData() + done,
                                      static_cast<std::size_t>(bytes.size() - done));
        if (count < 0 && errno != EINTR)
            return false;
        done += std::max<ssize_t>(count, 0);
    }
    return ::fsync(descriptor) == 0 || errno == EINVAL;
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

// 0, or an error as in errno. Without \a old there is no file yet.
int replace(const path& file, const QByteArray& bytes, const struct stat* old)
{
    if (old && ::access(file.c_str(), W_OK) != 0)
        return errno;
    const path draft = draftOf(file);
    if (const int error = removeStray(draft))
        return error;
    LockedFile output(draft.string(), O_WRONLY | O_CREAT | O_EXCL);
    if (!output.isOpen())
        return output.error();
    if (old)
        keepOwner(output.descriptor(), *old);
    if (writeAll(output.descriptor(), bytes) && output.rename(file.string()))
        return 0;
    const int error = errno;
    output.remove();
    return error;
}

} // namespace

Status writeFile(const QString& file, const QByteArray& bytes)
{
    const std::optional<path> target = followed(QFile::encodeName(file).toStdString());
    if (!target)
        return cannotWrite(file, ELOOP);
    struct stat old = {};
    const bool exists = ::stat(target->c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) // a new file must not take a device's or a pipe's place
        return notRegular(file, S_ISDIR(old.st_mode));
    const int error = replace(*target, bytes, exists ? &old : nullptr);
    return error == 0 ? Status() : Status(cannotWrite(file, error));
}
