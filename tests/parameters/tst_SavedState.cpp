// SPDX-License-Identifier: GPL-3.0-or-later
#include "parameters/SavedState.h"

#include "component/ZoltaComponent.h"
#include "hosting/HostMemory.h"
#include "hosting/HostModel.h"
#include "hosting/RestoredValues.h"
#include "parameters/ParameterScale.h"
#include "tests/support/TestObject.h"

#include <public.sdk/source/common/memorystream.h>

#include <limits>
#include <random>

class tst_SavedState : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void holdsWhatTheComponentSaves();
    void restoresWhatTheComponentRestores();
    void holdsTheBypass();
    void refusesOtherBytes();
    void everyValueIsTheNearestToItsNumber();

private:
    static QByteArray componentState(const ChannelValues& values);
    static QByteArray bytesOf(const SavedState& state);
    static std::optional<SavedState> decoded(const QByteArray& bytes);
    ChannelValues randomValues();

    std::minstd_rand m_generator{11};
};

QByteArray tst_SavedState::componentState(const ChannelValues& values)
{
    HostMemory memory;
    HostModel model{memory};
    memory.write(0, values);
    ZoltaComponent component;
    component.setModelInfo(&model);
    component.setMemAPI(&memory);
    Steinberg::MemoryStream stream;
    component.getState(&stream);
    return {stream.getData(), static_cast<qsizetype>(stream.getSize())};
}

QByteArray tst_SavedState::bytesOf(const SavedState& state)
{
    const auto bytes = encodeState(state);
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

std::optional<SavedState> tst_SavedState::decoded(const QByteArray& bytes)
{
    return decodeState({reinterpret_cast<const unsigned char*>(bytes.data()),
                        static_cast<std::size_t>(bytes.size())});
}

ChannelValues tst_SavedState::randomValues()
{
    ChannelValues values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Parameter& p = parameterTable[i];
        values[i] = std::uniform_int_distribution<int>(p.minimum, p.maximum)(m_generator);
    }
    return values;
}

void tst_SavedState::holdsWhatTheComponentSaves()
{
    for (int round = 0; round < 300; ++round) {
        const SavedState state{randomValues(), false};
        QCOMPARE(bytesOf(state), componentState(state.values));
        QCOMPARE(decoded(bytesOf(state)), std::optional(state));
    }
}

// Also where the numbers are none, or beyond their range.
void tst_SavedState::restoresWhatTheComponentRestores()
{
    std::uniform_int_distribution<int> bits(0, 255);
    for (int round = 0; round < 300; ++round) {
        QByteArray bytes = bytesOf({randomValues(), false});
        for (qsizetype i = 4; i < bytes.size() - 4; i += 1 + round % 7)
            bytes[i] = static_cast<char>(bits(m_generator));
        QCOMPARE(decoded(bytes)->values, restoredValues(bytes));
    }
}

void tst_SavedState::holdsTheBypass()
{
    const SavedState bypassed{randomValues(), true};
    QCOMPARE(decoded(bytesOf(bypassed)), std::optional(bypassed));
    QCOMPARE(restoredValues(bytesOf(bypassed)), bypassed.values);
}

void tst_SavedState::refusesOtherBytes()
{
    const QByteArray bytes = bytesOf({});
    QCOMPARE(bytes.size(), 116);
    for (qsizetype size = 0; size < bytes.size(); ++size)
        QVERIFY(!decoded(bytes.first(size)));
    QVERIFY(decoded(bytes + "more"));
    QByteArray other = bytes;
    other[3] = '1';
    QVERIFY(!decoded(other));
}

void tst_SavedState::everyValueIsTheNearestToItsNumber()
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const Parameter& parameter : parameterTable) {
        for (int value = parameter.minimum; value <= parameter.maximum; ++value) {
            const double number = numberOf(parameter.kind, value);
            QCOMPARE(stepOf(parameter.kind, number), value);
            QCOMPARE(stepOf(parameter.kind, static_cast<float>(number)), value);
        }
        QCOMPARE(stepOf(parameter.kind, infinity), parameter.maximum);
        QCOMPARE(stepOf(parameter.kind, -infinity), parameter.minimum);
    }
    QCOMPARE(numberOf(ParameterKind::Frequency, 400), 200.0);
    QCOMPARE(numberOf(ParameterKind::Quality, 100), 1.0);
    QCOMPARE(numberOf(ParameterKind::Decibels, -125), -12.5);
    QCOMPARE(numberOf(ParameterKind::HighType, 2), 2.0);
}

QTEST_APPLESS_MAIN(tst_SavedState)

#include "tst_SavedState.moc"
