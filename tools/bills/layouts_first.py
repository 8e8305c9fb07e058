# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""What people photograph most: a payment's result, an e-mail, a settings page, a receipt."""
import icons
from column import Column


def phone(page, random, title, back=True):
    """Status bar and title; gives the column below them."""
    look = page.look
    top = icons.status_bar(page, random) if random.random() < 0.75 else 8
    page.text(page.width / 2, top + 28, title, 17, 600, align="center")
    if back:
        icons.arrow(page, 24, top + 22, 15, look.text, left=True)
    column = Column(page, 16, page.width - 16, top + 48)
    column.gap(random.choice([4, 10, 18]))
    return column


def payment_result_zh(page, bill, random):
    look = page.look
    column = phone(page, random, random.choice(["支付成功", "付款成功", "账单详情", "交易详情"]))
    column.icon(random, page.width / 2 - 26, 52, random.choice(["check", None]))
    column.gap(64)
    column.line(random.choice([bill.name, bill.merchant]), 16, align="center")
    column.gap(6)
    amount = bill.total(minus=random.random() < 0.5)
    column.line(amount, random.choice([30, 34, 38]), random.choice([500, 600, 700]), align="center")
    column.line(random.choice(["支付成功", "交易成功", "自动续费成功"]), look.size, color=look.muted,
                align="center")
    column.gap(14)
    rows = [(random.choice(["商品说明", "商品", "商品名称"]), bill.name),
            (random.choice(["支付时间", "付款时间", "交易时间"]), bill.moment()),
            ("支付方式", random.choice(["零钱", "花呗", "余额宝", f"招商银行({bill.digits(4)})", "工商银行信用卡"])),
            ("收款方全称", bill.merchant)]
    more = [(random.choice(["交易单号", "订单号"]), bill.digits(random.choice([16, 18, 20]))),
            ("商户单号", bill.code("AA") + bill.digits(14)), ("账单分类", random.choice(["文化休闲", "充值缴费"])),
            ("下次扣款时间", bill.date(bill.next_on)), ("账单管理", random.choice(["查看", "会员服务"])),
            ("服务类型", random.choice(["自动续费", "免密支付", "周期扣款"]))]
    random.shuffle(more)
    rows += more[:random.randint(1, 4)]
    at = None if random.random() < 0.5 else 6.2 * look.size
    with column.card():
        for label, value in rows:
            column.pair(label, value, at=at)
            column.gap(random.choice([8, 8, 12]))
    column.gap(20)
    if random.random() < 0.7:
        column.button(random.choice(["完成", "返回商家", "管理自动续费"]), width=random.choice([160, 220, None]))
        column.gap(16)


def email_receipt_en(page, bill, random):
    look = page.look
    side = 20 if page.width < 500 else random.choice([60, 120])
    column = Column(page, side, page.width - side, 20)
    service = bill.name.split(" ")[0]
    column.line(random.choice([f"Your receipt from {service}", f"Receipt for {bill.name}",
                               "Payment received", f"Thanks for your order, {service}"]),
                random.choice([20, 22, 24]), 700)
    column.gap(4)
    column.pair("From", bill.address(), at=4.5 * look.size)
    column.pair("To", bill.address(), at=4.5 * look.size)
    column.gap(10)
    column.rule()
    column.gap(14)
    column.paragraph(random.choice([
        f"Hi there, we have received your payment of {bill.total()} for {bill.name}. Thank you!",
        "This e-mail confirms your payment. Please keep it for your records.",
        f"Thank you for your purchase. Your {bill.name} subscription has been renewed."]), look.size)
    column.gap(14)
    with column.card(border=random.random() < 0.5, color=look.tint(0.06)):
        column.line(random.choice(["Order summary", "Payment details", "Summary"]), look.size + 2, 600)
        column.gap(8)
        rows = [("Product" if random.random() < 0.5 else "Plan", bill.name),
                (random.choice(["Date", "Payment date", "Date paid"]), bill.date(bill.paid_on)),
                ("Order ID" if random.random() < 0.5 else "Receipt #", bill.code("AAA-0000-0000")),
                ("Payment method", f"{random.choice(['Visa', 'Mastercard', 'Amex'])} {bill.tail()}")]
        if random.random() < 0.5:
            rows.append(("Billing period", random.choice(
                ["Yearly", "1 year"] if bill.yearly else ["Monthly", "1 month"])))
        if random.random() < 0.5:
            rows.append(("Next billing date", bill.date(bill.next_on)))
        for label, value in rows:
            column.pair(label, value)
            column.gap(6)
        column.rule()
        column.gap(10)
        column.pair(random.choice(["Total", "Amount paid", "Total charged"]), bill.total(),
                    look.size + 1, 700, label_color=look.text, label_weight=600)
    column.gap(20)
    if random.random() < 0.6:
        column.button(random.choice(["View receipt", "Manage subscription", "Download invoice"]),
                      width=min(260, column.right - column.left))
        column.gap(16)
    column.paragraph(f"Questions? Write to {bill.address()} or visit our help pages at any time.",
                     max(12, look.size - 2), look.faint)
    column.gap(14)


