"""What the manual pages have in common: their chapters, their form and the version that they tell."""
import re
import shutil
import subprocess


def sections(text, opening):
    """Heading -> what stands below it, up to the next heading."""
    parts = re.split(opening, text, flags=re.M)
    return dict(zip(parts[1::2], parts[2::2]))


def version(text):
    told = re.search(r'^\.TH \S+ 1 "\d{4}-\d\d-\d\d" "Vornik ([\d.]+)"', text, re.M)
    return told.group(1) if told else None


def complaints(page):
    """What the formatters find wrong, as far as they are there."""
    for name, arguments in {"groff": ["-man", "-ww", "-z"], "mandoc": ["-Tlint"]}.items():
        if not shutil.which(name):
            print(f"{name} is not installed: its opinion of the manual is skipped")
            continue
        run = subprocess.run([name, *arguments, str(page)], capture_output=True, text=True, timeout=60)
        yield from (f"{name}: {line}" for line in (run.stdout + run.stderr).splitlines())
