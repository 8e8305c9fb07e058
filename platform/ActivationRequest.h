// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Environment.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>

namespace tovarin {

/// What somebody on the session bus wants of the application, read from the arguments of
/// `org.freedesktop.Application` (freedesktop.org's "D-Bus Activation" of desktop entries), which
/// may be anything.
struct ActivationRequest {
    /// More addresses than that in one call are left out.
    static constexpr qsizetype mostFiles = 10000;

    /// For its method Activate.
    static ActivationRequest toActivate(const QVariantMap &platformData);

    /// For its method Open. Addresses that are none are left out; without any this only activates.
    static ActivationRequest toOpen(const QStringList &uris, const QVariantMap &platformData);

    /// What a process that was started with such a token passes on with its request.
    static QVariantMap platformData(const Environment &environment);

    QList<QUrl> files;       ///< None to activate; else any valid addresses, local or not.
    QString activationToken; ///< For the window system; empty when the caller has none.
};

} // namespace tovarin
