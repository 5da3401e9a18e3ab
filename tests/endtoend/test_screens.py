"""Screens come and go while a screen reader listens."""
import itertools
import re

from harness.case import ProgramCase
from harness.listener import Listener

SCREENS = ("Quick Clean", "Overview", "Explorer", "By Type", "Large & Old", "Junk", "History", "System Data")


def every_order_of_two(names: tuple[str, ...]) -> list[str]:
    """A walk in which each name follows each other one: a closed tour over all ordered pairs."""
    left = {name: [other for other in names if other != name] for name in names}
    walk, tour = [names[0]], []
    while walk:
        if left[walk[-1]]:
            walk.append(left[walk[-1]].pop())
        else:
            tour.append(walk.pop())
    return tour


class Screens(ProgramCase):
    def setUp(self) -> None:
        super().setUp()
        self.listener = Listener()
        self.addCleanup(self.listener.stop)

    def test_come_and_go_in_every_order_before_a_scan(self) -> None:
        self.walk()

    def test_come_and_go_in_every_order_after_a_scan(self) -> None:
        self.scan_home()
        self.walk()

    def test_come_and_go_in_every_order_with_the_map(self) -> None:
        self.scan_home()
        self.pointer.go_to("Explorer")
        self.pointer.push("Map")
        self.walk()

    def walk(self) -> None:
        places = {name: self.controls.wait_for(name, "list item") for name in SCREENS}
        tour = every_order_of_two(SCREENS)
        self.assertEqual(len(set(itertools.pairwise(tour))), len(SCREENS) * (len(SCREENS) - 1))
        for name in tour:
            self.controls.click_at(*places[name].middle)
            self.assert_eventually(lambda: self.program.has_ended() or "selected" in places[name].present_states(), name)
            self.listener.listen()
            if self.program.has_ended():
                self.fail(f"the program ends on the way to {name}: {self.program.exit_status()}")
        self.assertGreater(len(self.listener.heard), 300)

    def test_stages_and_sheets_come_and_go_while_somebody_listens(self) -> None:
        for _ in range(3):
            self.pointer.push("Scan")
            self.pointer.push("Start Over")
            self.listener.listen()
            self.pointer.choose("Menu", "Check for Updates…")
            self.pointer.push("Close")
            self.listener.listen()
            self.pointer.choose(re.compile("^Scan: "), "Choose Folder…")
            self.pointer.push("Cancel")
            self.controls.wait_until_gone("Choose a Folder", "dialog")
            self.listener.listen()
        self.assertFalse(self.program.has_ended())
