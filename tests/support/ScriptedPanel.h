// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/OpenPanel.h"

namespace tovarin {

/// A panel in which the user chooses these files at once.
class ScriptedPanel final : public OpenPanel {
public:
    explicit ScriptedPanel(QList<QUrl> files) : choice(std::move(files)) {}

    QList<QUrl> run(const Request &request) override {
        requests.append(request);
        return choice;
    }

    QList<QUrl> choice;
    QList<Request> requests;
};

} // namespace tovarin
