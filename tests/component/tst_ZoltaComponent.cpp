// SPDX-License-Identifier: GPL-3.0-or-later
// The equalizer's saved state: its layout, its values, and what host and stream may do to it.
#include "component/ZoltaComponent.h"
#include "tests/support/DataTable.h"
#include "tests/support/TestHost.h"
#include "tests/support/TestObject.h"
#include "tests/support/TestStream.h"

#include <public.sdk/source/common/memorystream.h>

#include <QRandomGenerator>
#include <QtEndian>

#include <algorithm>
#include <bit>
#include <limits>

using namespace Steinberg;
using Operation = TestHost::Operation;

namespace {

// Which parameter the value at each place of a saved state belongs to; the 28th to none.
constexpr int Layout[27] = {4,  3,  2,  1,  8,  7,  6,  5,  12, 11, 10, 9,  16, 15,
                            14, 13, 20, 19, 18, 17, 21, 22, 23, 24, 25, 26, 27};
constexpr int Places = 28;
constexpr int StateSize = 116;
constexpr int MinInt = std::numeric_limits<int>::min();
constexpr int MaxInt = std::numeric_limits<int>::max();

constexpr quint32 One = 0x3F800000;
constexpr quint32 Half = 0x3F000000;
constexpr quint32 Quarter = 0x3E800000;
constexpr const char* First = "fx_rackfx_prm_4";

QByteArray wordBytes(quint32 bits)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(bits, bytes.data());
    return bytes;
}

// A state in which every place holds the same word.
QByteArray uniformState(quint32 bits, const QByteArray& version = "2620")
{
    return version + wordBytes(bits).repeated(Places);
}

void setWord(QByteArray& state, int place, quint32 bits)
{
    state.replace(4 + 4 * place, 4, wordBytes(bits));
}

// What is saved when every parameter is at the same place of its range.
QByteArray savedState(quint32 bits)
{
    QByteArray state = uniformState(bits);
    setWord(state, Places - 1, 0);
    return state;
}

struct Fixture
{
    explicit Fixture(int ch = 0)
    {
        component.setModelInfo(host.model());
        component.setMemAPI(host.memory());
        component.setCh(ch);
    }

    QByteArray saved()
    {
        TestStream stream;
        result = component.getState(&stream);
        return stream.bytes();
    }

    void restore(const QByteArray& state, TestStream::End end = TestStream::End::Fails)
    {
        TestStream stream(state, end);
        result = component.setState(&stream);
    }

    void setAll(int value, unsigned short ch = 0)
    {
        for (const int number : Layout)
            host.set(TestHost::name(number), ch, value);
    }

    // Gives every parameter a range and a value.
    void setAll(std::pair<int, int> range, int value)
    {
        for (const int number : Layout)
            host.setRange(TestHost::name(number), range.first, range.second);
        setAll(value);
    }

    std::vector<int> values(unsigned short ch = 0) const
    {
        std::vector<int> values;
        for (const int number : Layout)
            values.push_back(host.value(TestHost::name(number), ch));
        return values;
    }

    TestHost host;
    ZoltaComponent component;
    tresult result = -99;
};

// 27 values, of which the first \a count are \a value and the others \a rest.
std::vector<int> filled(int count, int value, int rest)
{
    std::vector<int> values(27, rest);
    std::fill_n(values.begin(), count, value);
    return values;
}

} // namespace

class tst_ZoltaComponent : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void listIsTheSameForEveryVersion();
    void layout_data();
    void layout();
    void savedBytes_data();
    void savedBytes();
    void restoredValues_data();
    void restoredValues();
    void lastValueIsIgnored();
    void versionReadIsIgnored_data();
    void versionReadIsIgnored();

    void roundTripOverWholeRanges();
    void roundTripOverRandomRanges();
    void roundTripThroughTheSdksStream();
    void upsideDownRange();

    void nullStream();
    void missingHost_data();
    void missingHost();
    void channelIsPassedOn_data();
    void channelIsPassedOn();

    void asksTheHostInOrder_data();
    void asksTheHostInOrder();
    void saveSurvivesEveryHostFailure();
    void restoreSurvivesEveryHostFailure();

    void streamIsMovedInWords();
    void saveStopsAtAFailedWrite_data();
    void saveStopsAtAFailedWrite();
    void restoreStopsAtAFailedRead_data();
    void restoreStopsAtAFailedRead();
    void everyShortStream();
    void everyLyingStream();
    void bytesThatAreNotDeliveredAreZero();
};

