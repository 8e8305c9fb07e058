// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/MenuBarModel.h"

#include "app/LocalizationManager.h"
#include "model/Format.h"
#include "model/Store.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

constexpr int monthsInYear = 12;
constexpr int dueWithinDays = 7;

QString daysText(int days, bool isZh) {
    if (days == 0)
        return isZh ? u"今天"_s : u"Today"_s;
    return QString::number(days) + (isZh ? u"天后"_s : u"d"_s);
}

} // namespace

MenuBarModel::MenuBarModel(const Store &store, const LocalizationManager &loc, QObject *parent)
    : QObject(parent), m_store(store), m_loc(loc) {
    update();
    connect(&store, &Store::subscriptionsDidChange, this, &MenuBarModel::update);
    connect(&loc, &LocalizationManager::langDidChange, this, &MenuBarModel::update);
}

QVariantList MenuBarModel::rows() const {
    QVariantList list;
    for (const Row &row : m_rows)
        list.append(QVariantMap{{u"name"_s, row.name},
                                {u"daysText"_s, row.daysText},
                                {u"amountText"_s, row.amountText}});
    return list;
}

void MenuBarModel::update() {
    const bool isZh = m_loc.isZh();
    const double monthlyCNY = m_store.totalMonthlyCNY();
    m_monthlySpend = Format::base(monthlyCNY);
    const QString yearly = Format::base(monthlyCNY * monthsInYear);
    const QString active = QString::number(m_store.activeSubscriptions().size());
    m_summary = isZh ? u"每年约 "_s + yearly + u" · 进行中 "_s + active + u" 个"_s
                     : u"≈"_s + yearly + u"/yr · "_s + active + u" active"_s;
    m_rows.clear();
    const QList<Store::Upcoming> due = m_store.upcoming(dueWithinDays);
    for (const Store::Upcoming &charge : due.first(std::min<qsizetype>(mostRows, due.size())))
        m_rows.append({charge.sub.name, daysText(charge.days, isZh),
                       u"-"_s + Format::money(charge.sub.amount, charge.sub.currency)});
    Q_EMIT changed();
}

} // namespace tovarin
