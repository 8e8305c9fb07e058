// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/ActivationRequest.h"

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

struct TokenSource {
    const char *variable;
    QLatin1StringView key; ///< In the platform data.
};

/// The one of Wayland first: a start that has both was made under it.
constexpr std::array tokenSources = {
    TokenSource{"XDG_ACTIVATION_TOKEN", "activation-token"_L1},
    TokenSource{"DESKTOP_STARTUP_ID", "desktop-startup-id"_L1},
};

QString tokenIn(const QVariantMap &platformData) {
    for (const TokenSource &source : tokenSources) {
        const QVariant value = platformData.value(source.key);
        if (value.typeId() == QMetaType::QString && !value.toString().isEmpty())
            return value.toString();
    }
    return {};
}

} // namespace

ActivationRequest ActivationRequest::toActivate(const QVariantMap &platformData) {
    return {{}, tokenIn(platformData)};
}

ActivationRequest ActivationRequest::toOpen(const QStringList &uris,
                                            const QVariantMap &platformData) {
    ActivationRequest request = toActivate(platformData);
    for (const QString &uri : uris.first(std::min(uris.size(), mostFiles))) {
        const QUrl url(uri);
        if (url.isValid())
            request.files.append(url);
    }
    return request;
}

QVariantMap ActivationRequest::platformData(const Environment &environment) {
    QVariantMap data;
    for (const TokenSource &source : tokenSources) {
        const QByteArray value = environment(source.variable);
        if (!value.isEmpty())
            data.insert(source.key, QString::fromLocal8Bit(value));
    }
    return data;
}

} // namespace tovarin
