# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""What is as wide as a desk or a sheet of paper: invoices, statements, billing pages, licences."""
import contents
from column import Column
from layouts_first import table


def sheet(page, random):
    """A page with the proportions of A4, or its upper part only."""
    if random.random() < 0.6:
        page.height = page.width * 1.414
    side = random.choice([50, 60, 80])
    return Column(page, side, page.width - side, random.choice([40, 60]))


def two_columns(column, left_lines, right_lines, size, color=None):
    """Two blocks side by side, line beside line."""
    half = (column.right - column.left) / 2 + 10
    for i in range(max(len(left_lines), len(right_lines))):
        baseline = column.step(size)
        for lines, x in ((left_lines, column.left), (right_lines, column.left + half)):
            if i < len(lines):
                column.page.text(x, baseline, lines[i], size, 600 if i == 0 else 400,
                                 None if i == 0 else color)


def service_invoice_en(page, bill, random):
    look, column = page.look, sheet(page, random)
    column.icon(random, column.left, 40)
    left, column.left = column.left, column.left + 54
    column.pair(bill.merchant, random.choice(["INVOICE", "Invoice"]), 20, 700, look.accent,
                look.text, label_weight=600)
    column.left = left
    column.gap(24)
    two_columns(column, ["Bill to", "Example Workshop", "1 Sample Street", bill.address()],
                ["Details", f"Invoice no. {bill.code('AAA-000000')}",
                 f"Issued {bill.date(bill.paid_on)}", f"VAT ID {bill.code('AA')}{bill.digits(9)}"],
                look.size, look.muted)
    column.gap(30)
    share = random.choice([0, 0.19, 0.2, 0.08])
    net = round(bill.value / (1 + share), 2)
    table(column, ("Description", "Qty", "Unit price", "Amount"),
          [(bill.name, "1", bill.money(net) if share else bill.total(),
            bill.money(net) if share else bill.total())])
    column.gap(6)
    column.line(f"{bill.date(bill.paid_on)} – {bill.date(bill.next_on)}", look.size - 2,
                color=look.muted)
    column.gap(18)
    left, column.left = column.left, column.middle
    if share:
        column.pair("Subtotal", bill.money(net))
        column.gap(6)
        column.pair(f"VAT ({share * 100:.0f}%)", bill.money(bill.value - net))
        column.gap(6)
    column.rule()
    column.gap(8)
    column.pair(random.choice(["Total", "Total due", "Amount paid"]), bill.total(), look.size + 3,
                700, label_color=look.text, label_weight=700)
    column.left = left
    column.gap(40)
    column.line("Thank you for your business.", weight=500)
    column.paragraph(f"Paid by Visa {bill.tail()}. Questions about this invoice go to "
                     f"{bill.address()}.", look.size - 2, look.faint)
    column.gap(20)


def billing_page_en(page, bill, random):
    look = page.look
    column = Column(page, 48, page.width - 48, 30)
    column.line(random.choice(["Plan & Billing", "Billing", "Subscription & billing"]), 26, 700)
    column.line("Manage your plan and payment details", look.size, color=look.muted)
    column.gap(20)
    top, left, right = column.y, column.left, column.right
    middle, bottom = column.middle, 0
    blocks = [[("Current plan", 14, 400), (bill.name, 19, 700),
               (bill.total() + bill.per_time(), 16, 500), ("Billed yearly" if bill.yearly else
                                                           "Billed monthly", 14, 400)],
              [("Next payment", 14, 400), (bill.date(bill.next_on), 19, 700),
               (f"Visa {bill.tail()}", 16, 500), ("Expires " + bill.code("0") + "/2028", 14, 400)]]
    for block, (start, end) in zip(blocks, ((left, middle - 12), (middle + 12, right))):
        column.left, column.right, column.y = start, end, top
        with column.card(border=True):
            for text, size, weight in block:
                column.line(text, size, weight, look.muted if size == 14 else None)
        bottom = max(bottom, column.y)
    column.left, column.right, column.y = left, right, bottom
    column.gap(18)
    column.button(random.choice(["Upgrade plan", "Change plan"]), width=180)
    column.gap(24)
    column.line(random.choice(["Billing history", "Invoices", "Payment history"]), 18, 600)
    column.gap(8)
    lines, day = [], bill.paid_on
    for _ in range(random.randint(1, 4)):
        lines.append((bill.date(day), "Paid", bill.total()))
        day = contents.later(day, -12 if bill.yearly else -1)
    table(column, ("Date", "Status", "Amount"), lines)
    column.gap(30)


