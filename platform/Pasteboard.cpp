// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/Pasteboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace tovarin {

Pasteboard Pasteboard::general() {
    return Pasteboard(*QGuiApplication::clipboard());
}

void Pasteboard::setString(const QString &text) {
    m_clipboard.setText(text);
}

} // namespace tovarin
