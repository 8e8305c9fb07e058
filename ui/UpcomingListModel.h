// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Store.h"
#include "ui/SubscriptionTexts.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace tovarin {

/// The charges that are due soon as rows of text, in the order in which they are given.
class UpcomingListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The main window's model has it.")

public:
    enum Role { NameRole = Qt::UserRole, AmountTextRole, DueTextRole, IsTodayRole };
    Q_ENUM(Role)

    using QAbstractListModel::QAbstractListModel;

    /// Shows these charges in the language of the moment.
    void show(const QList<Store::Upcoming> &upcoming);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    QList<UpcomingTexts> m_texts;
};

} // namespace tovarin