def statement(page, bill, random):
    look, chinese, column = page.look, bill.chinese, sheet(page, random)
    column.pair(bill.name, "月度账单" if chinese else "Monthly statement", 20, 600, look.accent,
                look.text, label_weight=700)
    column.gap(8)
    column.rule()
    column.gap(16)
    at = 9 * look.size
    for label, value in ((("客户编号", "Customer ID"), bill.code("AA-000000")),
                         (("账单日期", "Statement date"), bill.date(bill.paid_on)),
                         (("邮箱", "E-mail"), bill.address())):
        column.pair(label[0] if chinese else label[1], value, at=at)
        column.gap(4)
    column.gap(20)
    words = ["基础套餐", "附加存储", "短信通知", "技术支持", "流量费用"] if chinese else [
        "Base plan", "Additional storage", "API calls", "Support", "Extra seats"]
    count = random.randint(2, 5)
    rest, lines = round(bill.value * 100), []
    for i, word in enumerate(words[:count]):
        cents = rest if i == count - 1 else rest * random.randint(30, 60) // 100
        rest -= cents
        lines.append((word, bill.money(cents / 100)))
    table(column, ("项目", "金额") if chinese else ("Item", "Amount"), lines)
    column.gap(12)
    column.pair("本期应付" if chinese else "Total due", bill.total(), look.size + 4, 700,
                label_color=look.text, label_weight=600)
    column.gap(30)
    charged_on = bill.date(contents.later(bill.paid_on, 1))
    column.paragraph(f"我们将于{charged_on}自动扣款。" if chinese else
                     f"We will charge your card on {charged_on}.", look.size - 1, look.faint)
    column.gap(16)


def licence_en(page, bill, random):
    look = page.look
    side = 24 if page.width < 500 else 90
    column = Column(page, side, page.width - side, 30)
    column.line(random.choice(["Your license key", "Thank you for your purchase!",
                               "Order confirmation"]), 24, 700)
    column.gap(8)
    column.paragraph(f"You bought {bill.name}. This is a one-time purchase with a lifetime license; "
                     "there is nothing to renew.", look.size)
    column.gap(14)
    with column.card(color=look.tint(0.1)):
        column.line(bill.code("XXXXX-XXXXX-XXXXX-XXXXX"), look.size, 600, align="center",
                    family=random.choice(["DejaVu Sans Mono", "Liberation Mono"]))
    column.gap(16)
    at = None if random.random() < 0.5 else 9 * look.size
    for label, value in (("Product", bill.name), ("License", random.choice(["Lifetime", "Perpetual"])),
                         ("Order number", bill.digits(9)), ("Purchased", bill.date(bill.paid_on)),
                         ("Registered to", bill.address()), ("Price", bill.total())):
        column.pair(label, value, at=at, weight=600 if label == "Price" else 400)
        column.gap(6)
    column.gap(16)
    column.button(random.choice(["Download", "Activate now"]), width=200)
    column.gap(20)
    column.line(bill.merchant, look.size - 2, color=look.faint)
    column.gap(12)


def mixed_zh(page, bill, random):
    """An e-mail in which Chinese and English stand side by side."""
    look = page.look
    side = 20 if page.width < 500 else 70
    column = Column(page, side, page.width - side, 24)
    column.line(random.choice(["您的 Receipt 收据", "付款确认 Payment Confirmation", "订阅续费 Renewal Notice"]),
                21, 700)
    column.gap(10)
    column.paragraph(f"您好 Hello，感谢订阅 {bill.name}，本次付款已成功。", look.size)
    column.gap(12)
    column.rule(dashed=True)
    column.gap(12)
    for label, value in (("订单号 Order No.", bill.code("AA") + bill.digits(10)),
                         ("产品 Product", bill.name), ("日期 Date", bill.date(bill.paid_on)),
                         ("支付方式 Payment", f"Visa {bill.tail()}"),
                         ("周期 Cycle", "Yearly 年付" if bill.yearly else "Monthly 月付")):
        column.pair(label, value)
        column.gap(7)
    column.rule(dashed=True)
    column.gap(10)
    column.pair("合计 Total", bill.total(), look.size + 2, 700, label_color=look.text)
    column.gap(18)
    column.line(f"客服 Support: {bill.address()}", look.size - 2, color=look.faint)
    column.gap(14)


def invoice_zh(page, bill, random):
    look, column = page.look, sheet(page, random)
    column.line(random.choice(["电子发票（普通发票）", "收款凭证", "电子账单"]), 24, 700, color=look.accent, align="center")
    column.gap(16)
    two_columns(column, ["购买方", "名称：示例工作室", f"邮箱：{bill.address()}"],
                ["开票信息", f"发票号码：{bill.digits(20)}", f"开票日期：{bill.date(bill.paid_on)}"], look.size)
    column.gap(20)
    column.rule()
    table(column, ("项目名称", "数量", "单价", "金额"), [(bill.name, "1", bill.total(), bill.total())])
    column.gap(12)
    column.pair(random.choice(["价税合计", "合计"]), bill.total(), look.size + 2, 700, label_color=look.text)
    column.gap(20)
    column.line(f"销售方：{bill.merchant}")
    column.line(f"开票人：系统 备注：{'年' if bill.yearly else '月'}度服务费", look.size - 1, color=look.muted)
    column.gap(20)


LAYOUTS = [("service-invoice", "en", (800, 900, 1000), service_invoice_en),
           ("billing-page", "en", (900, 1100, 1200), billing_page_en),
           ("statement", None, (800, 900), statement),
           ("licence", "en", (400, 420, 800), licence_en),
           ("mixed", "zh", (400, 420, 620, 800), mixed_zh),
           ("paper-invoice", "zh", (800, 900), invoice_zh)]
