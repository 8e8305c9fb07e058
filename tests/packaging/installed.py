#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""installed.py TREE VERSION CONFFILES: fails when something is wrong with what is installed below
TREE: an entry for the desktop that does not hold to its rules, a file that is named and not there, a
text without its Chinese, a version other than VERSION, a file of /etc that CONFFILES does not list."""
import configparser
import gzip
import os
import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

ID = "app.tovarin.Tovarin"
TRANSLATED_KEYS = ["Name", "GenericName", "Comment", "Keywords"]
TRANSLATED_ELEMENTS = ["name", "summary", "developer_name", "p", "li"]
ICON_SIDES = [16, 22, 24, 32, 48, 64, 128, 256, 512]
OTHER_FILES = ["libexec/tovarin/tovarin-scanner", "libexec/tovarin/tovarin-notifier",
               "share/tovarin/TextModels/characters.txt",
               "share/tovarin/TextModels/detection.onnx",
               "share/tovarin/TextModels/recognition.onnx",
               "share/doc/tovarin/copyright", "share/lintian/overrides/tovarin"]
LANGUAGE = "{http://www.w3.org/XML/1998/namespace}lang"


class Tree:
    """What is installed below a folder as if that were the root."""

    def __init__(self, root):
        self.root = pathlib.Path(root)
        entries = sorted(self.root.rglob(f"share/applications/{ID}.desktop"))
        if len(entries) != 1:
            sys.exit(f"{root} has {len(entries)} desktop entries of {ID}")
        self.prefix = entries[0].parents[2]

    def at(self, path):
        """An absolute path of the installed system, or one from the prefix."""
        path = str(path)
        return self.root / path[1:] if path.startswith("/") else self.prefix / path

    def name(self, file):
        return "/" + file.relative_to(self.root).as_posix()

    def files(self):
        return sorted(file for file in self.root.rglob("*") if not file.is_dir())

    def desktop_entries(self):
        return [file for file in self.files() if file.suffix == ".desktop"]

    def services(self):
        return sorted(self.at("share/dbus-1/services").glob("*.service"))

    def metainfo(self):
        return self.at(f"share/metainfo/{ID}.metainfo.xml")


def group(file, name):
    parser = configparser.ConfigParser(interpolation=None, delimiters="=")
    parser.optionxform = str
    parser.read(file, encoding="utf-8")
    return parser[name]


def program_faults(tree, command):
    words = command.split()
    program = tree.at(words[0] if words[0].startswith("/") else f"bin/{words[0]}")
    if not (program.is_file() and os.access(program, os.X_OK)):
        yield f"starts {words[0]}, which is not installed"


def icon_faults(tree, icon):
    icons = tree.at("share/icons/hicolor")
    files = [icons / "scalable/apps" / f"{icon}.svg"]
    files += [icons / f"{side}x{side}/apps" / f"{icon}.png" for side in ICON_SIDES]
    return [f"has no icon {tree.name(file)}" for file in files if not file.is_file()]


def desktop_entry_faults(tree, file):
    check = subprocess.run(["desktop-file-validate", "--warn-kde", "--no-hints", file],
                           stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    if check.returncode or check.stdout:
        yield check.stdout.decode().strip() or "is not valid"
        return
    entry = group(file, "Desktop Entry")
    for key in TRANSLATED_KEYS:
        if key in entry and f"{key}[zh]" not in entry:
            yield f"has no Chinese {key}"
    yield from program_faults(tree, entry["Exec"])
    yield from icon_faults(tree, entry["Icon"])
    service = tree.at(f"share/dbus-1/services/{file.stem}.service")
    if entry.get("DBusActivatable") == "true" and not service.is_file():
        yield f"is started by the bus, which has no {tree.name(service)}"


def service_faults(tree, file):
    service = group(file, "D-BUS Service")
    if service["Name"] != file.stem:
        yield f"is for {service['Name']}"
    # Unlike the desktop, the bus looks for no program on a path.
    if not service["Exec"].startswith("/"):
        yield f"starts {service['Exec']}, not a full path"
    yield from program_faults(tree, service["Exec"])


def metainfo_faults(tree, file, version):
    check = subprocess.run(["appstreamcli", "validate", "--no-net", "--no-color", file],
                           stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    if check.returncode:
        yield check.stdout.decode().strip()
        return
    root = ElementTree.parse(file).getroot()
    texts = [element for element in root.iter() if element.tag in TRANSLATED_ELEMENTS]
    for text, following in zip(texts, texts[1:] + [None]):
        in_chinese = following is not None and following.tag == text.tag and following.get(LANGUAGE)
        if text.get(LANGUAGE) is None and in_chinese != "zh":
            yield f"has no Chinese for: {' '.join(text.text.split())}"
    entry = tree.at(f"share/applications/{root.findtext('launchable')}")
    if not entry.is_file():
        yield f"is for {tree.name(entry)}, which is not installed"
    else:
        types = set(filter(None, group(entry, "Desktop Entry").get("MimeType", "").split(";")))
        media = {element.text for element in root.iter("mediatype")}
        if types != media:
            yield f"and its desktop entry differ in types: {' '.join(sorted(types ^ media))}"
    for binary in root.iter("binary"):
        yield from program_faults(tree, binary.text)
    for name in root.iter("dbus"):
        if not tree.at(f"share/dbus-1/services/{name.text}.service").is_file():
            yield f"has no service {name.text}"
    newest = root.find("releases/release").get("version")
    if newest != version:
        yield f"ends with the release {newest}, not {version}"


def document_faults(tree, version):
    """For each document that tells a version, with its name."""
    documents = [("share/doc/tovarin/changelog.Debian.gz", r"tovarin \((\S+?)-\d+\) "),
                 ("share/man/man1/tovarin.1.gz", r'(?m)^\.TH .*"Tovarin (\S+)"'),
                 ("share/man/zh_CN/man1/tovarin.1.gz", r'(?m)^\.TH .*"Tovarin (\S+)"')]
    for path, pattern in documents:
        file = tree.at(path)
        if not file.is_file():
            yield f"{tree.name(file)} is not installed"
            continue
        told = re.search(pattern, gzip.decompress(file.read_bytes()).decode())
        if not told or told[1] != version:
            yield f"{tree.name(file)} is of {told[1] if told else 'no version'}, not {version}"


def configuration_faults(tree, conffiles):
    listed = set(pathlib.Path(conffiles).read_text(encoding="utf-8").split())
    there = {tree.name(file) for file in tree.files() if "etc" in file.relative_to(tree.root).parts}
    for path in sorted(there - listed):
        yield f"{path} is no conffile of the package"
    for path in sorted(listed - there):
        yield f"{path} is a conffile of the package and not installed"


def faults(tree, version, conffiles):
    for check, files in ((desktop_entry_faults, tree.desktop_entries()),
                         (service_faults, tree.services())):
        for file in files:
            yield from (f"{tree.name(file)} {fault}" for fault in check(tree, file))
    metainfo = tree.metainfo()
    yield from (f"{tree.name(metainfo)} {fault}"
                for fault in metainfo_faults(tree, metainfo, version))
    yield from document_faults(tree, version)
    yield from configuration_faults(tree, conffiles)
    yield from (f"{tree.name(tree.at(path))} is not installed" for path in OTHER_FILES
                if not tree.at(path).is_file())


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    found = list(faults(Tree(sys.argv[1]), *sys.argv[2:]))
    print("\n".join(found) or "what is installed is whole")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
