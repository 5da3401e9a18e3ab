"""A display, a window manager, a message bus and an accessibility bus of their own, for the time of a run.

Everything that is started here ends with this process, whatever ends it.
"""
import ctypes
import os
import shutil
import signal
import subprocess
import tempfile
from pathlib import Path

from .waiting import eventually

SCREEN = "1280x900x24"
ACCESSIBILITY_LAUNCHERS = ("/usr/libexec/at-spi-bus-launcher", "/usr/lib/at-spi2-core/at-spi-bus-launcher")

# A bus without service folders: no installed daemon is started on demand.
BUS_CONFIGURATION = """<busconfig>
  <type>session</type>
  <listen>unix:dir={folder}</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""

# Stands before the system's own in PATH, and writes down what it was asked to open.
OPENER = """#!/bin/sh
printf '%s\\n' "$@" >>{record}
"""

PR_SET_PDEATHSIG = 1
_libc = ctypes.CDLL(None)


def die_with_parent() -> None:
    """For a child between fork and exec: it is told to end where this process ends."""
    _libc.prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


def _has_window_manager() -> bool:
    answer = subprocess.run(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], capture_output=True, text=True)
    return "window id" in answer.stdout


def _has_accessibility_bus() -> bool:
    answer = subprocess.run(["dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
                             "org.freedesktop.DBus.NameHasOwner", "string:org.a11y.Bus"],
                            capture_output=True, text=True)
    return "true" in answer.stdout


class Session:
    """Used with `with`; sets the environment of this process so that it and its children live in the session."""

    def __init__(self) -> None:
        self.folder = Path(tempfile.mkdtemp(prefix="brimlet-endtoend-"))
        self.opened = self.folder / "opened"
        self._children: list[subprocess.Popen] = []

    def __enter__(self) -> "Session":
        try:
            self._make_folders()
            self._start_display()
            self._start_bus()
            launcher = next(path for path in ACCESSIBILITY_LAUNCHERS if os.path.exists(path))
            self._start([launcher, "--launch-immediately"])
            self._start(["openbox", "--sm-disable"])
            if not eventually(_has_window_manager) or not eventually(_has_accessibility_bus):
                raise RuntimeError("the session doesn't start")
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_) -> None:
        for child in reversed(self._children):
            child.terminate()
        for child in self._children:
            try:
                child.wait(5)
            except subprocess.TimeoutExpired:
                child.kill()
        shutil.rmtree(self.folder, ignore_errors=True)

    def opened_places(self) -> list[str]:
        """What the desktop was asked to open so far, oldest first."""
        return self.opened.read_text().splitlines() if self.opened.exists() else []

    def _make_folders(self) -> None:
        runtime = self.folder / "runtime"
        runtime.mkdir(mode=0o700)
        tools = self.folder / "bin"
        tools.mkdir()
        opener = tools / "xdg-open"
        opener.write_text(OPENER.format(record=self.opened))
        opener.chmod(0o755)
        os.environ.update(
            HOME=str(self.folder), XDG_RUNTIME_DIR=str(runtime), XDG_CACHE_HOME=str(self.folder / "cache"),
            PATH=f"{tools}:{os.environ['PATH']}", LANG="C.UTF-8", TZ="UTC")
        for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"):
            os.environ.pop(name, None)

    def _start(self, command: list[str], descriptors: tuple[int, ...] = ()) -> None:
        self._children.append(subprocess.Popen(
            command, pass_fds=descriptors, preexec_fn=die_with_parent, stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))

    def _start_and_read(self, command: list[str]) -> str:
        """Starts a server that tells its address through the descriptor that is put for {} in its command."""
        reading, writing = os.pipe()
        self._start([word.replace("{}", str(writing)) for word in command], (writing,))
        os.close(writing)
        with os.fdopen(reading) as answer:
            address = answer.readline().strip()
        if not address:
            raise RuntimeError(f"{command[0]} did not start")
        return address

    def _start_display(self) -> None:
        number = self._start_and_read(["Xvfb", "-displayfd", "{}", "-screen", "0", SCREEN, "-nolisten", "tcp", "-noreset"])
        os.environ["DISPLAY"] = f":{number}"

    def _start_bus(self) -> None:
        configuration = self.folder / "bus.conf"
        configuration.write_text(BUS_CONFIGURATION.format(folder=self.folder))
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._start_and_read(
            ["dbus-daemon", f"--config-file={configuration}", "--nofork", "--print-address={}"])
