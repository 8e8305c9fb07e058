// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationCenter.h"

namespace tovarin {

/// A notification center that keeps what it is given and shows nothing.
class RecordingCenter final : public NotificationCenter {
public:
    explicit RecordingCenter(QString identifier = QStringLiteral("app.tovarin.Tovarin"))
        : m_identifier(std::move(identifier)) {}

    QString bundleIdentifier() const override { return m_identifier; }

    void requestAuthorization(AuthorizationOptions options,
                              std::function<void(bool)> answer) override {
        calls.append(QStringLiteral("authorize"));
        askedFor = options;
        answer(false);
    }

    void add(const NotificationRequest &request) override {
        calls.append(QStringLiteral("add"));
        requests.removeIf([&](const NotificationRequest &other) {
            return other.identifier == request.identifier;
        });
        requests.append(request);
    }

    void removePending(const QStringList &identifiers) override {
        calls.append(QStringLiteral("remove ") + identifiers.join(u','));
        requests.removeIf([&](const NotificationRequest &request) {
            return identifiers.contains(request.identifier);
        });
    }

    void removeAllPending() override {
        calls.append(QStringLiteral("remove all"));
        requests.clear();
    }

    void pending(std::function<void(const QList<NotificationRequest> &)> answer) override {
        answer(requests);
    }

    QStringList calls;                   ///< "authorize", "add", "remove a,b", "remove all".
    QList<NotificationRequest> requests; ///< What is pending.
    AuthorizationOptions askedFor;

private:
    const QString m_identifier;
};

} // namespace tovarin
