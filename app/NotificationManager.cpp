// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/NotificationManager.h"

#include "app/LocalizationManager.h"
#include "model/Format.h"
#include "platform/NotificationCenter.h"
#include "platform/UserCalendar.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

constexpr std::chrono::minutes timeOfDay = 10h;
constexpr std::chrono::milliseconds testDelay = 3s;

QString identifierOf(const QString &kind, const QUuid &id) {
    return kind + id.toString(QUuid::WithoutBraces).toUpper();
}

QString reminderTitle(bool isZh) {
    return isZh ? u"订阅即将续费"_s : u"Subscription renewing soon"_s;
}

QString reminderBody(const Subscription &sub, int daysBefore, bool isZh) {
    const QString money = Format::money(sub.amount, sub.currency);
    if (isZh) {
        const QString when = daysBefore < 1 ? u"今天"_s : QString::number(daysBefore) + u" 天后"_s;
        return u"「"_s + sub.name + u"」将在"_s + when + u"扣费 "_s + money +
               u"，需要的话记得提前取消。"_s;
    }
    const QString when =
        daysBefore < 1 ? u"today"_s : u"in "_s + QString::number(daysBefore) + u" days"_s;
    return sub.name + u" will be charged "_s + money + u' ' + when +
           u". Cancel ahead of time if you no longer need it."_s;
}

/// The day of the reminder, if it is still to come.
std::optional<CivilDay> reminderDay(const Subscription &sub, int daysBefore, Instant now,
                                    const UserCalendar &calendar) {
    if (!sub.isActive || sub.billingType != BillingType::recurring)
        return std::nullopt;
    const std::optional<CivilDay> charge = sub.nextChargeDate(now, calendar);
    if (!charge)
        return std::nullopt;
    const auto day = calendar.adding({-daysBefore, CalendarStep::Unit::Day}, *charge);
    if (!day)
        return std::nullopt;
    const std::optional<Instant> moment = calendar.instantOf(*day, timeOfDay);
    return moment && *moment > now ? day : std::nullopt;
}

} // namespace

QList<NotificationRequest> renewalReminders(const QList<Subscription> &subscriptions,
                                            int daysBefore, Instant now,
                                            const UserCalendar &calendar, bool isZh) {
    const int daysAhead = std::max(daysBefore, 0);
    QList<NotificationRequest> requests;
    for (const Subscription &sub : subscriptions) {
        const std::optional<CivilDay> day = reminderDay(sub, daysAhead, now, calendar);
        if (!day)
            continue;
        requests.append({.identifier = identifierOf(u"renew-"_s, sub.id),
                         .title = reminderTitle(isZh),
                         .body = reminderBody(sub, daysAhead, isZh),
                         .presentation = NotificationManager::presentation,
                         .trigger = CalendarTrigger{*day, timeOfDay}});
    }
    return requests;
}

NotificationManager::NotificationManager(NotificationCenter &center, const Clock &clock,
                                         const UserCalendar &calendar,
                                         const LocalizationManager &loc)
    : m_center(center), m_clock(clock), m_calendar(calendar), m_loc(loc) {}

void NotificationManager::requestAuthorization() {
    if (!isInBundle())
        return;
    m_center.requestAuthorization(AuthorizationOption::alert | AuthorizationOption::sound |
                                      AuthorizationOption::badge,
                                  [](bool) {});
}

void NotificationManager::reschedule(const QList<Subscription> &subscriptions, int daysBefore) {
    if (!isInBundle())
        return;
    // Removes nothing, and is asked for all the same.
    m_center.removePending({});
    m_center.removeAllPending();
    const QList<NotificationRequest> requests =
        renewalReminders(subscriptions, daysBefore, m_clock.now(), m_calendar, m_loc.isZh());
    for (const NotificationRequest &request : requests)
        m_center.add(request);
}

void NotificationManager::sendTest() {
    if (!isInBundle())
        return;
    const bool isZh = m_loc.isZh();
    m_center.add({.identifier = identifierOf(u"test-"_s, QUuid::createUuid()),
                  .title = isZh ? u"Tovarin 测试通知"_s : u"Tovarin test notification"_s,
                  .body = isZh ? u"看到这条就说明续费提醒能正常工作 ✅"_s
                               : u"If you can see this, reminders are working ✅"_s,
                  .presentation = presentation,
                  .trigger = TimeIntervalTrigger{testDelay}});
}

bool NotificationManager::isInBundle() const {
    return !m_center.bundleIdentifier().isEmpty();
}

} // namespace tovarin
