"""What happens to a window alone: its display server goes, and its settings cannot be written."""

import os
import shutil
import subprocess
import time

from recorders import Recorder, Window, run, wait_for

SIMULATED = ["Simulated process bus", "0", "1.5", "1"]
WORKSHEET, TEXT = "1", "0"
SETTINGS_BYTES = "64k"
# Long enough for a start and some blocks.
MEASURED = 5
# What ends a worksheet.
END_OF_SHEET = bytes([0x0A, 0, 0, 0])


class Display:
    """A display server of the scene's own."""

    def __init__(self):
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as told:
            self.surroundings = {"DISPLAY": ":" + told.readline().strip(), "QT_QPA_PLATFORM": "xcb"}

    def go(self):
        self.server.kill()
        self.server.wait()


def lose_display(faults, name, *arguments, when):
    display = Display()
    folder = faults.folder / name
    window = Window(folder, faults.program, 60, display.surroundings, *arguments)
    faults.recorders.append(window)
    wait_for("the program", lambda: when(window))
    display.go()
    window.end()
    faults.scene.demand(window, f"{name}: it ends by itself", window.process.returncode == 1,
                        f"exit code {window.process.returncode}")
    return window


def display(faults):
    sheet = lose_display(faults, "worksheet", WORKSHEET, when=Window.records)
    for stream in (1, 2):
        [path] = sheet.files(f"{stream}_SV record *.xls")
        faults.scene.demand(sheet, f"the worksheet of stream {stream} has its end",
                            path.read_bytes().endswith(END_OF_SHEET))
    text = lose_display(faults, "text", TEXT, when=Window.records)
    for recorder in (sheet, text):
        last = recorder.events()[-1]
        faults.scene.demand(recorder, "the events file tells its end",
                            (last.event, last.figures) == ("end", "the program ended"))
    for stream in (1, 2):
        [path] = text.files(f"{stream}_SV record *.txt")
        lines = path.read_bytes().count(b"\r\n")
        faults.scene.demand(text, f"the rings of stream {stream} are there",
                            lines % 4000 == 0 and lines >= text.on_disk()[stream - 1] * 4000)
    # The first view that is visited measures.
    begun = time.monotonic()
    lose_display(faults, "measuring", TEXT, "60", when=lambda _: time.monotonic() > begun + MEASURED)


def record_simulated(faults, station):
    """A short recording, which has the settings written."""
    recorder = Recorder("window", faults.folder / "home",
                        [faults.program, *SIMULATED, station], "stdout")
    recorder.end()
    return recorder


def settings(faults):
    folder = faults.folder / "home" / "home" / "config"
    folder.mkdir(parents=True)
    run(f"mount -t tmpfs -o size={SETTINGS_BYTES} tmpfs {folder}")
    try:
        record_simulated(faults, "VORNIK-SIM-1")
        stored = folder / "Vornik" / "Vornik.conf"
        before = stored.read_bytes()
        with open(folder / "other", "wb", buffering=0) as other:
            try:
                while True:
                    other.write(b"x" * 4096)
            except OSError:
                pass
        expect_kept(faults, record_simulated(faults, "VORNIK-SIM-2"), stored, before, "disk full")
        (folder / "other").unlink()
        run(f"mount -o remount,ro {folder}")
        expect_kept(faults, record_simulated(faults, "VORNIK-SIM-2"), stored, before, "read-only")
        run(f"mount -o remount,rw {folder}")
        shutil.rmtree(stored.parent)
        again = record_simulated(faults, "VORNIK-SIM-1")
        faults.scene.demand(again, "folder gone: the settings are there again",
                            stored.read_bytes() == before and not again.told("box"))
    finally:
        run(f"umount -l {folder}")


def expect_kept(faults, recorder, stored, before, what):
    boxes = [line for line in recorder.lines if line.startswith("box ")]
    faults.scene.demand(recorder, f"{what}: one box tells it",
                        len(boxes) == 1 and "The settings can't be saved!" in boxes[0], str(boxes))
    faults.scene.demand(recorder, f"{what}: the settings are those of before",
                        stored.read_bytes() == before)
