"""What was deleted, and the way back, also after a restart."""
import re

from harness import disk
from harness.case import ProgramCase

CONSENT = re.compile("^I’ve reviewed the")
FILM = "Movies/Holiday.mov"


class History(ProgramCase):
    def delete_film(self, hand) -> None:
        hand.go_to("Large & Old")
        hand.select_row("Holiday.mov")
        hand.delete_selected()
        hand.tick(CONSENT)
        hand.push("Delete")
        self.controls.wait_until_gone("Delete Items", "dialog")
        self.assert_eventually(lambda: not self.exists(FILM), "it goes")

    def test_restores_after_a_restart(self) -> None:
        for name, hand_of in {"pointer": lambda: self.pointer, "keyboard": lambda: self.keyboard}.items():
            with self.subTest(name):
                before = disk.snapshot(self.home)
                self.scan_home()
                self.delete_film(hand_of())
                self.restart()
                hand_of().go_to("History")
                self.controls.wait_for(re.compile("^Holiday.mov, .*Trash$"), "list item")
                self.assertEqual([entry["originalPath"] for entry in self.history()], [str(self.home / FILM)])
                hand_of().push("Restore")
                self.assert_shows(re.compile("^Holiday.mov, .*Restored$"))
                self.assertEqual(disk.snapshot(self.home), before)
                hand_of().push("Clear History")
                self.assert_shows("Nothing has been deleted yet.")
                self.assertEqual(self.history(), [])

    def test_a_taken_place_is_not_overwritten(self) -> None:
        self.scan_home()
        self.delete_film(self.pointer)
        (self.home / FILM).write_text("another film")
        self.pointer.go_to("History")
        self.controls.wait_for(re.compile("^Holiday.mov, "), "list item")
        self.assertFalse(self.controls.shows("Restore", "push button"))
        self.assertEqual((self.home / FILM).read_text(), "another film")
