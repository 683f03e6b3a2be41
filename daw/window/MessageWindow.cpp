// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/window/MessageWindow.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

#include <xcb/xcb.h>

namespace {

constexpr std::uint32_t ground = 0x1e1e1e;
constexpr std::uint32_t ink = 0xd0d0d0;
constexpr std::string_view fontName = "fixed"; // every X server has it built in
constexpr int letterWidth = 6;                 // of that font, in pixels
constexpr std::size_t maxText = 255;           // letters in one request

struct Free
{
    void operator()(void* memory) const { std::free(memory); }
};
template <typename Reply> using Received = std::unique_ptr<Reply, Free>;

bool succeeded(xcb_connection_t* connection, xcb_void_cookie_t request)
{
    return !Received<xcb_generic_error_t>(xcb_request_check(connection, request));
}

} // namespace

void MessageWindow::Disconnect::operator()(xcb_connection_t* connection) const
{
    xcb_disconnect(connection);
}

MessageWindow::MessageWindow(std::uint32_t parent, int width, int height)
    : m_connection(xcb_connect(nullptr, nullptr))
    , m_width(std::max(width, 1))
    , m_height(std::max(height, 1))
{
    if (xcb_connection_has_error(m_connection.get()) || !create(parent))
        return;
    chooseFont();
    xcb_map_window(m_connection.get(), m_window);
    xcb_flush(m_connection.get());
}

MessageWindow::~MessageWindow()
{
    if (!isOpen())
        return;
    xcb_destroy_window(m_connection.get(), m_window);
    xcb_flush(m_connection.get());
}

int MessageWindow::descriptor() const
{
    return isOpen() ? xcb_get_file_descriptor(m_connection.get()) : -1;
}

bool MessageWindow::create(std::uint32_t parent)
{
    xcb_connection_t* connection = m_connection.get();
    const std::uint32_t window = xcb_generate_id(connection);
    const std::array<std::uint32_t, 2> values = {ground, XCB_EVENT_MASK_EXPOSURE |
                                                             XCB_EVENT_MASK_BUTTON_PRESS |
                                                             XCB_EVENT_MASK_STRUCTURE_NOTIFY};
    const bool created =
        succeeded(connection,
                  xcb_create_window_checked(connection, XCB_COPY_FROM_PARENT, window, parent, 0, 0,
                                            static_cast<std::uint16_t>(m_width),
                                            static_cast<std::uint16_t>(m_height), 0,
                                            XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                                            XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data()));
    m_window = created ? window : 0;
    return created;
}

void MessageWindow::chooseFont()
{
    xcb_connection_t* connection = m_connection.get();
    const std::uint32_t font = xcb_generate_id(connection);
    if (!succeeded(connection,
                   xcb_open_font_checked(connection, font, fontName.size(), fontName.data())))
        return;
    m_context = xcb_generate_id(connection);
    const std::array<std::uint32_t, 3> values = {ink, ground, font};
    xcb_create_gc(connection, m_context, m_window,
                  XCB_GC_FOREGROUND | XCB_GC_BACKGROUND | XCB_GC_FONT, values.data());
    xcb_close_font(connection, font);
}

void MessageWindow::resize(int width, int height)
{
    m_width = std::max(width, 1);
    m_height = std::max(height, 1);
    if (!isOpen())
        return;
    const std::array<std::uint32_t, 2> extent = {static_cast<std::uint32_t>(m_width),
                                                 static_cast<std::uint32_t>(m_height)};
    xcb_configure_window(m_connection.get(), m_window,
                         XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, extent.data());
    xcb_flush(m_connection.get());
}

void MessageWindow::setText(const std::string& text)
{
    m_text = text.substr(0, maxText);
    if (!isOpen())
        return;
    xcb_clear_area(m_connection.get(), 1, m_window, 0, 0, 0, 0);
    xcb_flush(m_connection.get());
}

MessageWindow::Changes MessageWindow::handleEvents()
{
    Changes changes;
    if (!isOpen())
        return changes;
    while (const auto event =
               Received<xcb_generic_event_t>(xcb_poll_for_event(m_connection.get()))) {
        switch (event->response_type & 0x7f) {
        case XCB_EXPOSE:
            paint();
            break;
        case XCB_BUTTON_PRESS:
            changes.clicked = true;
            break;
        case XCB_CONFIGURE_NOTIFY: {
            const auto* now = reinterpret_cast<const xcb_configure_notify_event_t*>(event.get());
            changes.resized |= now->width != m_width || now->height != m_height;
            m_width = now->width;
            m_height = now->height;
            break;
        }
        default:
            break;
        }
    }
    if (xcb_connection_has_error(m_connection.get()))
        m_window = 0;
    return changes;
}

void MessageWindow::paint()
{
    if (m_context == 0)
        return;
    const int length = static_cast<int>(m_text.size());
    const int left = std::max((m_width - length * letterWidth) / 2, 0);
    xcb_image_text_8(m_connection.get(), static_cast<std::uint8_t>(length), m_window, m_context,
                     static_cast<std::int16_t>(left), static_cast<std::int16_t>(m_height / 2),
                     m_text.data());
    xcb_flush(m_connection.get());
}
