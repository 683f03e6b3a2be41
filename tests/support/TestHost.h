// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "interfaces/IMemAPI.h"
#include "interfaces/IMeterNotifier.h"
#include "interfaces/IMeterObserver.h"
#include "interfaces/IModelInfo.h"
#include "interfaces/IPrmObserver.h"

#include <QByteArray>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

/// A mixer host for tests: the model, the parameter memory and the meters of an imaginary device,
/// with a ledger of every call the code under test makes, and errors that can be planted in them.
///
/// As constructed it has channels 0 to N-1 and, on each of them, the equalizer's 27 parameters
/// "fx_rackfx_prm_1" to "fx_rackfx_prm_27", holding their defaults:
///
///     kind                   parameters              range         default
///     band type              1, 21                   0..3          3
///     frequency              2, 6, 10, 14, 18, 22    0..1200       600
///     quality                5, 9, 13, 17            0..500        250
///     gain                   3, 7, 11, 15, 19, 23    -200..200     0
///     band on/off            4, 8, 12, 16, 20, 24    0..1          1
///     input, output level    25, 26                  -200..200     0
///     clean/drive            27                      0..1          0
///
/// Parameter k has model index 99 + k, id 3000 + 13 k and second word 900 + k, so that code which
/// takes one of the four numbers for another fails. The meters "meter_oxa_snd" and "meter_oxa_rtn"
/// start at words 4 and 8 + 2 N and have N channels each.
///
/// The object plays two roles. Through model(), memory() and meterNotifier() the code under test
/// calls it as its host: these calls, and no others, are in the ledger and can be made to fail.
/// Through everything else the test arranges, operates and inspects the device: these calls never
/// fail and leave no trace; a name or channel that does not exist is a mistake in the test and ends
/// it with qFatal().
///
///     TestHost host;
///     component.setModelInfo(host.model());
///     component.setMemAPI(host.memory());
///     host.set("fx_rackfx_prm_3", 0, 120);                            // the user turns a knob
///     host.failCall(TestHost::Operation::GetRange, 3);                // the third query fails
///     QCOMPARE(host.count(TestHost::Operation::GetValue), 26);
///
/// Nothing that is handed in is owned. A host call for a parameter id, channel or observer that
/// the device does not have fails the way a planted error does.
class TestHost
{
public:
    /// What the code under test can call. Reserved stands for all the operations that are the
    /// host's own; calling one is recorded and gives a Qt warning, which fails the test.
    enum class Operation {
        GetChannelEntry,
        GetChannelCount,
        FindParameter,
        GetParameterAddress,
        FindMeter,
        GetMeterRange,
        GetValue,
        SetValue,
        GetRange,
        GetDefault,
        ValueToString,
        StringToValue,
        RegisterObserver,
        UnregisterObserver,
        QueryMeterNotifier,
        AddMeterObserver,
        RemoveMeterObserver,
        Reserved
    };

    /// One call as it was made. Fields that the operation does not have are as initialised here.
    struct Call
    {
        Operation operation = Operation::Reserved;
        /// The parameter id; for getParameterAddress and getMeterRange the model index.
        unsigned short parameter = 0;
        unsigned short ch = 0;
        /// The value written or to be formatted; the position asked for; the number of a reserved
        /// operation; the buffer size of valueToString is in trailing1.
        int value = 0;
        unsigned short element = 0;
        int trailing1 = 0;
        int trailing2 = 0;
        /// The name looked up or the text to be parsed.
        QByteArray text = {};
        const void* observer = nullptr;
        /// Whether the call was answered with a failure, planted or natural.
        bool failed = false;
    };

    /// A setValue call that succeeded.
    struct Write
    {
        QByteArray name;
        unsigned short ch;
        int value;

        bool operator==(const Write&) const = default;
    };

    /// Display text of a value; the result is handed out cut to the caller's buffer.
    using Formatter =
        std::function<QByteArray(const QByteArray& name, unsigned short ch, int value)>;
    /// Value of a display text; nothing makes stringToValue fail.
    using Parser = std::function<std::optional<int>(const QByteArray& name, unsigned short ch,
                                                    const QByteArray& text)>;

