// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtTest>

/// Adds the columns of a test's data table: addColumns<int, QString>("number", "text").
template <typename... Types, typename... Names> void addColumns(Names... names)
{
    static_assert(sizeof...(Types) == sizeof...(Names));
    (QTest::addColumn<Types>(names), ...);
}
