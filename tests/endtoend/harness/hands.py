"""Two ways to do the same: with the pointer, and with the keyboard alone."""
import re

from .controls import Controls, Name
from .ledger import ledger
from .waiting import eventually

SECTIONS = ("Quick Clean", "Overview", "Explorer", "By Type", "Large & Old", "System Data", "Applications",
            "App Leftovers", "Login Items", "Junk", "Developer", "Duplicates", "History")


class Pointer:
    def __init__(self, controls: Controls) -> None:
        self._controls = controls

    def push(self, name: Name) -> None:
        self._controls.click(name, "push button")

    def tick(self, name: Name) -> None:
        self._controls.click(name, "check box")

    def go_to(self, section: str) -> None:
        self._controls.click(section, "list item")
        self._controls.wait_for_state("selected", section, "list item")

    def choose(self, opener: Name, entry: Name) -> None:
        """Opens a menu by its button and chooses from it."""
        self._controls.click(opener, "push button")
        self._controls.wait_for(entry, "menu item")
        self._controls.all()  # for the ledger
        self._controls.click(entry, "menu item")
        self._controls.wait_until_gone(entry, "menu item")

    def select_row(self, name: str) -> None:
        self._controls.click(row(name), "list item")

    def delete_selected(self) -> None:
        self.push("Delete…")

    def fill_in(self, field: Name, text: str) -> None:
        self._controls.click(field, "text")
        self._controls.press("ctrl+a")
        self._controls.type(text)


class Keyboard:
    def __init__(self, controls: Controls) -> None:
        self._controls = controls

    def push(self, name: Name) -> None:
        self._controls.press_on(name, "Return", "push button")

    def tick(self, name: Name) -> None:
        self._controls.press_on(name, "space", "check box")

    def go_to(self, section: str) -> None:
        def present() -> str:
            selected = self._controls.find_where(lambda control: "selected" in control.states
                                                 and control.role == "list item" and control.name in SECTIONS)
            return selected.name if selected else ""

        self._controls.tab_until(lambda focused: focused.name in (*SECTIONS, "Sections")
                                 and focused.role in ("list", "list item"), what="the sections")
        while (at := present()) != section:
            self._controls.press("Down" if SECTIONS.index(at) < SECTIONS.index(section) else "Up")
            if not eventually(lambda: present() not in ("", at)):
                raise AssertionError(f"the arrows don't leave {at!r}")

    def choose(self, opener: Name, entry: Name) -> None:
        self._controls.move_to(1, 1)  # what the pointer lies on would be chosen first
        self._controls.press_on(opener, "Return", "push button")
        self._controls.wait_for(entry, "menu item")
        for _ in range(20):
            self._controls.step("Down")
            highlighted = self._controls.find(entry, "menu item")
            if highlighted and "focused" in highlighted.states:
                break
        else:
            raise AssertionError(f"the arrows don't reach {entry!r}")
        ledger.used(highlighted)
        self._controls.press("Return")
        self._controls.wait_until_gone(entry, "menu item")

    def select_row(self, name: str) -> None:
        """In the table of the present screen."""
        # Where a row is current already, it tells that it has the keys.
        self._controls.tab_until(lambda focused: (focused.role, focused.name) == ("list", "Files")
                                 or (focused.role == "list item" and ", " in focused.name), what="the table")
        self._controls.press("Home")
        for _ in range(30):
            if eventually(lambda: self._is_selected(row(name)), 0.3):
                return
            self._controls.press("Down")
        raise AssertionError(f"the arrows don't reach {name!r}")

    def delete_selected(self) -> None:
        self._controls.press("Delete")

    def fill_in(self, field: Name, text: str) -> None:
        self._controls.tab_to(field, "text")
        self._controls.press("ctrl+a")
        self._controls.type(text)

    def _is_selected(self, name: Name) -> bool:
        control = self._controls.find(name, "list item")
        return control is not None and "selected" in control.states


def row(name: str) -> re.Pattern:
    """A row, whatever it tells besides its name."""
    return re.compile(f"^{re.escape(name)}, ")
