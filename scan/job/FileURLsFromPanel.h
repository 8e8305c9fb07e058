// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/OpenPanel.h"

#include <QList>
#include <QUrl>

namespace tovarin::ReceiptScanner {

/// Lets the user choose bills: images of any kind and PDFs, several if `allowMultiple`. The files
/// in the panel's order, or none when the user cancels. For the main thread.
QList<QUrl> fileURLsFromPanel(OpenPanel &panel, bool allowMultiple);

} // namespace tovarin::ReceiptScanner
