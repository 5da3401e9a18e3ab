"""Small home folders, and what changed in them."""
import hashlib
import os
from pathlib import Path

MONTH = 30 * 86_400

# path: size in bytes, age in days
SAMPLE = {
    "Documents/Report.pdf": (3_000_000, 60),
    "Documents/Letter.txt": (2_000, 20),
    "Documents/Taxes/Receipt.pdf": (700_000, 400),
    "Movies/Holiday.mov": (9_000_000, 800),
    "Movies/Birthday.mp4": (6_000_000, 10),
    "Pictures/Camera/IMG_1.heic": (2_000_000, 200),
    "Projects/website/main.ts": (900_000, 30),
    "Downloads/Old Installer.dmg": (5_000_000, 200),
    "Downloads/Fresh.dmg": (4_000_000, 1),
    "Library/Caches/com.example.maps/tile": (1_500_000, 3),
    "Library/Caches/com.example.player/segment": (1_200_000, 3),
    "Library/Caches/CloudKit/record": (300_000, 3),
    "Library/Logs/app.log": (600_000, 3),
    "Library/Safari/History.db": (10_000, 3),
    ".Trash/thrown away.txt": (800_000, 40),
}


def fill(home: Path, files: dict[str, tuple[int, int]]) -> None:
    """Makes the files with all their folders."""
    for name, (size, days) in files.items():
        file = home / name
        file.parent.mkdir(parents=True, exist_ok=True)
        with open(file, "wb") as out:
            out.write(name.encode())
            os.posix_fallocate(out.fileno(), 0, size)
        then = file.stat().st_mtime - days * 86_400
        os.utime(file, (then, then))


def snapshot(home: Path, but: str = "") -> dict[str, str]:
    """Every entry below a folder but the program's own records, with what it holds; without what is in `but`."""
    entries = {}
    for folder, names, files in os.walk(home):
        for name in names + files:
            entry = Path(folder, name)
            place = str(entry.relative_to(home))
            if "rimlet" in place or (but and place.startswith(but + "/")):
                continue
            kind = "folder"
            if entry.is_symlink():
                kind = "link to " + os.readlink(entry)
            elif entry.is_file():
                try:
                    kind = f"{hashlib.sha256(entry.read_bytes()).hexdigest()} {entry.stat().st_mtime_ns}"
                except FileNotFoundError:
                    continue  # it has just gone
            entries[place] = kind
    return entries


def gone(before: dict[str, str], after: dict[str, str]) -> set[str]:
    """What is no longer there; of a folder that went, the folder alone."""
    lost = set(before) - set(after)
    return {place for place in lost if os.path.dirname(place) not in lost}


def new_or_changed(before: dict[str, str], after: dict[str, str]) -> set[str]:
    return {place for place, entry in after.items() if before.get(place) != entry}
