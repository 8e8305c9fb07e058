// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/PanelPlace.h"

#include <algorithm>

namespace tovarin {

namespace {

constexpr int margin = 8;
/// What is nearer to an edge than this may stand in a bar along it: bars are about that thick.
constexpr int barThickness = 48;

/// One axis of a rectangle; `end` is one past the last point.
struct Span {
    int begin;
    int end;

    int length() const { return end - begin; }
    int centre() const { return begin + length() / 2; }
    bool contains(int point) const { return point >= begin && point < end; }
};

Span horizontal(const QRect &rect) {
    return {rect.x(), rect.x() + rect.width()};
}

Span vertical(const QRect &rect) {
    return {rect.y(), rect.y() + rect.height()};
}

bool isAtEdge(const Span &item, const Span &available) {
    return item.begin - available.begin < barThickness || available.end - item.end < barThickness;
}

/// Whether the item stands in a bar that runs down the left or right of the screen. A bar that
/// keeps windows off leaves its items outside of the available area; of one that doesn't, only the
/// middle can be told from the end of a bar at the top or bottom.
bool isInSideBar(const QRect &item, const QRect &available) {
    const Span itemX = horizontal(item);
    const Span itemY = vertical(item);
    const Span availableX = horizontal(available);
    const Span availableY = vertical(available);
    if (!availableY.contains(itemY.centre()))
        return false;
    return !availableX.contains(itemX.centre()) ||
           (isAtEdge(itemX, availableX) && !isAtEdge(itemY, availableY));
}

int clamped(int begin, int length, const Span &available) {
    const int kept = available.length() >= length + 2 * margin ? margin : 0;
    return std::max(std::min(begin, available.end - kept - length), available.begin + kept);
}

int centred(const Span &item, int length, const Span &available) {
    return clamped(item.centre() - length / 2, length, available);
}

/// After the item, or before it when there is too little room after it and more before.
int beyond(const Span &item, int length, const Span &available) {
    const int after = item.end + margin;
    const int before = item.begin - margin - length;
    const int roomAfter = available.end - margin - (after + length);
    const int roomBefore = before - (available.begin + margin);
    return clamped(roomAfter >= 0 || roomAfter >= roomBefore ? after : before, length, available);
}

} // namespace

QPoint panelPlace(const QRect &item, const QPoint &pointer, const QRect &available,
                  const QSize &panel) {
    const QRect place = item.isEmpty() ? QRect(pointer, QSize(1, 1)) : item;
    const Span x = horizontal(available);
    const Span y = vertical(available);
    if (isInSideBar(place, available))
        return {beyond(horizontal(place), panel.width(), x),
                centred(vertical(place), panel.height(), y)};
    return {centred(horizontal(place), panel.width(), x),
            beyond(vertical(place), panel.height(), y)};
}

} // namespace tovarin
