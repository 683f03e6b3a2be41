// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/window/Conversation.h"
#include "parameters/ParameterTable.h"
#include "tests/support/TestObject.h"

#include <sys/socket.h>
#include <unistd.h>

namespace {

struct Line
{
    Line()
    {
        const auto [plugin, editor] = Conversation::makeEnds();
        near.begin(plugin);
        far.begin(editor);
    }

    std::vector<Message> received()
    {
        std::vector<Message> messages;
        far.receive([&](const Message& message) { messages.push_back(message); });
        return messages;
    }
    std::vector<Message> receivedUntilEmpty()
    {
        std::vector<Message> all;
        std::vector<Message> some;
        do {
            near.flush();
            some = received();
            all.insert(all.end(), some.begin(), some.end());
        } while (near.hasWaiting() || !some.empty());
        return all;
    }
    /// Messages about another thing each, until the socket takes no more.
    void fill()
    {
        while (!near.hasWaiting() && near.isOpen())
            near.send({MessageKind::Begin, 26, 0});
    }

    Conversation near, far;
};

Message value(int parameter, int raw)
{
    return {MessageKind::Value, static_cast<std::uint16_t>(parameter), raw};
}
Message begin(int parameter)
{
    return {MessageKind::Begin, static_cast<std::uint16_t>(parameter), 0};
}
Message end(int parameter) { return {MessageKind::End, static_cast<std::uint16_t>(parameter), 0}; }

} // namespace

class tst_Conversation : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void messagesArriveInOrder()
    {
        Line line;
        const std::vector<Message> sent = {begin(2),
                                           value(2, 30),
                                           end(2),
                                           {MessageKind::SampleRate, 0, 96000},
                                           {MessageKind::Size, 977, 559},
                                           {MessageKind::Meter, OutRight, -183}};
        for (const Message& message : sent)
            line.near.send(message);
        QCOMPARE(line.received(), sent);
        QVERIFY(line.received().empty());
    }

    void onlyTheNewestOfWhatWaitsIsSent()
    {
        Line line;
        line.fill();
        for (int i = 0; i <= 100; ++i)
            line.near.send({MessageKind::Meter, InLeft, -i});
        for (int i = 1; i <= 100; ++i)
            line.near.send({MessageKind::Size, static_cast<std::uint16_t>(i), i});
        const std::vector<Message> all = line.receivedUntilEmpty();
        const std::vector<Message> last(all.end() - 2, all.end());
        const std::vector<Message> expected = {{MessageKind::Meter, InLeft, -100},
                                               {MessageKind::Size, 100, 100}};
        QCOMPARE(last, expected);
        QVERIFY(line.near.isOpen());
    }

    void aWaitingValueStaysInItsGesture()
    {
        Line line;
        line.fill();
        const std::vector<Message> sent = {begin(2),     value(2, 10), value(2, 20), end(2),
                                           value(2, 30), value(3, 1),  value(2, 40)};
        for (const Message& message : sent)
            line.near.send(message);
        const std::vector<Message> all = line.receivedUntilEmpty();
        const std::vector<Message> expected = {begin(2), value(2, 20), end(2), value(2, 40),
                                               value(3, 1)};
        QCOMPARE(std::vector<Message>(all.end() - 5, all.end()), expected);
    }

    void aPeerThatNeverReadsEndsIt()
    {
        Line line;
        for (std::size_t i = 0; i < 10 * Conversation::maxWaiting; ++i)
            line.near.send(begin(3));
        QVERIFY(!line.near.isOpen());
        QCOMPARE(line.near.descriptor(), -1);
    }

    void aPeerThatLeavesEndsIt()
    {
        Line line;
        line.near.end();
        QVERIFY(line.received().empty());
        QVERIFY(!line.far.isOpen());
        line.far.send(begin(1));
        line.far.flush();
        QVERIFY(!line.far.hasWaiting());
    }

    void whatIsNoMessageEndsIt_data()
    {
        QTest::addColumn<QByteArray>("packet");
        const auto row = [](const char* name, const Message& message) {
            QTest::newRow(name) << QByteArray(reinterpret_cast<const char*>(&message),
                                              sizeof message);
        };
        row("kind that does not exist", {static_cast<MessageKind>(7), 0, 0});
        row("value of no parameter", {MessageKind::Value, parameterCount, 0});
        row("value below the range", value(1, parameterTable[1].minimum - 1));
        row("value above the range", value(1, parameterTable[1].maximum + 1));
        row("gesture on no parameter", begin(parameterCount));
        row("end with a value", {MessageKind::End, 3, 1});
        row("meter that does not exist", {MessageKind::Meter, MeterPlaceCount, 0});
        row("level beyond 16 bits", {MessageKind::Meter, InLeft, 40000});
        row("rate 0", {MessageKind::SampleRate, 0, 0});
        row("rate with an index", {MessageKind::SampleRate, 1, 48000});
        row("size of no width", {MessageKind::Size, 0, 100});
        row("size of negative height", {MessageKind::Size, 100, -1});
        row("ready with a value", {MessageKind::Ready, 0, 1});
        QTest::newRow("part of a message") << QByteArray(7, '\0');
        QTest::newRow("a message and a part") << QByteArray(12, '\0');
        QTest::newRow("longer than any packet") << QByteArray(8 * 65, '\0');
        QTest::newRow("empty packet") << QByteArray();
    }

    void whatIsNoMessageEndsIt()
    {
        QFETCH(QByteArray, packet);
        const auto [plugin, editor] = Conversation::makeEnds();
        Conversation conversation;
        conversation.begin(plugin);
        QCOMPARE(::send(editor, packet.constData(), static_cast<std::size_t>(packet.size()), 0),
                 packet.size());
        std::vector<Message> received;
        conversation.receive([&](const Message& message) { received.push_back(message); });
        QVERIFY(!conversation.isOpen());
        QVERIFY(received.size() <= 1);
        ::close(editor);
    }

    void theReceiverMayEndItMeanwhile()
    {
        Line line;
        line.near.send(begin(1));
        line.near.send(end(1));
        int count = 0;
        line.far.receive([&](const Message&) {
            ++count;
            line.far.end();
        });
        QCOMPARE(count, 1);
    }
};

QTEST_GUILESS_MAIN(tst_Conversation)
#include "tst_Conversation.moc"
