// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/SavedFrame.h"

#include <QRegularExpression>

#include <algorithm>
#include <cstdlib>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

constexpr QSize firstSize(960, 640);
constexpr int titleBar = 30; // about what a window manager puts above a window
constexpr QSize handle(100, titleBar);
constexpr int largest = 32767;

bool canBeTakenHoldOf(const QRect &frame, const QRect &screen) {
    const QSize needed = handle.boundedTo(frame.size());
    const QRect top(frame.topLeft(), QSize(frame.width(), needed.height()));
    const QSize visible = top.intersected(screen).size();
    return visible.width() >= needed.width() && visible.height() >= needed.height();
}

qint64 sharedArea(const QRect &one, const QRect &other) {
    const QRect shared = one.intersected(other);
    return shared.isEmpty() ? 0 : qint64{shared.width()} * shared.height();
}

/// The square of the distance between two rectangles that do not overlap.
qint64 distance(const QRect &one, const QRect &other) {
    const qint64 x = std::max({0, other.left() - one.right(), one.left() - other.right()});
    const qint64 y = std::max({0, other.top() - one.bottom(), one.top() - other.bottom()});
    return x * x + y * y;
}

bool isNearer(const QRect &frame, const QRect &one, const QRect &other) {
    const qint64 ofOne = sharedArea(frame, one);
    const qint64 ofOther = sharedArea(frame, other);
    return ofOne != ofOther ? ofOne > ofOther : distance(frame, one) < distance(frame, other);
}

/// The largest frame that leaves room for a title bar, unless the minimum needs that.
QSize room(const QRect &screen, const QSize &minimum) {
    return {screen.width(),
            std::max(screen.height() - titleBar, std::min(minimum.height(), screen.height()))};
}

/// The frame, no larger than the screen, moved as little as it takes to be on it with its title
/// bar.
QRect movedOnto(const QRect &screen, const QRect &frame) {
    const int lastX = screen.x() + screen.width() - frame.width();
    const int lastY = screen.y() + screen.height() - frame.height();
    const int firstY = std::min(screen.y() + titleBar, lastY);
    return {std::clamp(frame.x(), screen.x(), lastX), std::clamp(frame.y(), firstY, lastY),
            frame.width(), frame.height()};
}

} // namespace

QString SavedFrame::text() const {
    return u"%1 %2 %3 %4 %5"_s.arg(rect.x())
        .arg(rect.y())
        .arg(rect.width())
        .arg(rect.height())
        .arg(maximised ? u"maximised"_s : u"normal"_s);
}

std::optional<SavedFrame> SavedFrame::fromText(const QString &text) {
    static const QRegularExpression form(
        u"\\A(-?[0-9]{1,5}) (-?[0-9]{1,5}) ([0-9]{1,5}) ([0-9]{1,5}) (normal|maximised)\\z"_s);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QRect rect(match.capturedView(1).toInt(), match.capturedView(2).toInt(),
                     match.capturedView(3).toInt(), match.capturedView(4).toInt());
    if (rect.isEmpty())
        return std::nullopt;
    for (const int number : {rect.x(), rect.y(), rect.width(), rect.height()})
        if (std::abs(number) > largest)
            return std::nullopt;
    return SavedFrame{rect, match.capturedView(5) == u"maximised"};
}

QRect firstFrame(const QSize &minimum, const QList<QRect> &screens) {
    const QSize size = firstSize.expandedTo(minimum);
    if (screens.isEmpty())
        return {QPoint(0, 0), size};
    const QRect &screen = screens.first();
    QRect frame(QPoint(0, 0), size.boundedTo(room(screen, minimum)));
    frame.moveTopLeft({screen.x() + (screen.width() - frame.width()) / 2,
                       screen.y() + (screen.height() - frame.height()) / 2});
    return movedOnto(screen, frame);
}

QRect fitted(const QRect &saved, const QSize &minimum, const QList<QRect> &screens) {
    const QRect frame(saved.topLeft(), saved.size().expandedTo(minimum));
    const auto holds = [&](const QRect &screen) { return canBeTakenHoldOf(frame, screen); };
    if (screens.isEmpty() || std::any_of(screens.begin(), screens.end(), holds))
        return frame;
    const QRect screen = *std::min_element(
        screens.begin(), screens.end(),
        [&](const QRect &one, const QRect &other) { return isNearer(frame, one, other); });
    return movedOnto(screen, {frame.topLeft(), frame.size().boundedTo(room(screen, minimum))});
}

QSize fittedSize(const QSize &saved, const QSize &minimum, const QList<QRect> &screens) {
    const QSize size = saved.expandedTo(minimum);
    const auto hasRoom = [&](const QRect &screen) { return size.boundedTo(screen.size()) == size; };
    if (screens.isEmpty() || std::any_of(screens.begin(), screens.end(), hasRoom))
        return size;
    return size.boundedTo(screens.first().size());
}

} // namespace tovarin
