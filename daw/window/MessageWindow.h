// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>

struct xcb_connection_t;

/// An X11 window inside another program's window: dark, with a line of text where nothing covers
/// it. It has a connection of its own to the display, since it is a guest in a foreign program.
class MessageWindow
{
public:
    /// What happened to the window since it was last asked.
    struct Changes
    {
        bool clicked = false;
        bool resized = false;
    };

    /// Of \a width by \a height pixels in the window \a parent of the display that the environment
    /// names.
    MessageWindow(std::uint32_t parent, int width, int height);
    ~MessageWindow();
    MessageWindow(const MessageWindow&) = delete;
    MessageWindow& operator=(const MessageWindow&) = delete;

    /// Whether there are such a display and parent; without, everything is left undone.
    bool isOpen() const { return m_window != 0; }
    /// The window's number on the display.
    std::uint32_t id() const { return m_window; }
    /// To be waited on; -1 if it is not open.
    int descriptor() const;

    int width() const { return m_width; }
    int height() const { return m_height; }
    void resize(int width, int height);
    /// ASCII; one line.
    void setText(const std::string& text);

    /// Handles what the display has sent.
    Changes handleEvents();

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t* connection) const;
    };

    bool create(std::uint32_t parent);
    void chooseFont();
    void paint();

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    std::uint32_t m_window = 0;
    std::uint32_t m_context = 0; // with the font; 0 if the server has none
    int m_width;
    int m_height;
    std::string m_text;
};
