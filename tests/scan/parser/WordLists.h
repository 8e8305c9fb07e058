// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

/// The words of every rule, as the tests expect them: a second copy on purpose.
namespace tovarin::wordlists {

using namespace Qt::Literals::StringLiterals;

/// Beside one of them a price is the bill's amount.
inline const QStringList paymentLabels = {u"实付"_s, u"合计"_s,  u"金额"_s,   u"价格"_s, u"支付"_s,
                                          u"总计"_s, u"total"_s, u"amount"_s, u"应付"_s, u"付款"_s};

/// They make a bill yearly.
inline const QStringList yearlyWords = {
    u"每年"_s,  u"年度"_s,   u"/年"_s,    u"年付"_s,  u"按年"_s,     u"包年"_s, u"一年"_s,
    u"每 年"_s, u"yearly"_s, u"annual"_s, u"/year"_s, u"per year"_s, u"/yr"_s};

/// They make a bill quarterly.
inline const QStringList quarterlyWords = {u"每季"_s, u"季度"_s, u"季付"_s, u"包季"_s,
                                           u"quarter"_s};

/// They make a bill weekly.
inline const QStringList weeklyWords = {u"每周"_s, u"周付"_s, u"weekly"_s, u"/week"_s, u"每 周"_s};

/// They make a bill monthly.
inline const QStringList monthlyWords = {u"每月"_s,   u"月度"_s,      u"/月"_s,   u"月付"_s,
                                         u"按月"_s,   u"包月"_s,      u"每 月"_s, u"monthly"_s,
                                         u"/month"_s, u"per month"_s, u"/mo"_s};

/// They make a bill one-time.
inline const QStringList oneTimeWords = {u"一次性"_s,  u"单次"_s,     u"买断"_s,
                                         u"永久"_s,    u"终身"_s,     u"one-time"_s,
                                         u"onetime"_s, u"lifetime"_s, u"perpetual"_s};

/// They speak of a subscription and change nothing.
inline const QStringList recurringWords = {
    u"自动续费"_s,     u"连续"_s,      u"订阅"_s, u"续订"_s, u"auto-renew"_s, u"renew"_s,
    u"subscription"_s, u"recurring"_s, u"包月"_s, u"包年"_s, u"包季"_s};

/// A line with one of them is no name.
inline const QStringList greetings = {u"你好"_s,   u"您好"_s,    u"亲爱的"_s, u"hi "_s,  u"hi,"_s,
                                      u"hello"_s,  u"dear"_s,    u"感谢"_s,   u"谢谢"_s, u"thank"_s,
                                      u"thanks"_s, u"regards"_s, u"敬上"_s};

/// Nor is a line with one of these.
inline const QStringList noiseLabels = {
    u"实付"_s,    u"合计"_s,    u"金额"_s,   u"价格"_s,       u"支付"_s,     u"总计"_s,
    u"应付"_s,    u"付款"_s,    u"费用"_s,   u"初始费用"_s,   u"最终费用"_s, u"订单"_s,
    u"摘要"_s,    u"详情"_s,    u"商品"_s,   u"交易"_s,       u"用户名"_s,   u"用户"_s,
    u"时间"_s,    u"日期"_s,    u"续费"_s,   u"注册"_s,       u"发票"_s,     u"收据"_s,
    u"数量"_s,    u"单价"_s,    u"小计"_s,   u"税"_s,         u"状态"_s,     u"编号"_s,
    u"total"_s,   u"amount"_s,  u"order"_s,  u"date"_s,       u"summary"_s,  u"detail"_s,
    u"invoice"_s, u"receipt"_s, u"qty"_s,    u"quantity"_s,   u"subtotal"_s, u"tax"_s,
    u"price"_s,   u"id"_s,      u"status"_s, u"transaction"_s};

/// Five points for a line.
inline const QStringList brands = {
    u"netflix"_s,  u"spotify"_s, u"youtube"_s,    u"disney"_s, u"hbo"_s,         u"chatgpt"_s,
    u"openai"_s,   u"claude"_s,  u"midjourney"_s, u"gemini"_s, u"copilot"_s,     u"cursor"_s,
    u"notion"_s,   u"figma"_s,   u"adobe"_s,      u"office"_s, u"icloud"_s,      u"dropbox"_s,
    u"setapp"_s,   u"kindle"_s,  u"steam"_s,      u"xbox"_s,   u"bilibili"_s,    u"爱奇艺"_s,
    u"腾讯视频"_s, u"优酷"_s,    u"网易云"_s,     u"qq音乐"_s, u"apple music"_s, u"百度网盘"_s};

/// Three points more.
inline const QStringList planWords = {
    u"plus"_s, u"pro"_s,  u"premium"_s, u"vip"_s,  u"会员"_s, u"订阅"_s,        u"membership"_s,
    u"套餐"_s, u"常规"_s, u"标准"_s,    u"高级"_s, u"plan"_s, u"subscription"_s};

struct CategoryWords {
    QString category;
    QStringList words;
};

/// In the order in which they are tried.
inline const QList<CategoryWords> categoryWords = {
    {u"AI/工具"_s,
     {u"chatgpt"_s, u"openai"_s, u"claude"_s, u"gpt"_s, u"midjourney"_s, u"copilot"_s, u"gemini"_s,
      u"ai"_s, u"cursor"_s}},
    {u"云存储"_s,
     {u"icloud"_s, u"云"_s, u"storage"_s, u"drive"_s, u"dropbox"_s, u"网盘"_s, u"百度网盘"_s}},
    {u"音乐"_s, {u"music"_s, u"音乐"_s, u"spotify"_s, u"网易云"_s, u"qq音乐"_s, u"apple music"_s}},
    {u"影音"_s,
     {u"video"_s, u"视频"_s, u"影音"_s, u"爱奇艺"_s, u"腾讯视频"_s, u"优酷"_s, u"netflix"_s,
      u"bilibili"_s, u"b站"_s, u"youtube"_s, u"disney"_s}},
    {u"游戏"_s, {u"game"_s, u"游戏"_s, u"steam"_s, u"xbox"_s, u"ps plus"_s}},
    {u"阅读"_s, {u"读"_s, u"kindle"_s, u"book"_s, u"阅读"_s}},
    {u"软件"_s, {u"软件"_s, u"app"_s, u"software"_s, u"adobe"_s, u"office"_s, u"setapp"_s}},
};

} // namespace tovarin::wordlists
