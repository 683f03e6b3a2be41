// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

/// The program that shows the editor, in a process of its own: if it dies, the workstation lives.
class EditorProcess
{
public:
    /// The number of the descriptor at which the program finds its end of the conversation.
    static constexpr int conversationDescriptor = 3;

    /// Where the program is installed, seen from the plug-in that this code is part of; empty where
    /// it is not.
    static std::string findProgram();

    /// Not running.
    EditorProcess() = default;
    /// Ends it: gives it 200 ms to go by itself after its conversation was closed, then SIGTERM,
    /// then SIGKILL.
    ~EditorProcess();
    EditorProcess(const EditorProcess&) = delete;
    EditorProcess& operator=(const EditorProcess&) = delete;

    /// Starts \a program with \a arguments and \a socket as its end of the conversation, and with
    /// none of this process's other descriptors, signal settings, or library and Qt settings, which
    /// are the workstation's. \a scale is how many pixels the program's units have. Whether the
    /// system could start it; ends the one that runs.
    bool start(const std::string& program, const std::vector<std::string>& arguments, int socket,
               double scale);
    bool isRunning();
    void stop();

private:
    bool waitFor(int milliseconds);

    pid_t m_pid = -1;
};
