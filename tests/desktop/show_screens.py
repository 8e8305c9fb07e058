#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""show_screens.py PROGRAM PICTURES FOLDER: starts Tovarin on a display that nobody sees, in English
and in Chinese, with the sample list and with none. Leaves a picture of each screen in the folder
PICTURES and prints what the program says, read from it as a screen reader reads it. All that the
program writes stays in FOLDER.
"""
import os
import sys

from main_window import LOCALES, SAMPLE, MainWindow, install, picture, settled
from session import Session
from words import ADD, CANCEL, CLOSE, QUICK_PICK_BUTTON, SETTINGS, SKIP

LANGUAGES = {"en": "English", "zh": "Chinese"}

# Each sheet, the button that opens it, and the one that closes it.
SHEETS = (("editor", ADD, CANCEL), ("quick-pick", QUICK_PICK_BUTTON, SKIP),
          ("settings", SETTINGS, CLOSE))


def print_list(window):
    head = window.head()
    print("  total:   " + "   ".join(head[:2]))
    for caption, figure in zip(head[3:9:2], head[4:9:2]):
        print(f"  {caption}: {figure}")
    print("  due:")
    for row in window.upcoming() or []:
        print("    " + "   ".join(row))
    print("  list:")
    for row in window.rows():
        print("    " + "   ".join(row))


def leave_picture(desktop, pictures, name):
    path = os.path.join(pictures, name + ".png")
    picture(desktop, path)
    print(f"  picture: {os.path.relpath(path)}")


def leave_pictures_of_sheets(desktop, app, window, pictures, language):
    for sheet, opening, closing in SHEETS:
        window.frame.find("push button", opening[language]).do()
        app.find("dialog")
        leave_picture(desktop, pictures, f"{sheet}-{language}")
        app.find("push button", closing[language]).do()
        app.gone("dialog")
    window.frame.find("list item", "Quillbird Pro").do("Press")
    app.find("dialog")
    leave_picture(desktop, pictures, f"detail-{language}")
    app.find("push button", CLOSE[language]).do()


def show(program, pictures, folder, language, name, source):
    prepare = settled((lambda session: install(session, source)) if source else None)
    with Session(lang=LOCALES[language], size=(1000, 700), tray="none", notifications="none",
                 wm=False, prepare=prepare, root=os.path.join(folder, name)) as desktop:
        app = desktop.start([program])
        window = MainWindow(app, language)
        leave_picture(desktop, pictures, name)
        if source:
            print_list(window)
            window.list.scroll(-20)
            leave_pictures_of_sheets(desktop, app, window, pictures, language)
        else:
            print("  says:    " + "   ".join(window.head()[-2:]))


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    program, pictures, folder = map(os.path.abspath, sys.argv[1:])
    os.makedirs(pictures, exist_ok=True)
    for source, name, what in ((SAMPLE, "main-window", "the sample list"),
                               (None, "main-window-empty", "no list yet")):
        for language, spoken in LANGUAGES.items():
            print(f"{spoken}, with {what}:")
            show(program, pictures, folder, language, f"{name}-{language}", source)


main()
