// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// Runs something in a process of its own under ptrace(2), and interferes with one of the system
/// calls by which it opens, changes or closes files.
namespace TracedRun {

/// One that names a file in the watched folder, or a descriptor of one.
struct Call
{
    std::string name; ///< of the system call
    std::string file; ///< the last one that it names
};

enum class Act {
    Watch,
    KillBefore, ///< SIGKILL instead of the call
    KillAmid,   ///< SIGKILL after the call; after half of the bytes where it writes
    Fail        ///< an error instead of the call
};

struct Plan
{
    std::string folder;    ///< which is watched, with all below it
    Act act = Act::Watch;  ///< what happens to one call
    std::size_t call = 0;  ///< its number among those that count
    int error = 0;         ///< of Act::Fail, as in errno
    int signalAtFirst = 0; ///< sent to the process with the first call that counts; 0: none
};

struct Outcome
{
    std::string refusal;     ///< why nothing could be traced; empty where it could
    std::vector<Call> calls; ///< in their order
    bool wasKilled = false;  ///< by SIGKILL
    int code = -1;           ///< -1 where a signal ended it
    std::string output;      ///< what it wrote to its output and error streams
};

/// The result of \a work is the exit code; it may also be an exec(3) that does not return. This
/// process must not have other threads that \a work would miss.
Outcome run(const Plan& plan, const std::function<int()>& work);

} // namespace TracedRun