void tst_ZoltaComponent::listIsTheSameForEveryVersion()
{
    const ZoltaComponent component;
    const unsigned char other[4] = {'0', '0', '0', '1'};
    const unsigned char* versions[] = {nullptr, component.getDataVersion(), other};
    for (const unsigned char* version : versions) {
        const std::list<const char*> list = component.getParameterList(version);
        QCOMPARE(list.size(), std::size_t(Places));
        auto name = list.begin();
        for (const int number : Layout)
            QCOMPARE(QByteArray(*name++), TestHost::name(number));
        QCOMPARE(*name, nullptr);
    }
}

void tst_ZoltaComponent::layout_data()
{
    addColumns<int, QByteArray>("place", "name");
    for (int place = 0; place < 27; ++place) {
        const QByteArray name = TestHost::name(Layout[place]);
        QTest::addRow("%d %s", place, name.constData()) << place << name;
    }
}

void tst_ZoltaComponent::layout()
{
    QFETCH(int, place);
    QFETCH(QByteArray, name);
    Fixture f;
    f.setAll({10, 30}, 10);
    f.host.set(name, 0, 30);
    const std::vector<int> values = f.values();
    QByteArray state = uniformState(0);
    setWord(state, place, One);
    QCOMPARE(f.saved(), state);
    f.setAll(20);
    f.restore(state);
    QCOMPARE(f.result, kResultOk);
    QCOMPARE(f.values(), values);
}

void tst_ZoltaComponent::savedBytes_data()
{
    addColumns<int, int, int, quint32>("minimum", "maximum", "value", "bits");
    QTest::newRow("minimum") << -200 << 200 << -200 << 0u;
    QTest::newRow("quarter") << -200 << 200 << -100 << Quarter;
    QTest::newRow("half") << -200 << 200 << 0 << Half;
    QTest::newRow("maximum") << -200 << 200 << 200 << One;
    QTest::newRow("a third") << 0 << 3 << 1 << 0x3EAAAAABu;
    QTest::newRow("a hundredth") << 0 << 500 << 5 << 0x3C23D70Au;
    QTest::newRow("two thirds of 1200") << 0 << 1200 << 800 << 0x3F2AAAABu;
    QTest::newRow("below the range") << 0 << 10 << -1 << 0u;
    QTest::newRow("far below the range") << 0 << 10 << MinInt << 0u;
    QTest::newRow("above the range") << 0 << 10 << 11 << One;
    QTest::newRow("far above the range") << MinInt << MinInt + 1 << MaxInt << One;
    QTest::newRow("range of one value") << 7 << 7 << 7 << 0u;
    QTest::newRow("above a range of one value") << 7 << 7 << 8 << One;
    QTest::newRow("below a range of one value") << 7 << 7 << 6 << 0u;
    QTest::newRow("widest range, minimum") << MinInt << MaxInt << MinInt << 0u;
    QTest::newRow("widest range, middle") << MinInt << MaxInt << 0 << Half;
    QTest::newRow("widest range, maximum") << MinInt << MaxInt << MaxInt << One;
    // Both differences are singles before they are divided; in double the last bit differs.
    QTest::newRow("single precision, up") << 0 << 16777217 << 4508515 << 0x3E8996C6u;
    QTest::newRow("single precision, down") << 0 << 16777219 << 3956695 << 0x3E717F58u;
    QTest::newRow("single precision, wide") << 0 << MaxInt << 46148794 << 0x3CB00B2Eu;
}

void tst_ZoltaComponent::savedBytes()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, value);
    QFETCH(quint32, bits);
    Fixture f;
    f.setAll({minimum, maximum}, value);
    QCOMPARE(f.saved().toHex(), savedState(bits).toHex());
    QCOMPARE(f.result, kResultOk);
}

