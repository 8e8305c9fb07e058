// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"

#include <QUuid>

namespace tovarin {

/// A draft read from a bill, while the user looks through several of them.
struct ScanDraftItem {
    QUuid id = QUuid::createUuid(); ///< Of the row, fresh for each; the draft has one of its own.
    Subscription subscription;      ///< As it was read, and as the user has corrected it since.
    bool isIncluded = true;         ///< Whether it is to be added.

    bool operator==(const ScanDraftItem &) const = default;
};

} // namespace tovarin

Q_DECLARE_TYPEINFO(tovarin::ScanDraftItem, Q_RELOCATABLE_TYPE);
