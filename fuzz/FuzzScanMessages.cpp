// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "fuzz/Require.h"
#include "scan/job/ScanMessages.h"

#include <cstdint>

using namespace tovarin;

namespace {

void checkRequest(const QByteArray &line) {
    const std::optional<QString> path = ScanMessages::decodeRequest(line);
    if (!path)
        return;
    const QByteArray again = ScanMessages::encodeRequest(*path);
    require(again.count('\n') == 1 && again.endsWith('\n'));
    require(ScanMessages::decodeRequest(again).value_or(QString()).size() == path->size());
}

void checkAnswer(const QByteArray &line) {
    const auto answer = ScanMessages::decodeAnswer(line);
    const auto *const draft = std::get_if<std::optional<Subscription>>(&answer);
    if (!draft)
        return;
    require(draft->has_value() != (line == "null"));
    if (!*draft)
        return;
    for (const QString &text : {(*draft)->name, (*draft)->currency, (*draft)->category})
        require(text.size() <= ScanMessages::longestText);
    const QByteArray again = ScanMessages::encodeAnswer(*draft);
    require(again.count('\n') == 1 && again.endsWith('\n'));
    require(ScanMessages::decodeAnswer(again.chopped(1)) == answer);
}

} // namespace

/// What the window takes from a scanner that a file has taken over, and what a scanner takes for a
/// path: whatever is understood can be said again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray line(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    checkRequest(line);
    checkAnswer(line);
    return 0;
}
