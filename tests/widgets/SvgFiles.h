// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

/// SVG pictures for tests, written to files that go away with the object.
class SvgFiles
{
public:
    /// Writes \a body, wrapped into a picture of \a width by \a height, and returns its path.
    QString picture(const QByteArray& name, int width, int height, const QByteArray& body) const
    {
        const QByteArray size = "width=\"" + QByteArray::number(width) + "\" height=\"" +
                                QByteArray::number(height) + "\" viewBox=\"0 0 " +
                                QByteArray::number(width) + " " + QByteArray::number(height) + "\"";
        return file(name,
                    "<svg xmlns=\"http://www.w3.org/2000/svg\" " + size + ">" + body + "</svg>");
    }

    /// One rectangle of \a colour that fills the picture.
    QString plain(const QByteArray& name, int width, int height, const QByteArray& colour) const
    {
        return picture(name, width, height,
                       "<rect width=\"" + QByteArray::number(width) + "\" height=\"" +
                           QByteArray::number(height) + "\" fill=\"" + colour + "\"/>");
    }

    /// Writes \a bytes as they stand, over what was there.
    QString file(const QByteArray& name, const QByteArray& bytes) const
    {
        const QString path = m_directory.filePath(QString::fromLatin1(name));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", name.constData());
        return path;
    }

    QString missing() const { return m_directory.filePath(QStringLiteral("missing.svg")); }
    QString directory() const { return m_directory.path(); }

private:
    QTemporaryDir m_directory;
};
