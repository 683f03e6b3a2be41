// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/meters/MeterSource.h"
#include "hosting/HostMemory.h"
#include "hosting/HostModel.h"
#include "interfaces/IMeterObserver.h"
#include "tests/support/TestObject.h"

#include <QCoreApplication>

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

class RecordingObserver : public IMeterObserver
{
public:
    void notifyMeterLvlUpdated(unsigned int*, unsigned int) override {}
    void notifyMeterDbUpdated(unsigned int* values, unsigned int count) override
    {
        ++updates;
        words.assign(values, values + count);
    }

    int updates = 0;
    std::vector<unsigned int> words;
};

} // namespace

class tst_MeterSource : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { cleanup(); }
    void cleanup();
    void runsOnlyWhileSomebodyObserves();
    void stopsWhenTheObserverHasLeft();
    void offReadsNothing();
    void readsOnlyWhatIsShown_data();
    void readsOnlyWhatIsShown();
    void laysTheWordsOutAsTheModelSays();
    void unreadChannelsStandAtTheBottom();
    void tellsTheProducerEverything();
    void theLaterEditorDecidesTheRate();
    void takesAnotherProducer();
    void anObserverMayLeaveMeanwhile();
    void theTimerReads();

private:
    std::vector<int> channelsRead() const;
    int word(const char* meter, unsigned short channel) const;

    std::unique_ptr<HostMemory> m_memory;
    std::vector<Call> m_calls;
    std::unique_ptr<MeterSource> m_source;
    RecordingObserver m_observer;
    int m_viewers[4] = {};
};

// Each test begins with a memory that is observed, and a source that nobody looks at.
void tst_MeterSource::cleanup()
{
    m_source.reset();
    m_memory = std::make_unique<HostMemory>();
    m_calls.clear();
    m_observer = {};
    m_memory->meters().addMeterObserver(&m_observer);
    m_source =
        std::make_unique<MeterSource>(*m_memory, std::make_unique<RecordingProducer>(&m_calls));
}

std::vector<int> tst_MeterSource::channelsRead() const
{
    std::vector<int> channels;
    for (const Call& call : m_calls)
        channels.push_back(call.channel);
    return channels;
}

// What an editor reads of a meter, the way it finds it.
int tst_MeterSource::word(const char* meter, unsigned short channel) const
{
    HostModel model;
    unsigned short index = 0;
    unsigned short base = 0;
    unsigned short count = 0;
    if (!model.findMeter(&index, meter) || !model.getMeterRange(&base, &count, index))
        qFatal("no meter %s", meter);
    return static_cast<short>(m_observer.words.at(base + 2U * channel));
}

void tst_MeterSource::runsOnlyWhileSomebodyObserves()
{
    QVERIFY(!m_source->isRunning());
    m_source->show(&m_viewers[0], {0, 1, 48000});
    QVERIFY(m_source->isRunning());
    m_source->show(&m_viewers[1], {4, -1, 48000});
    m_source->hide(&m_viewers[0]);
    QVERIFY(m_source->isRunning());
    m_source->hide(&m_viewers[1]);
    QVERIFY(!m_source->isRunning());
    m_source->hide(&m_viewers[2]); // never came
    m_memory->meters().removeMeterObserver(&m_observer);
    m_source->show(&m_viewers[0], {0, 1, 48000});
    QVERIFY(!m_source->isRunning());
}

void tst_MeterSource::stopsWhenTheObserverHasLeft()
{
    m_source->show(&m_viewers[0], {0, 1, 48000});
    m_memory->meters().removeMeterObserver(&m_observer);
    m_source->advance(0.033);
    QVERIFY(m_calls.empty());
    QVERIFY(!m_source->isRunning());
}

void tst_MeterSource::offReadsNothing()
{
    m_source->setEnabled(false);
    m_source->show(&m_viewers[0], {0, 1, 48000});
    QVERIFY(!m_source->isRunning());
    m_source->advance(0.033);
    QVERIFY(m_calls.empty());
    QCOMPARE(m_observer.updates, 0);
    m_source->setEnabled(true);
    QVERIFY(m_source->isRunning());
    m_source->setEnabled(false);
    QVERIFY(!m_source->isRunning());
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
}

