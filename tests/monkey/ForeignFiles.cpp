// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/monkey/ForeignFiles.h"

#include "component/ZoltaComponent.h"
#include "hosting/StateFile.h"
#include "tests/monkey/EventLog.h"

#include <QFile>
#include <QtEndian>

#include <bit>

namespace {

template <typename Integer> QByteArray littleEndian(Integer value)
{
    QByteArray bytes(sizeof value, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

// Silence of 16 bits.
QByteArray wave(quint32 rate, quint16 channels, int frames)
{
    const QByteArray samples(2 * channels * frames, '\0');
    const auto frameSize = static_cast<quint16>(2 * channels);
    const auto size = static_cast<quint32>(samples.size());
    return "RIFF" + littleEndian(36 + size) + "WAVEfmt " + littleEndian(quint32{16}) +
           littleEndian(quint16{1}) + littleEndian(channels) + littleEndian(rate) +
           littleEndian(rate * frameSize) + littleEndian(frameSize) + littleEndian(quint16{16}) +
           "data" + littleEndian(size) + samples;
}

} // namespace

ForeignFiles::ForeignFiles(Dice& dice, QString folder)
    : m_dice(dice)
    , m_folder(std::move(folder))
{
    for (int i = 0; i < 12; ++i)
        writeAny();
}

QStringList ForeignFiles::names() const
{
    QStringList names;
    for (const char* name : {"one.state", "two.vstpreset", "three.wav", "four.wav", "five.json",
                             "six & <b>7.vstpreset", "none.state", "no/such/folder.wav", ""})
        names << m_folder + QLatin1Char('/') + QLatin1String(name);
    return names;
}

QString ForeignFiles::anyName()
{
    const QStringList all = names();
    return all[m_dice.between(0, static_cast<int>(all.size()) - 1)];
}

void ForeignFiles::writeAny()
{
    const QString name = names()[m_dice.between(0, 5)];
    const QByteArray bytes = anyContent(name);
    write(name, m_dice.oneIn(3) ? damaged(bytes) : bytes);
}

void ForeignFiles::damage(const QString& file)
{
    QFile input(file);
    const QByteArray bytes = input.open(QIODevice::ReadOnly) ? input.readAll() : QByteArray();
    input.close();
    write(file, damaged(bytes));
}

QByteArray ForeignFiles::anyContent(const QString& name)
{
    if (name.endsWith(QLatin1String(".wav")))
        return wave(m_dice.pick<quint32>({1, 8000, 44100, 48000, 768000}),
                    m_dice.pick<quint16>({1, 2, 6}), m_dice.pick({0, 1, 1000, 50000}));
    QByteArray state = "2620";
    for (int i = 0; i < 28; ++i) {
        const float value = i == 27 ? 0.0F : static_cast<float>(m_dice.between(0, 1000)) / 1000.0F;
        state += littleEndian(qToBigEndian(std::bit_cast<quint32>(value)));
    }
    return name.endsWith(QLatin1String(".vstpreset"))
               ? StateFile::encodePreset(state, ZoltaComponent::classId())
               : state;
}

QByteArray ForeignFiles::anyBytes(int size)
{
    QByteArray bytes;
    while (bytes.size() < size)
        bytes.append(static_cast<char>(m_dice.between(0, 255)));
    return bytes;
}

QByteArray ForeignFiles::damaged(QByteArray bytes)
{
    const int size = static_cast<int>(bytes.size());
    switch (m_dice.between(1, 4)) {
    case 1:
        return bytes.left(m_dice.between(0, size));
    case 2:
        return anyBytes(m_dice.pick({0, 1, 4, 116, 300}));
    case 3:
        return bytes + anyBytes(7);
    default:
        for (int i = 0; size > 0 && i < 4; ++i)
            bytes[m_dice.between(0, size - 1)] = static_cast<char>(m_dice.between(0, 255));
        return bytes;
    }
}

void ForeignFiles::write(const QString& file, const QByteArray& bytes)
{
    EventLog::add("file written", static_cast<int>(bytes.size()));
    QFile output(file);
    if (output.open(QIODevice::WriteOnly))
        output.write(bytes);
}
