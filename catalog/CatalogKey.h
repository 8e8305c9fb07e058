// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tovarin {

/// A name as the catalog compares names: in lower case, with nothing but letters of any script,
/// marks and numbers. "chat gpt" and "ChatGPT" have the same key, "+ - ·" has an empty one.
///
/// At least the first `enough` UTF-16 units of it, where it is longer: nobody compares more.
QString catalogKey(QStringView name, qsizetype enough);

} // namespace tovarin
