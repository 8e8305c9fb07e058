// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Environment.h"

#include <QString>

#include <memory>
#include <optional>

namespace tovarin {

/// Decimal numbers as the user's locale writes them: its decimal separator, its grouping, its
/// digits (ICU's number formats). Movable, not copyable; not for use by two threads at once.
class UserNumbers {
public:
    /// `locale` is a locale name such as "de_DE"; "en_US_POSIX" stands for the C locale.
    explicit UserNumbers(const QString &locale);
    UserNumbers(UserNumbers &&) noexcept;
    UserNumbers &operator=(UserNumbers &&) noexcept;
    ~UserNumbers();

    /// By LC_ALL, LC_NUMERIC, LANG.
    static UserNumbers current(const Environment &environment);

    /// With as many decimals as the number has, at most six, and with grouping. The text of a
    /// finite number reads back as that number, but for what lies beyond the sixth decimal.
    QString text(double number) const;

    /// The number that the whole text is, blanks around it aside. No value for anything else: a
    /// text with something before or after the number, a separator where the locale has none (so
    /// that "9,99" is not read as 999 where the comma groups), and what is not finite.
    std::optional<double> number(const QString &text) const;

private:
    struct Format;

    std::unique_ptr<Format> m_format;
};

} // namespace tovarin
