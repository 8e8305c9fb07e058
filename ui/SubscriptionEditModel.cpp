// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/SubscriptionEditModel.h"

#include "app/LocalizationManager.h"
#include "model/Blanks.h"
#include "model/CurrencyRates.h"
#include "model/Format.h"
#include "model/Store.h"
#include "platform/UserCalendar.h"
#include "ui/AmountText.h"
#include "ui/DisplayDate.h"

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

template <typename Values, typename Value>
int indexIn(const Values &values, const Value &value) {
    const auto found = std::ranges::find(values, value);
    return found == values.end() ? -1 : static_cast<int>(found - values.begin());
}

/// What stands at an index; nothing for one that the values do not have.
template <typename Values>
auto valueAt(const Values &values, int index) {
    const auto place = static_cast<std::size_t>(index);
    return index >= 0 && place < values.size() ? std::optional(values[place]) : std::nullopt;
}

template <typename Values>
QStringList namesOf(const Values &values) {
    QStringList names;
    for (const auto value : values)
        names.append(label(value));
    return names;
}

} // namespace

SubscriptionEditModel::SubscriptionEditModel(Source source, Store &store, const Clock &clock,
                                             const UserCalendar &calendar, const UserMonths &months,
                                             const LocalizationManager &loc, QObject *parent)
    : QObject(parent)
    , m_source(std::move(source))
    , m_store(store)
    , m_calendar(calendar)
    , m_loc(loc)
    , m_calendarModel(clock.now(), clock, calendar, months) {
    using Self = SubscriptionEditModel;
    connect(&m_calendarModel, &CalendarModel::selectionChanged, this, &Self::startDateChanged);
    connect(&loc, &LocalizationManager::langDidChange, this, &Self::languageChanged);
    connect(this, &Self::languageChanged, this, &Self::categoryNameChanged);
    connect(this, &Self::nameChanged, this, &Self::isValidChanged);
    connect(this, &Self::amountTextChanged, this, &Self::isValidChanged);
}

void SubscriptionEditModel::populate() {
    const std::optional<Subscription> &from =
        m_source.existing ? m_source.existing : m_source.prefill;
    if (!from) {
        setCurrency(m_loc.isZh() ? u"CNY"_s : u"USD"_s);
        return;
    }
    setName(from->name);
    setAmountText(tovarin::amountText(from->amount));
    setCurrency(from->currency);
    setBillingType(from->billingType);
    setCycle(from->cycle);
    setStartDate(from->startDate);
    setCategory(from->category);
    setNotes(from->notes);
    setIsActive(from->isActive);
}

template <typename Value>
void SubscriptionEditModel::change(Value &field, const Value &value,
                                   void (SubscriptionEditModel::*changed)()) {
    if (field == value)
        return;
    field = value;
    Q_EMIT(this->*changed)();
}

void SubscriptionEditModel::setName(const QString &name) {
    change(m_name, name, &SubscriptionEditModel::nameChanged);
}

void SubscriptionEditModel::setAmountText(const QString &text) {
    change(m_amountText, text, &SubscriptionEditModel::amountTextChanged);
}

void SubscriptionEditModel::setCurrency(const QString &currency) {
    change(m_currency, currency, &SubscriptionEditModel::currencyChanged);
}

int SubscriptionEditModel::currencyIndex() const {
    return indexIn(CurrencyRates::supported, m_currency);
}

QStringList SubscriptionEditModel::currencies() const {
    QStringList codes;
    for (const QStringView code : CurrencyRates::supported)
        codes.append(code.toString());
    return codes;
}

void SubscriptionEditModel::chooseCurrency(int index) {
    if (const auto chosen = valueAt(CurrencyRates::supported, index))
        setCurrency(chosen->toString());
}

void SubscriptionEditModel::setBillingType(BillingType type) {
    change(m_billingType, type, &SubscriptionEditModel::billingTypeChanged);
}

