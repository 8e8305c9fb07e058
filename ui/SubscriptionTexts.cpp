// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/SubscriptionTexts.h"

#include "app/LocalizationManager.h"
#include "model/CurrencyRates.h"
#include "model/Format.h"
#include "platform/UserCalendar.h"
#include "ui/DisplayDate.h"

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

bool isZh() {
    return LocalizationManager::shared().isZh();
}

QString displayName(const Subscription &sub) {
    if (!sub.name.isEmpty())
        return sub.name;
    return isZh() ? u"未命名"_s : u"Untitled"_s;
}

QString chargedToday() {
    return isZh() ? u"今天扣费"_s : u"Charged today"_s;
}

QString tagOf(const Subscription &sub) {
    if (!sub.isActive)
        return isZh() ? u"已停用"_s : u"Paused"_s;
    if (sub.billingType == BillingType::oneTime)
        return isZh() ? u"单次"_s : u"One-time"_s;
    return {};
}

QString subtitleOf(const Subscription &sub, Instant now, const UserCalendar &calendar) {
    QStringList pieces = {Format::categoryDisplay(sub.category)};
    if (sub.billingType == BillingType::recurring)
        pieces.append(label(sub.cycle));
    if (const std::optional<CivilDay> next = sub.nextChargeDate(now, calendar)) {
        if (*next == calendar.day(now))
            pieces.append(chargedToday());
        else if (isZh())
            pieces.append(displayDate(*next) + u" 扣费"_s);
        else
            pieces.append(u"Charges "_s + displayDate(*next));
    }
    return pieces.join(u" · "_s);
}

QString monthlyTextOf(const Subscription &sub) {
    if (!sub.isActive || sub.billingType != BillingType::recurring)
        return {};
    const double inCNY = sub.monthlyAmountInCurrency() * CurrencyRates::rate(sub.currency);
    return u'≈' + Format::base(inCNY) + (isZh() ? u"/月"_s : u"/mo"_s);
}

QString dueTextOf(int days) {
    if (days == 0)
        return chargedToday();
    return isZh() ? u"%1 天后扣费"_s.arg(days) : u"in %1 days"_s.arg(days);
}

} // namespace

SubscriptionTexts subscriptionTexts(const Subscription &sub, Instant now,
                                    const UserCalendar &calendar) {
    return {.name = displayName(sub),
            .tag = tagOf(sub),
            .subtitle = subtitleOf(sub, now, calendar),
            .amountText = u'-' + Format::money(sub.amount, sub.currency),
            .monthlyText = monthlyTextOf(sub),
            .isActive = sub.isActive};
}

UpcomingTexts upcomingTexts(const Store::Upcoming &upcoming) {
    return {.name = displayName(upcoming.sub),
            .amountText = Format::money(upcoming.sub.amount, upcoming.sub.currency),
            .dueText = dueTextOf(upcoming.days),
            .isToday = upcoming.days == 0};
}

} // namespace tovarin
