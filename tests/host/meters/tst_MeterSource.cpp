// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/meters/MeterSource.h"
#include "hosting/HostMemory.h"
#include "hosting/HostModel.h"
#include "interfaces/IMeterObserver.h"
#include "tests/support/TestObject.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTimer>

#include <functional>

namespace {

struct Call
{
    int channel;
    HostMemory::Values values;
    int sampleRate;
    double seconds;
};

// Channel c sends c tenths of a dB below zero and returns 100 less.
class RecordingProducer : public MeterProducer
{
public:
    explicit RecordingProducer(std::vector<Call>* calls)
        : m_calls(calls)
    {}

    MeterLevels read(int channel, const HostMemory::Values& values, int sampleRate,
                     double seconds) override
    {
        m_calls->push_back({channel, values, sampleRate, seconds});
        return {-channel, -channel - 100};
    }

private:
    std::vector<Call>* m_calls;
};

// Nothing but silence, and not before somebody changes something.
class SilentProducer : public MeterProducer
{
public:
    MeterLevels read(int, const HostMemory::Values&, int, double) override { return {}; }
    bool isResting() const override { return true; }
};

class RecordingObserver : public IMeterObserver
{
public:
    void notifyMeterLvlUpdated(unsigned int*, unsigned int) override {}
    void notifyMeterDbUpdated(unsigned int* values, unsigned int count) override
    {
        ++updates;
        words.assign(values, values + count);
        if (act)
            act();
    }

    int updates = 0;
    std::vector<unsigned int> words;
    std::function<void()> act;
};

} // namespace

class tst_MeterSource : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void readsNothingThatNobodySees();
    void offReadsNothing();
    void readsOnlyWhatIsShown_data();
    void readsOnlyWhatIsShown();
    void tellsTheProducerEverything();
    void theLaterEditorDecidesTheRate();
    void takesAnotherProducer();
    void anObserverMayLeaveMeanwhile();
    void theTimerReads();
    void theTimerRestsInSilence();

private:
    void show(int viewer, const MeterSource::View& view)
    {
        m_source->show(&m_viewers[viewer], view);
    }
    void hide(int viewer) { m_source->hide(&m_viewers[viewer]); }
    std::vector<int> channelsRead();
    int word(const char* meter, int channel) const;

    std::unique_ptr<HostMemory> m_memory;
    std::vector<Call> m_calls;
    std::unique_ptr<MeterSource> m_source;
    RecordingObserver m_observer;
    int m_viewers[4] = {};
};

// A memory that is observed, and a source that nobody looks at.
void tst_MeterSource::init()
{
    TestObject::init();
    m_source.reset();
    m_memory = std::make_unique<HostMemory>();
    m_calls.clear();
    m_observer = {};
    m_memory->meters().addMeterObserver(&m_observer);
    m_source =
        std::make_unique<MeterSource>(*m_memory, std::make_unique<RecordingProducer>(&m_calls));
}

// By one reading.
std::vector<int> tst_MeterSource::channelsRead()
{
    m_calls.clear();
    m_source->advance(0.033);
    std::vector<int> channels;
    for (const Call& call : m_calls)
        channels.push_back(call.channel);
    return channels;
}

// What an editor reads of a meter, the way it finds it.
int tst_MeterSource::word(const char* meter, int channel) const
{
    HostModel model(*m_memory);
    unsigned short index = 0;
    unsigned short base = 0;
    unsigned short count = 0;
    if (!model.findMeter(&index, meter) || !model.getMeterRange(&base, &count, index))
        qFatal("no meter %s", meter);
    return static_cast<short>(m_observer.words.at(static_cast<std::size_t>(base + 2 * channel)));
}

void tst_MeterSource::readsNothingThatNobodySees()
{
    QCOMPARE(channelsRead(), std::vector<int>());
    show(0, {0, 1, 48000});
    show(1, {4, -1, 48000});
    hide(0);
    QCOMPARE(channelsRead(), std::vector<int>{4});
    hide(1);
    hide(2); // never came
    QCOMPARE(channelsRead(), std::vector<int>());
    show(0, {0, 1, 48000});
    m_memory->meters().removeMeterObserver(&m_observer);
    QCOMPARE(channelsRead(), std::vector<int>());
    QCOMPARE(m_observer.updates, 1);
}

void tst_MeterSource::offReadsNothing()
{
    m_source->setEnabled(false);
    show(0, {0, -1, 48000});
    QCOMPARE(channelsRead(), std::vector<int>());
    QCOMPARE(m_observer.updates, 0);
    m_source->setEnabled(true);
    QTRY_VERIFY(m_observer.updates >= 1);
    QCOMPARE(channelsRead(), std::vector<int>{0});
}

