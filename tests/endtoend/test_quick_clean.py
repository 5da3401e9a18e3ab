"""Quick Clean from its first stage to its last, on real files."""
import re

from harness import disk
from harness.case import ProgramCase
from harness.waiting import stays

CLEAN = re.compile(r"^Clean \d")
REVIEWED = {"Library/Caches/com.example.maps", "Library/Caches/com.example.player", "Library/Logs/app.log",
            ".Trash/thrown away.txt"}


class QuickClean(ProgramCase):
    def test_removes_what_was_reviewed_and_nothing_else(self) -> None:
        for name, hand in self.hands.items():
            with self.subTest(name):
                disk.fill(self.home, self.files)
                if not self.controls.shows("Free up space safely"):
                    self.pointer.push("Start Over")
                before = disk.snapshot(self.home)
                hand.push("Scan")
                self.assert_shows("ready to clean")
                hand.tick("Logs and crash reports")
                hand.push(CLEAN)
                self.assert_shows("Done", re.compile(" cleaned$"))
                after = disk.snapshot(self.home)
                self.assertEqual(disk.gone(before, after), REVIEWED - {"Library/Logs/app.log"})
                self.assertEqual(disk.new_or_changed(before, after), set())
                hand.push("Done")
                hand.push("Scan")
                box = self.controls.wait_for("Logs and crash reports", "check box")
                self.assertNotIn("checked", box.states, "ticks last until the program ends")
                hand.tick("Logs and crash reports")
                hand.push("Start Over")
                self.assert_shows("Free up space safely")

    def test_ticked_review_rule_is_moved_and_undone(self) -> None:
        self.pointer.push("Scan")
        self.pointer.tick("Installers in Downloads")
        before = disk.snapshot(self.home)
        self.pointer.push(CLEAN)
        self.assert_shows("Undo", re.compile("is in the Trash until you empty it"))
        self.assertTrue(self.exists(".Trash/Old Installer.dmg"))
        self.assertEqual(disk.gone(before, disk.snapshot(self.home)), REVIEWED | {"Downloads/Old Installer.dmg"})
        self.pointer.push("Undo")
        self.assert_eventually(lambda: self.exists("Downloads/Old Installer.dmg"), "Undo brings it back")
        self.assertEqual(disk.gone(before, disk.snapshot(self.home)), REVIEWED)

    def test_leads_to_the_other_screens(self) -> None:
        for name, hand in self.hands.items():
            with self.subTest(name):
                hand.go_to("Quick Clean")
                if self.controls.shows("Free up space safely"):
                    hand.push("Scan")
                hand.push("See Details")
                self.assert_shows("Found junk")
                hand.go_to("Quick Clean")
                self.assert_shows("ready to clean")  # the stage is kept
        self.pointer.push(CLEAN)
        self.pointer.push("See What Else Is Using Space")
        self.assert_shows("Scan: Entire disk", re.compile("^(Stop|Rescan)$"))
        self.pointer.go_to("Quick Clean")
        self.assert_shows("Done")

    def test_held_return_scans_and_cleans_nothing(self) -> None:
        before = disk.snapshot(self.home)
        self.controls.tab_to("Scan", "push button")
        self.controls.hold("Return")
        try:
            self.assert_shows("ready to clean")
            self.assertTrue(stays(lambda: self.controls.shows("ready to clean"), 2), "the review stays")
        finally:
            self.controls.let_go("Return")
        self.assertEqual(disk.snapshot(self.home), before)
        self.controls.press("Return")
        self.assert_shows("Done")
        self.assertEqual(disk.gone(before, disk.snapshot(self.home)), REVIEWED)

    def test_held_space_presses_a_button_once(self) -> None:
        self.controls.tab_to("Scan", "push button")
        self.controls.hold("space")
        try:
            self.assertTrue(stays(lambda: not self.controls.shows("Cleaning…"), 3))
        finally:
            self.controls.let_go("space")
        self.assert_shows("ready to clean")
