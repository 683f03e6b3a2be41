// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestObject.h"
#include "tests/support/TestStream.h"

using namespace Steinberg;

class tst_TestStream : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsInOrder();
    void endFailsOrLies();
    void failsTheChosenCall();
    void deliversPortions();
    void appendsWrites();
};

void tst_TestStream::readsInOrder()
{
    TestStream stream("abcdef");
    char buffer[4] = {};
    int32 count = 0;
    QCOMPARE(stream.read(buffer, 2, nullptr), kResultOk);
    QCOMPARE(QByteArray(buffer), QByteArray("ab"));
    QCOMPARE(stream.read(buffer, 3, &count), kResultOk);
    QCOMPARE(QByteArray(buffer), QByteArray("cde"));
    QCOMPARE(count, 3);
    QCOMPARE(stream.position(), 5);
    QCOMPARE(stream.requests().size(), std::size_t(2));
    QVERIFY(!stream.requests()[0].asksForCount);
    QVERIFY(stream.requests()[1].asksForCount);
}

void tst_TestStream::endFailsOrLies()
{
    char buffer[5] = "....";
    TestStream honest("ab");
    QCOMPARE(honest.read(buffer, 4, nullptr), kResultFalse);
    QCOMPARE(QByteArray(buffer), QByteArray("...."));
    TestStream liar("ab", TestStream::End::Lies);
    QCOMPARE(liar.read(buffer, 4, nullptr), kResultOk);
    QCOMPARE(QByteArray(buffer), QByteArray("ab.."));
}

void tst_TestStream::failsTheChosenCall()
{
    char buffer[5] = "....";
    TestStream stream("abcdefgh");
    stream.failCall(2, kInternalError, 3);
    QCOMPARE(stream.read(buffer, 2, nullptr), kResultOk);
    QCOMPARE(stream.read(buffer, 4, nullptr), kInternalError);
    QCOMPARE(QByteArray(buffer), QByteArray("cde."));
    QCOMPARE(stream.read(buffer, 1, nullptr), kResultOk);
    QCOMPARE(buffer[0], 'f');
}

void tst_TestStream::deliversPortions()
{
    char buffer[5] = "....";
    TestStream stream("abcd");
    stream.setPortion(1);
    QCOMPARE(stream.read(buffer, 4, nullptr), kResultOk);
    QCOMPARE(QByteArray(buffer), QByteArray("a..."));
    QCOMPARE(stream.position(), 1);
}

void tst_TestStream::appendsWrites()
{
    TestStream stream;
    char text[] = "abcd";
    stream.failCall(2, kOutOfMemory, 1);
    QCOMPARE(stream.write(text, 4, nullptr), kResultOk);
    QCOMPARE(stream.write(text, 4, nullptr), kOutOfMemory);
    QCOMPARE(stream.bytes(), QByteArray("abcda"));
    QVERIFY(!stream.requests()[0].isRead);
}

QTEST_APPLESS_MAIN(tst_TestStream)
#include "tst_TestStream.moc"
