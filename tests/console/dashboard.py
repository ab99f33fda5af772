#!/usr/bin/env python3
"""Holds the dashboard and the metrics that vornik-cli watch writes to each other.

    dashboard.py DASHBOARD --of PROGRAM   of a file that the program writes now
    dashboard.py DASHBOARD METRICS        of a file that it has written

The file follows the format, the dashboard asks for each of its metrics and for no others, by labels that they
have, and its panels stand beside each other.
"""
import json
import re
import subprocess
import sys
import tempfile
from pathlib import Path

import metrics_grammar

METRIC = re.compile(r"\b(vornik_\w+)(?:{([^}]*)})?")
MATCHER = re.compile(r'(\w+)\s*(?:=~|!~|!=|=)\s*"')
# What Prometheus itself adds to each series.
OF_PROMETHEUS = {"instance", "job"}
DATA = "${datasource}"
SECONDS = "2.5"
faults = []


def expect(right, words):
    if not right:
        faults.append(words)


def written_by(program):
    """What the program finds on its simulated bus."""
    with tempfile.TemporaryDirectory() as folder:
        file = Path(folder) / "vornik.prom"
        run = subprocess.run([program, "watch", "simulated", "--seconds", SECONDS, "--metrics", file],
                             capture_output=True, text=True, timeout=120)
        expect(run.returncode == 0 and not run.stderr, f"watch: {run.returncode} {run.stderr}")
        for line in run.stdout.splitlines():
            json.loads(line)
        expect([kept.name for kept in Path(folder).iterdir()] == [file.name], "watch leaves other files")
        return metrics_grammar.read(file)


def labels_of(family):
    return {label for series in family.series for label, _ in series}


def check_question(words, known, asked):
    """An expression, or the question of a variable."""
    for opening, closing in ["()", "[]", "{}"]:
        expect(words.count(opening) == words.count(closing), f"{words}: brackets")
    for name, matchers in METRIC.findall(words):
        asked.add(name)
        if name not in known:
            faults.append(f"{words}: there is no {name}")
            continue
        strange = set(MATCHER.findall(matchers)) - labels_of(known[name]) - OF_PROMETHEUS
        expect(not strange, f"{words}: {name} has no {sorted(strange)}")
        expect(("rate(" in words) == name.endswith("_total"), f"{words}: rates are of counters")


def check_variables(variables, known, asked):
    for variable in variables:
        if variable["type"] != "query":
            continue
        words = variable["query"]["query"]
        check_question(words, known, asked)
        metric, label = re.fullmatch(r"label_values\((\w+).*, (\w+)\)", words).groups()
        labels = labels_of(known[metric]) if metric in known else set()
        expect(label in labels | OF_PROMETHEUS, f"{words}: {metric} has no {label}")
        expect(variable["name"] == label, f"{words}: the variable {variable['name']} has another name")


def check_panel(panel, known, asked, names):
    title = panel["title"]
    questions = panel.get("targets", [])
    expect(panel["type"] == "row" or questions, f"{title}: asks for nothing")
    for question in questions:
        check_question(question["expr"], known, asked)
        expect(question["datasource"]["uid"] == DATA, f"{title}: has a data source of its own")
        met = METRIC.search(question["expr"])
        labels = labels_of(known[met.group(1)]) if met and met.group(1) in known else set()
        shown = set(re.findall(r"{{(\w+)}}", question.get("legendFormat", "")))
        expect(shown <= labels | OF_PROMETHEUS, f"{title}: its legend shows {sorted(shown - labels)}")
    text = json.dumps(questions)
    used = set(re.findall(r"\$(\w+)|\${(\w+)}", text.replace("$__rate_interval", "")))
    expect({first or second for first, second in used} <= names, f"{title}: unknown variables")


def check_places(panels):
    places = {}
    for panel in panels:
        at = panel["gridPos"]
        expect(at["x"] + at["w"] <= 24, f"{panel['title']}: wider than the page")
        for x in range(at["x"], at["x"] + at["w"]):
            for y in range(at["y"], at["y"] + at["h"]):
                other = places.setdefault((x, y), panel["title"])
                if other != panel["title"]:
                    faults.append(f"{panel['title']} stands upon {other}")
                    return
    numbers = [panel["id"] for panel in panels]
    expect(len(set(numbers)) == len(numbers), "two panels have one number")


def main():
    page = json.loads(Path(sys.argv[1]).read_text())
    metrics = written_by(sys.argv[3]) if sys.argv[2] == "--of" else metrics_grammar.read(sys.argv[2])
    faults.extend(metrics.faults)
    known, asked = metrics.families, set()
    variables = page["templating"]["list"]
    check_variables(variables, known, asked)
    for panel in page["panels"]:
        check_panel(panel, known, asked, {variable["name"] for variable in variables})
    check_places(page["panels"])
    expect(asked >= set(known), f"the dashboard shows nothing of {sorted(set(known) - asked)}")
    print("\n".join(faults))
    print(f"{len(known)} metrics, {len(page['panels'])} panels")
    return 1 if faults or not known else 0


if __name__ == "__main__":
    sys.exit(main())
