// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/Result.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <string>

class LockedFile;

/// A file that is replaced at once or not at all: what is written goes into a draft beside it,
/// which takes its place at the end. Where the file is a link, the file that it leads to is
/// replaced. The new file belongs to the old one's owner and group and has its mode as far as this
/// user may give it them. What a program that was killed while it wrote the same file left behind
/// is removed.
///
/// Errors are numbers as in errno, 0 for none.
class OutputFile
{
public:
    /// A draft without a name costs a call more, but leaves nothing behind however long writing
    /// takes and however it ends. Where the file system knows none, it has a name.
    enum class Draft { Named, Unnamed };

    explicit OutputFile(const QString& file);
    /// Without commit(), removes the draft.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// EISDIR where there is a folder in the file's place, EINVAL where there is a device, a pipe
    /// or the like; EBUSY where another program writes the same file.
    int open(Draft draft);
    /// To write to and to read from.
    int descriptor() const;
    /// Brings the draft to the disk and puts it in the file's place.
    int commit();

private:
    int openDraft(Draft draft, unsigned mode);
    int nameDraft();

    int m_error;        // of following links
    std::string m_file; // where they lead
    std::string m_draft;
    std::unique_ptr<LockedFile> m_output;
    bool m_hasName = false; // the draft
};

/// Replaces \a file by \a bytes.
[[nodiscard]] Status writeFile(const QString& file, const QByteArray& bytes);
