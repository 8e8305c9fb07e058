# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Pages as a browser shows them: receipts by e-mail, the pages of an account."""
import html

from web_page import WebPage, css_color

TERMS_EN = [
    "You are receiving this message because a payment was made with the account above. The price "
    "includes all taxes where they apply. Subscriptions renew until they are cancelled.",
    "If you did not make this purchase, please change your password and tell our support team "
    "within 14 days. Please do not answer this message; nobody reads its mailbox.",
    "A refund can be asked for as long as the service has not been used. Prices may change; we "
    "will let you know at least 30 days before they do."]
TERMS_ZH = [
    "本邮件由系统自动发送，请勿直接回复。如您对本次扣款有任何疑问，请在十四天内联系在线客服，并提供订单编号以便我们为您查询。",
    "订阅将按所选周期自动续订，直至您取消为止。请至少在当前周期结束前一天前往账户设置页面取消，否则将从您的支付账户中扣除下一周期的费用。",
    "价格已包含适用的税费。虚拟商品一经开通不支持退款，法律另有规定的除外。最终解释权以服务协议为准。"]


def t(text, tag="div", attributes=""):
    """An element that holds one piece of text."""
    return f"<{tag} data-p {attributes}>{html.escape(text)}</{tag}>"


def p(text):
    """A text that may be broken into lines."""
    return f"<p data-p>{html.escape(text)}</p>"


def colors(look):
    """The look's colours as names to write CSS with."""
    return {name: css_color(getattr(look, name))
            for name in ("card", "text", "muted", "faint", "line", "accent", "on_accent")
            } | {"tint": css_color(look.tint())}


def store_receipt(page, bill, random):
    """Labels above their values in a grid, the purchase below it, and a great deal of small print."""
    look, zh = page.look, bill.chinese
    c = colors(look)
    facts = [("日期" if zh else "DATE", bill.date(bill.paid_on)),
             ("订单编号" if zh else "ORDER ID", bill.code("AXXXXXXXXX")),
             ("账户" if zh else "ACCOUNT", bill.address()),
             ("凭证编号" if zh else "DOCUMENT NO.", bill.digits(12))]
    random.shuffle(facts)
    cells = "".join(f"<div class=fact>{t(label, attributes='class=label')}{t(value)}</div>"
                    for label, value in facts)
    renews = f"续订日期：{bill.date(bill.next_on)}" if zh else f"Renews {bill.date(bill.next_on)}"
    plan = random.choice(["高级版（每月）", "连续包月"] if zh and not bill.yearly else ["年度方案"] if zh else
                         ["Premium (1 year)"] if bill.yearly else ["Premium (Monthly)", "Monthly plan"])
    terms = "".join(p(text) for text in random.sample(TERMS_ZH if zh else TERMS_EN, 2))
    page.write(
        f".sheet {{ max-width: 640px; margin: 0 auto; padding: 28px 20px }}"
        f"h1 {{ font-size: {random.choice([24, 28, 32])}px; margin: 0 0 18px; "
        f"text-align: {random.choice(['left', 'right'])} }}"
        f".grid {{ display: grid; grid-template-columns: 1fr 1fr; gap: 1px; background: {c['line']}; "
        f"border: 1px solid {c['line']} }}"
        f".fact {{ background: {c['card']}; padding: 8px 12px }}"
        f".label {{ font-size: {look.size - 3}px; color: {c['muted']} }}"
        f"h2 {{ font-size: {look.size + 1}px; background: {c['tint']}; margin: 24px 0 14px; "
        f"padding: 6px 12px; border-radius: {look.radius}px }}"
        f".item {{ display: flex; gap: 14px; padding: 0 12px }}"
        f".mark {{ width: 60px; height: 60px; border-radius: 13px; flex: none; "
        f"background: linear-gradient(135deg, {c['accent']}, {c['faint']}) }}"
        f".wide {{ flex: 1 }} .b {{ font-weight: 600 }}"
        f".sub {{ color: {c['muted']}; font-size: {look.size - 2}px }}"
        f".total {{ display: flex; justify-content: flex-end; gap: 40px; font-weight: 700; "
        f"border-top: 1px solid {c['line']}; margin-top: 18px; padding: 12px }}"
        f"p {{ color: {c['faint']}; font-size: {max(12, look.size - 4)}px; margin: 12px 0 0 }}",
        f"<div class=sheet>{t('收据' if zh else 'Receipt', 'h1')}<div class=grid>{cells}</div>"
        f"{t('订阅' if zh else 'Subscriptions', 'h2')}"
        f"<div class=item><div class=mark></div><div class=wide>{t(bill.name, attributes='class=b')}"
        f"{t(plan, attributes='class=sub')}{t(renews, attributes='class=sub')}</div>"
        f"{t(bill.total())}</div>"
        f"<div class=total>{t('总计' if zh else 'TOTAL', 'span')}{t(bill.total(), 'span')}</div>"
        f"{terms}</div>")


