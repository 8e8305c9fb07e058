// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/DarkAppearance.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

void useDarkAppearance(QApplication &application) {
    const QColor window(0x1B, 0x1B, 0x1E);
    const QColor base(0x0F, 0x0F, 0x11);
    const QColor text(0xE8, 0xE8, 0xE8);
    const QColor faint(0x8A, 0x8A, 0x8A);
    const QColor accent(0xF6, 0xC9, 0x4A);
    const QColor onAccent(0x15, 0x10, 0x08);

    // The style that follows a palette everywhere.
    application.setStyle(QStyleFactory::create(u"Fusion"_s));
    QPalette palette(text, window, QColor(0x3A, 0x3A, 0x3E), Qt::black, QColor(0x2A, 0x2A, 0x2E),
                     text, base);
    palette.setColor(QPalette::Button, window);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, onAccent);
    palette.setColor(QPalette::Link, accent);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x55, 0x55, 0x55));
    QApplication::setPalette(palette);
}

} // namespace tovarin
