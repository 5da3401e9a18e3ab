"""What a screen reader hears on the bus while the window is used by keyboard."""
import re

from harness.case import ProgramCase
from harness.hands import row
from harness.listener import Listener


class Heard(ProgramCase):
    def setUp(self) -> None:
        super().setUp()
        self.listener = Listener()
        self.addCleanup(self.listener.stop)

    def assert_heard(self, event: str, name: re.Pattern) -> None:
        def has_come() -> bool:
            self.listener.listen()
            return any(kind.startswith(event) and name.search(of) for kind, of in self.listener.heard)
        self.assert_eventually(has_come, f"{event} of {name.pattern}; heard {self.listener.heard[-30:]}")

    def test_rows_of_a_table(self) -> None:
        self.scan_home()
        self.pointer.go_to("Large & Old")
        self.keyboard.select_row("Birthday.mp4")
        self.assert_heard("object:state-changed:focused", row("Birthday.mp4"))
        self.listener.heard.clear()
        self.controls.press("Home")
        self.assert_heard("object:state-changed:focused", re.compile("^Holiday.mov, 9 MB$"))
        told = self.controls.wait_for(row("Holiday.mov"), "list item")
        self.assertRegex(told.description, "^Review, MOV, ")
        self.assertIn("selected", told.states)
        self.assertIn("focused", told.states)

    def test_junk_and_its_ticks(self) -> None:
        self.pointer.go_to("Junk")
        self.controls.wait_for(re.compile("^App caches, "), "list item")
        self.controls.tab_to("Scan Again", "push button")
        self.controls.press("Tab", "Home")
        rule = self.controls.wait_for(re.compile("^App caches, "), "list item")
        self.assertRegex(rule.description, r"^Safe\. ")
        for ticked in (True, False):
            self.listener.heard.clear()
            self.controls.press("space")
            self.assert_eventually(lambda: ("checked" in rule.present_states()) == ticked, "it tells its tick")
            self.assert_heard("object:state-changed:checked", re.compile("^App caches"))

    def test_stages_of_quick_clean(self) -> None:
        self.keyboard.push("Scan")
        self.assert_heard("object:", re.compile("^Looking for files you don’t need…$"))
        self.assert_heard("object:", re.compile("ready to clean$"))
        self.keyboard.push(re.compile(r"^Clean \d"))
        self.assert_heard("object:", re.compile(" cleaned$"))
