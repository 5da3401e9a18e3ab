"""The Junk screen and the sheet that asks before anything goes."""
import re

from harness import disk
from harness.case import ProgramCase

CONSENT = re.compile("^I’ve reviewed the")
INSTALLERS = re.compile("^Installers in Downloads, ")


class Junk(ProgramCase):
    def setUp(self) -> None:
        super().setUp()
        self.pointer.go_to("Junk")
        self.controls.wait_for(INSTALLERS, "list item")

    def test_sheet_takes_what_is_agreed_to(self) -> None:
        before = disk.snapshot(self.home)
        for rule in ("App caches", "Trash", "Installers in Downloads"):
            self.pointer.tick(rule)
        self.pointer.push("Deselect")
        self.controls.wait_until_gone("Clean…")
        self.pointer.tick("App caches")
        self.pointer.tick("Installers in Downloads")
        for leave in (lambda: self.pointer.push("Cancel"), lambda: self.controls.press("Escape"),
                      lambda: self.controls.press("Return")):
            self.pointer.push("Clean…")
            self.controls.wait_for("Clean Junk", "dialog")
            self.controls.wait_for_state("focused", "Cancel")
            leave()
            self.controls.wait_until_gone("Clean Junk", "dialog")
        self.assertEqual(disk.snapshot(self.home), before)

        self.pointer.push("Clean…")
        self.pointer.tick(CONSENT)
        self.controls.wait_for_state("checked", CONSENT, "check box")
        self.pointer.push("Delete")
        self.assert_shows("Undo")
        caches = {"Library/Caches/com.example.maps", "Library/Caches/com.example.player"}
        self.assertEqual(disk.gone(before, disk.snapshot(self.home)), caches | {"Downloads/Old Installer.dmg"})
        self.pointer.push("Undo")
        self.assert_eventually(lambda: self.exists("Downloads/Old Installer.dmg"), "Undo brings it back")
        self.assertEqual(disk.gone(before, disk.snapshot(self.home)), caches)

    def test_without_consent_only_what_is_safe_goes(self) -> None:
        before = disk.snapshot(self.home)
        self.pointer.tick("Logs and crash reports")
        self.pointer.tick("Installers in Downloads")
        self.pointer.push("Clean…")
        self.pointer.push("Delete")
        self.assert_eventually(lambda: not self.exists("Library/Logs/app.log"), "the log goes")
        self.pointer.push("Close")  # the notice
        self.controls.wait_until_gone("Close", "push button")
        self.assertEqual(disk.gone(before, disk.snapshot(self.home)), {"Library/Logs/app.log"})

    def test_single_items_by_pointer(self) -> None:
        self.controls.click(re.compile("^App caches, "), "list item")
        self.controls.click(re.compile("^com.example.maps, "), "list item", button=3)
        self.controls.click("Show in Finder", "menu item")
        self.assert_eventually(lambda: self.opened() == ["Library/Caches"], "its folder is shown")
        self.pointer.tick("com.example.maps")
        self.pointer.push("Clean…")
        self.pointer.push("Delete")
        self.assert_eventually(lambda: not self.exists("Library/Caches/com.example.maps"), "it goes")
        self.assertTrue(self.exists("Library/Caches/com.example.player"))
        disk.fill(self.home, {"Library/Caches/com.example.late/file": (900_000, 3)})
        self.pointer.push("Scan Again")
        self.assert_shows(re.compile("^com.example.late, "))

    def test_by_keyboard_alone(self) -> None:
        self.controls.tab_to("Scan Again", "push button")
        self.controls.press("Tab", "Home", "Right", "Down", "space")  # the first item of the first rule
        self.keyboard.push("Clean…")
        self.keyboard.push("Cancel")
        self.keyboard.push("Deselect")
        self.controls.wait_until_gone("Clean…")
        self.controls.tab_to("Scan Again", "push button")
        self.controls.press("Tab", "End", "space")
        self.keyboard.push("Clean…")
        self.keyboard.tick(CONSENT)
        self.keyboard.push("Delete")
        self.assert_eventually(lambda: self.exists(".Trash/Old Installer.dmg"), "the installer goes to the Trash")
        self.keyboard.push("Undo")
        self.assert_eventually(lambda: self.exists("Downloads/Old Installer.dmg"), "and comes back")
