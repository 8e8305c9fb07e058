// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/ServiceLogo.h"
#include "model/Subscription.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

namespace tovarin {

class Clock;
class LocalizationManager;
class UserCalendar;

/// One subscription in full, with what can be done to it. It changes nothing but the clipboard:
/// what else the user asks for is told by a signal, and whoever does it hands the changed record
/// back (setSubscription()). Its texts follow the language; for another day it has to be told
/// (noticeDay()).
class SubscriptionDetailModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes one when the sheet opens.")
    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    Q_PROPERTY(QString name READ name NOTIFY changed FINAL)
    Q_PROPERTY(QString logoID READ logoID NOTIFY changed FINAL)
    Q_PROPERTY(QString avatarLetter READ avatarLetter NOTIFY changed FINAL)
    Q_PROPERTY(bool isActive READ isActive NOTIFY changed FINAL)
    Q_PROPERTY(QString amountText READ amountText NOTIFY changed FINAL)
    Q_PROPERTY(QString dateText READ dateText NOTIFY changed FINAL)
    Q_PROPERTY(QString editTitle READ editTitle NOTIFY changed FINAL)
    Q_PROPERTY(QString toggleTitle READ toggleTitle NOTIFY changed FINAL)
    Q_PROPERTY(QString toggleSymbol READ toggleSymbol NOTIFY changed FINAL)
    Q_PROPERTY(QString copyTitle READ copyTitle NOTIFY changed FINAL)
    Q_PROPERTY(QVariantList rows READ rows NOTIFY changed FINAL)
    Q_PROPERTY(QString deleteTitle READ deleteTitle NOTIFY changed FINAL)

public:
    /// One line of the details.
    struct Row {
        QString label;
        QString value; ///< The notes alone may have several lines.

        bool operator==(const Row &) const = default;
    };

    /// All but the record must outlive the model.
    SubscriptionDetailModel(Subscription subscription, const Clock &clock,
                            const UserCalendar &calendar, const LocalizationManager &loc,
                            const ServiceLogo &logos, QObject *parent = nullptr);

    const Subscription &subscription() const { return m_subscription; }

    /// Shows the record as it is by now.
    void setSubscription(const Subscription &subscription);

    QString title() const;

    /// Never empty: an entry without a name is "Untitled".
    QString name() const;

    /// Of the service whose logo is shown; empty for the letter.
    QString logoID() const;
    QString avatarLetter() const;

    bool isActive() const { return m_subscription.isActive; }

    /// In the entry's own currency, as an expense: "-$9.99".
    QString amountText() const;

    /// The next charge, or the day of a purchase that is not past; empty without such a day.
    QString dateText() const;

    QString editTitle() const;

    /// What a press would do: pause or resume.
    QString toggleTitle() const;
    QString toggleSymbol() const;

    QString copyTitle() const;

    /// What else there is to know, as far as it applies. A paused entry costs nothing per month,
    /// which is meant.
    QList<Row> details() const;

    /// The same for QML: a map by the names of Row's members for each.
    QVariantList rows() const;

    QString deleteTitle() const;

    Q_INVOKABLE void edit() { Q_EMIT editRequested(); }
    Q_INVOKABLE void toggle() { Q_EMIT toggleRequested(); }

    /// Puts name, amount and cycle on the clipboard, in one line. The name is the record's own: an
    /// entry without one is not called "Untitled" there.
    Q_INVOKABLE void copy() const;

    Q_INVOKABLE void deleteSubscription() { Q_EMIT deleteRequested(); }
    Q_INVOKABLE void dismiss() { Q_EMIT dismissed(); }

    /// Another day has begun, or the calendar is another.
    void noticeDay() { Q_EMIT changed(); }

Q_SIGNALS:
    void changed();

    /// The user wants to edit the entry, to pause or resume it, to delete it.
    void editRequested();
    void toggleRequested();
    void deleteRequested();

    /// The sheet is to close.
    void dismissed();

private:
    QString pair(const QString &chinese, const QString &english) const;
    bool isOneTime() const { return m_subscription.billingType == BillingType::oneTime; }

    Subscription m_subscription;
    const Clock &m_clock;
    const UserCalendar &m_calendar;
    const LocalizationManager &m_loc;
    const ServiceLogo &m_logos;
};

} // namespace tovarin
