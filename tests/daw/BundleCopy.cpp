// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/daw/BundleCopy.h"

#include <QDir>
#include <QFile>
#include <QTest>

BundleCopy::BundleCopy(const char* library, const QString& bundle)
    : m_library(QFile::encodeName(m_folder.filePath(bundle + QLatin1String("/copy.so"))))
{
    QVERIFY(QDir(m_folder.path()).mkpath(bundle));
    QVERIFY(QFile::copy(QString::fromLocal8Bit(library), QFile::decodeName(m_library)));
}

bool BundleCopy::isProgramInSystem()
{
    return QFile::exists(QStringLiteral("/usr/lib/zolta/zolta-editor")) ||
           QFile::exists(QStringLiteral("/usr/local/lib/zolta/zolta-editor"));
}

void BundleCopy::install(const char* program) const
{
    const QDir folder(m_folder.path());
    QVERIFY(folder.mkpath(QStringLiteral("lib/zolta")));
    QVERIFY(QFile::link(QString::fromLocal8Bit(program),
                        folder.filePath(QStringLiteral("lib/zolta/zolta-editor"))));
}
