// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <optional>

namespace tovarin {

/// Sets a variable of the environment and puts back what it was.
class ScopedVariable {
public:
    ScopedVariable(const char *name, const QByteArray &value) : m_name(name) {
        if (qEnvironmentVariableIsSet(name))
            m_before = qgetenv(name);
        qputenv(name, value);
    }
    ScopedVariable(const ScopedVariable &) = delete;
    ScopedVariable &operator=(const ScopedVariable &) = delete;

    ~ScopedVariable() {
        if (m_before)
            qputenv(m_name, *m_before);
        else
            qunsetenv(m_name);
    }

private:
    const char *m_name;
    std::optional<QByteArray> m_before;
};

} // namespace tovarin
