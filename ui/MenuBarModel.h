// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

namespace tovarin {

class LocalizationManager;
class Store;

/// What the panel of the status item shows: the monthly spend and the charges due within a week.
/// It shows the list and the language of the moment, and follows both; a new one is made each time
/// the panel opens.
class MenuBarModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes one when the panel opens.")
    Q_PROPERTY(QString monthlySpend READ monthlySpend NOTIFY changed FINAL)
    Q_PROPERTY(QString summary READ summary NOTIFY changed FINAL)
    Q_PROPERTY(QVariantList rows READ rows NOTIFY changed FINAL)

public:
    /// So many charges are shown, however many are due.
    static constexpr int mostRows = 4;

    /// One charge that is due soon.
    struct Row {
        QString name;
        QString daysText;   ///< How soon: "3d".
        QString amountText; ///< In the entry's own currency, with a minus sign.

        bool operator==(const Row &) const = default;
    };

    /// Both must outlive the model.
    MenuBarModel(const Store &store, const LocalizationManager &loc, QObject *parent = nullptr);

    /// In the currency of the language.
    QString monthlySpend() const { return m_monthlySpend; }

    /// The yearly spend and the number of active entries.
    QString summary() const { return m_summary; }

    /// The first charges due within a week, soonest first.
    const QList<Row> &charges() const { return m_rows; }

    /// The same for QML: a map by the names of Row's members for each.
    QVariantList rows() const;

    /// Another day has begun, or the zone has changed.
    void noticeDay() { update(); }

Q_SIGNALS:
    void changed();

private:
    void update();

    const Store &m_store;
    const LocalizationManager &m_loc;
    QString m_monthlySpend;
    QString m_summary;
    QList<Row> m_rows;
};

} // namespace tovarin
