#!/usr/bin/env python3
"""Installs a build into a folder and looks at what is there.

    installed.py ROOT BUILD CMAKE

The files are those that the packages promise, none more; what they say of each other is true: versions,
the paths that units and pages name, and what the build needs.
"""
import os
import re
import struct
import subprocess
import sys
import tempfile
from pathlib import Path

import manual_page

ROOT, BUILD, CMAKE = Path(sys.argv[1]), Path(sys.argv[2]), sys.argv[3]
SIZES = (16, 22, 24, 32, 48, 64, 128, 256)
PROMISED = {
    "vornik-cli": {
        "bin/vornik-cli",
        "lib/systemd/system/vornik-record@.service",
        "lib/systemd/system/vornik-watch@.service",
        "libexec/vornik/vornik-capture",
        "share/bash-completion/completions/vornik-cli",
        "share/doc/vornik-cli/examples/vornik-record.conf.example",
        "share/doc/vornik-cli/recordings.md",
        "share/man/man1/vornik-cli.1",
        "share/vornik/grafana/vornik.json",
        "share/zsh/vendor-completions/_vornik-cli",
    },
    "vornik": {
        "bin/vornik",
        "share/applications/vornik.desktop",
        "share/icons/hicolor/scalable/apps/vornik.svg",
        "share/man/man1/vornik.1",
        "share/metainfo/example.vornik.vornik.metainfo.xml",
        *(f"share/icons/hicolor/{size}x{size}/apps/vornik.png" for size in SIZES),
    },
}
# What the build of the packages needs beyond the build of the program, and the other way round.
ONLY_PACKAGES = {"debhelper-compat", "librsvg2-bin"}
ONLY_SCRIPTS = {"g++", "ccache"}
faults = []


def setting(name):
    return re.search(rf"^{name}:\w+=(.*)$", (BUILD / "CMakeCache.txt").read_text(), re.M).group(1)


def installed(component, folder):
    subprocess.run([CMAKE, "--install", BUILD, "--component", component], check=True,
                   env={**os.environ, "DESTDIR": str(folder)}, stdout=subprocess.DEVNULL)
    return Path(str(folder) + setting("CMAKE_INSTALL_PREFIX"))


def check_files(component, place):
    found = {str(path.relative_to(place)) for path in place.rglob("*") if not path.is_dir()}
    faults.extend(f"{component} lacks {name}" for name in sorted(PROMISED[component] - found))
    faults.extend(f"{component} has {name}, too" for name in sorted(found - PROMISED[component]))
    for name in sorted(found):
        programs = name.startswith(("bin/", "libexec/"))
        if os.access(place / name, os.X_OK) != programs:
            faults.append(f"{name}: {'cannot' if programs else 'can'} be executed")


def check_icons(place):
    for size in SIZES:
        picture = place / f"share/icons/hicolor/{size}x{size}/apps/vornik.png"
        # One that is not there is told already.
        head = picture.read_bytes()[:24] if picture.exists() else b""
        if head and struct.unpack(">8xI4sII", head)[1:] != (b"IHDR", size, size):
            faults.append(f"the icon of {size} pixels has another size")


def check_paths(name, text):
    """Each path of the packages that a text names is one of theirs."""
    text = text.replace("\\", "").replace("/lib/systemd", "/usr/lib/systemd")
    known = set().union(*PROMISED.values())
    for path in re.findall(r"/usr/((?:bin|libexec|share|lib/systemd)/[\w./@-]*vornik[\w./@-]*\w)", text):
        if path.removesuffix(".gz") not in known:
            faults.append(f"{name}: no package holds /usr/{path}")


def told_versions(place, component):
    yield "page", manual_page.version((place / f"share/man/man1/{component}.1").read_text())
    if component == "vornik":
        text = (place / "share/metainfo/example.vornik.vornik.metainfo.xml").read_text()
        yield "metainfo", re.search(r'<release version="([\d.]+)" date="\d{4}-\d\d-\d\d"/>', text).group(1)
    else:
        run = subprocess.run([place / "bin/vornik-cli", "--version"], check=True, capture_output=True, text=True)
        yield "program", run.stdout.split()[-1]


def check_needs():
    """Both lists of what a build needs say the same."""
    control = (ROOT / "debian/control").read_text()
    field = re.search(r"^Build-Depends:\n((?: .*\n)+)", control, re.M).group(1)
    packages = {line.split("(")[0].strip(" ,") for line in field.splitlines()} - ONLY_PACKAGES
    script = (ROOT / "packaging/packages.sh").read_text()
    scripts = set(re.search(r"^build_packages=\(([^)]*)\)", script, re.M).group(1).split()) - ONLY_SCRIPTS
    if packages != scripts:
        faults.append(f"debian/control and packaging/packages.sh differ: {sorted(packages ^ scripts)}")


newest = re.match(r"vornik \(([\d.]+)\) ", (ROOT / "debian/changelog").read_text()).group(1)
for component in PROMISED if setting("VORNIK_DESKTOP") == "ON" else ["vornik-cli"]:
    with tempfile.TemporaryDirectory() as folder:
        place = installed(component, folder)
        check_files(component, place)
        if component == "vornik":
            check_icons(place)
        faults.extend(f"{where} of {component} tells version {told}, the changelog {newest}"
                      for where, told in told_versions(place, component) if told != newest)
        for path in [*place.glob("share/man/man1/*"), *place.glob("lib/systemd/system/*")]:
            check_paths(path.name, path.read_text())
check_paths("postinst", (ROOT / "debian/vornik-cli.postinst").read_text())
check_needs()
print("\n".join(faults))
print(", ".join(f"{component}: {len(files)} files" for component, files in PROMISED.items()))
sys.exit(1 if faults else 0)
