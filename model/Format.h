// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <array>

/// How amounts and categories read on screen. Independent of the locale's number format.
namespace tovarin::Format {

/// The category keys that the editor's picker offers, in its order.
inline constexpr std::array<QStringView, 9> categories = {
    u"AI/工具", u"影音", u"音乐", u"云存储", u"软件", u"游戏", u"阅读", u"会员", u"其他"};

/// An amount in its own currency: the sign, then the number rounded to cents (halves away from
/// zero), without cents when there are none: "¥25", "$9.99", "¥-3". Neither blanks nor grouping.
QString money(double amount, const QString &currency);

/// An amount in CNY, shown in the currency of the language: yuan in Chinese, US dollars in English.
QString base(double amountCNY);

/// The name of a category key in the language of this moment. Chinese names are the keys
/// themselves; a key without an English name is shown as it is.
QString categoryDisplay(const QString &key);

} // namespace tovarin::Format