    explicit TestHost(unsigned short channels = 8);
    ~TestHost();
    TestHost(const TestHost&) = delete;
    TestHost& operator=(const TestHost&) = delete;

    /// The three services; they live as long as the host.
    IModelInfo* model() const;
    IMemAPI* memory() const;
    IMeterNotifier* meterNotifier() const;

    /// "fx_rackfx_prm_<number>".
    static QByteArray name(int number) { return "fx_rackfx_prm_" + QByteArray::number(number); }

    // The device -------------------------------------------------------------------------------

    /// Replaces the channel entries. Every parameter keeps the cells of channels that stay; a new
    /// channel gets the range and default of the parameter's lowest channel.
    void setChannels(const std::vector<unsigned short>& channels);

    /// Adds a parameter, on every channel, with the next free model index, and with an id and a
    /// second word no other has. Its value is \a defaultValue.
    void addParameter(const QByteArray& name, int minimum, int maximum, int defaultValue);
    void removeParameter(const QByteArray& name) { m_parameters.erase(index(name)); }
    unsigned short id(const QByteArray& name) const { return m_parameters.at(index(name)).id; }
    unsigned short index(const QByteArray& name) const;

    /// Range and default, on all channels or on one. Values and observers are left alone; say
    /// notifyProperty() to tell the observers.
    void setRange(const QByteArray& name, int minimum, int maximum);
    void setRange(const QByteArray& name, unsigned short ch, int minimum, int maximum);
    void setDefault(const QByteArray& name, int value);
    void setDefault(const QByteArray& name, unsigned short ch, int value)
    {
        known(name, ch).defaultValue = value;
    }
    std::pair<int, int> range(const QByteArray& name, unsigned short ch = 0) const
    {
        return {known(name, ch).minimum, known(name, ch).maximum};
    }
    int defaultValue(const QByteArray& name, unsigned short ch = 0) const
    {
        return known(name, ch).defaultValue;
    }

    /// Whether setValue brings values into the range before it stores them (off at first).
    void setClamping(bool on) { m_clamping = on; }
    /// Whether a change of value reaches the observers (on at first). Off is a host that stays
    /// silent, which shows who refreshes without being told.
    void setNotifying(bool on) { m_notifying = on; }
    /// Display texts; at first the decimal integer both ways. Without a function it is that again.
    void setFormatter(Formatter formatter);
    void setParser(Parser parser) { m_parser = std::move(parser); }
    /// Whether a display text that fills the caller's buffer still ends in a zero byte (on at
    /// first).
    void setTerminating(bool on) { m_terminating = on; }

    /// Adds or moves a meter.
    void setMeter(const QByteArray& name, unsigned short base, unsigned short count);
    void removeMeter(const QByteArray& name) { m_meters.erase(name); }

    // Operating the device ---------------------------------------------------------------------

    /// Stores a value as the device's own front panel would: not recorded, not clamped, and told to
    /// every observer of (\a name, \a ch).
    void set(const QByteArray& name, unsigned short ch, int value);
    /// The same, telling nobody.
    void setSilently(const QByteArray& name, unsigned short ch, int value)
    {
        known(name, ch).values[0] = value;
    }
    int value(const QByteArray& name, unsigned short ch, unsigned short element = 0) const
    {
        return known(name, ch).value(element);
    }

    /// Tells the observers of (\a name, \a ch) that a property changed.
    void notifyProperty(const QByteArray& name, unsigned short ch);

    /// Puts \a tenths of a dB into the word of a meter's \a channel (\a side 0 or 1). The upper
    /// half of each word holds a pattern that a reader has to ignore.
    void setMeterDb(const QByteArray& name, unsigned short channel, int tenths, int side = 0);
    /// Hands all words to every meter observer. Words never set hold -127.0 dB.
    void pushMetersDb();
    /// Hands \a words to every meter observer as they stand.
    void pushMetersDb(const std::vector<unsigned int>& words);
    void pushMetersLvl(const std::vector<unsigned int>& words);

    // The ledger -------------------------------------------------------------------------------

