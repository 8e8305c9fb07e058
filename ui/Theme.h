// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QString>

namespace tovarin {

/// The look of every screen. Its colours are in Theme.qml.
namespace Theme {

/// The name of the font that stands for a weight: "Poppins-Bold" for bold and heavier,
/// "Poppins-SemiBold", "Poppins-Medium", and "Poppins-Regular" for any other.
QString poppinsName(QFont::Weight weight);

} // namespace Theme

} // namespace tovarin
