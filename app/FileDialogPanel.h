// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/OpenPanel.h"

namespace tovarin {

/// The open panel as the desktop's own file dialog, or Qt's where the desktop has none. Such a
/// dialog has no line for a message: it stands in the title, and names the kind of files shown.
/// Qt's dialog speaks the language of the moment.
/// Needs a QApplication.
class FileDialogPanel final : public OpenPanel {
public:
    /// Modal for the window that has the focus, and above it; for the whole program where none has.
    /// Quitting cancels it.
    QList<QUrl> run(const Request &request) override;
};

} // namespace tovarin
