"""A test with a home folder of its own and the program running in it."""
import json
import os
import unittest
from pathlib import Path
from urllib.parse import unquote

from . import disk
from .hands import Keyboard, Pointer
from .program import Program
from .session import Session
from .waiting import eventually


class ProgramCase(unittest.TestCase):
    session: Session  # of all tests, set by the runner
    files = disk.SAMPLE

    def setUp(self) -> None:
        self.home = self.session.folder / self.id() / "Users" / "sam"
        self.home.mkdir(parents=True)
        disk.fill(self.home, self.files)
        self.program = Program(self.home)
        self.addCleanup(self._end)
        self.start()

    def start(self) -> None:
        self.controls = self.program.start()
        self.pointer = Pointer(self.controls)
        self.keyboard = Keyboard(self.controls)
        self.hands = {"pointer": self.pointer, "keyboard": self.keyboard}

    def restart(self) -> None:
        self.controls.press("ctrl+q")
        self.assertLess(self.program.seconds_until_end(), 10)
        self.assertEqual(self.program.exit_status(), 0)
        self.start()

    def scan_home(self) -> None:
        self.controls.press("ctrl+shift+r")
        self.controls.wait_for("Rescan")

    def assert_shows(self, *names) -> None:
        for name in names:
            self.controls.wait_for(name)

    def assert_eventually(self, question, message: str) -> None:
        self.assertTrue(eventually(question), message)

    def history(self) -> list[dict]:
        files = list(self.home.rglob("history.json"))
        return json.loads(files[0].read_text()) if files else []

    def opened(self) -> list[str]:
        """What the desktop was asked to open of the folder that the home folder lies in, relative to the home."""
        places = (unquote(place.removeprefix("file://")) for place in self.session.opened_places())
        return [os.path.relpath(place, self.home) for place in places
                if place.startswith(str(self.home.parent))]

    def exists(self, place: str) -> bool:
        return os.path.lexists(self.home / place)

    def _end(self) -> None:
        if not self.program.has_ended():
            self.controls.all()  # for the ledger
        crashed = self.program.has_ended() and self.program.exit_status() != 0
        self.program.stop()
        self.assertFalse(crashed, f"the program ended with {self.program.exit_status()}")
        self.assertEqual(self.program.errors(), "", "the program wrote errors")
