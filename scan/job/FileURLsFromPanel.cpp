// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/job/FileURLsFromPanel.h"

#include "app/LocalizationManager.h"

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptScanner {

QList<QUrl> fileURLsFromPanel(OpenPanel &panel, bool allowMultiple) {
    using enum OpenPanel::ContentType;
    const bool isZh = LocalizationManager::shared().isZh();
    return panel.run(
        {.message = isZh ? u"选择账单截图或 PDF"_s : u"Choose bill screenshots or PDFs"_s,
         .allowMultiple = allowMultiple,
         .allowedContentTypes = {png, jpeg, tiff, image, pdf}});
}

} // namespace tovarin::ReceiptScanner
