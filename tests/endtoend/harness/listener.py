"""Listens on the accessibility bus as a screen reader does."""
from gi.repository import Atspi, GLib

KINDS = ("object:children-changed", "object:state-changed", "object:property-change", "object:bounds-changed",
         "object:text-changed", "object:selection-changed", "object:active-descendant-changed",
         "object:visible-data-changed", "object:announcement", "focus", "window")


class Listener:
    def __init__(self) -> None:
        self.heard: list[tuple[str, str]] = []  # kind of event with its two figures, name of its control
        self._listener = Atspi.EventListener.new(self._hear)
        for kind in KINDS:
            self._listener.register(kind)

    def listen(self) -> None:
        """Takes what has come since the last call."""
        while GLib.MainContext.default().iteration(False):
            pass

    def stop(self) -> None:
        for kind in KINDS:
            self._listener.deregister(kind)

    def _hear(self, event) -> None:
        try:
            name = event.source.get_name() or ""
        except GLib.Error:
            name = ""
        self.heard.append((f"{event.type} {event.detail1} {event.detail2}", name))