void tst_ZoltaComponent::restoredValues_data()
{
    addColumns<int, int, quint32, int>("minimum", "maximum", "bits", "value");
    QTest::newRow("zero") << -200 << 200 << 0u << -200;
    QTest::newRow("quarter") << -200 << 200 << Quarter << -100;
    QTest::newRow("half") << -200 << 200 << Half << 0;
    QTest::newRow("one") << -200 << 200 << One << 200;
    QTest::newRow("half-up: 0.25 of 10") << 0 << 10 << Quarter << 3;
    QTest::newRow("half-up: 0.24 of 10") << 0 << 10 << 0x3E75C28Fu << 2;
    QTest::newRow("half-up: half of 1") << 0 << 1 << Half << 1;
    QTest::newRow("half-up below zero: quarter of -10..0") << -10 << 0 << Quarter << -7;
    QTest::newRow("half-up below zero: half of -5..0") << -5 << 0 << Half << -2;
    QTest::newRow("above one") << 0 << 10 << 0x3F800001u << 10;
    QTest::newRow("two") << 0 << 10 << 0x40000000u << 10;
    QTest::newRow("largest") << 0 << 10 << 0x7F7FFFFFu << 10;
    QTest::newRow("infinity") << 0 << 10 << 0x7F800000u << 10;
    QTest::newRow("minus zero") << 5 << 10 << 0x80000000u << 5;
    QTest::newRow("negative") << 5 << 10 << 0xBF000000u << 5;
    QTest::newRow("minus infinity") << 5 << 10 << 0xFF800000u << 5;
    QTest::newRow("quiet NaN") << 5 << 10 << 0x7FC00000u << 5;
    QTest::newRow("negative NaN") << 5 << 10 << 0xFFC00000u << 5;
    QTest::newRow("signalling NaN") << 5 << 10 << 0x7F800001u << 5;
    QTest::newRow("smallest") << 5 << 10 << 0x00000001u << 5;
    QTest::newRow("little-endian one") << 5 << 10 << 0x0000803Fu << 5;
    QTest::newRow("range of one value, zero") << 7 << 7 << 0u << 7;
    QTest::newRow("range of one value, one") << 7 << 7 << One << 7;
    QTest::newRow("range of one value, NaN") << 7 << 7 << 0x7FC00000u << 7;
    QTest::newRow("widest range, zero") << MinInt << MaxInt << 0u << MinInt;
    QTest::newRow("widest range, half") << MinInt << MaxInt << Half << 0;
    QTest::newRow("widest range, one") << MinInt << MaxInt << One << MaxInt;
    // As a single the span 16777219 is 16777220, one more than the range has.
    QTest::newRow("not overrun") << -16777219 << 0 << One << 0;
    QTest::newRow("not overrun at the top") << MaxInt - 16777219 << MaxInt << One << MaxInt;
    // The product is a single: rounded there it reaches one half, in double it does not.
    QTest::newRow("product in single, 1200") << 0 << 1200 << 0x3B75C28Fu << 5;
    QTest::newRow("product in single, 400") << -200 << 200 << 0x3C3851EBu << -195;
    QTest::newRow("product in single, 3") << 0 << 3 << 0x3F555555u << 3;
    // The sum is a double: a single would round it up to the next integer.
    QTest::newRow("sum in double, 1") << 0 << 1 << 0x3EFFFFFFu << 0;
    QTest::newRow("sum in double, 3") << 0 << 3 << 0x3E2AAAAAu << 0;
    QTest::newRow("sum in double, 1200") << 0 << 1200 << 0x39DA740Du << 0;
}

void tst_ZoltaComponent::restoredValues()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(quint32, bits);
    QFETCH(int, value);
    Fixture f;
    f.setAll({minimum, maximum}, 99);
    f.restore(uniformState(bits));
    QCOMPARE(f.result, kResultOk);
    QCOMPARE(f.values(), std::vector<int>(27, value));
}

void tst_ZoltaComponent::lastValueIsIgnored()
{
    for (const quint32 word : {0u, One, 0x7FC00000u, 0xFFFFFFFFu}) {
        Fixture f;
        f.setAll({0, 10}, 10);
        QByteArray state = uniformState(Half);
        setWord(state, Places - 1, word);
        f.restore(state);
        QCOMPARE(f.result, kResultOk);
        QCOMPARE(f.values(), std::vector<int>(27, 5));
        QCOMPARE(f.host.count(Operation::FindParameter), 27);
    }
}

void tst_ZoltaComponent::versionReadIsIgnored_data()
{
    QTest::addColumn<QByteArray>("version");
    QTest::newRow("older") << QByteArray("2610");
    QTest::newRow("letters") << QByteArray("abcd");
    QTest::newRow("zeros") << QByteArray(4, '\0');
    QTest::newRow("ones") << QByteArray(4, '\xFF');
}

