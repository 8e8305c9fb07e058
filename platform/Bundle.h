// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace tovarin {

/// The resources that the program brings with it, found by name. They lie in one folder, which may
/// be compiled in (":/..."); a test brings a folder of its own.
class Bundle {
public:
    explicit Bundle(QString resources) : m_resources(std::move(resources)) {}

    /// The path of the resource "name.type" in a folder of the resources, or at their top; empty
    /// when there is none. A name with a slash names none.
    QString path(const QString &name, const QString &type, const QString &folder = {}) const;

    /// The paths of all resources of this type in a folder, ordered by name.
    QStringList paths(const QString &type, const QString &folder) const;

private:
    QString m_resources;
};

} // namespace tovarin
