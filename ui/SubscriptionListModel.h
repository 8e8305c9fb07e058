// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/ServiceLogo.h"
#include "model/Subscription.h"
#include "ui/SubscriptionTexts.h"

#include <QAbstractListModel>
#include <QHash>
#include <QtQml/qqmlregistration.h>

namespace tovarin {

/// Subscriptions as rows of text, in the order in which they are given. The texts of a row are made
/// when somebody first asks for them, so that a long list costs no more than the rows in sight.
class SubscriptionListModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The main window's model has it.")

public:
    enum Role {
        IDRole = Qt::UserRole, ///< As text.
        NameRole,
        TagRole,
        SubtitleRole,
        AmountTextRole,
        MonthlyTextRole,
        IsActiveRole,
        LogoIDRole,       ///< Of the service whose logo is shown; empty for the letter.
        AvatarLetterRole, ///< Stands in the place of a logo.
    };
    Q_ENUM(Role)

    /// Both must outlive the model.
    SubscriptionListModel(const UserCalendar &calendar, const ServiceLogo &logos,
                          QObject *parent = nullptr);

    /// Shows these entries as they read at `now`, in the language of the moment. While their number
    /// stays the same, a view keeps its place.
    void show(const QList<Subscription> &subs, Instant now);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    const SubscriptionTexts &texts(int row) const;

    const UserCalendar &m_calendar;
    const ServiceLogo &m_logos;
    QList<Subscription> m_subs;
    Instant m_now;
    mutable QHash<int, SubscriptionTexts> m_texts; ///< Of the rows that were asked for.
};

} // namespace tovarin
