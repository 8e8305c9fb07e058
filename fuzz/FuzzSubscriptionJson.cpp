// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "fuzz/Require.h"
#include "model/SubscriptionJson.h"

#include <cstdint>

using tovarin::require;
using tovarin::Subscription;

/// Whatever decodes must encode, and come back as the same list.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray json(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const auto first = tovarin::decodeSubscriptions(json);
    const auto *list = std::get_if<QList<Subscription>>(&first);
    if (list == nullptr)
        return 0;
    const auto encoded = tovarin::encodeSubscriptions(*list);
    require(encoded.has_value());
    const auto second = tovarin::decodeSubscriptions(*encoded);
    const auto *again = std::get_if<QList<Subscription>>(&second);
    require(again != nullptr && *again == *list);
    return 0;
}
