// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/SubscriptionDetailModel.h"

#include "app/LocalizationManager.h"
#include "catalog/Avatar.h"
#include "model/CurrencyRates.h"
#include "model/Format.h"
#include "platform/Pasteboard.h"
#include "platform/UserCalendar.h"
#include "ui/DisplayDate.h"

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

SubscriptionDetailModel::SubscriptionDetailModel(Subscription subscription, const Clock &clock,
                                                 const UserCalendar &calendar,
                                                 const LocalizationManager &loc,
                                                 const ServiceLogo &logos, QObject *parent)
    : QObject(parent)
    , m_subscription(std::move(subscription))
    , m_clock(clock)
    , m_calendar(calendar)
    , m_loc(loc)
    , m_logos(logos) {
    connect(&loc, &LocalizationManager::langDidChange, this, &SubscriptionDetailModel::changed);
}

QString SubscriptionDetailModel::pair(const QString &chinese, const QString &english) const {
    return m_loc.isZh() ? chinese : english;
}

void SubscriptionDetailModel::setSubscription(const Subscription &subscription) {
    if (m_subscription == subscription)
        return;
    m_subscription = subscription;
    Q_EMIT changed();
}

QString SubscriptionDetailModel::title() const {
    return pair(u"[ 详情 ]"_s, u"[ DETAILS ]"_s);
}

QString SubscriptionDetailModel::name() const {
    return m_subscription.name.isEmpty() ? pair(u"未命名"_s, u"Untitled"_s) : m_subscription.name;
}

QString SubscriptionDetailModel::logoID() const {
    return m_logos.presetID(m_subscription);
}

QString SubscriptionDetailModel::avatarLetter() const {
    return tovarin::avatarLetter(m_subscription.name);
}

QString SubscriptionDetailModel::amountText() const {
    return u'-' + Format::money(m_subscription.amount, m_subscription.currency);
}

QString SubscriptionDetailModel::dateText() const {
    const std::optional<CivilDay> next = m_subscription.nextChargeDate(m_clock.now(), m_calendar);
    if (!next)
        return {};
    return (isOneTime() ? pair(u"购买于 "_s, u"Purchased "_s)
                        : pair(u"下次扣费 "_s, u"Next charge "_s)) +
           displayDate(*next);
}

QString SubscriptionDetailModel::editTitle() const {
    return pair(u"编辑"_s, u"Edit"_s);
}

QString SubscriptionDetailModel::toggleTitle() const {
    return isActive() ? pair(u"停用"_s, u"Pause"_s) : pair(u"启用"_s, u"Resume"_s);
}

QString SubscriptionDetailModel::toggleSymbol() const {
    return isActive() ? u"pause"_s : u"play"_s;
}

QString SubscriptionDetailModel::copyTitle() const {
    return pair(u"复制"_s, u"Copy"_s);
}

QList<SubscriptionDetailModel::Row> SubscriptionDetailModel::details() const {
    QList<Row> rows;
    rows.append({pair(u"付费方式"_s, u"Billing"_s), label(m_subscription.billingType)});
    if (!isOneTime()) {
        rows.append({pair(u"续费周期"_s, u"Cycle"_s), label(m_subscription.cycle)});
        const double monthlyCNY =
            m_subscription.monthlyAmountInCurrency() * CurrencyRates::rate(m_subscription.currency);
        rows.append({pair(u"折合每月"_s, u"Per month"_s), Format::base(monthlyCNY)});
    }
    rows.append({pair(u"币种"_s, u"Currency"_s), m_subscription.currency});
    rows.append({pair(u"状态"_s, u"Status"_s),
                 isActive() ? pair(u"使用中"_s, u"Active"_s) : pair(u"已停用"_s, u"Paused"_s)});
    if (!m_subscription.notes.isEmpty())
        rows.append({pair(u"备注"_s, u"Notes"_s), m_subscription.notes});
    return rows;
}

QVariantList SubscriptionDetailModel::rows() const {
    QVariantList list;
    for (const Row &row : details())
        list.append(QVariantMap{{u"label"_s, row.label}, {u"value"_s, row.value}});
    return list;
}

QString SubscriptionDetailModel::deleteTitle() const {
    return pair(u"删除这个订阅"_s, u"Delete subscription"_s);
}

void SubscriptionDetailModel::copy() const {
    const QString amount = Format::money(m_subscription.amount, m_subscription.currency);
    const QString billing =
        isOneTime() ? pair(u"单次"_s, u"One-time"_s) : label(m_subscription.cycle);
    Pasteboard::general().setString(m_subscription.name + u' ' + amount + u' ' + billing);
}

} // namespace tovarin
