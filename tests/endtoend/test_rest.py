"""The window rests where nothing happens: it takes no processor's time."""
import subprocess
import time

from harness.case import ProgramCase

SOME_BREATHS = 18  # seconds after which the first screen has come to rest


class Rest(ProgramCase):
    def assert_rests(self) -> None:
        before, began = self.program.processor_seconds(), time.monotonic()
        time.sleep(4)
        used = (self.program.processor_seconds() - before) / (time.monotonic() - began)
        self.assertLess(used, 0.01, "share of a processor")

    def test_after_some_breaths(self) -> None:
        time.sleep(SOME_BREATHS)
        self.assert_rests()

    def test_at_once_while_another_window_is_active(self) -> None:
        subprocess.run(["xdotool", "getactivewindow", "windowminimize"], check=True)
        time.sleep(1)
        self.assert_rests()