int SubscriptionEditModel::billingTypeIndex() const {
    return indexIn(allBillingTypes, m_billingType);
}

QStringList SubscriptionEditModel::billingTypeNames() const {
    return namesOf(allBillingTypes);
}

void SubscriptionEditModel::chooseBillingType(int index) {
    if (const auto chosen = valueAt(allBillingTypes, index))
        setBillingType(*chosen);
}

void SubscriptionEditModel::setCycle(BillingCycle cycle) {
    change(m_cycle, cycle, &SubscriptionEditModel::cycleChanged);
}

int SubscriptionEditModel::cycleIndex() const {
    return indexIn(allBillingCycles, m_cycle);
}

QStringList SubscriptionEditModel::cycleNames() const {
    return namesOf(allBillingCycles);
}

void SubscriptionEditModel::chooseCycle(int index) {
    if (const auto chosen = valueAt(allBillingCycles, index))
        setCycle(*chosen);
}

QString SubscriptionEditModel::startDateText() const {
    return displayDate(m_calendar.day(startDate()));
}

void SubscriptionEditModel::setCategory(const QString &category) {
    change(m_category, category, &SubscriptionEditModel::categoryNameChanged);
}

QString SubscriptionEditModel::categoryName() const {
    return Format::categoryDisplay(m_category);
}

int SubscriptionEditModel::categoryIndex() const {
    return indexIn(Format::categories, m_category);
}

QStringList SubscriptionEditModel::categoryNames() const {
    QStringList names;
    for (const QStringView key : Format::categories)
        names.append(Format::categoryDisplay(key.toString()));
    return names;
}

void SubscriptionEditModel::chooseCategory(int index) {
    if (const auto chosen = valueAt(Format::categories, index))
        setCategory(chosen->toString());
}

void SubscriptionEditModel::setNotes(const QString &notes) {
    change(m_notes, notes, &SubscriptionEditModel::notesChanged);
}

void SubscriptionEditModel::setIsActive(bool isActive) {
    change(m_isActive, isActive, &SubscriptionEditModel::isActiveChanged);
}

void SubscriptionEditModel::setDateExpanded(bool expanded) {
    change(m_dateExpanded, expanded, &SubscriptionEditModel::dateExpandedChanged);
}

bool SubscriptionEditModel::isAmountValid() const {
    return amountOf(m_amountText).value_or(0) > 0;
}

bool SubscriptionEditModel::isValid() const {
    return !withoutBlanksAround(m_name).isEmpty() && isAmountValid();
}

QString SubscriptionEditModel::titleText() const {
    const bool isZh = m_loc.isZh();
    if (m_source.existing)
        return isZh ? u"编辑订阅"_s : u"Edit subscription"_s;
    if (m_source.prefill)
        return isZh ? u"确认识别结果"_s : u"Confirm scan"_s;
    return isZh ? u"添加订阅"_s : u"Add subscription"_s;
}

Subscription SubscriptionEditModel::record() const {
    const std::optional<Subscription> &existing = m_source.existing;
    return {.id = existing ? existing->id : QUuid::createUuid(),
            .name = withoutBlanksAround(m_name),
            .amount = amountOf(m_amountText).value_or(0),
            .currency = m_currency,
            .billingType = m_billingType,
            .cycle = m_cycle,
            .startDate = startDate(),
            .category = m_category,
            .notes = m_notes,
            .isActive = m_isActive,
            .serviceID = existing ? existing->serviceID : std::nullopt};
}

void SubscriptionEditModel::save() {
    if (m_source.existing)
        m_store.update(record());
    else
        m_store.add(record());
    Q_EMIT dismissed();
}

void SubscriptionEditModel::deleteSubscription() {
    if (!m_source.existing)
        return;
    m_store.deleteSubscription(*m_source.existing);
    Q_EMIT dismissed();
}

void SubscriptionEditModel::noticeDay() {
    m_calendarModel.noticeDay();
    Q_EMIT startDateChanged();
}

} // namespace tovarin