void tst_ZoltaComponent::versionReadIsIgnored()
{
    QFETCH(QByteArray, version);
    Fixture f, own;
    f.restore(uniformState(Quarter, version));
    own.restore(uniformState(Quarter));
    QCOMPARE(f.result, kResultOk);
    QCOMPARE(f.host.writes(), own.host.writes());
    QCOMPARE(f.host.writes().size(), std::size_t(27));
}

void tst_ZoltaComponent::roundTripOverWholeRanges()
{
    Fixture f;
    for (int step = 0; step <= 1200; ++step) {
        for (const int number : Layout) {
            const auto [minimum, maximum] = f.host.range(TestHost::name(number));
            f.host.setSilently(TestHost::name(number), 0, std::min(minimum + step, maximum));
        }
        const std::vector<int> before = f.values();
        const QByteArray state = f.saved();
        f.restore(uniformState(step % 2 == 0 ? 0 : One));
        f.host.resetLedger();
        f.restore(state);
        QCOMPARE(f.values(), before);
    }
}

void tst_ZoltaComponent::roundTripOverRandomRanges()
{
    QRandomGenerator random(2620);
    Fixture f;
    for (int round = 0; round < 2000; ++round) {
        for (const int number : Layout) {
            const int span = static_cast<int>(random.bounded(1u << random.bounded(1u, 22u)));
            const int minimum = static_cast<int>(random.bounded(2'000'000'000u)) - 1'000'000'000;
            f.host.setRange(TestHost::name(number), 0, minimum, minimum + span);
            f.host.setSilently(TestHost::name(number), 0,
                               minimum + static_cast<int>(random.bounded(qint64(span) + 1)));
        }
        const std::vector<int> before = f.values();
        const QByteArray state = f.saved();
        f.setAll(0);
        f.host.resetLedger();
        f.restore(state);
        QCOMPARE(f.values(), before);
    }
}

void tst_ZoltaComponent::roundTripThroughTheSdksStream()
{
    Fixture f(3);
    int value = 0;
    for (const int number : Layout)
        f.host.set(TestHost::name(number), 3,
                   f.host.range(TestHost::name(number)).first + value++ % 2);
    const std::vector<int> before = f.values(3);
    MemoryStream stream;
    Vst::IComponent* component = &f.component;
    QCOMPARE(component->getState(&stream), kResultOk);
    QCOMPARE(stream.getSize(), TSize(StateSize));
    f.setAll(1, 3);
    QCOMPARE(stream.seek(0, IBStream::kIBSeekSet, nullptr), kResultOk);
    QCOMPARE(component->setState(&stream), kResultOk);
    QCOMPARE(f.values(3), before);
}

void tst_ZoltaComponent::upsideDownRange()
{
    Fixture f;
    for (const auto& [minimum, maximum] : {std::pair(10, 0), {MaxInt, MinInt}, {1, 0}}) {
        f.setAll({minimum, maximum}, 0);
        for (const quint32 word : {0u, Quarter, Half, One, 0x7FC00000u}) {
            f.restore(uniformState(word));
            QCOMPARE(f.result, kResultOk);
            QVERIFY(f.host.value(First, 0) >= maximum && f.host.value(First, 0) <= minimum);
            const float saved = std::bit_cast<float>(qFromBigEndian<quint32>(f.saved().data() + 4));
            QVERIFY(saved >= 0.0f && saved <= 1.0f);
        }
    }
}

void tst_ZoltaComponent::nullStream()
{
    Fixture f;
    ZoltaComponent unbound;
    for (ZoltaComponent* component : {&f.component, &unbound}) {
        QCOMPARE(component->getState(nullptr), kResultFalse);
        QCOMPARE(component->setState(nullptr), kResultFalse);
    }
    QCOMPARE(f.host.callCount(), 0);
}

void tst_ZoltaComponent::missingHost_data()
{
    addColumns<bool, bool>("hasModel", "hasMemory");
    QTest::newRow("neither") << false << false;
    QTest::newRow("no memory") << true << false;
    QTest::newRow("no model") << false << true;
}

// The services are taken away, and given back at the end.
void tst_ZoltaComponent::missingHost()
{
    QFETCH(bool, hasModel);
    QFETCH(bool, hasMemory);
    Fixture f;
    f.component.setModelInfo(hasModel ? f.host.model() : nullptr);
    f.component.setMemAPI(hasMemory ? f.host.memory() : nullptr);

    TestStream out, full, in(uniformState(One)), broken(uniformState(One));
    QCOMPARE(f.component.getState(&out), kResultFalse);
    QCOMPARE(out.bytes(), QByteArray("2620"));
    QCOMPARE(f.component.setState(&in), kResultFalse);
    QCOMPARE(in.requests().size(), std::size_t(1));
    full.failCall(1, kOutOfMemory);
    QCOMPARE(f.component.getState(&full), kOutOfMemory);
    broken.failCall(1, kInternalError);
    QCOMPARE(f.component.setState(&broken), kInternalError);
    QCOMPARE(f.host.callCount(), 0);

    f.component.setModelInfo(f.host.model());
    f.component.setMemAPI(f.host.memory());
    QCOMPARE(f.saved().size(), StateSize);
}

void tst_ZoltaComponent::channelIsPassedOn_data()
{
    addColumns<int, int>("ch", "passed");
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("5") << 5 << 5;
    QTest::newRow("not in the model") << 8 << 8;
    QTest::newRow("negative") << -1 << 65535;
    QTest::newRow("more than 16 bits") << 65536 + 2 << 2;
}

void tst_ZoltaComponent::channelIsPassedOn()
{
    QFETCH(int, ch);
    QFETCH(int, passed);
    Fixture f(ch);
    f.setAll({0, 10}, 5);
    for (unsigned short each = 0; each < 8; ++each)
        f.setAll(each == passed ? 10 : 5, each);
    QCOMPARE(f.saved(), savedState(passed < 8 ? One : 0));
    f.restore(uniformState(0));
    for (const Operation operation :
         {Operation::GetRange, Operation::GetValue, Operation::SetValue}) {
        for (const TestHost::Call& call : f.host.calls(operation))
            QCOMPARE(call.ch, passed);
    }
    for (unsigned short each = 0; each < 8; ++each)
        QCOMPARE(f.values(each), std::vector<int>(27, each == passed ? 0 : 5));
}

void tst_ZoltaComponent::asksTheHostInOrder_data()
{
    QTest::addColumn<bool>("saves");
    QTest::newRow("save") << true;
    QTest::newRow("restore") << false;
}

void tst_ZoltaComponent::asksTheHostInOrder()
{
    QFETCH(bool, saves);
    Fixture f(6);
    if (saves)
        f.saved();
    else
        f.restore(uniformState(One));
    const Operation operations[] = {Operation::FindParameter, Operation::GetParameterAddress,
                                    Operation::GetRange,
                                    saves ? Operation::GetValue : Operation::SetValue};
    QCOMPARE(f.host.callCount(), 27 * 4);
    for (std::size_t i = 0; i < f.host.calls().size(); ++i) {
        const TestHost::Call& call = f.host.calls()[i];
        const QByteArray name = TestHost::name(Layout[i / 4]);
        const int parameters[] = {0, f.host.index(name), f.host.id(name), f.host.id(name)};
        const bool writes = call.operation == Operation::SetValue;
        QCOMPARE(call.operation, operations[i % 4]);
        QCOMPARE(call.text, i % 4 == 0 ? name : QByteArray());
        QCOMPARE(call.parameter, parameters[i % 4]);
        QCOMPARE(call.ch, i % 4 < 2 ? 0 : 6);
        QCOMPARE(call.value, writes ? f.host.range(name).second : 0);
        QCOMPARE(call.element, 0);
        QCOMPARE(call.trailing1, 0);
        QCOMPARE(call.trailing2, writes ? 1 : 0);
    }
}

void tst_ZoltaComponent::saveSurvivesEveryHostFailure()
{
    for (int n = 1; n <= 27 * 4; ++n) {
        Fixture f;
        f.setAll({-10, 10}, 10);
        f.host.failAnyCall(n);
        QByteArray expected = savedState(One);
        setWord(expected, (n - 1) / 4, 0);
        QCOMPARE(f.saved(), expected);
        QCOMPARE(f.result, kResultOk);
    }
}

void tst_ZoltaComponent::restoreSurvivesEveryHostFailure()
{
    for (int n = 1; n <= 27 * 4; ++n) {
        Fixture f;
        f.setAll({0, 10}, -1);
        f.host.failAnyCall(n);
        f.restore(uniformState(Half));
        QCOMPARE(f.result, kResultOk);
        std::vector<int> expected(27, 5);
        expected[static_cast<std::size_t>((n - 1) / 4)] = -1;
        QCOMPARE(f.values(), expected);
        QCOMPARE(f.host.callCount(), 27 * 4 - (3 - (n - 1) % 4));
    }
}

void tst_ZoltaComponent::streamIsMovedInWords()
{
    Fixture f;
    TestStream out, in(uniformState(0));
    f.component.getState(&out);
    f.component.setState(&in);
    for (const TestStream* stream : {&out, &in}) {
        QCOMPARE(stream->requests().size(), std::size_t(29));
        QCOMPARE(stream->references(), 0);
        for (const TestStream::Request& request : stream->requests()) {
            QCOMPARE(request.isRead, stream == &in);
            QCOMPARE(request.size, 4);
            QVERIFY(!request.asksForCount);
        }
    }
}

void tst_ZoltaComponent::saveStopsAtAFailedWrite_data()
{
    addColumns<int, int>("call", "failure");
    const int failures[] = {kResultFalse, kInvalidArgument, kInternalError, kNoInterface};
    for (int call = 1; call <= 29; ++call)
        QTest::addRow("call %d", call) << call << failures[call % 4];
}

void tst_ZoltaComponent::saveStopsAtAFailedWrite()
{
    QFETCH(int, call);
    QFETCH(int, failure);
    Fixture f;
    const QByteArray whole = f.saved();
    f.host.resetLedger();
    TestStream stream;
    stream.failCall(call, failure);
    QCOMPARE(f.component.getState(&stream), failure);
    QCOMPARE(stream.requests().size(), static_cast<std::size_t>(call));
    QCOMPARE(stream.bytes(), whole.left(4 * (call - 1)));
    QCOMPARE(f.host.callCount(), 4 * std::min(call - 1, 27));
}

void tst_ZoltaComponent::restoreStopsAtAFailedRead_data() { saveStopsAtAFailedWrite_data(); }

void tst_ZoltaComponent::restoreStopsAtAFailedRead()
{
    QFETCH(int, call);
    QFETCH(int, failure);
    Fixture f;
    f.setAll({0, 10}, -1);
    TestStream stream(uniformState(Half));
    stream.failCall(call, failure, 4);
    QCOMPARE(f.component.setState(&stream), failure);
    QCOMPARE(stream.requests().size(), static_cast<std::size_t>(call));
    const int applied = std::max(0, call - 2);
    QCOMPARE(f.values(), filled(applied, 5, -1));
    QCOMPARE(f.host.callCount(), 4 * applied);
}

void tst_ZoltaComponent::everyShortStream()
{
    for (int size = 0; size <= StateSize; ++size) {
        Fixture f;
        f.setAll({0, 10}, -1);
        f.restore(uniformState(Half).left(size));
        QCOMPARE(f.result, size < StateSize ? kResultFalse : kResultOk);
        QCOMPARE(f.values(), filled(std::clamp(size / 4 - 1, 0, 27), 5, -1));
    }
}

// 0.75 is 3F 40 00 00: cut after one byte it is 0.5, after two it is whole.
void tst_ZoltaComponent::everyLyingStream()
{
    for (int size = 0; size <= StateSize; ++size) {
        Fixture f;
        f.setAll({0, 100}, -1);
        f.restore(uniformState(0x3F400000).left(size), TestStream::End::Lies);
        QCOMPARE(f.result, kResultOk);
        for (int place = 0; place < 27; ++place) {
            const int delivered = std::clamp(size - 4 - 4 * place, 0, 4);
            const int expected[] = {0, 50, 75, 75, 75};
            QCOMPARE(f.values()[static_cast<std::size_t>(place)], expected[delivered]);
        }
    }
}

// One byte a read: the version takes the first, and every value is 3F 00 00 00.
void tst_ZoltaComponent::bytesThatAreNotDeliveredAreZero()
{
    Fixture f;
    f.setAll({0, 10}, 10);
    for (const int portion : {1, 0}) {
        TestStream stream(QByteArray(29, '\x3F'), TestStream::End::Lies);
        stream.setPortion(portion);
        QCOMPARE(f.component.setState(&stream), kResultOk);
        QCOMPARE(f.values(), std::vector<int>(27, 5 * portion));
    }
}

QTEST_APPLESS_MAIN(tst_ZoltaComponent)
#include "tst_ZoltaComponent.moc"
