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

private:
    // What is in the buffer afterwards.
    static QByteArray read(TestStream& stream, int size, tresult expected = kResultOk)
    {
        char buffer[6] = ".....";
        return stream.read(buffer, size, nullptr) == expected ? QByteArray(buffer) : QByteArray();
    }
};

void tst_TestStream::readsInOrder()
{
    TestStream stream("abcdef");
    QCOMPARE(read(stream, 2), QByteArray("ab..."));
    char buffer[4] = {};
    int32 count = 0;
    QCOMPARE(stream.read(buffer, 3, &count), kResultOk);
    QCOMPARE(QByteArray(buffer), QByteArray("cde"));
    QCOMPARE(count, 3);
    QCOMPARE(stream.position(), 5);
    QVERIFY(!stream.requests().at(0).asksForCount && stream.requests().at(1).asksForCount);
}

void tst_TestStream::endFailsOrLies()
{
    TestStream honest("ab");
    QCOMPARE(read(honest, 4, kResultFalse), QByteArray("....."));
    TestStream liar("ab", TestStream::End::Lies);
    QCOMPARE(read(liar, 4), QByteArray("ab..."));
    TestStream miser("abcd");
    miser.setPortion(1);
    QCOMPARE(read(miser, 4), QByteArray("a...."));
    QCOMPARE(miser.position(), 1);
}

void tst_TestStream::failsTheChosenCall()
{
    TestStream source("abcdefgh");
    source.failCall(2, kInternalError, 3);
    QCOMPARE(read(source, 2), QByteArray("ab..."));
    QCOMPARE(read(source, 4, kInternalError), QByteArray("cde.."));
    QCOMPARE(read(source, 1), QByteArray("f...."));
    TestStream target;
    char text[] = "abcd";
    target.failCall(2, kOutOfMemory, 1);
    QCOMPARE(target.write(text, 4, nullptr), kResultOk);
    QCOMPARE(target.write(text, 4, nullptr), kOutOfMemory);
    QCOMPARE(target.bytes(), QByteArray("abcda"));
    QVERIFY(!target.requests()[0].isRead);
}

QTEST_APPLESS_MAIN(tst_TestStream)
#include "tst_TestStream.moc"
