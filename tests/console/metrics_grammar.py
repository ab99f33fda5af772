#!/usr/bin/env python3
"""A strict reader of metrics in Prometheus' text exposition format 0.0.4.

    metrics_grammar.py FILE...   names each fault with its line, and fails where there is one

Beside the format itself it demands what its users are asked to keep: a HELP and a TYPE for each family, counters
that end in _total, and the same labels for each series of a family. Times of series are refused, since the node
exporter takes no file that has them. Histograms and summaries are not known here.
"""
import math
import re
import sys
from pathlib import Path

NAME = re.compile(r"[a-zA-Z_:][a-zA-Z0-9_:]*")
LABEL = re.compile(r'([a-zA-Z_][a-zA-Z0-9_]*)="((?:[^"\\\n]|\\[\\"n])*)"')
NUMBER = re.compile(r"[+-]?(?:\d+(?:\.\d*)?|\.\d+)(?:[eE][+-]?\d+)?|NaN|[+-]?Inf")
HELP = re.compile(r"(?:[^\\]|\\[\\n])*")
TYPES = ("counter", "gauge", "untyped")
ESCAPES = {"\\\\": "\\", '\\"': '"', "\\n": "\n"}


class Family:
    """What is told of one name."""

    def __init__(self):
        self.help = None
        self.type = None
        self.series = {}


class Reader:
    """Reads a text; its families and its faults are there behind it."""

    def __init__(self, text):
        self.families = {}
        self.faults = []
        self.line = 0
        self.present = None
        if not text.endswith("\n"):
            self.fault("no line feed at the end")
        if "\r" in text:
            self.fault("a carriage return")
        for self.line, line in enumerate(text.removesuffix("\n").split("\n"), 1):
            self.take(line)
        for name, family in self.families.items():
            for missing in [word for word in ("help", "type") if getattr(family, word) is None]:
                self.fault(f"{name} has no {missing.upper()}")

    def fault(self, words):
        self.faults.append(f"line {self.line}: {words}")

    def take(self, line):
        if line.startswith("# HELP ") or line.startswith("# TYPE "):
            self.take_head(*line[2:].split(" ", 2))
        elif line.strip() and not line.startswith("#"):
            self.take_series(line)

    def family(self, name):
        """That of this name, whose lines stand together."""
        if name != self.present and name in self.families:
            self.fault(f"the lines of {name} do not stand together")
        self.present = name
        return self.families.setdefault(name, Family())

    def take_head(self, kind, name="", words=""):
        if not NAME.fullmatch(name):
            self.fault(f"{name!r} is no name")
            return
        family, field = self.family(name), kind.lower()
        if getattr(family, field) is not None:
            self.fault(f"a second {kind} of {name}")
        if family.series:
            self.fault(f"{kind} of {name} behind its series")
        setattr(family, field, words)
        if kind == "HELP" and not (words and HELP.fullmatch(words)):
            self.fault(f"{words!r} is no text of a HELP")
        if kind == "TYPE":
            self.take_type(name, words)

    def take_type(self, name, words):
        if words not in TYPES:
            self.fault(f"{words!r} is no type")
        if (words == "counter") != name.endswith("_total"):
            self.fault(f"{name} is a {words}: counters end in _total, and nothing else does")

    def take_series(self, line):
        name = NAME.match(line)
        if not name:
            self.fault(f"{line!r} begins with no name")
            return
        rest = line[name.end():]
        labels = self.labels(rest) if rest.startswith("{") else ([], rest)
        if labels is None:
            return
        pairs, rest = labels
        words = rest.split()
        if not words or not rest.startswith(" "):
            self.fault("no value behind a space")
        elif not NUMBER.fullmatch(words[0]):
            self.fault(f"{words[0]!r} is no number")
        elif len(words) > 1:
            timed = len(words) == 2 and re.fullmatch(r"-?\d+", words[1])
            self.fault("a time stamp" if timed else f"{rest!r} is more than a value")
        else:
            self.keep(name.group(), pairs, float(words[0]))

    def labels(self, text):
        """The pairs between the braces, and what stands behind them; none where they are faulty."""
        pairs, place = [], 1
        while not text.startswith("}", place):
            label = LABEL.match(text, place)
            if not label:
                self.fault(f"no label at {text[place:place + 20]!r}")
                return None
            value = re.sub(r"\\.", lambda escape: ESCAPES[escape.group()], label.group(2))
            pairs.append((label.group(1), value))
            place = label.end()
            if text.startswith(",", place):
                place += 1
            elif not text.startswith("}", place):
                self.fault(f"no comma at {text[place:place + 20]!r}")
                return None
        return pairs, text[place + 1:]

    def keep(self, name, pairs, value):
        family = self.family(name)
        labels = dict(pairs)
        if len(labels) < len(pairs):
            self.fault(f"a label of {name} comes twice")
        if any(label.startswith("__") for label in labels):
            self.fault("labels that begin with __ are Prometheus' own")
        if family.series and labels.keys() != dict(next(iter(family.series))).keys():
            self.fault(f"other labels than the series of {name} above")
        key = tuple(sorted(labels.items()))
        if key in family.series:
            self.fault(f"a second value of {name}{labels}")
        if family.type == "counter" and not (value >= 0 and math.isfinite(value)):
            self.fault(f"the counter {name} is {value}")
        family.series[key] = value


def read(path):
    """What a file holds, which is UTF-8."""
    try:
        return Reader(Path(path).read_bytes().decode("utf-8"))
    except UnicodeDecodeError as error:
        reader = Reader("\n")
        reader.fault(f"no UTF-8: {error}")
        return reader


def main():
    failed = False
    for path in sys.argv[1:]:
        reader = read(path)
        failed |= bool(reader.faults) or not reader.families
        print("\n".join(f"{path}: {fault}" for fault in reader.faults))
        print(f"{path}: {len(reader.families)} families, "
              f"{sum(len(family.series) for family in reader.families.values())} series")
    return failed


if __name__ == "__main__":
    sys.exit(main())
