// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace tovarin {

/// Where the panel of the status item goes: its top-left corner, in the points of the desktop as
/// everything here.
///
/// `item` is the status item's rectangle. Many tray hosts don't tell it; it is empty then and the
/// pointer, which has just pressed the item, stands for it. `available` is the part of the item's
/// screen that the desktop's own bars leave free; it may start at negative coordinates.
///
/// The panel is centred below the item, or above it when there is no room below, or beside it when
/// the item stands in a bar at the left or right of the screen. It is always whole within
/// `available`, with a margin of 8 where that fits; one that is larger than `available` starts at
/// the left or top of it, so that its beginning can be seen.
///
/// Under Wayland the compositor alone places windows; setting this position does nothing there.
QPoint panelPlace(const QRect &item, const QPoint &pointer, const QRect &available,
                  const QSize &panel);

} // namespace tovarin
