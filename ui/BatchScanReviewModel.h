// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "ui/ScanDraftItem.h"

#include <QAbstractListModel>
#include <QList>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tovarin {

class LocalizationManager;
class Store;

/// The drafts of several bills, a row each, in which the user ticks what is to be kept and corrects
/// names and amounts. The rows are the caller's own list: what is changed here is changed there,
/// also when the user cancels. Nothing reaches the store but by save().
class BatchScanReviewModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes one when the sheet opens.")
    Q_PROPERTY(QString title READ title NOTIFY languageChanged FINAL)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY languageChanged FINAL)
    Q_PROPERTY(QString emptyText READ emptyText NOTIFY languageChanged FINAL)
    Q_PROPERTY(QString cancelTitle READ cancelTitle NOTIFY languageChanged FINAL)
    Q_PROPERTY(QString counterText READ counterText NOTIFY includedChanged FINAL)
    Q_PROPERTY(QString confirmTitle READ confirmTitle NOTIFY includedChanged FINAL)
    Q_PROPERTY(bool canConfirm READ canConfirm NOTIFY includedChanged FINAL)
    Q_PROPERTY(int count READ count CONSTANT FINAL)

public:
    enum Role {
        IsIncludedRole = Qt::UserRole,
        NameRole,
        LacksNameRole, ///< Whether the name is empty. One of blanks alone is not.
        AmountRole,
        CycleLabelRole,
    };
    Q_ENUM(Role)

    /// All three must outlive the model, and nobody else changes the items meanwhile.
    BatchScanReviewModel(QList<ScanDraftItem> &items, Store &store, const LocalizationManager &loc,
                         QObject *parent = nullptr);

    /// The drafts that are ticked, in their order, whether they can be stored or not.
    QList<Subscription> included() const;

    QString title() const;
    QString subtitle() const;
    QString emptyText() const; ///< Stands in the place of the rows where there are none.
    QString cancelTitle() const;

    /// How many of how many are ticked.
    QString counterText() const;
    QString confirmTitle() const;
    bool canConfirm() const;

    int count() const { return static_cast<int>(m_items.size()); }

    /// Each does nothing for a row that there is not.
    Q_INVOKABLE void setIncluded(int row, bool isIncluded);
    Q_INVOKABLE void setName(int row, const QString &name);
    Q_INVOKABLE void setAmount(int row, double amount);

    /// Appends the ticked drafts that have a name of more than blanks and an amount above 0 to the
    /// store, and closes; the others are left out without a word. Where that leaves none, nothing
    /// happens at all. All of it is meant.
    Q_INVOKABLE void save();

    Q_INVOKABLE void cancel() { Q_EMIT dismissed(); }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void includedChanged();
    void languageChanged();

    /// The sheet is to close.
    void dismissed();

private:
    template <typename Value>
    bool change(int row, Value &(*field)(ScanDraftItem &), const Value &value,
                const QList<int> &roles);
    void followLanguage();
    QString pair(const QString &chinese, const QString &english) const;

    QList<ScanDraftItem> &m_items;
    Store &m_store;
    const LocalizationManager &m_loc;
};

} // namespace tovarin