def account(page, bill, random):
    """A bar with the site's sections, the plans side by side with their prices, and past payments."""
    look, zh = page.look, bill.chinese
    c = colors(look)
    sections = random.sample(["概览", "团队", "用量", "订阅", "设置", "帮助"] if zh else
                             ["Overview", "Team", "Usage", "Billing", "Settings", "Help"], 4)
    bar = "".join(t(text, "span") for text in sections)
    current = f"{bill.total()}{('/年' if bill.yearly else '/月') if zh else bill.per_time()}"
    plans = [("免费版", bill.money(0)), (bill.name, current), ("团队版", bill.money(bill.value * 3 + 9))] \
        if zh else [("Free", bill.money(0)), (bill.name, current),
                    ("Business", bill.money(bill.value * 3 + 9))]
    buttons = ["降级", "当前方案", "升级"] if zh else ["Downgrade", "Your plan", "Upgrade"]
    cards = "".join(
        f"<div class='plan{' own' if i == 1 else ''}'>{t(name, attributes='class=name')}"
        f"{t(price, attributes='class=price')}{t(button, attributes='class=button')}</div>"
        for i, ((name, price), button) in enumerate(zip(plans, buttons)))
    head = ("付款日期", "账单编号", "状态", "金额") if zh else ("Paid on", "Invoice", "Status", "Amount")
    lines = [(bill.date(bill.paid_on), bill.code("AAA-00000"), "已支付" if zh else "Paid", bill.total())]
    table = "<tr>" + "".join(t(text, "th") for text in head) + "</tr>" + "".join(
        "<tr>" + "".join(t(text, "td") for text in line) + "</tr>" for line in lines)
    next_on = bill.date(bill.next_on)
    page.write(
        f".bar {{ display: flex; gap: 28px; padding: 14px 32px; background: {c['accent']}; "
        f"color: {c['on_accent']} }}"
        f".main {{ padding: 10px 32px 30px }} h1 {{ font-size: 24px; margin: 16px 0 4px }}"
        f"p {{ color: {c['muted']}; margin: 0 0 18px }}"
        f".plans {{ display: grid; grid-template-columns: repeat(3, 1fr); gap: 16px }}"
        f".plan {{ border: 1px solid {c['line']}; border-radius: {look.radius}px; padding: 16px; "
        f"background: {c['card']} }} .own {{ border-color: {c['accent']}; "
        f"box-shadow: 0 2px 10px {c['line']} }}"
        f".name {{ font-weight: 600 }} .price {{ font-size: {look.size + 5}px; margin: 6px 0 14px }}"
        f".button {{ text-align: center; border-radius: {look.radius}px; padding: 6px; "
        f"background: {c['tint']} }} .own .button {{ background: {c['accent']}; color: {c['on_accent']} }}"
        f"table {{ width: 100%; border-collapse: collapse; margin-top: 26px }}"
        f"th {{ text-align: left; font-weight: 500; color: {c['muted']}; background: {c['tint']} }}"
        f"th, td {{ padding: 10px 12px; border-bottom: 1px solid {c['line']} }}"
        f"td:last-child, th:last-child {{ text-align: right; font-variant-numeric: tabular-nums }}",
        f"<div class=bar>{bar}</div><div class=main>{t('订阅与账单' if zh else 'Plans and billing', 'h1')}"
        + p(f"您的订阅将于{next_on}自动续费。" if zh else f"Your plan renews on {next_on}.")
        + f"<div class=plans>{cards}</div><table>{table}</table></div>")


