// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

class QQuickItem;

namespace tovarin {

/// The texts in sight that an item and those below it draw, in the order in which they are drawn.
QStringList textsOf(const QQuickItem &item);

} // namespace tovarin
