// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessible>

#include <functional>

/// Hears, while it lives, every event that the code under test hands to assistive technology. One
/// at a time.
///
/// On a platform without a screen nobody listens, and Qt hands events to no one. A test program
/// that links this file therefore has its own QAccessible::isActive() and
/// QAccessible::updateAccessibility(), which only code in the program itself calls: Qt's libraries
/// keep theirs, so that no event of Qt's own widgets is heard.
class AnnouncementListener
{
public:
    using Hear = std::function<void(QAccessibleEvent* event)>;

    explicit AnnouncementListener(Hear hear);
    ~AnnouncementListener();
    AnnouncementListener(const AnnouncementListener&) = delete;
    AnnouncementListener& operator=(const AnnouncementListener&) = delete;
};
