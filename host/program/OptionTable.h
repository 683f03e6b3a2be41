// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/program/CommandLine.h"
#include "hosting/Result.h"

#include <span>
#include <vector>

/// One option of the command line. Reading and checking it, the help, the manual page and the
/// shell's completion all come from here.
struct Option
{
    using Set = Status (*)(const Option& option, const QString& value, CommandLine* line);

    const char* name;     ///< without its dashes
    const char* argument; ///< as the help shows it; empty: none
    const char* help;     ///< in English; the translations' context is "CommandLine"
    Set set;              ///< writes the value, which is empty where there is no argument
    std::vector<const char*> excludes = {}; ///< options that it cannot be combined with
    std::vector<const char*> needs = {};    ///< it is used with one of these only; empty: always
    bool repeatable = false;                ///< every value counts, not only the last one
    const char* letter = "";                ///< another name, with one dash
};

struct OptionGroup
{
    const char* title; ///< in English, likewise; empty: none
    std::vector<Option> options;
};

/// In the order in which the help shows them and in which they are read.
std::span<const OptionGroup> optionGroups();
