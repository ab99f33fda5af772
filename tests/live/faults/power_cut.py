"""A power cut, as the disk has it: a copy of a file system's image, taken while recordings are written
to it, is mounted elsewhere. What the page told as on disk at that moment must be there, sample by
sample, and files that tell of their own content must tell the truth."""

import shutil
import signal
import subprocess
import sys
import time

from recorders import Bus, Console, Window, run, wait_for

SKIPPED = 77
IMAGE_BYTES = 192 << 20
RECORDED = 4
RING = 4000


def whole_rings(content):
    return content.count(b"\r\n") // RING


def first_rings(content, rings):
    """The bytes of so many rings; None where there are fewer."""
    at = 0
    for _ in range(rings * RING):
        at = content.find(b"\r\n", at) + 2
        if at == 1:
            return None
    return content[:at]


def cut(faults, image, copy):
    """Gives what the page told before the cut."""
    told = faults.window.on_disk()
    for each in faults.recorders:
        each.process.send_signal(signal.SIGSTOP)
    shutil.copyfile(image, copy)
    for each in faults.recorders:
        each.process.send_signal(signal.SIGCONT)
    return told


def play(faults):
    image, disk, found = (faults.folder / name for name in ("image", "disk", "found"))
    storage = faults.folder / "window" / "home" / "StoredData"
    for place in (disk, found, storage):
        place.mkdir(parents=True)
    with image.open("wb") as file:
        file.truncate(IMAGE_BYTES)
    run(f"mkfs.ext4 -q {image}")
    refused = subprocess.run(["mount", "-o", "loop", image, disk], capture_output=True, text=True)
    if refused.returncode != 0:
        print(refused.stderr)
        sys.exit(SKIPPED)
    (disk / "window").mkdir()
    run(f"mount --bind {disk / 'window'} {storage}")
    faults.playing = Bus(faults.bus)
    faults.window = Window(faults.folder / "window", faults.program, 30)
    faults.recorders = [faults.window, *(Console(faults.folder / form, faults.console, form,
                                                 data=disk / form) for form in ("text", "cff"))]
    wait_for("a recording", lambda: all(each.records() for each in faults.recorders))
    time.sleep(RECORDED)
    wait_for("a second ring on disk", lambda: min(faults.window.on_disk()) >= 2)
    copy = faults.folder / "copy"
    told = cut(faults, image, copy)
    run(f"mount -o loop {copy} {found}")
    try:
        look(faults, disk, found, told)
    finally:
        for each in faults.recorders:
            each.clear()
            each.listener.join()
        for place in (found, storage, disk):
            run(f"umount -l {place}")


def look(faults, disk, found, told):
    window, text, cff = faults.recorders
    for recorder, name in ((window, "window"), (text, "text")):
        for stream in (1, 2):
            [path] = (disk / name).glob(f"{stream}_SV record *")
            written = path.read_bytes()
            there = found / name / path.name
            outlived = there.read_bytes() if there.exists() else b""
            rings = whole_rings(outlived)
            # Nobody tells what the program without a window has on disk: it syncs each ring.
            due = told[stream - 1] if recorder is window else 1
            content = first_rings(outlived, due)
            faults.scene.demand(
                recorder, f"stream {stream}: what was told as on disk is there",
                content is not None and written.startswith(content),
                f"{due} rings told, {rings} there, {whole_rings(written)} written a moment later")
    cff.data = found / "cff"
    faults.scene.demand(cff, "its files are there", len(cff.files("*.cff")) == 2)
    faults.scene.check_cff(cff)
