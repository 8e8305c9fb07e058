// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Delay.h"

#include <QPointer>

#include <algorithm>
#include <vector>

namespace tovarin {

/// Delays that pass when the test says so. It must outlive whoever got delay() from it.
class ManualDelay {
public:
    Delay delay() {
        return [this](std::chrono::milliseconds after, QObject *context,
                      std::function<void()> action) {
            m_waiting.push_back({m_now + after, context, std::move(action)});
        };
    }

    /// Lets time pass, and what falls due in it happen in its order.
    void pass(std::chrono::milliseconds time) {
        const std::chrono::milliseconds end = m_now + time;
        for (;;) {
            const auto next = std::ranges::min_element(m_waiting, {}, &Waiting::due);
            if (next == m_waiting.end() || next->due > end)
                break;
            const Waiting waiting = std::move(*next);
            m_waiting.erase(next);
            m_now = waiting.due;
            if (waiting.context)
                waiting.action();
        }
        m_now = end;
    }

private:
    struct Waiting {
        std::chrono::milliseconds due;
        QPointer<QObject> context;
        std::function<void()> action;
    };

    std::chrono::milliseconds m_now{0};
    std::vector<Waiting> m_waiting;
};

} // namespace tovarin
