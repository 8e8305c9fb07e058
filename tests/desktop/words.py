# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""The texts by which the tests find what they use, in both languages."""

OPEN = {"en": "Open Tovarin", "zh": "打开 Tovarin"}
QUIT = {"en": "Quit", "zh": "退出"}
MENU_HIDE = {"en": "Hide Tovarin", "zh": "隐藏 Tovarin"}
MENU_QUIT = {"en": "Quit Tovarin", "zh": "退出 Tovarin"}
MENU_CUT = {"en": "Cut", "zh": "剪切"}
MENU_PASTE = {"en": "Paste", "zh": "粘贴"}
MENU_ALL = {"en": "Select All", "zh": "全选"}

# The main window.
ADD = {"en": "Add", "zh": "添加订阅"}
QUICK_PICK_BUTTON = {"en": "Quick pick", "zh": "快选"}
SCAN = {"en": "Scan", "zh": "扫描识别"}
NOTHING = {"en": "Nothing recognized", "zh": "没有识别到有效内容"}
CHOOSE = {"en": "Choose bill screenshots or PDFs", "zh": "选择账单截图或 PDF"}
EMPTY_HEAD = {
    "en": ["[ MONTHLY SPEND ]", "$0", "LOCAL DATA · CNY", "Yearly", "$0", "Active", "0",
           "Due in 7d", "0", "No subscriptions yet",
           "Start with quick pick, or batch-scan billing screenshots"],
    "zh": ["[ 每月订阅支出 ]", "¥0", "本地数据 · CNY", "每年支出", "¥0", "进行中", "0",
           "近 7 天待扣", "0", "还没有任何订阅记录", "从常见服务快选开始，或批量扫描账单截图"],
}

# The sheets.
EDITORS = {
    "add": {"en": "Add subscription", "zh": "添加订阅"},
    "edit": {"en": "Edit subscription", "zh": "编辑订阅"},
    "scan": {"en": "Confirm scan", "zh": "确认识别结果"},
}
CONFIRM_SCAN = {"en": "[ Confirm scan ]", "zh": "[ 确认识别结果 ]"}
DETAILS = {"en": "Details", "zh": "详情"}
PICK = {"en": "QUICK ADD", "zh": "快速添加常见服务"}
CONFIRM = {"en": "REVIEW", "zh": "确认并调整"}
REVIEW = {"en": "Batch scan", "zh": "批量识别结果"}
SETTINGS = {"en": "Settings", "zh": "设置"}

# On more than one of them.
CANCEL = {"en": "Cancel", "zh": "取消"}
SAVE = {"en": "Save", "zh": "保存"}
CLOSE = {"en": "Close", "zh": "关闭"}
EDIT = {"en": "Edit", "zh": "编辑"}
NAME = {"en": "Name", "zh": "名称"}
AMOUNT = {"en": "Amount", "zh": "金额"}
CYCLES = {"weekly": {"en": "Weekly", "zh": "每周"}, "monthly": {"en": "Monthly", "zh": "每月"},
          "quarterly": {"en": "Quarterly", "zh": "每季"}, "yearly": {"en": "Yearly", "zh": "每年"}}
MONTHLY = CYCLES["monthly"]
SCANNED_TEXT = {"en": "📷 Scanned text:", "zh": "📷 识别原文："}

# The editor.
CURRENCY = {"en": "Currency", "zh": "币种"}
CATEGORY = {"en": "Category", "zh": "分类"}
RECURRING = {"en": "Subscription", "zh": "订阅续费"}
ONE_TIME = {"en": "One-time", "zh": "单次买断"}
CYCLE = {"en": "Cycle", "zh": "周期"}
FIRST_CHARGE = {"en": "First charge", "zh": "首次扣费"}
PURCHASE = {"en": "Purchase date", "zh": "购买日"}
PREVIOUS = {"en": "Previous month", "zh": "上个月"}
NEXT = {"en": "Next month", "zh": "下个月"}
ACTIVE = {"en": "Still active", "zh": "仍在使用"}
NOTES = {"en": "Notes", "zh": "备注"}
DELETE = {"en": "Delete", "zh": "删除"}

# The detail.
PAUSE = {"en": "Pause", "zh": "停用"}
RESUME = {"en": "Resume", "zh": "启用"}
COPY = {"en": "Copy", "zh": "复制"}
DELETE_THIS = {"en": "Delete subscription", "zh": "删除这个订阅"}

# The quick pick.
REGION = {"en": "Region", "zh": "地区"}
CHINA = {"en": "China", "zh": "国内常用"}
GLOBAL = {"en": "Global", "zh": "国际常用"}
SKIP = {"en": "Skip", "zh": "跳过"}
CONTINUE = {"en": "Continue", "zh": "下一步"}
BACK = {"en": "Back", "zh": "返回"}
OTHER_TIER = {"en": "Other · custom", "zh": "其他 · 自定"}
ENTER_AMOUNT = {"en": "Enter amount", "zh": "请填金额"}
PICK_NOTES = {"en": "Quick pick", "zh": "快速添加"}

# The batch review.
NO_NAME = {"en": "No name", "zh": "未识别名称"}

# The settings.
LANGUAGE = {"en": "Language", "zh": "语言"}
SYSTEM = {"en": "System", "zh": "跟随系统"}
OWN_NAMES = {"en": "English", "zh": "中文"}
DAYS = {"en": "Remind me how many days ahead", "zh": "提前几天提醒我"}
DAY_NAMES = {"en": ["Same day", "1d", "2d", "3d", "5d", "7d"],
             "zh": ["当天", "1 天", "2 天", "3 天", "5 天", "7 天"]}
SEND_TEST = {"en": "Send test notification", "zh": "发送测试通知"}
SENT = {"en": "Sent — check notifications", "zh": "已发送，请留意通知"}
QUICK_PICK = {"en": "Quick add services", "zh": "快选常见服务"}


def add(language, count):
    """What adds that many entries, in the quick pick and in the batch review."""
    return {"en": f"Add {count}", "zh": f"添加 {count} 项"}[language]
