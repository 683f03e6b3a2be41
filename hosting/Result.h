// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>
#include <utility>

/// Why an operation failed: a whole, translated sentence that names the thing, the reason and,
/// where there is something to do about it, what to do.
struct Error
{
    QString sentence;
};

/// Whether an operation succeeded, or why it did not.
class [[nodiscard]] Status
{
public:
    Status() = default;
    Status(Error error) // NOLINT(google-explicit-constructor): "return Error{...};"
        : m_error(std::move(error))
    {}

    bool isOk() const { return !m_error; }
    /// Empty where it succeeded.
    QString error() const { return m_error ? m_error->sentence : QString(); }

private:
    std::optional<Error> m_error;
};

/// What an operation gave, or why it gave nothing.
template <typename Value> class [[nodiscard]] Result
{
public:
    Result(Value value) // NOLINT(google-explicit-constructor): "return value;"
        : m_value(std::move(value))
    {}
    Result(Error error) // NOLINT(google-explicit-constructor): "return Error{...};"
        : m_status(std::move(error))
    {}

    bool isOk() const { return m_status.isOk(); }
    /// Only where it succeeded.
    const Value& value() const { return *m_value; }
    Value& value() { return *m_value; }
    QString error() const { return m_status.error(); }
    const Status& status() const { return m_status; }

private:
    std::optional<Value> m_value;
    Status m_status;
};
