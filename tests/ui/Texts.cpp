// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/ui/Texts.h"

#include <QQuickItem>

namespace tovarin {

QStringList textsOf(const QQuickItem &item) {
    QStringList texts;
    if (!item.isVisible())
        return texts;
    if (item.inherits("QQuickText") || item.inherits("QQuickTextInput") ||
        item.inherits("QQuickTextEdit"))
        texts.append(item.property("text").toString());
    texts.removeAll(QString());
    for (const QQuickItem *child : item.childItems())
        texts.append(textsOf(*child));
    return texts;
}

} // namespace tovarin
