"""The lists of files: Large & Old and By Type."""
import csv
import re

from harness import disk
from harness.case import ProgramCase
from harness.hands import row
from harness.waiting import eventually

CONSENT = re.compile("^I’ve reviewed the")
SEARCH = re.compile("^Search by name")
ROW = re.compile(r"^.+, [\d.]+ \wB")


class Files(ProgramCase):
    def setUp(self) -> None:
        super().setUp()
        self.scan_home()
        self.pointer.go_to("Large & Old")
        self.controls.wait_for(row("Holiday.mov"), "list item")

    def rows(self) -> list[str]:
        """The names of the files that are listed, from the top."""
        found = [control for control in self.controls.all()
                 if control.role == "list item" and ROW.search(control.name)]
        return [control.name.split(", ")[0] for control in sorted(found, key=lambda one: one.box[1])]

    def assert_rows(self, *names: str) -> None:
        if not eventually(lambda: self.rows() == list(names)):
            self.assertEqual(self.rows(), list(names))

    def test_select_delete_and_undo(self) -> None:
        before = disk.snapshot(self.home)
        for name, hand in self.hands.items():
            with self.subTest(name):
                hand.select_row("Holiday.mov")
                self.assert_shows("1 selected · 9 MB")
                hand.push("Deselect")
                self.controls.wait_until_gone("Deselect")
                hand.select_row("Holiday.mov")
                hand.delete_selected()
                self.assert_shows("Delete Items", "Total: Zero KB")
                self.controls.click("Delete", "push button")
                hand.push("Cancel")
                self.controls.wait_until_gone("Delete Items", "dialog")
                self.assertEqual(disk.snapshot(self.home), before)

                hand.select_row("Holiday.mov")
                hand.delete_selected()
                hand.tick(CONSENT)
                hand.push("Delete")
                self.controls.wait_until_gone(row("Holiday.mov"), "list item")
                self.assertEqual(disk.gone(before, disk.snapshot(self.home)), {"Movies/Holiday.mov"})
                self.assertTrue(self.exists(".Trash/Holiday.mov"))
                hand.push("Undo")
                self.assert_eventually(lambda: disk.snapshot(self.home) == before, "Undo brings it back")
                hand.push("Rescan")
                self.controls.wait_for(row("Holiday.mov"), "list item")

    def test_several_rows_go_together(self) -> None:
        before = disk.snapshot(self.home)
        self.controls.click(row("Holiday.mov"), "list item")
        self.controls.click(row("Birthday.mp4"), "list item", holding="shift")
        self.controls.click(row("Fresh.dmg"), "list item", holding="ctrl")
        self.controls.wait_for(re.compile("^3 selected"))
        self.controls.click(row("Fresh.dmg"), "list item", button=3)
        self.controls.click("Delete 3 Items…", "menu item")
        self.controls.wait_for("Delete Items", "dialog")
        self.pointer.tick(CONSENT)
        self.pointer.push("Delete")
        self.controls.wait_until_gone("Delete Items", "dialog")
        self.assert_eventually(lambda: not self.exists("Downloads/Fresh.dmg"), "they go")
        self.assertEqual(disk.gone(before, disk.snapshot(self.home)),
                         {"Movies/Holiday.mov", "Movies/Birthday.mp4", "Downloads/Fresh.dmg"})

    def test_filters_and_order(self) -> None:
        clears = {"pointer": lambda: self.pointer.push("Clear search"),
                  "keyboard": lambda: self.controls.press("Escape")}
        for name, hand in self.hands.items():
            hand.fill_in(SEARCH, "holi")
            self.assert_rows("Holiday.mov")
            clears[name]()
            self.controls.wait_for(row("Report.pdf"), "list item")
            hand.choose(re.compile("^Size: "), "> 1 MB")
            self.controls.wait_until_gone(row("Receipt.pdf"), "list item")
            hand.choose(re.compile("^Date: "), "> 2 years")
            self.assert_rows("Holiday.mov")
            hand.choose(re.compile("^Date: "), "Any date")
            hand.choose(re.compile("^Size: "), "Any size")
            hand.choose(re.compile("^Category: "), "Images & Photos")
            self.assert_rows("IMG_1.heic")
            hand.choose(re.compile("^Category: "), "All categories")
        self.keyboard.push("Video")  # which scrolls it into sight
        self.assert_rows("Holiday.mov", "Birthday.mp4")
        self.pointer.push("Name")
        self.assert_rows("Birthday.mp4", "Holiday.mov")
        self.keyboard.push("Size")
        self.assert_rows("Holiday.mov", "Birthday.mp4")
        self.keyboard.push("Video")
        self.controls.wait_for(row("Report.pdf"), "list item")

    def test_every_kind_and_column(self) -> None:
        listed = {"Documents": "Report.pdf", "Images": "IMG_1.heic", "Video": "Holiday.mov",
                  "Disk Images & Installers": "Old Installer.dmg", "Code": "main.ts"}
        self.pointer.push("Images")
        self.assert_rows("IMG_1.heic")
        self.pointer.push("Images")
        self.controls.wait_for(row("Holiday.mov"), "list item")
        for kind in ("Documents", "Images", "Video", "Audio", "Archives", "Disk Images & Installers", "Code",
                     "Applications", "Other"):
            self.keyboard.push(kind)
            if kind in listed:
                self.controls.wait_for(row(listed[kind]), "list item")
            self.assert_eventually(lambda: ("Holiday.mov" in self.rows()) == (kind == "Video"), kind)
            self.keyboard.push(kind)
            self.controls.wait_for(row("Holiday.mov"), "list item")
        for column in ("Name", "Kind", "Category", "Modified", "Last opened", "Size"):
            self.pointer.push(column)
            self.assert_eventually(lambda: self.controls.find(column, "push button").description
                                   .startswith("Sorted"), f"{column} sorts")

    def test_every_choice_of_the_filters(self) -> None:
        """Each is taken by its place in the menu; the last ones are the first again, which leaves all as it was."""
        for title in ("Size", "Date", "Category"):
            opener = re.compile(f"^{title}: ")
            self.controls.click(opener, "push button")
            self.controls.wait_for(re.compile("^(Any|All) "), "menu item")
            entries = [control.name for control in reversed(self.controls.all()) if control.role == "menu item"]
            self.assertGreater(len(entries), 4)
            self.controls.press("Escape")
            for entry in (*entries[1:], entries[0]):
                self.pointer.choose(opener, entry)
                self.controls.wait_for(f"{title}: {entry}", "push button")
        self.controls.wait_for(row("Holiday.mov"), "list item")

    def test_menu_of_a_row(self) -> None:
        def choose(entry: str) -> None:
            self.controls.click(row("Report.pdf"), "list item", button=3)
            self.controls.wait_for(entry, "menu item")
            self.controls.all()
            self.controls.click(entry, "menu item")

        choose("Quick Look")
        self.controls.wait_for("Preview of Report.pdf")
        self.pointer.push("Close")
        self.controls.wait_until_gone("Preview of Report.pdf")
        choose("Show in Finder")
        self.assert_eventually(lambda: self.opened() == ["Documents"], "its folder is shown")
        choose("Open")
        self.assert_eventually(lambda: self.opened()[1:] == ["Documents/Report.pdf"], "it is opened")
        choose("Copy Path")
        self.controls.click(SEARCH, "text")
        self.controls.press("ctrl+v")
        path = str(self.home / "Documents/Report.pdf")
        self.assert_eventually(lambda: self.controls.find(SEARCH, "text").text == path, "its path is copied")
        self.assert_rows("Report.pdf")
        self.pointer.push("Clear search")
        self.controls.click(row("Holiday.mov"), "list item", button=3)
        self.controls.click("Delete…", "menu item")
        self.controls.wait_for("Delete Items", "dialog")
        self.controls.press("Escape")
        self.controls.wait_until_gone("Delete Items", "dialog")

    def test_keys_and_double_click_of_a_row(self) -> None:
        self.keyboard.select_row("Report.pdf")
        self.controls.press("space")
        self.controls.wait_for("Preview of Report.pdf")
        self.controls.press("space")
        self.controls.wait_until_gone("Preview of Report.pdf")
        self.controls.press("Menu")
        self.controls.wait_for("Copy Path", "menu item")
        self.controls.press("Escape")
        self.controls.wait_until_gone("Copy Path", "menu item")
        self.controls.press("Return")
        self.assert_eventually(lambda: self.opened() == ["Documents"], "Return shows its folder")
        self.controls.click(row("Holiday.mov"), "list item", times=2)
        self.assert_eventually(lambda: self.opened()[1:] == ["Movies"], "a double click as well")

    def test_export_asks_before_it_replaces(self) -> None:
        target = self.home / "Brimlet-files.csv"
        self.pointer.push("Export to CSV")
        self.pointer.push("Cancel")
        self.controls.wait_until_gone("Save", "dialog")
        self.assertFalse(target.exists())

        self.pointer.push("Export to CSV")
        self.pointer.push("Save")
        self.assert_eventually(target.exists, "it is saved under the suggested name")
        with open(target, newline="", encoding="utf-8") as file:
            names = [entry["Name"] for entry in csv.DictReader(file)]
        shown = self.rows()  # those in sight
        self.assertTrue(shown)
        self.assertEqual([name for name in shown if name not in names], [])

        target.write_text("precious")
        for answer, stays in (("Cancel", True), ("Replace", False)):
            if not self.controls.shows("Save", "dialog"):
                self.keyboard.push("Export to CSV")
                self.controls.wait_for("Save", "dialog")
            self.pointer.push("Save")
            self.controls.wait_for(re.compile("already exists. Do you want to replace it"), "dialog")
            self.assertEqual(target.read_text(), "precious")
            self.controls.all()
            self.pointer.push(answer)
            self.assert_eventually(lambda: (target.read_text() == "precious") == stays, answer)

    def test_export_of_one_kind_by_keyboard(self) -> None:
        self.pointer.go_to("By Type")
        self.controls.wait_for(row("Birthday.mp4"), "list item")
        self.keyboard.push("Export to CSV")
        self.controls.wait_for("Save", "dialog")
        self.controls.tab_to("Save", "push button")
        self.controls.press("space")
        self.assert_eventually((self.home / "Brimlet-Video.csv").exists, "the kind is in its name")

    def test_kinds_by_tile(self) -> None:
        self.pointer.go_to("By Type")
        self.assert_rows("Holiday.mov", "Birthday.mp4")
        self.pointer.push(re.compile("^Documents, "))
        self.assert_rows("Report.pdf", "thrown away.txt", "Receipt.pdf", "app.log")
        self.keyboard.push(re.compile("^Images, "))
        self.assert_rows("IMG_1.heic")
        self.assert_shows("Category: All categories")
        self.assertFalse(self.controls.shows("Audio", "push button"), "no chips here")
