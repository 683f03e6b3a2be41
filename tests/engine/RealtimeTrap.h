// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The audio thread must never wait. A trap counts what its thread allocates or frees and where it
/// waits for another one, through the functions of the C library that all such calls end in (under
/// a sanitizer only those of new and delete).
class RealtimeTrap
{
public:
    RealtimeTrap();
    ~RealtimeTrap();
    RealtimeTrap(const RealtimeTrap&) = delete;
    RealtimeTrap& operator=(const RealtimeTrap&) = delete;

    int allocations() const;
    int locks() const;
};
