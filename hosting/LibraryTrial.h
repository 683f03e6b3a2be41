// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/Result.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <chrono>
#include <functional>

/// Tries in a process of its own what a damaged or hostile plug-in may end: loading it. This
/// process goes on in any case, and can say what happened.
class LibraryTrial
{
    Q_DECLARE_TR_FUNCTIONS(LibraryTrial)

public:
    using Load = std::function<Status()>;

    /// \a patience is how long loading the plug-in \a file may take.
    LibraryTrial(QString file, std::chrono::milliseconds patience);

    /// Runs \a load, which loads the file, in a copy of this process that ends afterwards and says
    /// nothing on the standard streams. Only while this process has no other threads.
    void run(const Load& load);

    /// What \a load gave, or how the copy ended before it did; no error before run().
    Status status() const;

private:
    enum class End { Loaded, Failed, Crashed, Ended, TooSlow, NotTried };

    End runIn(int process, int input);

    QString m_file;
    std::chrono::milliseconds m_patience;
    End m_end = End::Loaded;
    QByteArray m_message; // of the copy
    int m_number = 0;     // of the signal that ended it, or of what prevented it as in errno
};
