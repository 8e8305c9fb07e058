// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick

// The program's own mark.
Image {
    property real size: 32

    width: size
    height: size
    source: "qrc:/resources/BrandMark.png"
    sourceSize.width: Math.ceil(size * Screen.devicePixelRatio)
    sourceSize.height: Math.ceil(size * Screen.devicePixelRatio)
    mipmap: true
    Accessible.ignored: true
}
