"""The ways to end the program, at rest and at work."""
import os
import re
import signal
from collections.abc import Callable

from harness import disk
from harness.case import ProgramCase


class Quitting(ProgramCase):
    def assert_ends(self) -> None:
        seconds = self.program.seconds_until_end()
        self.assertEqual(self.program.exit_status(), 0)
        self.assertLess(seconds, 1.0)

    def test_at_rest(self) -> None:
        ways = {"its key": lambda: self.controls.press("ctrl+q"),
                "the menu": lambda: self.pointer.choose("Menu", "Quit Brimlet"),
                "the menu by keyboard": lambda: self.keyboard.choose("Menu", "Quit Brimlet"),
                "the window manager": lambda: self.controls.press("alt+F4")}
        for name, quit_program in ways.items():
            with self.subTest(name):
                if self.program.has_ended():
                    self.start()
                quit_program()
                self.assert_ends()

    def test_while_a_sheet_asks(self) -> None:
        self.pointer.go_to("Junk")
        self.pointer.tick("App caches")
        self.pointer.push("Clean…")
        self.controls.wait_for("Clean Junk", "dialog")
        before = disk.snapshot(self.home)
        self.controls.press("ctrl+q")
        self.assert_ends()
        self.assertEqual(disk.snapshot(self.home), before)

    def test_by_its_key_while_it_removes(self) -> None:
        self.assert_ends_a_removal(lambda: self.controls.press("ctrl+q"))

    def test_by_the_system_while_it_removes(self) -> None:
        self.assert_ends_a_removal(lambda: self.program.signal(signal.SIGTERM))

    def assert_ends_a_removal(self, quit_program: Callable[[], None]) -> None:
        """What isn't gone by then is back in its place, and the next start has nothing left to do."""
        before = disk.snapshot(self.home)
        large = "Library/Caches/com.example.large"
        for folder in range(400):
            (self.home / large / str(folder)).mkdir(parents=True)
            for file in range(400):
                os.mknod(self.home / large / str(folder) / str(file))
        self.pointer.go_to("Junk")
        self.controls.click(re.compile("^App caches, "), "list item")
        self.pointer.tick("com.example.large")
        self.pointer.push("Clean…")
        self.pointer.push("Delete")
        self.assert_eventually(lambda: not self.exists(large), "it is set aside")
        quit_program()
        self.assertLess(self.program.seconds_until_end(), 10)
        self.assertEqual(self.program.exit_status(), 0)
        after = disk.snapshot(self.home, large)
        self.assertEqual(disk.gone(before, after), set())
        self.assertLessEqual(set(after) - set(before), {large}, "no trace of what was set aside")
        left = self.files_in(large)
        self.start()
        self.pointer.go_to("History")
        self.assertEqual(disk.snapshot(self.home, large), after)
        self.assertEqual(self.files_in(large), left, "nothing is removed or put back at the next start")

    def files_in(self, folder: str) -> int:
        return sum(len(files) for _, _, files in os.walk(self.home / folder))

    def test_while_it_works(self) -> None:
        works = {"a scan": lambda: self.controls.press("ctrl+r"),
                 "a search": lambda: self.pointer.push("Scan"),
                 "a list that is filled": lambda: (self.scan_home(), self.pointer.go_to("Large & Old"))}
        for name, begin in works.items():
            with self.subTest(name):
                if self.program.has_ended():
                    self.start()
                begin()
                self.controls.press("ctrl+q")
                self.assert_ends()
