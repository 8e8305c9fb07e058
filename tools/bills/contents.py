# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""What a bill says: who is paid, how much and when. No person's data: addresses are of example
domains, numbers are drawn by lot."""
import calendar
import datetime

BOTH = ["Netflix Premium", "Spotify Premium", "ChatGPT Plus", "iCloud+ 200GB", "iCloud+ 2TB",
        "Claude Pro", "YouTube Premium", "Notion AI", "Adobe Creative Cloud", "Microsoft 365",
        "Apple Music", "GitHub Copilot", "Kagi Ultimate", "Dropbox Plus", "Google One"]
ENGLISH = ["Netflix Standard", "Spotify Family", "Claude Max", "Notion Plus", "Perplexity Pro",
           "1Password Families", "Al Dente Recipes", "AI Lantern Pro", "Illuma AI", "Lumen Cloud",
           "Ilford Archive", "Pixel Loom Studio", "Tidal Wave Notes", "Alpine Audio Plus",
           "Inkwell AI Writer", "Sailcloth Mail", "Quartz VPN Annual", "Lily Fitness Club",
           "Oak & Iron Weekly", "Atlas Backup 5TB", "Parcel Pilot Team", "All-In Learning",
           "Vail Weather Pro", "Hello AI Tutor"]
CHINESE = ["爱奇艺黄金VIP会员", "腾讯视频VIP会员", "网易云音乐黑胶VIP", "百度网盘超级会员", "QQ音乐豪华绿钻",
           "Bilibili大会员", "哔哩哔哩年度大会员", "优酷VIP会员", "芒果TV会员", "喜马拉雅会员", "AI 助手",
           "AI 写作会员", "知乎盐选会员", "WPS超级会员", "得到听书会员", "印象笔记专业版", "迅雷超级会员",
           "星图云盘 2TB", "小鹿天气Pro", "Illuma AI 专业版", "青禾健身月卡", "飞页文档团队版", "鲸落笔记 Plus",
           "Al Dente 食谱会员", "每日英语听力VIP", "ChatGPT Plus 会员"]
MERCHANTS_EN = ["Bluefinch Software Ltd.", "Example Media Inc.", "Northlight Apps LLC",
                "Lilac Systems GmbH", "Illuma AI, Inc.", "Harbor & Pine Co.", "Sample Digital Ltd"]
MERCHANTS_ZH = ["北京示例科技有限公司", "上海样本网络科技有限公司", "深圳市青禾软件有限公司", "杭州鲸落信息技术有限公司",
                "广州飞页文化传媒有限公司"]
MONTHS = calendar.month_abbr[1:]
LONG_MONTHS = calendar.month_name[1:]
MONEY_ZH = ["¥{}"] * 6 + ["￥{}"] * 4 + ["¥ {}", "{}元", "{} 元", "CNY {}", "RMB {}", "HK${}", "US${}"]
MONEY_EN = ["${}"] * 6 + ["€{}", "€{}", "£{}", "£{}", "US${}", "HK${}", "¥{}", "${} USD", "USD {}",
                          "{} USD", "CNY {}", "€ {}"]
DATES_ZH = ["{y}-{m:02}-{d:02}", "{y}/{m:02}/{d:02}", "{y}.{m:02}.{d:02}", "{y}年{m}月{d}日",
            "{y}年{m:02}月{d:02}日", "{y}-{m:02}-{d:02}", "{y}年{m}月{d}日"]
DATES_EN = ["{month} {d}, {y}", "{month} {d}, {y}", "{month} {d:02}, {y}", "{long} {d}, {y}",
            "{y}-{m:02}-{d:02}", "{y}/{m:02}/{d:02}", "{d} {month} {y}", "{d} {long} {y}"]
CENTS = [0, 0, 0, 99, 99, 99, 90, 50, 80, 88, 49, 95, 15, 7]


class Bill:
    """The contents of one bill. What it is asked for as a fact it remembers."""

    def __init__(self, random, chinese):
        self.random = random
        self.chinese = chinese
        own = CHINESE if chinese else ENGLISH
        self.name = random.choice(BOTH if random.random() < 0.4 else own)
        self.merchant = random.choice(MERCHANTS_ZH if chinese else MERCHANTS_EN)
        self._money = random.choice(MONEY_ZH if chinese else MONEY_EN)
        self._date = random.choice(DATES_ZH if chinese else DATES_EN)
        self.yearly = random.random() < 0.3
        top = random.choice([30, 60, 100, 300, 1600])
        self.value = random.randint(3, top) + random.choice(CENTS) / 100
        self.paid_on = datetime.date(2023, 1, 1) + datetime.timedelta(random.randrange(1200))
        self.next_on = later(self.paid_on, 12 if self.yearly else 1)
        self._amounts, self._dates = [], {}

    def money(self, value):
        """An amount as this bill prints it: some other than the one that was paid."""
        return self._money.format(f"{value:,.2f}")

    def total(self, minus=False):
        """The amount that was paid."""
        text = ("-" if minus else "") + self.money(self.value)
        self._amounts.append(text)
        return text

    def total_in_sizes(self):
        """The amount that was paid as parts for Page.text: what precedes the number is smaller."""
        text = self.total()
        start = next(i for i, letter in enumerate(text) if letter.isdigit())
        return [(part, factor) for part, factor in ((text[:start], 0.65), (text[start:], 1)) if part]

    def date(self, day):
        text = self._date.format(y=day.year, m=day.month, d=day.day, month=MONTHS[day.month - 1],
                                 long=LONG_MONTHS[day.month - 1])
        self._dates[text] = day.isoformat()
        return text

    def per_time(self):
        """What follows a price in English."""
        long, short = ("year", "yr") if self.yearly else ("month", "mo")
        return self.random.choice([f"/{long}", f" per {long}", f" / {short}", ""])

    def moment(self):
        """Day and time of the payment."""
        clock = f"{self.random.randrange(24):02}:{self.random.randrange(60):02}"
        if self.random.random() < 0.6:
            clock += f":{self.random.randrange(60):02}"
        return f"{self.date(self.paid_on)} {clock}"

    def digits(self, count):
        first = str(self.random.randint(1, 9))
        return first + "".join(self.random.choice("0123456789") for _ in range(count - 1))

    def code(self, pattern):
        """`A` stands for a letter, `0` for a digit, `X` for either."""
        letters = "ABCDEFGHJKLMNPQRSTUVWXYZ"
        sets = {"A": letters, "0": "0123456789", "X": letters + "23456789"}
        return "".join(self.random.choice(sets.get(c, c)) for c in pattern)

    def tail(self):
        return f"•••• {self.random.randint(1000, 9999)}"

    def address(self):
        user = self.random.choice(["billing", "hello", "support", "alex", "li.wei", "user", "mail"])
        return f"{user}@{self.random.choice(['example.com', 'example.org', 'mail.example.com'])}"

    def facts(self, pieces):
        """What a reader should find on a page with these texts: amounts and name as printed, dates
        both as days and as printed, in the order of the page."""
        page = "\n".join(pieces)

        def shown(texts):
            return sorted({text for text in texts if text in page}, key=page.index)

        amounts, dates = shown(self._amounts), shown(self._dates)
        if self.name not in page or not amounts:
            raise ValueError(f"the page shows no name or no amount of {self.name}")
        return {"amounts": amounts, "dates": [self._dates[text] for text in dates],
                "dates_printed": dates, "name": self.name}


def later(day, months):
    month = day.month - 1 + months
    year, month = day.year + month // 12, month % 12 + 1
    return datetime.date(year, month, min(day.day, calendar.monthrange(year, month)[1]))
