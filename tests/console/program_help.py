"""What a program built with the library of options says of its own commands and options."""
import re
import subprocess


# What may stand behind a flag.
NO_VALUES = ("Excludes:", "Needs:", "REQUIRED")


def told(program, *words):
    """The lines of a help; a program that refuses it ends the test."""
    return subprocess.run([program, *words, "--help"], check=True, capture_output=True,
                          text=True, timeout=60).stdout.splitlines()


def block(lines, heading):
    """The lines below a heading, up to the next one."""
    below = lines[lines.index(heading) + 1:] if heading in lines else []
    end = next((i for i, line in enumerate(below) if line and not line.startswith(" ")), len(below))
    return [line for line in below[:end] if line]


def commands(program):
    return [re.match(r"  ([\w-]+)", line).group(1)
            for line in block(told(program), "Subcommands:") if re.match(r"  \S", line)]


def options(program, *words):
    """Option -> the values that it is restricted to (a set), "" where it is a flag, or the name of its
    value. Of the program itself where no command is named."""
    found = {}
    lines = told(program, *words)
    for heading in [line for line in lines if re.fullmatch(r"(Options|\[.*\]):?", line)]:
        for line in block(lines, heading):
            option = re.match(r"  (?:-\w,)?(--[\w-]+)(?: (\S+))?", line)
            if not option:
                continue
            value = option.group(2) or ""
            if value in NO_VALUES:
                value = ""
            choice = re.search(r"{(.+)}", value)
            found[option.group(1)] = set(choice.group(1).split(",")) if choice else value
    return found
