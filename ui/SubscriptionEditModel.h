// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"
#include "ui/CalendarModel.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace tovarin {

class LocalizationManager;
class Store;

/// The form in which one subscription is added by hand, confirmed after a scan, changed or deleted.
/// One is made each time the sheet opens; what it holds reaches the store only by save() and
/// deleteSubscription().
class SubscriptionEditModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes one when the sheet opens.")
    Q_PROPERTY(bool isExisting READ isExisting CONSTANT FINAL)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged FINAL)
    Q_PROPERTY(
        QString amountText READ amountText WRITE setAmountText NOTIFY amountTextChanged FINAL)
    Q_PROPERTY(bool isAmountValid READ isAmountValid NOTIFY amountTextChanged FINAL)
    Q_PROPERTY(QString currency READ currency NOTIFY currencyChanged FINAL)
    Q_PROPERTY(int currencyIndex READ currencyIndex NOTIFY currencyChanged FINAL)
    Q_PROPERTY(QStringList currencies READ currencies CONSTANT FINAL)
    Q_PROPERTY(bool isOneTime READ isOneTime NOTIFY billingTypeChanged FINAL)
    Q_PROPERTY(int billingTypeIndex READ billingTypeIndex NOTIFY billingTypeChanged FINAL)
    Q_PROPERTY(QList<QString> billingTypeNames READ billingTypeNames NOTIFY languageChanged FINAL)
    Q_PROPERTY(int cycleIndex READ cycleIndex NOTIFY cycleChanged FINAL)
    Q_PROPERTY(QStringList cycleNames READ cycleNames NOTIFY languageChanged FINAL)
    Q_PROPERTY(QString startDateText READ startDateText NOTIFY startDateChanged FINAL)
    Q_PROPERTY(tovarin::CalendarModel *calendar READ calendar CONSTANT FINAL)
    Q_PROPERTY(QString categoryName READ categoryName NOTIFY categoryNameChanged FINAL)
    Q_PROPERTY(int categoryIndex READ categoryIndex NOTIFY categoryNameChanged FINAL)
    Q_PROPERTY(QStringList categoryNames READ categoryNames NOTIFY languageChanged FINAL)
    Q_PROPERTY(QString notes READ notes WRITE setNotes NOTIFY notesChanged FINAL)
    Q_PROPERTY(bool isActive READ isActive WRITE setIsActive NOTIFY isActiveChanged FINAL)
    Q_PROPERTY(
        bool dateExpanded READ dateExpanded WRITE setDateExpanded NOTIFY dateExpandedChanged FINAL)
    Q_PROPERTY(int labelWidth READ labelWidthOfRows CONSTANT FINAL)
    Q_PROPERTY(bool isValid READ isValid NOTIFY isValidChanged FINAL)
    Q_PROPERTY(QString titleText READ titleText NOTIFY languageChanged FINAL)

public:
    /// The width of the label column of every row, in points.
    static constexpr int labelWidth = 92;

    /// What it is opened with: an entry of the store to change, a draft to confirm, or neither.
    /// Where there are both, `existing` counts.
    struct Source {
        std::optional<Subscription> existing;
        std::optional<Subscription> prefill;
    };

    /// All but the source must outlive the model. The form is empty until populate().
    SubscriptionEditModel(Source source, Store &store, const Clock &clock,
                          const UserCalendar &calendar, const UserMonths &months,
                          const LocalizationManager &loc, QObject *parent = nullptr);

    /// Fills the form from the source; without one, chooses the currency of the language alone. To
    /// be called when the sheet appears.
    Q_INVOKABLE void populate();

    bool isExisting() const { return m_source.existing.has_value(); }

    QString name() const { return m_name; }
    void setName(const QString &name);

    /// As typed.
    QString amountText() const { return m_amountText; }
    void setAmountText(const QString &text);

    /// Whether it is a number above 0.
    bool isAmountValid() const;

    /// A code. One that the picker does not offer stays until the user chooses another.
    QString currency() const { return m_currency; }
    void setCurrency(const QString &currency);
    int currencyIndex() const; ///< -1 for one that is not offered.
    QStringList currencies() const;
    Q_INVOKABLE void chooseCurrency(int index);

    BillingType billingType() const { return m_billingType; }
    void setBillingType(BillingType type);
    bool isOneTime() const { return m_billingType == BillingType::oneTime; }
    int billingTypeIndex() const;
    QStringList billingTypeNames() const;
    Q_INVOKABLE void chooseBillingType(int index);

    BillingCycle cycle() const { return m_cycle; }
    void setCycle(BillingCycle cycle);
    int cycleIndex() const;
    QStringList cycleNames() const;
    Q_INVOKABLE void chooseCycle(int index);

    /// The selection of the calendar. It keeps its time of day until a day is chosen.
    Instant startDate() const { return m_calendarModel.selection(); }
    void setStartDate(Instant date) { m_calendarModel.setSelection(date); }
    QString startDateText() const;
    CalendarModel *calendar() { return &m_calendarModel; }

    /// A key. One that the picker does not offer stays until the user chooses another.
    QString category() const { return m_category; }
    void setCategory(const QString &category);
    QString categoryName() const;
    int categoryIndex() const; ///< -1 for one that is not offered.
    QStringList categoryNames() const;
    Q_INVOKABLE void chooseCategory(int index);

    QString notes() const { return m_notes; }
    void setNotes(const QString &notes);

    bool isActive() const { return m_isActive; }
    void setIsActive(bool isActive);

    /// Whether the calendar is open.
    bool dateExpanded() const { return m_dateExpanded; }
    void setDateExpanded(bool expanded);

    int labelWidthOfRows() const { return labelWidth; }

    /// Whether there is a name and an amount above 0.
    bool isValid() const;

    QString titleText() const;

    /// Puts the form into the store, in the place of the existing entry or as a new one at its end.
    /// A confirmed draft is a new entry too: it keeps neither its id nor its service, which is
    /// meant.
    Q_INVOKABLE void save();

    /// Removes the existing entry from the store, without a question; nothing without one.
    Q_INVOKABLE void deleteSubscription();

    Q_INVOKABLE void cancel() { Q_EMIT dismissed(); }

    /// Another day has begun, or the calendar is another.
    void noticeDay();

Q_SIGNALS:
    void nameChanged();
    void amountTextChanged();
    void currencyChanged();
    void billingTypeChanged();
    void cycleChanged();
    void startDateChanged();
    void categoryNameChanged();
    void notesChanged();
    void isActiveChanged();
    void dateExpandedChanged();
    void isValidChanged();
    void languageChanged();

    /// The sheet is to close.
    void dismissed();

private:
    template <typename Value>
    void change(Value &field, const Value &value, void (SubscriptionEditModel::*changed)());
    Subscription record() const;

    Source m_source;
    Store &m_store;
    const UserCalendar &m_calendar;
    const LocalizationManager &m_loc;
    CalendarModel m_calendarModel;
    QString m_name;
    QString m_amountText;
    QString m_currency = QStringLiteral("CNY");
    BillingType m_billingType = BillingType::recurring;
    BillingCycle m_cycle = BillingCycle::monthly;
    QString m_category = QStringLiteral("AI/工具");
    QString m_notes;
    bool m_isActive = true;
    bool m_dateExpanded = false;
};

} // namespace tovarin
