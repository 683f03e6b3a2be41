// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/AnnouncementListener.h"

#include <utility>

namespace {

AnnouncementListener::Hear listening;

} // namespace

AnnouncementListener::AnnouncementListener(Hear hear) { listening = std::move(hear); }

AnnouncementListener::~AnnouncementListener() { listening = nullptr; }

bool QAccessible::isActive() { return listening != nullptr; }

void QAccessible::updateAccessibility(QAccessibleEvent* event)
{
    if (const AnnouncementListener::Hear hear = listening) // may end while it hears
        hear(event);
}
