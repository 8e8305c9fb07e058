// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"
#include "platform/Clock.h"
#include "platform/UserCalendar.h"
#include "scan/recognition/TextRecognizer.h"

#include <QImage>
#include <QList>
#include <QString>
#include <QUrl>

#include <optional>

/// Turns the files of bills into drafts. Slow, and with libraries that have been broken by files
/// before: only the scanner process calls it.
///
/// Every failure is absorbed and makes the result smaller. An image that can be loaded always gives
/// a draft, a PDF without any text none: the difference is meant. Only the lack of memory is
/// thrown, as std::bad_alloc: what comes after it could not be trusted.
namespace tovarin::ReceiptScanner {

/// What the scanner works with; all must outlive the call.
struct Services {
    TextRecognizer &recognizer;
    const Clock &clock;
    const UserCalendar &calendar;
};

/// One draft for each file that can be read, in their order. A file is a PDF when its extension is
/// "pdf" in any letter case, whatever it holds, and an image otherwise.
QList<Subscription> scanFiles(const QList<QUrl> &urls, const Services &services);

/// The draft of one PDF: from its text layer, else from the recognised text of its first three
/// pages. A text layer of white space and line breaks counts as none.
std::optional<Subscription> scanPDF(const QUrl &url, const Services &services);

/// All lines of text in the bitmap, as the recogniser orders them; empty when it fails.
QString recognizeText(const QImage &image, TextRecognizer &recognizer);

} // namespace tovarin::ReceiptScanner
