// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/UserDefaults.h"

#include <QMap>

namespace tovarin {

/// User defaults that live as long as the test.
class MemoryDefaults final : public UserDefaults {
public:
    MemoryDefaults() = default;
    explicit MemoryDefaults(const QMap<QString, QString> &values) : m_values(values) {}

    std::optional<QString> text(const QString &key) const override {
        const auto found = m_values.find(key);
        return found == m_values.end() ? std::nullopt : std::optional(*found);
    }
    void setText(const QString &key, const QString &value) override { m_values[key] = value; }

    const QMap<QString, QString> &values() const { return m_values; }

private:
    QMap<QString, QString> m_values;
};

} // namespace tovarin
