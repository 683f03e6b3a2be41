// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The headers that the tests are precompiled with. Every file still includes what it uses.
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPainter>
#include <QToolBar>
#include <QtTest>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>
