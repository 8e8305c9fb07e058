// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/Format.h"

#include "app/LocalizationManager.h"
#include "model/CurrencyRates.h"

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::Format {

namespace {

struct CategoryName {
    QStringView key;
    QStringView english;
};

constexpr std::array<CategoryName, 10> categoryNames = {{
    {u"AI/工具", u"AI & Tools"},
    {u"影音", u"Video"},
    // Not offered any more; entries made with it keep their name.
    {u"视频", u"Video"},
    {u"音乐", u"Music"},
    {u"云存储", u"Cloud"},
    {u"软件", u"Software"},
    {u"游戏", u"Games"},
    {u"阅读", u"Reading"},
    {u"会员", u"Membership"},
    {u"其他", u"Other"},
}};

double roundedToCents(double amount) {
    const double cents = amount * 100;
    return std::isfinite(cents) ? std::round(cents) / 100 : amount;
}

} // namespace

QString money(double amount, const QString &currency) {
    const double rounded = roundedToCents(amount);
    if (rounded == 0) // minus zero as well
        return CurrencyRates::symbol(currency) + u'0';
    const bool isWhole = rounded == std::trunc(rounded);
    return CurrencyRates::symbol(currency) + QString::number(rounded, 'f', isWhole ? 0 : 2);
}

QString base(double amountCNY) {
    const QString currency = LocalizationManager::shared().isZh() ? u"CNY"_s : u"USD"_s;
    return money(amountCNY * CurrencyRates::rate(u"CNY"_s) / CurrencyRates::rate(currency),
                 currency);
}

QString categoryDisplay(const QString &key) {
    if (LocalizationManager::shared().isZh())
        return key;
    const auto *const found =
        std::ranges::find(categoryNames, QStringView(key), &CategoryName::key);
    return found == categoryNames.end() ? key : found->english.toString();
}

} // namespace tovarin::Format
