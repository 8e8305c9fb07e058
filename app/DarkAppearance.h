// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

class QApplication;

namespace tovarin {

/// Makes the dialogs that Qt itself draws as dark as the program's own screens, whatever the
/// desktop's setting is. The desktop's own dialogs are the desktop's affair.
void useDarkAppearance(QApplication &application);

} // namespace tovarin
