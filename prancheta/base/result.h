// SPDX-License-Identifier: MIT
// Value or error: how Prancheta's functions answer.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace prancheta {

/// What went wrong, for the user: Brazilian Portuguese text that says what, and what to do; where,
/// when it is known (line and column count from 1, 0 = unknown).
struct Error {
    std::string text;
    std::string file{};
    int line = 0;
    int column = 0;

    /// "arquivo:linha:coluna: texto", leaving out what is unknown.
    std::string message() const;
};

/// Holds a T or the Error that kept it from being made.
template <class T>
class [[nodiscard]] Result {
public:
    Result(T value) : m_data(std::move(value)) {}
    Result(Error error) : m_data(std::move(error)) {}

    bool ok() const { return m_data.index() == 0; }
    explicit operator bool() const { return ok(); }
    T& value() { return std::get<0>(m_data); }
    const T& value() const { return std::get<0>(m_data); }
    T& operator*() { return value(); }
    const T& operator*() const { return value(); }
    T* operator->() { return &value(); }
    const T* operator->() const { return &value(); }
    const Error& error() const { return std::get<1>(m_data); }

private:
    std::variant<T, Error> m_data;
};

/// Done, or why not.
template <>
class [[nodiscard]] Result<void> {
public:
    Result() = default;
    Result(Error error) : m_error(std::move(error)) {}

    bool ok() const { return !m_error.has_value(); }
    explicit operator bool() const { return ok(); }
    const Error& error() const { return *m_error; }

private:
    std::optional<Error> m_error;
};

}  // namespace prancheta
