// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QtTest>

/// The base of every test class: a Qt warning that a test does not announce with
/// QTest::ignoreMessage() fails it.
class TestObject : public QObject
{
    Q_OBJECT

protected Q_SLOTS:
    void init();
};

/// main() of a test program that shows widgets; arguments and platform as QtTest takes them.
#define ZOLTA_TEST_MAIN(TestClass)                                                                 \
    int main(int argc, char* argv[])                                                               \
    {                                                                                              \
        QApplication application(argc, argv);                                                      \
        QTEST_SET_MAIN_SOURCE_PATH                                                                 \
        TestClass test;                                                                            \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
