// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>

class QQuickWindow;

namespace tovarin::gallery {

/// The window as it is drawn now.
QImage picture(QQuickWindow &window);

/// Every entry of the page of controls in each of its states, put there as a user would: a line an
/// entry, a column a state.
QImage pictureOfStates(QQuickWindow &window);

/// The page with its sheet open; null if it does not open.
QImage pictureOfSheet(QQuickWindow &window);

} // namespace tovarin::gallery
