// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/Memory.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <utility>

/// A fixed number of doubles taken from the filters' allocation hooks, zero at first and owned by
/// this object. Moves, never copies; the default is no storage.
class MemArray
{
public:
    MemArray() = default;

    /// `groups` times `perGroup` zeros. Throws std::bad_alloc when the hook returns null, and
    /// without asking it when `groups` is negative or the size in bytes cannot be expressed.
    MemArray(std::int64_t groups, std::int64_t perGroup)
        : m_size(checkedSize(groups, perGroup))
        , m_data(static_cast<double*>(GetMem(m_size * sizeof(double))))
    {
        if (!m_data)
            throw std::bad_alloc();
        zero();
    }

    MemArray(MemArray&& other) noexcept
        : m_size(std::exchange(other.m_size, 0))
        , m_data(std::move(other.m_data))
    {}

    MemArray& operator=(MemArray&& other) noexcept
    {
        m_size = std::exchange(other.m_size, 0);
        m_data = std::move(other.m_data);
        return *this;
    }

    std::size_t size() const { return m_size; }
    double* data() { return m_data.get(); }
    const double* data() const { return m_data.get(); }
    double& operator[](std::size_t index) { return m_data[index]; }
    double operator[](std::size_t index) const { return m_data[index]; }

    void zero() { std::fill_n(data(), m_size, 0.0); }

    /// Takes over the first `count` values of an array, fewer where either array is shorter.
    void copyFrom(const MemArray& other, std::size_t count)
    {
        std::copy_n(other.data(), std::min({count, m_size, other.m_size}), data());
    }
    void copyFrom(const MemArray& other) { copyFrom(other, other.m_size); }

private:
    struct Release
    {
        void operator()(double* pointer) const { ReleaseMem(pointer); }
    };

    static std::size_t checkedSize(std::int64_t groups, std::int64_t perGroup)
    {
        constexpr std::int64_t most =
            std::numeric_limits<std::ptrdiff_t>::max() / std::int64_t{sizeof(double)};
        if (groups < 0 || groups > most / perGroup)
            throw std::bad_alloc();
        return static_cast<std::size_t>(groups * perGroup);
    }

    std::size_t m_size = 0;
    std::unique_ptr<double[], Release> m_data;
};
