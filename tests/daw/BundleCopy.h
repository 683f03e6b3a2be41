// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QTemporaryDir>

/// A copy of a plug-in's library in a bundle of its own, as installed without the editor's program.
class BundleCopy
{
public:
    /// \a bundle as in "lib/lv2/zolta.lv2".
    BundleCopy(const char* library, const QString& bundle);

    /// The copy's path.
    const char* library() const { return m_library.constData(); }
    /// Whether the machine itself has the program where every bundle looks for it.
    static bool isProgramInSystem();
    /// Installs \a program with the copy.
    void install(const char* program) const;

private:
    QTemporaryDir m_folder;
    QByteArray m_library;
};
