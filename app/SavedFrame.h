// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QRect>
#include <QSize>
#include <QString>

#include <optional>

namespace tovarin {

/// Where a window is, in device-independent pixels of the whole desktop, as it is kept between two
/// runs of the program. The rectangle is the window's inside, without what a window manager draws
/// around it.
struct SavedFrame {
    QRect rect;             ///< Where it is when not maximised.
    bool maximised = false; ///< Full screen counts as that.

    bool operator==(const SavedFrame &) const = default;

    /// x, y, width, height and a word, with one blank between: "120 80 960 640 normal" or
    /// "120 80 960 640 maximised".
    QString text() const;

    /// No value for a text of any other form, for a width or height below 1, and for a number that
    /// no display has (more than 32767, X11's limit).
    static std::optional<SavedFrame> fromText(const QString &text);
};

// Screens are given by the area that they leave to windows, the primary one first. Where there is
// none, nothing is moved and nothing limited. A frame that is placed here, and not by the user, has
// 30 points above it for the title bar, which the rectangle does not count; where a screen is as
// low as the minimum, the title bar gives way.

/// The frame of a window that is shown for the first time: 960 x 640 in the middle of the primary
/// screen, and where that is smaller, no larger than it. Not smaller than the minimum where the
/// screen allows it.
QRect firstFrame(const QSize &minimum, const QList<QRect> &screens);

/// The frame for screens that may be others than when it was saved. One that can still be taken
/// hold of stays: of its top 30 points, a piece 100 wide lies on one screen. Any other comes back
/// whole to the screen that has most of it, else to the nearest, and is no larger than that.
/// Either is not smaller than the minimum where the screen allows it.
QRect fitted(const QRect &saved, const QSize &minimum, const QList<QRect> &screens);

/// The size alone, where a program is not told positions: no larger than the primary screen, unless
/// another one has room for it; not smaller than the minimum where the screen allows it.
QSize fittedSize(const QSize &saved, const QSize &minimum, const QList<QRect> &screens);

} // namespace tovarin
