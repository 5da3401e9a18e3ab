"""The window around the screens: its sections, menus, sheets and the scans they start."""
import re

from harness import disk
from harness.case import ProgramCase
from harness.hands import SECTIONS, row
from harness.ledger import ledger


HEADINGS = {"Quick Clean": "Free up space safely", "Overview": "See where your space goes",
            "Explorer": "Folder explorer", "By Type": "Files by type", "Large & Old": "Large and old files"}


class Window(ProgramCase):
    def test_every_section_by_pointer_and_keys(self) -> None:
        for hand in self.hands.values():
            for section in SECTIONS:
                hand.go_to(section)
                self.controls.wait_for(HEADINGS.get(section, section), "heading")

    def test_scans_start_from_everywhere(self) -> None:
        for section in ("Overview", "Explorer", "By Type", "Large & Old"):
            with self.subTest(section):
                self.pointer.go_to(section)
                self.pointer.push("Home Folder Only")
                self.controls.wait_for("Rescan")
                self.assert_shows("Scan: Home folder")
                self.controls.wait_until_gone("Home Folder Only")
                self.restart()
        self.pointer.go_to("Overview")
        self.keyboard.push("Home Folder Only")
        self.controls.wait_for(re.compile("^Total: "))
        disk.fill(self.home, {"Movies/New.mov": (8_000_000, 1)})
        for again in (lambda: self.keyboard.push("Rescan"),
                      lambda: self.pointer.choose(re.compile("^Scan: "), "Home Folder"),
                      lambda: self.pointer.choose("Menu", "Scan Home Folder"),
                      lambda: self.controls.press("ctrl+shift+r")):
            before = self.files_counted()
            disk.fill(self.home, {f"Movies/New {before}.mov": (8_000_000, 1)})
            again()
            self.assert_eventually(lambda: self.files_counted() > before, "the new file is counted")

    def test_prompt_scans_the_whole_disk(self) -> None:
        self.pointer.go_to("Explorer")
        self.pointer.push("Scan Entire Disk")
        self.assert_shows("Scan: Entire disk", re.compile("^(Stop|Rescan)$"))
        self.controls.wait_until_gone("Scan Entire Disk", "push button")

    def files_counted(self) -> int:
        tile = self.controls.find(re.compile("^Files: "), "label")
        return int(tile.name.split(": ")[1].replace(",", "")) if tile else 0

    def test_chosen_folder(self) -> None:
        self.pointer.go_to("Overview")
        for hand in self.hands.values():
            hand.choose(re.compile("^Scan: "), "Choose Folder…")
            self.controls.wait_for("Choose a Folder", "dialog")
            self.pointer.push("Cancel")
            self.controls.wait_until_gone("Choose a Folder", "dialog")
        self.assert_shows("Scan: Entire disk")
        self.pointer.choose(re.compile("^Scan: "), "Choose Folder…")
        self.controls.wait_for("Choose a Folder", "dialog")
        self.controls.click("Movies", "label")
        self.pointer.push("Scan")
        self.assert_shows("Scan: Movies", "Files: 2")

    def test_chosen_folder_without_folders_in_it(self) -> None:
        self.pointer.choose(re.compile("^Scan: "), "Choose Folder…")
        self.controls.wait_for("Choose a Folder", "dialog")
        self.controls.click("Movies", "label", times=2)
        self.controls.wait_until_gone("Pictures", "label")
        self.controls.click("Scan", "push button")
        self.assert_shows("Scan: Movies")

    def test_whole_disk_and_stop(self) -> None:
        starts = (lambda: self.pointer.choose(re.compile("^Scan: "), "Entire Disk"),
                  lambda: self.pointer.choose("Menu", "Scan Entire Disk"),
                  lambda: self.controls.press("ctrl+r"))
        for start in starts:
            start()
            self.assert_shows("Scan: Entire disk")
            self.controls.wait_for(re.compile("^(Stop|Rescan)$"), "push button")
            self.stop()
            self.controls.wait_for(re.compile("^(Scan|Rescan)$"), "push button")
            self.pointer.choose(re.compile("^Scan: "), "Home Folder")

    def stop(self) -> None:
        """Stops the scan if it still runs: a small disk may have been read by now."""
        button = self.controls.find("Stop", "push button")
        if button:
            self.controls.click_at(*button.middle)
            ledger.used(button)

    def test_main_menu(self) -> None:
        for hand in self.hands.values():
            hand.go_to("History")
            hand.choose("Menu", "Quick Clean")
            self.controls.wait_for_state("selected", "Quick Clean", "list item")
            hand.choose("Menu", "Check for Updates…")
            self.assert_shows("This copy of Brimlet is kept up to date by whoever installed it.")
            self.controls.all()
            hand.push("Close")
            self.controls.wait_until_gone(re.compile("^This copy of Brimlet"))
            hand.choose("Menu", "Settings…")
            self.controls.wait_for_state("active", "Settings", "frame")
            self.controls.press("Escape")
            self.controls.wait_for_state("active", "Brimlet", "frame")
        self.controls.press("F10")
        self.controls.wait_for("Quit Brimlet", "menu item")
        self.controls.press("Escape")
        self.controls.wait_until_gone("Quit Brimlet", "menu item")
        self.controls.press("ctrl+comma")
        self.controls.wait_for_state("active", "Settings", "frame")
        self.controls.press("ctrl+w")
        self.controls.wait_for_state("active", "Brimlet", "frame")

    def test_notice_goes_by_itself(self) -> None:
        self.scan_home()
        self.pointer.go_to("Large & Old")
        self.controls.click(row("Old Installer.dmg"), "list item")
        self.pointer.delete_selected()
        self.pointer.tick(re.compile("^I’ve reviewed"))
        self.pointer.push("Delete")
        self.controls.wait_for("Undo")
        self.controls.wait_until_gone("Undo")


class Access(ProgramCase):
    """Without permission to read all: no folder tells the probe that it may."""
    files = {name: one for name, one in disk.SAMPLE.items() if "Safari" not in name}

    def test_sheet_before_the_first_scan(self) -> None:
        self.controls.press("ctrl+r")
        self.controls.wait_for("Let Brimlet see your whole disk", "dialog")
        self.controls.press("Escape")
        self.controls.wait_until_gone("Let Brimlet see your whole disk", "dialog")
        self.controls.press("ctrl+r")
        opened = len(self.session.opened_places())
        self.pointer.push("Open Settings")
        self.assert_eventually(lambda: len(self.session.opened_places()) > opened, "the settings are opened")
        self.keyboard.push("Scan Without Access")
        self.controls.wait_until_gone("Let Brimlet see your whole disk", "dialog")
        self.controls.wait_for(re.compile("^(Stop|Rescan)$"), "push button")

    def test_banner_of_the_overview(self) -> None:
        self.controls.press("ctrl+shift+r")
        self.pointer.push("Scan Without Access")
        self.pointer.go_to("Overview")
        self.controls.wait_for("Grant Full Disk Access")
        opened = len(self.session.opened_places())
        self.pointer.push("Open Privacy Settings")
        self.assert_eventually(lambda: len(self.session.opened_places()) > opened, "the settings are opened")
        disk.fill(self.home, {"Library/Safari/History.db": (10_000, 3)})
        self.pointer.push("I’ve Done It")
        self.controls.wait_until_gone("Grant Full Disk Access")
