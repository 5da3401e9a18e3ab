"""Finds the controls of the program's windows by accessible name and role, and acts on them by pointer and keys."""
import re
import subprocess
from functools import cached_property
from typing import Callable, Iterator

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from .ledger import ledger  # noqa: E402
from .waiting import PATIENCE, eventually  # noqa: E402

# The toolkit tells of new children in the form of an earlier version; what is missed is read anyway.
GLib.log_set_handler("dbind", GLib.LogLevelFlags.LEVEL_WARNING, lambda *_: None, None)

Name = str | re.Pattern

# They have no children, or only such as repeat what they say.
LEAVES = frozenset({"push button", "label", "heading", "check box", "menu item", "image"})


class Control:
    """A control as it is at the first look at each of its properties."""

    def __init__(self, accessible: Atspi.Accessible) -> None:
        self._accessible = accessible
        self.states = self.present_states()

    @cached_property
    def name(self) -> str:
        return self._accessible.get_name()

    @cached_property
    def role(self) -> str:
        return self._accessible.get_role_name()

    @cached_property
    def description(self) -> str:
        return self._accessible.get_description()

    @cached_property
    def box(self) -> tuple[int, int, int, int]:
        """x, y, width, height on the screen."""
        return self.present_box()

    def present_states(self) -> frozenset[str]:
        return frozenset(state.value_nick for state in self._accessible.get_state_set().get_states())

    def present_box(self) -> tuple[int, int, int, int]:
        box = self._accessible.get_extents(Atspi.CoordType.SCREEN)
        return box.x, box.y, box.width, box.height

    @property
    def middle(self) -> tuple[int, int]:
        x, y, width, height = self.box
        return x + width // 2, y + height // 2

    @property
    def text(self) -> str:
        """What stands in a field."""
        text = self._accessible.get_text_iface()
        return text.get_text(0, text.get_character_count()) if text else ""

    def is_a(self, name: Name, role: str | None) -> bool:
        matches = self.name == name if isinstance(name, str) else name.search(self.name) is not None
        return matches and (role is None or role == self.role) and self.box[2] > 0


def application_of(process: int) -> Atspi.Accessible | None:
    """The application of this process on the accessibility bus; nothing while it isn't there."""
    desktop = Atspi.get_desktop(0)
    for index in range(desktop.get_child_count()):
        try:
            application = desktop.get_child_at_index(index)
            if application and application.get_process_id() == process:
                # What was asked before may have changed since.
                application.set_cache_mask(Atspi.Cache.NONE)
                return application
        except GLib.Error:
            pass  # just going
    return None


def _topmost_first(accessible: Atspi.Accessible) -> Iterator[Control]:
    """What shows, in the reverse of the order in which it is drawn."""
    try:
        control = Control(accessible)
        if "showing" not in control.states:
            return
        children = range(0 if control.role in LEAVES else accessible.get_child_count())
    except GLib.Error:
        return  # gone while we looked
    for index in reversed(children):
        try:
            child = accessible.get_child_at_index(index)
        except GLib.Error:
            continue
        if child is not None:
            yield from _topmost_first(child)
    yield control


def _xdotool(*arguments: object) -> None:
    subprocess.run(["xdotool", *map(str, arguments)], check=True, stdout=subprocess.DEVNULL)


