// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestObject.h"

#include <QRegularExpression>

void TestObject::init()
{
    // The offscreen platform says this of every window that is shown, and of every menu that pops
    // up; it is about the platform.
    static const QRegularExpression unexpected(
        QStringLiteral("^(?!This plugin does not support "
                       "(propagateSizeHints|raise\\(\\)|grabbing the keyboard))"));
    QTest::failOnWarning(unexpected);
}

#include "moc_TestObject.cpp"
