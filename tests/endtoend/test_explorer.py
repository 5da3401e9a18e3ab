"""The Explorer as a list and as a map."""
import re

from harness import disk
from harness.case import ProgramCase
from harness.hands import row
from harness.waiting import eventually

CONSENT = re.compile("^I’ve reviewed the")


class Explorer(ProgramCase):
    def setUp(self) -> None:
        super().setUp()
        self.scan_home()
        self.pointer.go_to("Explorer")
        self.controls.wait_for(row("Movies"), "list item")

    def test_goes_into_folders_and_back(self) -> None:
        def at(folder: str) -> None:
            self.controls.wait_for(folder, "heading")

        self.controls.click(row("Documents"), "list item", times=2)
        at("Documents")
        self.controls.click(row("Taxes"), "list item", times=2)
        at("Taxes")
        self.pointer.push("Documents")  # in the path
        at("Documents")
        self.pointer.push("Back")
        at("Home folder")
        self.keyboard.select_row("Movies")
        self.controls.press("Return")
        at("Movies")
        self.controls.press("ctrl+bracketleft")
        at("Home folder")
        self.keyboard.select_row("Movies")
        self.controls.press("Return")
        at("Movies")
        self.keyboard.push("~")
        at("Home folder")

    def test_shows_in_the_file_manager(self) -> None:
        self.pointer.push("Show in Finder")
        self.assert_eventually(lambda: self.opened() == [".."], "the folder around the home")
        self.controls.click(row("Documents"), "list item", times=2)
        self.controls.wait_for("Documents", "heading")
        self.keyboard.push("Show in Finder")
        self.assert_eventually(lambda: self.opened()[1:] == ["."], "the folder around Documents")

    def test_menu_of_a_folder(self) -> None:
        self.controls.click(row("Pictures"), "list item", button=3)
        self.controls.wait_for("Open in Explorer", "menu item")
        self.assertFalse(self.controls.shows("Quick Look", "menu item"))
        self.controls.all()
        self.controls.click("Open in Explorer", "menu item")
        self.controls.wait_for("Pictures", "heading")
        self.controls.click(row("Camera"), "list item", button=3)
        self.controls.click("Exclude from Scans", "menu item")
        self.pointer.push("Rescan")
        self.controls.wait_for("Home folder", "heading")
        self.controls.click(row("Pictures"), "list item", times=2)
        self.controls.wait_for("Pictures", "heading")
        self.assertFalse(self.controls.shows(row("Camera")), "what is excluded isn't scanned")

    def test_deletes_and_undoes(self) -> None:
        before = disk.snapshot(self.home)
        for name, hand in self.hands.items():
            with self.subTest(name):
                self.scan_home()
                self.controls.click(row("Projects"), "list item", times=2)
                self.controls.wait_for("Projects", "heading")
                hand.select_row("website")
                hand.delete_selected()
                hand.tick(CONSENT)
                hand.push("Delete")
                self.controls.wait_until_gone(row("website"), "list item")
                self.assertEqual(disk.gone(before, disk.snapshot(self.home)), {"Projects/website"})
                hand.push("Undo")
                self.assert_eventually(lambda: disk.snapshot(self.home) == before, "Undo brings it back")

    def test_map_by_pointer_and_keys(self) -> None:
        for column in ("Name", "Files", "Category", "Modified", "%", "Size"):
            self.pointer.push(column)
        self.pointer.push("Map")
        segment = self.controls.wait_for(re.compile("^Movies, .*%$"))
        chart = self.controls.find(re.compile("^Map of"), "chart")
        self.controls.move_to(*segment.middle)
        self.controls.wait_for("Movies", "label")
        self.assertTrue(eventually(lambda: self.controls.shows(re.compile(r"^\d\d%$"), "label")), "its share")
        self.controls.click_at(*segment.middle)
        self.controls.wait_for("Movies", "heading")
        self.controls.click_at(*chart.middle)
        self.controls.wait_for("Home folder", "heading")
        self.keyboard.push("List")
        self.controls.wait_for(row("Movies"), "list item")