class Controls:
    def __init__(self, application: Atspi.Accessible) -> None:
        self._application = application
        self._focus = _Focus()

    # Looking

    def all(self) -> list[Control]:
        """All that shows and has a name, topmost first."""
        found = []
        for control in _topmost_first(self._application):
            try:
                if control.name and control.role and control.box[2] > 0:
                    found.append(control)
            except GLib.Error:
                pass  # gone while we looked
        ledger.saw(found)
        return found

    def find(self, name: Name, role: str | None = None) -> Control | None:
        """The topmost one of this name."""
        return self.find_where(lambda control: control.is_a(name, role))

    def find_where(self, wanted: Callable[[Control], bool]) -> Control | None:
        """The topmost one that is as wanted."""
        for control in _topmost_first(self._application):
            try:
                if wanted(control):
                    return control
            except GLib.Error:
                pass
        return None

    def shows(self, name: Name, role: str | None = None) -> bool:
        return self.find(name, role) is not None

    def wait_for(self, name: Name, role: str | None = None, within: float = PATIENCE) -> Control:
        control = eventually(lambda: self.find(name, role), within)
        if control is None:
            raise AssertionError(f"no {role or 'control'} {name!r} came; there are {self.names()}")
        return control

    def wait_until_gone(self, name: Name, role: str | None = None) -> None:
        if not eventually(lambda: not self.shows(name, role)):
            raise AssertionError(f"{role or 'control'} {name!r} stays")

    def wait_for_state(self, state: str, name: Name, role: str | None = None) -> Control:
        def in_state() -> Control | None:
            control = self.find(name, role)
            return control if control and state in control.states else None
        control = eventually(in_state)
        if control is None:
            raise AssertionError(f"{name!r} never gets {state!r}; there are {self.names()}")
        return control

    def names(self) -> list[str]:
        return [f"{control.role} {control.name!r}" for control in reversed(self.all())]

    def focused(self) -> Control | None:
        """What has the keyboard: the innermost of those that say so."""
        return self.find_where(lambda control: "focused" in control.states)

    # Acting

    def click(self, name: Name, role: str | None = None, button: int = 1, times: int = 1,
              holding: str | None = None) -> Control:
        """Waits until the control rests where it is, and presses the pointer's button on its middle."""
        control = self._resting(name, role)
        press = ("click", "--repeat", times, "--delay", 40, button)
        if holding:
            press = ("keydown", holding, *press, "keyup", holding)
        _xdotool("mousemove", *control.middle, *press)
        ledger.used(control)
        return control

    def click_at(self, x: int, y: int, button: int = 1) -> None:
        _xdotool("mousemove", x, y, "click", button)

    def move_to(self, x: int, y: int) -> None:
        _xdotool("mousemove", x, y)

    def press(self, *keys: str) -> None:
        """Keys one after the other, each pressed and let go; in the words of xdotool: "Return", "ctrl+a"."""
        for key in keys:
            _xdotool("key", key)

    def hold(self, key: str) -> None:
        _xdotool("keydown", key)

    def let_go(self, key: str) -> None:
        _xdotool("keyup", key)

    def type(self, text: str) -> None:
        _xdotool("type", "--delay", 8, text)

    def tab_to(self, name: Name, role: str | None = None, limit: int = 80) -> Control:
        """Presses Tab until the topmost control of this name has the keyboard."""
        self.wait_for(name, role)
        return self.tab_until(lambda focused: focused.is_a(name, role)
                              and focused.present_box() == self.wait_for(name, role).box, limit, f"{name!r}")

    def tab_until(self, reached: Callable[[Control], bool], limit: int = 80, what: str = "it") -> Control:
        """Presses Tab until what has the keyboard is as wanted."""
        passed = []
        focused = self.focused()
        for _ in range(limit):
            if focused and reached(focused):
                return focused
            passed.append(focused.name if focused else None)
            focused = self.step("Tab")
        raise AssertionError(f"Tab doesn't reach {what}; it goes to {passed}")

    def step(self, key: str) -> Control | None:
        """Presses a key that moves the keyboard's focus; what has it then."""
        self._focus.forget()
        self.press(key)
        return eventually(self._focus.latest, 1, 0.005) or self.focused()

    def press_on(self, name: Name, key: str, role: str | None = None) -> Control:
        """Goes to the control by Tab and presses a key there."""
        control = self.tab_to(name, role)
        self.press(key)
        ledger.used(control)
        return control

    def _resting(self, name: Name, role: str | None) -> Control:
        for _ in range(5):
            control = self.wait_for(name, role)
            try:
                if eventually(lambda: control.present_box() == control.present_box(), 2):
                    control.box = control.present_box()
                    return control
            except GLib.Error:
                pass  # another has taken its place
        raise AssertionError(f"{name!r} keeps moving")


class _Focus:
    """Hears which control gets the keyboard."""

    def __init__(self) -> None:
        self._latest: Control | None = None
        self._listener = Atspi.EventListener.new(self._hear)
        self._listener.register("object:state-changed:focused")

    def forget(self) -> None:
        self.latest()
        self._latest = None

    def latest(self) -> Control | None:
        while GLib.MainContext.default().iteration(False):
            pass
        return self._latest

    def _hear(self, event) -> None:
        try:
            if event.detail1 == 1:
                self._latest = Control(event.source)
        except GLib.Error:
            pass  # gone since