    /// Every call since construction or resetLedger(), in order.
    const std::vector<Call>& calls() const { return m_calls; }
    std::vector<Call> calls(Operation operation) const;
    /// How many there are, of one operation or of all.
    int count(Operation operation) const { return static_cast<int>(calls(operation).size()); }
    int callCount() const { return static_cast<int>(m_calls.size()); }
    /// The successful setValue calls, in order.
    std::vector<Write> writes() const;
    /// Forgets the calls so far. Planted errors and observers stay.
    void resetLedger() { m_calls.clear(); }

    /// Registrations that were made and not taken back; one made twice counts twice.
    int observerCount() const { return static_cast<int>(m_registrations.size()); }
    int observerCount(const QByteArray& name, unsigned short ch) const;
    bool isObserving(const IPrmObserver* observer, const QByteArray& name, unsigned short ch) const;
    int meterObserverCount() const { return static_cast<int>(m_meterObservers.size()); }

    // Errors -----------------------------------------------------------------------------------

    /// The \a n-th call of \a operation from now on (1 is the next one) fails, once: a status is
    /// -1, a bool false, a count 0, an operation without result does nothing, and no output is
    /// touched. Several can be planted.
    void failCall(Operation operation, int n) { m_errors[operation].push_back(n); }
    /// Every call of \a operation fails from now on.
    void failAll(Operation operation) { m_failAll[operation] = true; }
    /// The \a n-th call from now on fails, whichever operation it is. To sweep a run, plant 1,
    /// 2, ... and repeat it on a fresh host each time, until callCount() at its end is below n.
    void failAnyCall(int n) { m_failAny = n; }
    /// Takes back all planted errors.
    void clearErrors();

private:
    class Model;
    class Memory;
    class Meters;

    struct Cell
    {
        int minimum = 0;
        int maximum = 0;
        int defaultValue = 0;
        std::map<unsigned short, int> values = {};

        int value(unsigned short element) const;
    };
    struct Parameter
    {
        QByteArray name;
        unsigned short id = 0;
        unsigned short second = 0;
        std::map<unsigned short, Cell> cells = {};
    };
    struct Meter
    {
        unsigned short index = 0;
        unsigned short base = 0;
        unsigned short count = 0;
    };
    struct Registration
    {
        unsigned short parameter;
        unsigned short ch;
        IPrmObserver* observer;
        int ticket;
    };

    using Parameters = std::map<unsigned short, Parameter>;

    Parameters::const_iterator find(const QByteArray& name) const;
    Parameters::const_iterator find(unsigned short id) const;
    const QByteArray& nameOf(unsigned short id) const { return find(id)->second.name; }
    const Cell& known(const QByteArray& name, unsigned short ch) const;
    Cell& known(const QByteArray& name, unsigned short ch);
    Cell* cell(unsigned short id, unsigned short ch);
    int registrations(const IPrmObserver* observer, unsigned short id, unsigned short ch) const;
    std::size_t meterWordCount() const;

    bool enter(Call call, bool possible = true);
    bool takeError(Operation operation);
    void recordReserved(int number);
    void tell(unsigned short id, unsigned short ch,
              const std::function<void(IPrmObserver*)>& message);
    void tellValue(unsigned short id, unsigned short ch, int value);
    void tellMeters(const std::vector<unsigned int>& words,
                    void (IMeterObserver::*message)(unsigned int*, unsigned int));

    std::unique_ptr<Model> m_model;
    std::unique_ptr<Memory> m_memory;
    std::unique_ptr<Meters> m_meterNotifier;

    std::vector<unsigned short> m_channels;
    Parameters m_parameters; // by model index
    unsigned short m_nextIndex = 100;
    std::map<QByteArray, Meter> m_meters;
    std::map<std::size_t, unsigned int> m_meterWords;
    bool m_clamping = false;
    bool m_notifying = true;
    bool m_terminating = true;
    Formatter m_formatter;
    Parser m_parser;

    std::vector<Registration> m_registrations;
    int m_nextTicket = 0;
    std::vector<IMeterObserver*> m_meterObservers;

    std::vector<Call> m_calls;
    std::map<Operation, std::vector<int>> m_errors;
    std::map<Operation, bool> m_failAll;
    int m_failAny = 0;
};
