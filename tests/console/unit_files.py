"""The units of systemd as they are, for a program and a manual page that need not be installed."""
from pathlib import Path

INSTALLED = "/usr/bin/vornik-cli"
UNITS = ["vornik-record@.service", "vornik-watch@.service"]


def copied(root, folder, program):
    """Copies that start this program; the paths of the copies."""
    copies = []
    for name in UNITS:
        text = (Path(root) / "packaging/systemd" / name).read_text()
        copy = Path(folder) / name
        copy.write_text(text.replace(INSTALLED, str(program)))
        copies.append(copy)
    return copies


def settings(path):
    """(key, value) of each line that sets something, in their order."""
    lines = [line.split("=", 1) for line in Path(path).read_text().splitlines()
             if "=" in line and not line.startswith("#")]
    return [(key, value) for key, value in lines]
