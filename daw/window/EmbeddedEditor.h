// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "daw/window/Conversation.h"
#include "daw/window/EditorProcess.h"
#include "daw/window/MessageWindow.h"
#include "equalizer/EqualizerParameters.h"

#include <array>
#include <bitset>
#include <functional>
#include <memory>
#include <optional>
#include <string>

/// Is told of what the user does in an editor. Parameters are indices into equalizerParameters,
/// values are raw; every edit lies between the beginning and the end of its parameter's gesture.
class EditorListener
{
public:
    virtual void beginEdit(std::size_t parameter) = 0;
    virtual void edit(std::size_t parameter, int value) = 0;
    virtual void endEdit(std::size_t parameter) = 0;

protected:
    ~EditorListener() = default;
};

/// The editor in a workstation's window: a window with the editor's program inside. The program
/// may end at any time, or not be there; then the window says so, and a click starts the program
/// with everything as it was.
///
/// For the workstation's GUI thread, which calls relay() whenever descriptor() can be read, or
/// every few milliseconds. Never waits but in the destructor (300 ms at most).
class EmbeddedEditor
{
public:
    /// The editor's size at scale 1.
    static constexpr int naturalWidth = 977;
    static constexpr int naturalHeight = 559;
    static constexpr double minScale = 0.5;
    static constexpr double maxScale = 4.0;

    struct Options
    {
        std::uint32_t parent = 0; ///< the window on the display to be in
        int width = naturalWidth; ///< in pixels, as all sizes here
        int height = naturalHeight;
        double pixelRatio = 1.0; ///< pixels a unit, for displays of high density
        bool stereo = true;
        /// Where the editor's program is, empty where it is not; asked before each start.
        std::function<std::string()> findProgram = EditorProcess::findProgram;
    };

    /// \a listener must outlive it.
    EmbeddedEditor(EditorListener& listener, const Options& options);
    ~EmbeddedEditor();

    /// Whether there is a window; without, everything is left undone.
    bool isOpen() const { return m_window.isOpen(); }
    std::uint32_t id() const { return m_window.id(); }
    /// One descriptor for all that relay() handles; stays the same.
    int descriptor() const { return m_poll; }
    int width() const { return m_window.width(); }
    int height() const { return m_window.height(); }

    void resize(int width, int height);
    /// The workstation's value; while a gesture changes the parameter, the editor ignores it.
    void setValue(std::size_t parameter, int value);
    void setMeter(MeterPlace place, int tenths);
    void setSampleRate(int hertz);

    /// Handles what has come from the editor and from the display.
    void relay();

private:
    void startProgram();
    void sendEverything();
    void sendSize();
    void send(const std::optional<Message>& message);
    void handle(const Message& message);
    void apply(const Message& message);
    void showEnd();
    void endGestures();
    void watch(int descriptor) const;

    EditorListener& m_listener;
    Options m_options;
    MessageWindow m_window;
    EditorProcess m_process;
    Conversation m_conversation;
    int m_poll;
    std::array<std::optional<Message>, parameterCount> m_values;
    std::array<std::optional<Message>, MeterPlaceCount> m_meters;
    std::optional<Message> m_sampleRate;
    std::bitset<parameterCount> m_held; // gestures under way
};
