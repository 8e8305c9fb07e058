# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""More pages of a phone: running subscriptions, orders, messages."""
import datetime

import icons
from layouts_first import phone


def rows_with_rules(column, rows, random, arrows=False):
    look = column.look
    for i, (label, value) in enumerate(rows):
        if i:
            column.rule()
            column.gap(9)
        if arrows and random.random() < 0.4:
            icons.arrow(column.page, column.right - 4, column.y + 0.75 * look.size, 9, look.faint)
            column.right -= 16
            column.pair(label, value, label_color=look.text, color=look.muted)
            column.right += 16
        else:
            column.pair(label, value, label_color=look.text, color=look.muted)
        column.gap(9)


def managed_zh(page, bill, random):
    look = page.look
    column = phone(page, random, random.choice(["订阅管理", "自动续费管理", "我的会员", "扣费服务"]))
    with column.card(color=look.tint(random.choice([0.0, 0.15]))):
        column.icon(random, column.left, 48)
        left, column.left = column.left, column.left + 60
        column.line(bill.name, 17, 600)
        column.line(random.choice(["自动续费中", "已开通", f"有效期至 {bill.date(bill.next_on)}"]), look.size - 2,
                    color=look.muted)
        column.left = left
    column.gap(16)
    rows = [(random.choice(["续费金额", "下次扣费金额", "价格"]), bill.total()),
            (random.choice(["下次扣费时间", "下次续费日期", "续订日期"]), bill.date(bill.next_on)),
            (random.choice(["订阅周期", "扣费周期"]), "每年" if bill.yearly else random.choice(["每月", "按月"])),
            ("开通时间", bill.date(bill.paid_on)), ("扣费方式", random.choice(["零钱", "花呗", "余额宝", "储蓄卡"])),
            ("服务商", bill.merchant), ("会员账号", f"138****{bill.digits(4)}"), ("签约编号", bill.digits(16))]
    rows = rows[:3] + random.sample(rows[3:], random.randint(1, 4))
    with column.card():
        rows_with_rules(column, rows, random, arrows=True)
    column.gap(16)
    column.paragraph(random.choice(["到期前一天将自动扣费，可随时取消。", "关闭自动续费后，会员权益将在到期后失效。"]), look.size - 2,
                     look.faint)
    column.gap(18)
    column.button(random.choice(["取消自动续费", "关闭服务", "取消订阅"]), filled=random.random() < 0.5)
    column.gap(24)


def order_zh(page, bill, random):
    look = page.look
    column = phone(page, random, "订单详情")
    column.line(random.choice(["交易成功", "已完成", "支付成功"]), 20, 700, color=look.accent)
    column.gap(14)
    with column.card():
        column.line(bill.merchant, weight=500)
        column.gap(8)
        column.icon(random, column.left, 60)
        left, column.left = column.left, column.left + 74
        column.pair(bill.name, bill.total(), weight=500, label_color=look.text)
        column.pair("规格：" + ("年卡" if bill.yearly else "月卡"), random.choice(["x1", "×1"]), look.size - 1,
                    color=look.muted)
        column.left = left
        column.gap(28)
        off = random.choice([5, 10, 20])
        column.pair("商品总价", bill.money(bill.value + off))
        column.gap(6)
        column.pair(random.choice(["优惠", "优惠券", "平台立减"]), "-" + bill.money(off), color=look.accent)
        column.gap(6)
        column.pair(random.choice(["实付款", "实付", "实付金额"]), bill.total(), look.size + 3, 700,
                    look.accent, look.text)
    column.gap(14)
    with column.card():
        rows = [(random.choice(["订单编号", "订单号"]), bill.digits(random.choice([15, 18]))),
                (random.choice(["下单时间", "创建时间"]), bill.moment()),
                ("付款方式", random.choice(["微信支付", "支付宝", "银行卡"])),
                ("充值账号", f"186****{bill.digits(4)}"), ("发票类型", "电子普通发票")]
        at = random.choice([90, 90, None])
        for label, value in rows[:random.randint(2, 5)]:
            column.pair(label, value, look.size - 1, at=at)
            column.gap(8)
    column.gap(18)
    column.button(random.choice(["再次购买", "申请开票", "联系客服"]), width=150)
    column.gap(20)


