// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/UserDefaults.h"

#include "platform/ApplicationSupport.h"

#include <charconv>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

UserDefaults &UserDefaults::standard() {
    static UserDefaultsFile file(configurationFolder(processEnvironment()) +
                                 u"/Tovarin/Tovarin.conf"_s);
    return file;
}

std::optional<int> UserDefaults::integer(const QString &key) const {
    const std::optional<QString> stored = text(key);
    if (!stored)
        return std::nullopt;
    const QByteArray digits = stored->toUtf8();
    int value = 0;
    const auto [end, error] = std::from_chars(digits.begin(), digits.end(), value);
    if (error != std::errc() || end != digits.end())
        return std::nullopt;
    return value;
}

void UserDefaults::setInteger(const QString &key, int value) {
    setText(key, QString::number(value));
}

std::optional<bool> UserDefaults::boolean(const QString &key) const {
    const std::optional<QString> stored = text(key);
    if (stored == u"true"_s)
        return true;
    if (stored == u"false"_s)
        return false;
    return std::nullopt;
}

void UserDefaults::setBoolean(const QString &key, bool value) {
    setText(key, value ? u"true"_s : u"false"_s);
}

UserDefaultsFile::UserDefaultsFile(const QString &path) : m_settings(path, QSettings::IniFormat) {}

std::optional<QString> UserDefaultsFile::text(const QString &key) const {
    const QVariant value = m_settings.value(key);
    // An unquoted comma in a file edited by hand makes a list of the value; that is no text.
    if (value.typeId() != QMetaType::QString)
        return std::nullopt;
    return value.toString();
}

void UserDefaultsFile::setText(const QString &key, const QString &value) {
    m_settings.setValue(key, value);
    m_settings.sync();
}

} // namespace tovarin
