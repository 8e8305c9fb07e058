// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

namespace tovarin {

class Bundle;

/// The fonts of every screen: Poppins for Latin text, Noto Sans CJK SC for what Poppins lacks.
namespace AppFonts {

/// Makes the font files in the folder "Fonts" of the resources known to this process, before the
/// first window. A file that is no font is passed over; without the folder nothing happens.
void registerBundledFonts(const Bundle &bundle);

} // namespace AppFonts

} // namespace tovarin
