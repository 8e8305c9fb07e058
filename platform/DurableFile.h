// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The bytes of a file that must survive a crash.
namespace tovarin::DurableFile {

/// The whole file; no value when it cannot be read.
std::optional<QByteArray> read(const QString &path);

/// Replaces the file as a whole, or leaves it as it was and returns false. When it returns true the
/// bytes are on the disk under that name.
bool replace(const QString &path, const QByteArray &bytes);

} // namespace tovarin::DurableFile