void tst_MeterSource::readsOnlyWhatIsShown_data()
{
    QTest::addColumn<QList<QPoint>>("views"); // channel and partner
    QTest::addColumn<std::vector<int>>("expected");
    QTest::newRow("a pair") << QList<QPoint>{{2, 3}} << std::vector<int>{2, 3};
    QTest::newRow("a channel alone") << QList<QPoint>{{5, -1}} << std::vector<int>{5};
    QTest::newRow("several") << QList<QPoint>{{6, 7}, {1, -1}} << std::vector<int>{1, 6, 7};
    QTest::newRow("the same twice") << QList<QPoint>{{0, 1}, {1, 0}} << std::vector<int>{0, 1};
    QTest::newRow("all") << QList<QPoint>{{0, 1}, {2, 3}, {4, 5}, {6, 7}}
                         << std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7};
    QTest::newRow("the last of 32")
        << QList<QPoint>{{30, 31}, {1, -1}} << std::vector<int>{1, 30, 31};
}

// The other channels' meters stand at the bottom.
void tst_MeterSource::readsOnlyWhatIsShown()
{
    QFETCH(const QList<QPoint>, views);
    QFETCH(std::vector<int>, expected);
    m_memory->setChannelCount(32);
    for (int i = 0; i < views.size(); ++i)
        show(i, {views[i].x(), views[i].y(), 48000});
    QCOMPARE(channelsRead(), expected);
    QCOMPARE(m_observer.updates, 1);
    QCOMPARE(m_observer.words.size(), 128U);
    for (int channel = 0; channel < 32; ++channel) {
        const bool read = std::count(expected.begin(), expected.end(), channel) > 0;
        QCOMPARE(word("meter_oxa_snd", channel), read ? -channel : -1270);
        QCOMPARE(word("meter_oxa_rtn", channel), read ? -channel - 100 : -1270);
    }
    m_memory->setChannelCount(2); // what is gone is not read, whoever shows it still
    std::erase_if(expected, [](int channel) { return channel >= 2; });
    QCOMPARE(channelsRead(), expected);
}

void tst_MeterSource::tellsTheProducerEverything()
{
    m_memory->setValue(0x0103, 5, 77, 0, 0, 1);
    show(0, {5, 4, 96000});
    m_source->advance(0.25);
    QCOMPARE(m_calls.size(), 2U);
    QCOMPARE(m_calls[1].channel, 5);
    QCOMPARE(m_calls[1].values, m_memory->values(5));
    QCOMPARE(m_calls[1].sampleRate, 96000);
    QCOMPARE(m_calls[1].seconds, 0.25);
}

void tst_MeterSource::theLaterEditorDecidesTheRate()
{
    show(0, {0, 1, 96000});
    show(1, {1, -1, 44100});
    m_source->advance(0.033);
    QCOMPARE(m_calls[0].sampleRate, 96000);
    QCOMPARE(m_calls[1].sampleRate, 44100);
    show(0, {0, 1, 192000});
    m_source->advance(0.033);
    QCOMPARE(m_calls[3].sampleRate, 192000);
}

void tst_MeterSource::takesAnotherProducer()
{
    std::vector<Call> others;
    show(0, {0, -1, 48000});
    m_source->setProducer(std::make_unique<RecordingProducer>(&others));
    QCOMPARE(channelsRead(), std::vector<int>());
    QCOMPARE(others.size(), 1U);
}

void tst_MeterSource::anObserverMayLeaveMeanwhile()
{
    m_observer.act = [this] {
        m_memory->meters().removeMeterObserver(&m_observer);
        hide(0);
    };
    show(0, {0, 1, 48000});
    m_source->advance(0.033);
    m_source->advance(0.033);
    QCOMPARE(m_observer.updates, 1);
}

void tst_MeterSource::theTimerReads()
{
    show(0, {0, -1, 48000});
    QTRY_VERIFY(m_observer.updates >= 2);
    for (const Call& call : m_calls)
        QVERIFY(call.seconds > 0.0);
}

void tst_MeterSource::theTimerRestsInSilence()
{
    m_source->setProducer(std::make_unique<SilentProducer>());
    show(0, {0, -1, 48000});
    const auto ticks = [this] {
        const int before = m_observer.updates;
        QTimer beats; // as many as the source's own timer would have in between
        QSignalSpy spy(&beats, &QTimer::timeout);
        beats.start(MeterSource::interval);
        [&] { QTRY_VERIFY(spy.count() >= 3); }();
        return m_observer.updates - before;
    };
    QVERIFY(ticks() > 0);
    m_source->advance(MeterSource::restsAfter);
    QCOMPARE(ticks(), 0);
    m_source->wake();
    QVERIFY(ticks() > 0);
    m_source->advance(MeterSource::restsAfter);
    show(1, {2, -1, 48000}); // whoever comes is shown something
    QVERIFY(ticks() > 0);
    m_source->setProducer(std::make_unique<RecordingProducer>(&m_calls));
    m_source->advance(MeterSource::restsAfter);
    QVERIFY(ticks() > 0);
}

QTEST_GUILESS_MAIN(tst_MeterSource)

#include "tst_MeterSource.moc"
