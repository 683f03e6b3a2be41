// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/engine/AudioEngine.h"
#include "tests/host/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

#include <atomic>
#include <cstdlib>
#include <dlfcn.h>
#include <memory>
#include <mutex>
#include <new>
#include <pthread.h>

// The audio thread must never wait. While a trap is set on a thread, its allocations and locks are
// counted, through the functions that every one of them ends in.
namespace {

thread_local bool trapped = false;
thread_local int allocations = 0;
thread_local int locks = 0;

void countAllocation() { allocations += trapped ? 1 : 0; }

using Lock = int (*)(pthread_mutex_t*);

} // namespace

void* operator new(std::size_t size)
{
    countAllocation();
    if (void* memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    countAllocation();
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    countAllocation();
    std::free(memory);
}

#ifndef __SANITIZE_ADDRESS__
extern "C" void* __libc_malloc(std::size_t size);

extern "C" void* malloc(std::size_t size)
{
    countAllocation();
    return __libc_malloc(size);
}
#endif

extern "C" int pthread_mutex_lock(pthread_mutex_t* mutex)
{
    static std::atomic<Lock> next = nullptr;
    if (!next)
        next = reinterpret_cast<Lock>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
    locks += trapped ? 1 : 0;
    return next.load()(mutex);
}

using namespace EngineTesting;

class tst_EngineTraps : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void trapsAreSet();
    void processingNeitherAllocatesNorLocks_data();
    void processingNeitherAllocatesNorLocks();

private:
    template <typename Action> static std::pair<int, int> trap(Action action);
};

// The allocations and the locks of an action.
template <typename Action> std::pair<int, int> tst_EngineTraps::trap(Action action)
{
    allocations = locks = 0;
    trapped = true;
    action();
    trapped = false;
    return {allocations, locks};
}

void tst_EngineTraps::trapsAreSet()
{
    std::unique_ptr<Block> block;
    std::mutex mutex;
    QVERIFY(trap([&block] { block = std::make_unique<Block>(10); }).first > 0);
    QCOMPARE(trap([&mutex] { const std::lock_guard guard(mutex); }).second, 1);
}

void tst_EngineTraps::processingNeitherAllocatesNorLocks_data()
{
    QTest::addColumn<int>("rate");
    QTest::newRow("48 kHz") << 48000;
    QTest::newRow("192 kHz") << 192000;
}

void tst_EngineTraps::processingNeitherAllocatesNorLocks()
{
    QFETCH(const int, rate);
    const auto engine = std::make_unique<AudioEngine>();
    engine->setSampleRate(rate);
    std::minstd_rand generator(5);
    std::array<std::vector<float>, channelCount> samples;
    std::array<Block, channelCount> doubles;
    std::array<float*, channelCount> pointers{};
    std::array<double*, channelCount> doublePointers{};
    const Block signal = noise(300);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i].assign(signal.begin(), signal.end());
        pointers[i] = samples[i].data();
        doubles[i] = signal;
        doublePointers[i] = doubles[i].data();
    }
    for (int round = 0; round < 200; ++round) {
        for (int channel = 0; channel < channelCount; ++channel) {
            Values values{};
            for (std::size_t i = 0; i < values.size(); ++i) {
                const Parameter& p = parameterTable[i];
                values[i] = std::uniform_int_distribution<int>(p.minimum, p.maximum)(generator);
            }
            engine->publish(channel, values);
        }
        const std::pair<int, int> trapped = trap([&] {
            engine->process(pointers, signal.size());
            engine->process(doublePointers, signal.size());
        });
        QCOMPARE(trapped, std::pair(0, 0));
    }
    QVERIFY(engine->levels(3).returned > MeterLevels::lowest);
}

QTEST_APPLESS_MAIN(tst_EngineTraps)

#include "tst_EngineTraps.moc"
