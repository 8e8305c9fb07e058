// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QClipboard;

namespace tovarin {

/// Where a text is left for other programs to paste. What happens to it when this program ends is
/// up to the desktop: some keep it, others let it go.
class Pasteboard {
public:
    /// The one that all programs share. There must be a QGuiApplication, and it must outlive this.
    static Pasteboard general();

    /// Puts a plain text in the place of all that was there.
    void setString(const QString &text);

private:
    explicit Pasteboard(QClipboard &clipboard) : m_clipboard(clipboard) {}

    QClipboard &m_clipboard;
};

} // namespace tovarin
