"""The ways to end the program, at rest and at work."""
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
