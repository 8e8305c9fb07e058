#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_first_window.py PROGRAM PICTURES: starts Tovarin in a desktop session of its own and looks
at its main window as a screen reader does. Leaves a picture of each window in the folder PICTURES.
"""
import os

from main_window import LOCALES, SAMPLE, MainWindow, data_file, install, install_bytes, settled
from program_test import ProgramTest, main
from session import Session
from words import EMPTY_HEAD

HEADS = {
    "en": ["[ MONTHLY SPEND ]", "$54.36", "LOCAL DATA · CNY", "Yearly", "$652.31", "Active", "6",
           "Due in 7d", "2", "Upcoming charges", "Next 7 days", "All subscriptions", "8 items"],
    "zh": ["[ 每月订阅支出 ]", "¥391.38", "本地数据 · CNY", "每年支出", "¥4696.61", "进行中", "6",
           "近 7 天待扣", "2", "即将扣费", "未来 7 天", "全部订阅", "8 项"],
}
UPCOMING = {
    "en": [["晚灯影院", "in 3 days", "¥25"], ["晨跑俱乐部", "in 6 days", "¥15"]],
    "zh": [["晚灯影院", "3 天后扣费", "¥25"], ["晨跑俱乐部", "6 天后扣费", "¥15"]],
}
ROWS = {
    "en": [
        ["Quillbird Pro", "AI & Tools · Monthly · Charges 2025/07/06", "-$20", "≈$20/mo"],
        ["Harbour Radio", "Music · Monthly · Charges 2025/06/20", "-£9.99", "≈$12.63/mo"],
        ["晨跑俱乐部", "Membership · Weekly · Charges 2025/06/16", "-¥15", "≈$9.03/mo"],
        ["Inkstone Weekly", "Reading · Monthly · Charges 2025/06/27", "-¥980", "≈$6.53/mo"],
        ["晚灯影院", "Video · Monthly · Charges 2025/06/13", "-¥25", "≈$3.47/mo"],
        ["Cirrus Locker", "Cloud · Yearly · Charges 2025/12/02", "-€29.90", "≈$2.70/mo"],
        ["Lantern Photo Studio", "One-time", "Software", "-$129"],
        ["Tramline Arcade", "Paused", "Games · Quarterly", "-HK$68"],
    ],
    "zh": [
        ["Quillbird Pro", "AI/工具 · 每月 · 2025/07/06 扣费", "-$20", "≈¥144/月"],
        ["Harbour Radio", "音乐 · 每月 · 2025/06/20 扣费", "-£9.99", "≈¥90.91/月"],
        ["晨跑俱乐部", "会员 · 每周 · 2025/06/16 扣费", "-¥15", "≈¥65/月"],
        ["Inkstone Weekly", "阅读 · 每月 · 2025/06/27 扣费", "-¥980", "≈¥47.04/月"],
        ["晚灯影院", "影音 · 每月 · 2025/06/13 扣费", "-¥25", "≈¥25/月"],
        ["Cirrus Locker", "云存储 · 每年 · 2025/12/02 扣费", "-€29.90", "≈¥19.43/月"],
        ["Lantern Photo Studio", "单次", "软件", "-$129"],
        ["Tramline Arcade", "已停用", "游戏 · 每季", "-HK$68"],
    ],
}


def session(language, prepare=None):
    """A desktop on which it is 10 June 2025, nine in the morning in Shanghai."""
    return Session(lang=LOCALES[language], tz="Asia/Shanghai", clock="2025-06-10 09:00:00",
                   tray="none", notifications="none", prepare=settled(prepare))


class FirstWindow(ProgramTest):
    def test_shows_the_list(self):
        for language in LOCALES:
            with self.subTest(language), session(language, lambda s: install(s, SAMPLE)) as desktop:
                app = desktop.start([self.program])
                window = MainWindow(app, language)
                self.assertEqual(window.head(), HEADS[language])
                self.assertEqual(window.upcoming(), UPCOMING[language])
                self.picture(desktop, "first-window-" + language + ".png")
                self.assertEqual(window.rows(), ROWS[language])
                self.end(desktop, app, language)
                with open(SAMPLE, "rb") as sample, open(data_file(desktop), "rb") as now:
                    self.assertEqual(now.read(), sample.read())

    def test_first_start_makes_the_folder_and_no_file(self):
        with session("zh") as desktop:
            folder = os.path.dirname(data_file(desktop))
            self.assertFalse(os.path.exists(folder))
            app = desktop.start([self.program])
            window = MainWindow(app, "zh")
            self.assertEqual(window.head(), EMPTY_HEAD["zh"])
            self.assertIsNone(window.upcoming())
            self.assertEqual(window.rows(), [])
            self.picture(desktop, "first-window-empty-zh.png")
            self.end(desktop, app, "zh")
            self.assertEqual(os.listdir(folder), [])

    def test_leaves_an_undecodable_file_alone(self):
        with open(SAMPLE, "rb") as sample:
            broken = sample.read().replace(b'"weekly"', b'"fortnightly"')
        with session("en", lambda s: install_bytes(s, broken)) as desktop:
            app = desktop.start([self.program])
            window = MainWindow(app, "en")
            self.assertEqual(window.head(), EMPTY_HEAD["en"])
            self.assertIsNone(window.upcoming())
            self.assertEqual(window.rows(), [])
            self.picture(desktop, "first-window-empty-en.png")
            self.end(desktop, app, "en")
            with open(data_file(desktop), "rb") as now:
                self.assertEqual(now.read(), broken)
            self.assertEqual(os.listdir(os.path.dirname(data_file(desktop))),
                             ["subscriptions.json"])


if __name__ == "__main__":
    main(__doc__)
