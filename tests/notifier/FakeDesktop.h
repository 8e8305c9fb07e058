// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QStringList>

namespace tovarin {

/// A desktop's notification service on a bus, and an application that can be activated.
class FakeDesktop final : public QDBusVirtualObject {
public:
    explicit FakeDesktop(const QByteArray &address);
    ~FakeDesktop() override;
    FakeDesktop(const FakeDesktop &) = delete;
    FakeDesktop &operator=(const FakeDesktop &) = delete;

    void appear();
    void leave();
    void haveTovarin();

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override;

    void tell(const QString &signal, const QVariantList &arguments);
    void close(uint id);

    QStringList bodies() const;

    QStringList capabilities;
    QString error; ///< The answer to GetCapabilities, if any.
    bool holdsAnswers = false;
    /// What a service does that is quicker than its own answer.
    bool clicksFirst = false;
    bool closesFirst = false;
    int questions = 0;
    QList<QVariantList> posts;
    QStringList activations; ///< The tokens.

private:
    QDBusConnection m_bus;
};

} // namespace tovarin