def payment_mail(page, bill, random):
    """A mail that says what was paid in sentences, with the amount large and small print below."""
    look, zh = page.look, bill.chinese
    c = colors(look)
    total, paid_on = bill.total(), bill.date(bill.paid_on)
    price = "".join(f"<span style='font-size:{factor}em'>{html.escape(part)}</span>"
                    for part, factor in bill.total_in_sizes())
    text = (f"您好，您已于{paid_on}成功支付{bill.name}的费用{total}，感谢您的支持。" if zh else
            f"Hello, on {paid_on} you paid {total} for {bill.name}. Thank you for being with us.")
    pairs = [("商品名称", bill.name), ("支付方式", f"储蓄卡（尾号{bill.digits(4)}）"),
             ("交易流水号", bill.digits(20)), ("下次扣费日期", bill.date(bill.next_on))] if zh else [
        ("Item", bill.name), ("Paid with", f"Mastercard {bill.tail()}"),
        ("Reference", bill.code("XXXX-XXXX-XXXX")), ("Next charge", bill.date(bill.next_on))]
    table = "".join(f"<tr>{t(label, 'td')}{t(value, 'td')}</tr>" for label, value in pairs)
    terms = "".join(p(line) for line in random.sample(TERMS_ZH if zh else TERMS_EN, 3))
    page.write(
        f".mail {{ max-width: 600px; margin: 24px auto; background: {c['card']}; "
        f"border-top: 5px solid {c['accent']} }} .in {{ padding: 24px 28px }}"
        f"h1 {{ font-size: 22px; margin: 0; text-align: center }}"
        f".price {{ font-size: {random.choice([32, 38, 44])}px; text-align: center; "
        f"font-weight: {random.choice([400, 600, 700])}; margin: 4px 0 10px }}"
        f"table {{ width: 100%; border-collapse: collapse; margin: 14px 0 }}"
        f"td {{ padding: 7px 0; border-bottom: 1px {random.choice(['solid', 'dotted'])} {c['line']} }}"
        f"td:first-child {{ color: {c['muted']} }} td:last-child {{ text-align: right }}"
        f".button {{ background: {c['accent']}; color: {c['on_accent']}; padding: 10px 26px; "
        f"border-radius: {look.radius}px; width: max-content; margin: 18px auto }}"
        f"p {{ margin: 10px 0 }} .small p {{ color: {c['faint']}; "
        f"font-size: {max(12, look.size - 4)}px; margin: 6px 0 }}",
        f"<div class=mail><div class=in>{t('支付成功' if zh else 'Payment confirmed', 'h1')}"
        f"<div data-p class=price>{price}</div>{p(text)}<table>{table}</table>"
        f"{t('查看订单' if zh else 'View order', attributes='class=button')}"
        f"<div class=small>{terms}</div></div></div>")


def carrier_bill(page, bill, random):
    """A month's bill with a table on a coloured ground, striped."""
    look, zh = page.look, bill.chinese
    c = colors(look)
    head = ("费用项目", "数量", "金额") if zh else ("Charge", "Quantity", "Amount")
    words = ["套餐月费", "超出流量", "国内通话", "短信", "增值业务"] if zh else [
        "Plan", "Extra data", "Calls", "Messages", "Roaming"]
    rest, lines = round(bill.value * 100), []
    count = random.randint(3, 5)
    for i, word in enumerate(words[:count]):
        cents = rest if i == count - 1 else rest * random.randint(30, 60) // 100
        rest -= cents
        lines.append((word, str(random.randint(1, 40)), bill.money(cents / 100)))
    table = "<tr>" + "".join(t(text, "th") for text in head) + "</tr>" + "".join(
        "<tr>" + "".join(t(text, "td") for text in line) + "</tr>" for line in lines)
    pairs = [("手机号码", f"139****{bill.digits(4)}"), ("账期", bill.date(bill.paid_on)),
             ("套餐名称", bill.name)] if zh else [
        ("Number", f"•••• {bill.digits(4)}"), ("Bill date", bill.date(bill.paid_on)), ("Plan", bill.name)]
    told = "".join(f"<div class=pair>{t(label, 'span')}{t(value, 'span')}</div>" for label, value in pairs)
    page.write(
        f".sheet {{ padding: 30px 40px }} h1 {{ color: {c['accent']}; font-size: 24px; margin: 0 0 16px }}"
        f".pair {{ display: grid; grid-template-columns: 160px 1fr; padding: 3px 0 }}"
        f".pair span:first-child {{ color: {c['muted']} }}"
        f"table {{ width: 100%; border-collapse: collapse; margin: 22px 0 10px }}"
        f"th {{ background: {c['accent']}; color: {c['on_accent']}; font-weight: 600 }}"
        f"th, td {{ text-align: right; padding: 8px 14px }}"
        f"th:first-child, td:first-child {{ text-align: left }}"
        f"tr:nth-child(odd) td {{ background: {c['tint']} }}"
        f".total {{ display: flex; justify-content: space-between; font-size: {look.size + 4}px; "
        f"font-weight: 700; padding: 8px 14px }}"
        f"p {{ color: {c['faint']}; font-size: {max(12, look.size - 3)}px }}",
        f"<div class=sheet>{t('本月账单' if zh else 'Your monthly bill', 'h1')}{told}<table>{table}</table>"
        f"<div class=total>{t('应付总额' if zh else 'Total due', 'span')}{t(bill.total(), 'span')}</div>"
        + "".join(p(text) for text in random.sample(TERMS_ZH if zh else TERMS_EN, 2)) + "</div>")


LAYOUTS = [("web-store-receipt", None, (390, 680, 800), store_receipt, WebPage),
           ("web-account", None, (900, 1100), account, WebPage),
           ("web-payment-mail", None, (420, 680), payment_mail, WebPage),
           ("web-carrier-bill", None, (700, 800, 900), carrier_bill, WebPage)]