void tst_MeterSource::readsOnlyWhatIsShown()
{
    QFETCH(const QList<QPoint>, views);
    for (qsizetype i = 0; i < views.size(); ++i)
        m_source->show(&m_viewers[i], {views[i].x(), views[i].y(), 48000});
    m_source->advance(0.033);
    QTEST(channelsRead(), "expected");
    QCOMPARE(m_observer.updates, 1);
    m_calls.clear();
    for (int& viewer : m_viewers)
        m_source->hide(&viewer);
    m_source->advance(0.033);
    QVERIFY(m_calls.empty());
    QCOMPARE(m_observer.updates, 1);
}

void tst_MeterSource::laysTheWordsOutAsTheModelSays()
{
    m_source->show(&m_viewers[0], {2, 3, 48000});
    m_source->show(&m_viewers[1], {6, 7, 48000});
    m_source->advance(0.033);
    QCOMPARE(m_observer.words.size(), 32U);
    for (const int channel : {2, 3, 6, 7}) {
        QCOMPARE(word("meter_oxa_snd", static_cast<unsigned short>(channel)), -channel);
        QCOMPARE(word("meter_oxa_rtn", static_cast<unsigned short>(channel)), -channel - 100);
    }
}

void tst_MeterSource::unreadChannelsStandAtTheBottom()
{
    m_source->show(&m_viewers[0], {2, -1, 48000});
    m_source->advance(0.033);
    for (const int channel : {0, 1, 3, 4, 5, 6, 7}) {
        QCOMPARE(word("meter_oxa_snd", static_cast<unsigned short>(channel)), -1270);
        QCOMPARE(word("meter_oxa_rtn", static_cast<unsigned short>(channel)), -1270);
    }
}

void tst_MeterSource::tellsTheProducerEverything()
{
    m_memory->setValue(0x0103, 5, 77, 0, 0, 1);
    m_source->show(&m_viewers[0], {5, 4, 96000});
    m_source->advance(0.25);
    QCOMPARE(m_calls.size(), 2U);
    QCOMPARE(m_calls[1].channel, 5);
    QCOMPARE(m_calls[1].values, m_memory->values(5));
    QCOMPARE(m_calls[1].sampleRate, 96000);
    QCOMPARE(m_calls[1].seconds, 0.25);
}

void tst_MeterSource::theLaterEditorDecidesTheRate()
{
    m_source->show(&m_viewers[0], {0, 1, 96000});
    m_source->show(&m_viewers[1], {1, -1, 44100});
    m_source->advance(0.033);
    QCOMPARE(m_calls[0].sampleRate, 96000);
    QCOMPARE(m_calls[1].sampleRate, 44100);
    m_calls.clear();
    m_source->show(&m_viewers[0], {0, 1, 192000});
    m_source->advance(0.033);
    QCOMPARE(m_calls[1].sampleRate, 192000);
}

void tst_MeterSource::takesAnotherProducer()
{
    std::vector<Call> others;
    m_source->show(&m_viewers[0], {0, -1, 48000});
    m_source->setProducer(std::make_unique<RecordingProducer>(&others));
    m_source->advance(0.033);
    QVERIFY(m_calls.empty());
    QCOMPARE(others.size(), 1U);
}

void tst_MeterSource::anObserverMayLeaveMeanwhile()
{
    class Leaver : public RecordingObserver
    {
    public:
        Leaver(HostMemory* memory, MeterSource* source, const void* viewer)
            : m_memory(memory)
            , m_source(source)
            , m_viewer(viewer)
        {}
        void notifyMeterDbUpdated(unsigned int* values, unsigned int count) override
        {
            RecordingObserver::notifyMeterDbUpdated(values, count);
            m_memory->meters().removeMeterObserver(this);
            m_source->hide(m_viewer);
        }

    private:
        HostMemory* m_memory;
        MeterSource* m_source;
        const void* m_viewer;
    };
    m_memory->meters().removeMeterObserver(&m_observer);
    Leaver leaver(m_memory.get(), m_source.get(), &m_viewers[0]);
    m_memory->meters().addMeterObserver(&leaver);
    m_source->show(&m_viewers[0], {0, 1, 48000});
    m_source->advance(0.033);
    m_source->advance(0.033);
    QCOMPARE(leaver.updates, 1);
    QVERIFY(!m_source->isRunning());
}

void tst_MeterSource::theTimerReads()
{
    m_source->show(&m_viewers[0], {0, -1, 48000});
    QTRY_VERIFY(m_observer.updates >= 2);
    for (const Call& call : m_calls)
        QVERIFY(call.seconds > 0.0);
}

QTEST_GUILESS_MAIN(tst_MeterSource)

#include "tst_MeterSource.moc"
