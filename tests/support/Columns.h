// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtTest>

/// The columns of a data table: their types, and as many names.
template <class... Types, class... Names> void addColumns(Names... names)
{
    static_assert(sizeof...(Types) == sizeof...(Names));
    (QTest::addColumn<Types>(names), ...);
}