def settings_en(page, bill, random):
    look = page.look
    column = phone(page, random, random.choice(["Subscription", "Edit Subscription", "Membership"]))
    with column.card():
        column.icon(random, column.left, 52)
        left, column.left = column.left, column.left + 66
        column.line(bill.name, 17, 600)
        column.line(random.choice(["Premium plan", "Individual", "Renews automatically", bill.merchant]),
                    look.size - 1, color=look.muted)
        column.left = left
    column.gap(18)
    rows = [("Price", bill.total() + bill.per_time()),
            (random.choice(["Renews", "Next payment", "Renewal date"]), bill.date(bill.next_on)),
            ("Started on", bill.date(bill.paid_on)), ("Status", random.choice(["Active", "Paid"])),
            ("Payment method", f"Visa {bill.tail()}"), ("Account", bill.address()),
            ("Member ID", bill.code("XXXX-XXXX"))]
    rows = rows[:2] + random.sample(rows[2:], random.randint(2, 4))
    with column.card():
        for i, (label, value) in enumerate(rows):
            if i:
                column.rule()
                column.gap(10)
            column.pair(label, value, label_color=look.text, color=look.muted)
            column.gap(10)
    column.gap(18)
    column.paragraph("You can cancel at any time up to one day before the renewal date.",
                     look.size - 2, look.faint)
    column.gap(18)
    column.button(random.choice(["Change plan", "See all plans", "Upgrade"]))
    column.gap(12)
    column.line(random.choice(["Cancel Subscription", "Cancel plan"]), color=(0.86, 0.2, 0.2),
                align="center")
    column.gap(24)


def invoice_en(page, bill, random):
    look = page.look
    side = 28 if page.width < 500 else random.choice([50, 70])
    column = Column(page, side, page.width - side, 34)
    column.icon(random, column.right - 44, 44)
    column.line(random.choice(["Invoice", "INVOICE", "Tax Invoice", "Receipt"]), 28, 700)
    column.gap(12)
    for label, value in (("Invoice number", bill.code("XXXXXXXX-0000")),
                         (random.choice(["Date of issue", "Invoice date", "Date paid"]),
                          bill.date(bill.paid_on)), ("Date due", bill.date(bill.paid_on))):
        column.pair(label, value, at=8.5 * look.size, weight=500)
    column.gap(16)
    column.line(bill.merchant, weight=600)
    column.line(bill.address(), color=look.muted)
    column.gap(20)
    column.line(f"{bill.total()} {random.choice(['due', 'paid on'])} {bill.date(bill.paid_on)}",
                look.size + 5, 700)
    column.gap(20)
    table(column, ("Description", "Qty", "Unit price", "Amount"),
          [(bill.name, "1", bill.total(), bill.total())])
    half = column.middle if page.width > 500 else column.left
    left, column.left = column.left, half
    for label in ("Subtotal", "Total", random.choice(["Amount due", "Amount paid"])):
        column.gap(6)
        column.pair(label, bill.total(), weight=700 if label.startswith("Amount") else 400)
    column.left = left
    column.gap(30)


def table(column, heads, lines):
    """The first column at the left, the others ending at fixed places."""
    look, width = column.look, column.right - column.left
    ends = {2: (0, 1), 3: (0, 0.72, 1), 4: (0, 0.56, 0.8, 1)}[len(heads)]
    for number, cells in enumerate([heads, *lines]):
        size = look.size - 2 if number == 0 else look.size
        column.gap(6)
        baseline = column.step(size)
        for i, (cell, end) in enumerate(zip(cells, ends)):
            column.page.text(column.left + width * end, baseline, cell, size, 400,
                             look.muted if number == 0 else None, "right" if i else "left")
        column.gap(6)
        column.rule()


def store_receipt_zh(page, bill, random):
    look = page.look
    column = Column(page, 20, page.width - 20, 24)
    column.line(random.choice(["收据", "您的收据", "购买收据", "应用商店收据"]), 26, 700,
                align=random.choice(["left", "center"]))
    column.gap(12)
    pairs = [("账户", bill.address()), ("开票日期", bill.date(bill.paid_on)),
             ("订单编号", bill.code("AXXXXXXXXX")), ("凭证编号", bill.digits(12))]
    at = random.choice([None, 6 * look.size])
    with column.card(border=True):
        for label, value in pairs:
            column.pair(label, value, at=at)
            column.gap(4)
    column.gap(16)
    column.line(random.choice(["应用商店", "订阅项目", "购买项目"]), look.size + 1, 600)
    column.gap(8)
    column.rule()
    column.gap(12)
    column.icon(random, column.left, 56)
    left, column.left = column.left, column.left + 70
    column.pair(bill.name, bill.total(), weight=500, label_color=look.text, label_weight=600)
    column.line(random.choice(["连续包年", "年度订阅"] if bill.yearly else
                              ["月度会员（自动续订）", "连续包月", "高级版（每月）"]),
                look.size - 1, color=look.muted)
    column.line(f"续订日期：{bill.date(bill.next_on)}", look.size - 1, color=look.muted)
    column.left = left
    column.gap(14)
    column.rule()
    column.gap(10)
    column.pair("小计", bill.total())
    column.gap(4)
    column.pair(random.choice(["总计", "合计", "实付金额"]), bill.total(), look.size + 2, 700,
                label_color=look.text, label_weight=600)
    column.gap(18)
    column.paragraph("如需取消订阅，请至少在续订日期前一天前往设置中的订阅页面操作。", look.size - 2, look.faint)
    column.gap(16)


LAYOUTS = [("payment-result", "zh", (375, 420), payment_result_zh),
           ("e-mail-receipt", "en", (390, 420, 620, 800), email_receipt_en),
           ("settings", "en", (375, 420), settings_en),
           ("invoice", "en", (420, 800, 900), invoice_en),
           ("store-receipt", "zh", (390, 420), store_receipt_zh)]
