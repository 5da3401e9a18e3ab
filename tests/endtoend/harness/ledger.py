"""Which controls were shown in a run, and which of them were used."""
import re
from typing import Iterable

ACTING = frozenset({"push button", "menu item", "check box", "radio button", "combo box", "toggle button"})

# What is drawn by the toolkit, and what stands for a file or folder rather than for something to do: segments of the
# map, steps of a path, items of a rule.
OTHERS = re.compile(r"%$|^~?$|^/$|^tmp$|^brimlet-endtoend-|^test_|^Users$|^sam$|^com\.example\.|^Pictures$|^Projects$")

# They do nothing when pressed.
HEADINGS = frozenset({("menu item", "Scan"), ("push button", "Risk")})


def _kind(name: str, role: str) -> tuple[str, str]:
    """A control, whatever figures its name tells just now."""
    plain = re.sub(r"(\d[\d.,]*|Zero)( ?[kKMG]?B\b| bytes)?", "#", name)
    plain = re.sub(r"^.*, #, # files$", "one of the kinds", plain)
    return role, re.sub("^Scan: .*$", "what is scanned", plain)


class Ledger:
    def __init__(self) -> None:
        self._seen: set[tuple[str, str]] = set()
        self._used: set[tuple[str, str]] = set()

    def saw(self, controls: Iterable) -> None:
        self._seen.update(_kind(control.name, control.role) for control in controls
                          if control.role in ACTING and "enabled" in control.states
                          and not OTHERS.search(control.name))

    def used(self, control) -> None:
        self._used.add(_kind(control.name, control.role))

    def add(self, other: "Ledger") -> None:
        self._seen |= other._seen
        self._used |= other._used

    def unused(self) -> list[str]:
        return sorted(f"{role} {name!r}" for role, name in self._seen - self._used - HEADINGS)


ledger = Ledger()