def message_zh(page, bill, random):
    look = page.look
    column = phone(page, random, random.choice(["支付助手", "服务通知", "账单通知"]))
    column.line(f"{bill.moment()}", 13, color=look.faint, align="center")
    column.gap(10)
    with column.card():
        column.line(random.choice(["扣费成功通知", "自动续费成功", "付款凭证"]), look.size + 1, 600)
        column.gap(10)
        column.line(random.choice(["扣费金额", "付款金额"]), look.size - 1, color=look.muted, align="center")
        column.line(None, random.choice([32, 36]), 600, align="center", parts=bill.total_in_sizes())
        column.gap(12)
        for label, value in (("扣费项目", bill.name), ("商户", bill.merchant),
                             ("扣费时间", bill.date(bill.paid_on)), ("下次扣费", bill.date(bill.next_on))):
            column.pair(label, value, at=5.5 * look.size)
            column.gap(8)
        column.rule()
        column.gap(8)
        baseline = column.y + look.size
        column.line(random.choice(["查看账单详情", "查看详情", "管理自动扣费"]), color=look.text)
        icons.arrow(page, column.right - 4, baseline - 4, 11, look.faint)
    column.gap(26)


def purchase_en(page, bill, random):
    look = page.look
    column = phone(page, random, random.choice(["Receipt", "Purchase details", "Transaction"]))
    column.icon(random, page.width / 2 - 28, 56)
    column.gap(72)
    column.line(bill.name, 18, 600, align="center")
    column.line(random.choice(["Completed", "Payment successful", "Paid"]), look.size - 1,
                color=look.muted, align="center")
    column.gap(6)
    column.line(None, random.choice([34, 40]), 700, align="center", parts=bill.total_in_sizes())
    column.gap(20)
    rows = [("Date", bill.moment()), ("Merchant", bill.merchant), ("Card", f"Visa {bill.tail()}"),
            ("Transaction ID", bill.code("XXXXXXXXXXXX")), ("Fee", bill.money(0)),
            ("Category", random.choice(["Software", "Entertainment", "Apps & games"])),
            ("Repeats", "Every year" if bill.yearly else "Every month")]
    with column.card():
        rows_with_rules(column, rows[:2] + random.sample(rows[2:], random.randint(2, 4)), random)
    column.gap(20)
    column.button(random.choice(["Share receipt", "Get help", "Done"]), filled=random.random() < 0.6)
    column.gap(24)


def store_history(page, bill, random):
    """Purchases of one service, newest first, each with its day."""
    look, chinese = page.look, bill.chinese
    column = phone(page, random, "购买记录" if chinese else "Purchase History")
    column.icon(random, column.left, 44)
    left, column.left = column.left, column.left + 58
    column.line(bill.name, 17, 600)
    column.line(("年度订阅" if chinese else "Yearly subscription") if bill.yearly else
                ("月度订阅" if chinese else "Monthly subscription"), look.size - 2, color=look.muted)
    column.left = left
    column.gap(16)
    with column.card():
        day = bill.paid_on
        for i in range(random.randint(2, 5)):
            if i:
                column.rule()
                column.gap(9)
            column.pair(bill.date(day), bill.total(), label_color=look.text)
            column.line(("订单 " if chinese else "Order ") + bill.code("AXXXXXXXXX"), look.size - 2,
                        color=look.faint)
            column.gap(9)
            day -= datetime.timedelta(365 if bill.yearly else 31)
    column.gap(24)


LAYOUTS = [("subscription-management", "zh", (375, 390, 420), managed_zh),
           ("order-details", "zh", (375, 390, 420), order_zh),
           ("message", "zh", (375, 390, 420), message_zh),
           ("purchase", "en", (375, 390, 420), purchase_en),
           ("purchase-history", None, (375, 390, 420), store_history)]
