# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Who uses Tovarin at random: has bills read."""
import datetime
import json
import os
import shutil

from ledger import Drawn, Since, stamp
from main_window import BILLS
from session import wait_for
from sheets import Sheet
from user_entries import EntryUser
from words import AMOUNT, CANCEL, CHOOSE, EDITORS, NAME, NOTHING, REVIEW, SCAN, SCANNED_TEXT, add

# Most of them take no time to be read; the last two take about a second.
READABLE = ("pdf/text-layer-chinese.pdf", "pdf/text-layer-english.pdf", "pdf/text-layer-phone.pdf",
            "pdf/text-layer-two-pages.pdf", "pdf/browser-receipt.pdf", "clean/message-1x.png",
            "clean/payment-result-1x.png")
BROKEN = ("hazards/corrupted.png", "hazards/cut-in-the-middle.png", "hazards/empty.png",
          "pdf/cut-in-the-middle.pdf", "pdf/no-pages.pdf", "pdf/password-needed.pdf",
          "pdf/blank-page.pdf", "pdf/page-tree-in-a-circle.pdf")


class BillUser(EntryUser):
    def scan(self, way=None, samples=()):
        way = way or self.choose_way("start", "start", "panel", "panel", "cancelled panel")
        samples = list(samples) or [self.random.choice(READABLE if self.chance(0.7) else BROKEN)
                                    for _ in range(self.random.choice((1, 1, 2, 3)))]
        # More than one are not typed.
        if "panel" in way:
            samples = samples[:1]
        # What says that nothing was found stands beside the button, and may do so from before.
        self.in_head(SCAN)
        if self.app.find_all("label", NOTHING[self.language]) and \
                all(sample in BROKEN for sample in samples):
            samples[0] = READABLE[0]
        folder = os.path.join(self.desktop.home, "bills")
        os.makedirs(folder, exist_ok=True)
        bills = []
        for number, sample in enumerate(samples):
            bills.append(f"{folder}/{number}-{os.path.basename(sample)}")
            shutil.copyfile(os.path.join(BILLS, sample), bills[-1])
        self.say(f"scan {samples} by {way}")
        begun = self.desktop.clock.now()
        if "panel" in way:
            self.in_head(SCAN).do("Press")
            dialog = self.app.find("dialog", CHOOSE[self.language], timeout=20)
            field = dialog.find("text", where=lambda e: e.has("focused"))
            if way == "cancelled panel":
                self.desktop.key("Escape")
                self.rest()
                return
            self.desktop.type(bills[0])
            wait_for(lambda: f"{bills[0]!r}, not {field.text!r}", lambda: field.text == bills[0])
            self.desktop.key("Return")
            self.app.gone("dialog", CHOOSE[self.language])
        else:
            second = self.desktop.start([self.program, *bills])
            self.started.append(second)
            assert second.wait(30) == 0
            if way == "killed":
                self.kill()
                self.start()
                return
        self.take(samples, begun)

    def take(self, samples, begun):
        """Looks through what was found."""
        drafts = [draft for draft in (self.draft(sample, begun) for sample in samples) if draft]
        self.say(f"    found {[draft['name'] for draft in drafts]}")
        if not drafts:
            self.app.find("label", NOTHING[self.language], timeout=60)
            self.find("push button", SCAN)
            self.rest()
        elif len(drafts) == 1:
            sheet = Sheet(self.app, EDITORS["scan"][self.language])
            needed = ("name",) if drafts[0]["name"] in self.ledger.names() else ()
            self.change(sheet, drafts[0], needed)
            self.close_editor(sheet, drafts[0], self.ledger.entries + drafts)
        else:
            self.review(Sheet(self.app, REVIEW[self.language]), drafts)

    def draft(self, sample, begun):
        """What the file will have of the sample, if it can be read."""
        with open(os.path.join(BILLS, sample + ".golden.json"), encoding="utf-8") as golden:
            read = json.load(golden)
        if read is None:
            return None
        draft = dict(read["draft"], id=Drawn())
        assert draft.pop("serviceID") is None
        draft["notes"] = SCANNED_TEXT[self.language] + "\n" + draft["notes"][1]
        draft["startDate"] = Since(begun) if draft["startDate"] == "now" else \
            stamp(datetime.date.fromisoformat(draft["startDate"]))
        return draft

    def review(self, sheet, drafts):
        rows = [row for row in sheet.find("list", REVIEW[self.language]).children
                if row.role == "list item"]
        assert len(rows) == len(drafts), (rows, drafts)
        taken, kept = self.ledger.names(), []
        for row, draft in zip(rows, drafts):
            if self.chance(0.2):
                box = row.find("check box", hidden=True).do("Toggle")
                wait_for("no tick", lambda: not box.has("checked"))
                continue
            if draft["name"] in taken or self.chance(0.2):
                draft["name"] = self.new_name()
                self.put(row.find("text", NAME[self.language], hidden=True), draft["name"])
            if self.chance(0.2):
                draft["amount"] = 7.5
                self.put(row.find("text", AMOUNT[self.language], hidden=True), "7.5")
            taken.append(draft["name"])
            kept.append(draft)
        if kept and self.chance(0.7):
            self.say(f"    add {[draft['name'] for draft in kept]}")
            self.press(sheet.find("push button", add(self.language, len(kept))))
            self.ledger.entries = self.ledger.entries + kept
        elif self.chance(0.5):
            self.desktop.key("Escape")
        else:
            self.press(sheet.find("push button", CANCEL[self.language]))
        self.rest()
