"""The built program, running in a home folder of a test."""
import os
import subprocess
import time
from pathlib import Path

from .controls import Controls, application_of
from .session import die_with_parent
from .waiting import eventually


class Program:
    """BRIMLET in the environment names the program file."""

    def __init__(self, home: Path) -> None:
        self._home = home
        self._errors = home.parent / "errors.txt"
        self._process: subprocess.Popen | None = None
        self.controls: Controls = None  # of the running program

    def start(self) -> Controls:
        """Starts it and waits until its window has the keyboard."""
        environment = dict(os.environ, HOME=str(self._home), QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                           QT_QUICK_BACKEND="software")
        with open(self._errors, "w") as errors:
            self._process = subprocess.Popen(
                [os.environ["BRIMLET"], "--theme", "light"], env=environment, stdin=subprocess.DEVNULL,
                stdout=errors, stderr=errors, preexec_fn=die_with_parent)
        application = eventually(lambda: application_of(self._process.pid) or self.has_ended())
        if self.has_ended():
            raise AssertionError(f"the program ended as it started: {self.errors()}")
        if not application:
            raise AssertionError("the program doesn't appear on the accessibility bus")
        self.controls = Controls(application)
        self.controls.wait_for_state("active", "Brimlet", "frame")
        return self.controls

    def has_ended(self) -> bool:
        return self._process.poll() is not None

    def exit_status(self) -> int | None:
        return self._process.poll()

    def signal(self, number: int) -> None:
        os.kill(self._process.pid, number)

    def seconds_until_end(self, within: float = 10) -> float:
        """How long from now on the program goes on running; `within` where it doesn't end."""
        began = time.monotonic()
        eventually(self.has_ended, within)
        return time.monotonic() - began

    def processor_seconds(self) -> float:
        """Time on a processor since the start."""
        fields = Path(f"/proc/{self._process.pid}/stat").read_text().rpartition(")")[2].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def errors(self) -> str:
        """What it wrote to its standard error."""
        return self._errors.read_text(errors="replace") if self._errors.exists() else ""

    def stop(self) -> None:
        """Ends it without asking; for the end of a test."""
        if self._process and not self.has_ended():
            self._process.kill()
        if self._process:
            self._process.wait()
