// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSettings>
#include <QString>

#include <memory>
#include <optional>

namespace tovarin {

/// The user's settings: a few named values that outlive the program. A write is on disk when the
/// call returns; one that fails quietly holds for this run of the program only.
///
/// The file knows only texts, so the type of a value is what its reader makes of it: a value that
/// cannot be read as the asked type counts as absent.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// The program's own settings, in Tovarin/Tovarin.conf in the configuration folder.
    static UserDefaults &standard();

    virtual std::optional<QString> text(const QString &key) const = 0;
    virtual void setText(const QString &key, const QString &value) = 0;

    /// A whole number in decimal digits, with at most a minus sign before them. Anything else, a
    /// number with a blank, a sign "+" or a fraction included, is absent.
    std::optional<int> integer(const QString &key) const;
    void setInteger(const QString &key, int value);

    /// "true" or "false", nothing else.
    std::optional<bool> boolean(const QString &key) const;
    void setBoolean(const QString &key, bool value);

protected:
    UserDefaults() = default;
    UserDefaults(const UserDefaults &) = default;
    UserDefaults &operator=(const UserDefaults &) = default;
};

/// Settings in an INI file with the keys at its top level. The folder is made at the first write.
class UserDefaultsFile final : public UserDefaults {
public:
    explicit UserDefaultsFile(const QString &path);

    std::optional<QString> text(const QString &key) const override;
    void setText(const QString &key, const QString &value) override;

private:
    QSettings m_settings;
};

} // namespace tovarin
