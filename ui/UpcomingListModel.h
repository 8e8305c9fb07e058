// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/ServiceLogo.h"
#include "model/Store.h"
#include "ui/SubscriptionTexts.h"

#include <QAbstractListModel>
#include <QHash>
#include <QtQml/qqmlregistration.h>

namespace tovarin {

/// The charges that are due soon as rows of text, in the order in which they are given. The texts
/// of a row are made when somebody first asks for them.
class UpcomingListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The main window's model has it.")

public:
    enum Role {
        NameRole = Qt::UserRole,
        AmountTextRole,
        DueTextRole,
        IsTodayRole,
        LogoIDRole,       ///< Of the service whose logo is shown; empty for the letter.
        AvatarLetterRole, ///< Stands in the place of a logo.
    };
    Q_ENUM(Role)

    /// `logos` must outlive the model.
    explicit UpcomingListModel(const ServiceLogo &logos, QObject *parent = nullptr)
        : QAbstractListModel(parent), m_logos(logos) {}

    /// Shows these charges in the language of the moment.
    void show(const QList<Store::Upcoming> &upcoming);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    const UpcomingTexts &texts(int row) const;

    const ServiceLogo &m_logos;
    QList<Store::Upcoming> m_upcoming;
    mutable QHash<int, UpcomingTexts> m_texts; ///< Of the rows that were asked for.
};

} // namespace tovarin
