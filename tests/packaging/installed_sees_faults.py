#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""installed_sees_faults.py TREE VERSION CONFFILES: breaks copies of what is installed below TREE, each
in one place, and fails unless installed.py finds just that."""
import gzip
import os
import shutil
import sys
import tempfile
import unittest

from installed import ID, Tree, faults

TREE = VERSION = CONFFILES = None
ENTRY = f"share/applications/{ID}.desktop"
METAINFO = f"share/metainfo/{ID}.metainfo.xml"
SERVICE = f"share/dbus-1/services/{ID}.service"
CHANGELOG = "share/doc/tovarin/changelog.Debian.gz"


class Faults(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        # Beside the original, whose files it shares until they are written anew.
        self._folder = tempfile.TemporaryDirectory(dir=os.path.dirname(os.path.abspath(TREE)))
        self.addCleanup(self._folder.cleanup)
        copy = os.path.join(self._folder.name, "tree")
        shutil.copytree(TREE, copy, copy_function=os.link)
        self.tree = Tree(copy)

    def write(self, path, data):
        file = self.tree.at(path)
        file.unlink(missing_ok=True)
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(data)

    def replace(self, path, old, new):
        data = self.tree.at(path).read_bytes()
        self.assertEqual(data.count(old.encode()), 1, old)
        self.write(path, data.replace(old.encode(), new.encode()))

    def remove(self, path):
        self.tree.at(path).unlink()

    def expect(self, *expected):
        self.assertEqual(list(faults(self.tree, VERSION, CONFFILES)), list(expected))

    def named(self, path):
        return self.tree.name(self.tree.at(path))

    def autostart(self):
        return next(file for file in self.tree.desktop_entries() if file.parent.name == "autostart")

    def test_nothing_in_the_original(self):
        self.expect()

    def test_an_entry_that_is_not_valid(self):
        self.replace(ENTRY, "Terminal=false", "Terminal=maybe")
        found = list(faults(self.tree, VERSION, CONFFILES))
        self.assertEqual(len(found), 1)
        self.assertIn('value "maybe" for boolean key "Terminal"', found[0])

    def test_an_autostart_entry_that_is_not_valid(self):
        name = self.tree.name(self.autostart())
        self.replace(name, "Type=Application\n", "")
        found = list(faults(self.tree, VERSION, CONFFILES))
        self.assertEqual(len(found), 1)
        self.assertTrue(found[0].startswith(name))
        self.assertIn('required key "Type"', found[0])

    def test_a_text_without_chinese(self):
        self.replace(ENTRY, "Comment[zh]=", "Comment[de]=")
        self.replace(METAINFO, '<li xml:lang="zh">手动填写</li>', "")
        self.expect(f"{self.named(ENTRY)} has no Chinese Comment",
                    f"{self.named(METAINFO)} has no Chinese for: typed in")

    def test_a_program_that_is_not_there(self):
        self.remove("bin/tovarin")
        self.expect(f"{self.named(ENTRY)} starts tovarin, which is not installed",
                    f"{self.named(SERVICE)} starts {self.named('bin/tovarin')}, "
                    "which is not installed",
                    f"{self.named(METAINFO)} starts tovarin, which is not installed")

    def test_a_program_that_may_not_be_started(self):
        self.write("libexec/tovarin/tovarin-notifier", b"")
        name = self.named("libexec/tovarin/tovarin-notifier")
        notifier = self.named(f"share/dbus-1/services/{ID}.Notifier.service")
        self.expect(f"{self.tree.name(self.autostart())} starts {name}, which is not installed",
                    f"{notifier} starts {name}, which is not installed")

    def test_an_icon_that_is_not_there(self):
        icon = f"share/icons/hicolor/scalable/apps/{ID}.svg"
        self.remove(icon)
        self.expect(f"{self.tree.name(self.autostart())} has no icon {self.named(icon)}",
                    f"{self.named(ENTRY)} has no icon {self.named(icon)}")

    def test_a_service_that_is_not_there(self):
        self.remove(SERVICE)
        self.expect(f"{self.named(ENTRY)} is started by the bus, which has no "
                    f"{self.named(SERVICE)}",
                    f"{self.named(METAINFO)} has no service {ID}")

    def test_a_service_of_another_name(self):
        self.replace(SERVICE, f"Name={ID}", "Name=app.tovarin.Other")
        self.expect(f"{self.named(SERVICE)} is for app.tovarin.Other")

    def test_a_service_that_needs_a_path(self):
        self.replace(SERVICE, f"Exec={self.named('bin/tovarin')}", "Exec=tovarin")
        self.expect(f"{self.named(SERVICE)} starts tovarin, not a full path")

    def test_metainfo_that_is_not_valid(self):
        self.replace(METAINFO, "<project_license>MIT", "<project_license>My own")
        found = list(faults(self.tree, VERSION, CONFFILES))
        self.assertEqual(len(found), 1)
        self.assertIn("spdx-license-unknown", found[0])

    def test_metainfo_of_another_entry(self):
        self.replace(METAINFO, f"{ID}.desktop", "app.tovarin.Other.desktop")
        other = self.named("share/applications/app.tovarin.Other.desktop")
        self.expect(f"{self.named(METAINFO)} is for {other}, which is not installed")

    def test_types_that_differ(self):
        self.replace(ENTRY, "image/webp;", "image/avif;")
        self.expect(f"{self.named(METAINFO)} and its desktop entry differ in types: "
                    "image/avif image/webp")

    def test_documents_of_another_version(self):
        self.replace(METAINFO, f'<release version="{VERSION}"', '<release version="9.9"')
        self.write(CHANGELOG, gzip.compress(b"tovarin (9.8-1) bookworm; urgency=medium\n"))
        self.write("share/man/man1/tovarin.1.gz", gzip.compress(b'.TH TOVARIN 1 "" "Tovarin 9.7"'))
        self.write("share/man/zh_CN/man1/tovarin.1.gz", gzip.compress(b""))
        self.expect(f"{self.named(METAINFO)} ends with the release 9.9, not {VERSION}",
                    f"{self.named(CHANGELOG)} is of 9.8, not {VERSION}",
                    f"{self.named('share/man/man1/tovarin.1.gz')} is of 9.7, not {VERSION}",
                    f"{self.named('share/man/zh_CN/man1/tovarin.1.gz')} is of no version, "
                    f"not {VERSION}")

    def test_documents_that_are_not_there(self):
        self.remove(CHANGELOG)
        self.remove("share/doc/tovarin/copyright")
        self.expect(f"{self.named(CHANGELOG)} is not installed",
                    f"{self.named('share/doc/tovarin/copyright')} is not installed")

    def test_configuration_that_the_package_does_not_know(self):
        autostart = self.autostart()
        name = self.tree.name(autostart)
        autostart.rename(autostart.with_stem("other"))
        self.expect(f"{self.tree.name(autostart.with_stem('other'))} is no conffile of the package",
                    f"{name} is a conffile of the package and not installed")

    def test_models_and_a_scanner_that_are_not_there(self):
        files = ["libexec/tovarin/tovarin-scanner", "share/tovarin/TextModels/recognition.onnx"]
        for file in files:
            self.remove(file)
        self.expect(*(f"{self.named(file)} is not installed" for file in files))


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    TREE, VERSION, CONFFILES = sys.argv[1:]
    unittest.main(argv=sys.argv[:1])
