// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/NoiseLines.h"

#include "scan/parser/Words.h"

namespace tovarin::ReceiptParser {

namespace {

// A line that begins with one of them contains it, so one test does.
constexpr Word greetings[] = {u"你好", u"您好", u"亲爱的", u"hi ",    u"hi,",     u"hello", u"dear",
                              u"感谢", u"谢谢", u"thank",  u"thanks", u"regards", u"敬上"};

constexpr Word labels[] = {u"实付",    u"合计",    u"金额",   u"价格",       u"支付",     u"总计",
                           u"应付",    u"付款",    u"费用",   u"初始费用",   u"最终费用", u"订单",
                           u"摘要",    u"详情",    u"商品",   u"交易",       u"用户名",   u"用户",
                           u"时间",    u"日期",    u"续费",   u"注册",       u"发票",     u"收据",
                           u"数量",    u"单价",    u"小计",   u"税",         u"状态",     u"编号",
                           u"total",   u"amount",  u"order",  u"date",       u"summary",  u"detail",
                           u"invoice", u"receipt", u"qty",    u"quantity",   u"subtotal", u"tax",
                           u"price",   u"id",      u"status", u"transaction"};
static_assert(std::size(labels) == 46);

const Expression &onlyNumbers() {
    static const Expression expression(uR"(^[¥￥$€£0-9\.,:：\-/年月日时分秒 ]+$)");
    return expression;
}

/// Six or more hexadecimal digits, then a hyphen and four or more, perhaps again: this is as much
/// of that as decides.
const Expression &identifier() {
    static const Expression expression(u"^[0-9a-f]{6}[0-9a-f]*-[0-9a-f]{4}");
    return expression;
}

} // namespace

bool isNoise(const QString &line) {
    return NoiseTest().isNoise(line, lowerCased(line));
}

NoiseTest::NoiseTest() : m_onlyNumbers(onlyNumbers()), m_identifier(identifier()) {}

bool NoiseTest::isNoise(QStringView line, QStringView lower) {
    return containsAny(lower, greetings) || containsAny(lower, labels) ||
           m_onlyNumbers.isIn(line) || m_identifier.isIn(line);
}

} // namespace tovarin::ReceiptParser
