"""A screen reader goes through the program: it is told what everything is, works it by actions and
by keys, and reads what is measured."""

import subprocess
import sys
import time

import pyatspi
from screen_reader import Reader, all_below, is_on, label_of, press, shows, text_of, type_into

STATIONS = ["VORNIK-SIM-1", "VORNIK-SIM-2"]
PAGES = ["Info", "Values", "Phasor", "Waveforms", "Recorder", "Report", "Setup"]
TAB_KEY = 23


def the_setup_is_filled_in(reader):
    reader.go_to("Setup")
    for number, station in enumerate(STATIONS, 1):
        field = reader.one("text", f"Packet content filter #{number}")
        type_into(field, station)
        reader.wait(lambda: text_of(field) == station, "the filter")


def every_choice_of_a_group_is_a_radio_button_with_its_group(reader):
    groups = {
        "Values": [("Shown Station ID:", STATIONS)],
        "Phasor": [("Shown Station ID:", STATIONS)],
        "Waveforms": [
            ("Graph Modes:", ["Pan with mouse", "Zoom with mouse", "autoscaling"]),
            ("Shown Station ID:", STATIONS),
        ],
        "Recorder": [("Real-time recording to hard disk", ["CSV", "file format", "COMTRADE"])],
        "Report": [("Shown Station ID:", STATIONS)],
    }
    for tab, wanted in groups.items():
        page = reader.go_to(tab)
        for heading, names in wanted:
            choices = [reader.one("radio button", name) for name in names]
            for choice in choices:
                assert label_of(choice) == heading, f"{choice.name}: {label_of(choice)}"
                assert choice.description.startswith(heading), choice.description
            assert sum(is_on(choice) for choice in choices) == 1, heading
            press(choices[-1])
            reader.wait(lambda: is_on(choices[-1]), f"{names[-1]} to be chosen")
            assert sum(is_on(choice) for choice in choices) == 1, heading
            press(choices[0])
            reader.wait(lambda: is_on(choices[0]), f"{names[0]} to be chosen")
        boxes = [one.name for one in reader.find("check box", "", page)]
        named = sum((names for _, names in wanted), [])
        assert not [box for box in boxes if box.startswith(tuple(named))], boxes


def nothing_of_a_hidden_page_is_showing(reader):
    for tab in PAGES:
        shown = reader.go_to(tab)
        assert any(shows(one) for one in all_below(shown)), tab
        for name, page in reader.pages().items():
            if name == tab:
                continue
            for one in all_below(page):
                # The toolkit keeps the entries of a closed list, whatever the page.
                listed = one.getRoleName() == "list item"
                assert listed or not shows(one), f"{tab}: {one} of {name} shows"


def the_readings_are_read_with_their_names(reader):
    reader.go_to("Values")
    press(reader.one("push button", "RUN"))
    expected = {"Current Sensor A / [A]": 400.0, "Voltage Sensor C / [kV]": 63.509}
    for name, value in expected.items():
        reading = [one for one in reader.find("label", name) if label_of(one) == name]
        assert len(reading) == 1, name
        reader.wait(lambda: float(text_of(reading[0]) or 0) == value, f"{name} to read {value}")
    reader.wait(lambda: reader.find("push button", "STOP"), "the button to say STOP")
    stop = reader.one("push button", "STOP")
    reader.wait(lambda: stop.getState().contains(pyatspi.STATE_ENABLED), "STOP to be free")
    press(stop)


def the_table_of_phasors_tells_channel_and_unit(reader):
    reader.go_to("Phasor")
    reader.wait(
        lambda: reader.one("push button", "RUN").getState().contains(pyatspi.STATE_ENABLED),
        "RUN to be free",
    )
    press(reader.one("push button", "RUN"))
    cells = lambda: {one.description: one.name for one in reader.find("table cell", "")}
    reader.wait(lambda: cells().get("Current Sensor A / [A]"), "the first phasors")
    assert float(cells()["Current Sensor A / [A]"]) == 400.0, cells()
    assert float(cells()["Voltage Sensor B / [°]"]) == -120.0, cells()


def the_rows_of_a_report_are_read_with_their_titles(reader):
    reader.go_to("Report")
    press(reader.one("push button", "RUN"))
    rows = lambda: {label_of(one): one.name for one in reader.find("label", "") if label_of(one)}
    reader.wait(lambda: rows().get("ID:") == STATIONS[0], "the report")
    told = rows()
    assert told["Source adress:"].count("-") + told["Source adress:"].count(":") == 5, told
    assert told["Sample Sync:"], told
    assert told["Used filter string:"], told


def the_lines_of_a_recording_are_read_with_their_names(reader):
    reader.go_to("Recorder")
    press(reader.one("push button", "RUN"))
    lines = lambda: {
        label_of(one) or one.description: one.name
        for one in reader.find("label", "")
        if label_of(one) or one.description
    }
    reader.wait(lambda: "on disk" in lines().get("stored of stream 1", ""), "the first ring")
    told = lines()
    assert told["file of stream 1"].endswith(".txt"), told
    assert told["file of stream 2"].endswith(".txt"), told
    assert "samples" in told["Duration of recording / sample counter:"], told
    assert told["room on the disk"].startswith("free:"), told
    press(reader.one("push button", "STOP"))
    reader.wait(lambda: reader.find("push button", "RUN"), "the recording to end")


def the_pictures_say_what_they_are(reader):
    for tab, name in [("Phasor", "Phasor diagram"), ("Waveforms", "Waveforms")]:
        page = reader.go_to(tab)
        named = [one for one in all_below(page) if one.name == name and shows(one)]
        roles = [one.getRoleName() for one in named]
        assert roles and set(roles) <= {"image", "chart"}, roles


STOPS = {"push button", "text", "check box", "radio button", "combo box", "chart"}


def focused(page):
    """What of a page has the focus, the page itself among it; None where it is elsewhere."""
    for one in [page, *all_below(page)]:
        if one.getState().contains(pyatspi.STATE_FOCUSED):
            return one
    return None


def place_of(one):
    return one.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)


def goes_on(one, other):
    """Whether the eye goes on from one to the other: to the right, or down."""
    here, there = place_of(one), place_of(other)
    right = there.x >= here.x + here.width
    down = there.y >= here.y + here.height
    return right or down


def the_order_of_the_tab_key_is_that_of_the_eye(reader):
    for tab in PAGES:
        page = reader.go_to(tab)
        reader.one("page tab list", "").queryComponent().grabFocus()
        reader.wait(lambda: not focused(page), "the strip to have the focus")
        before, met = None, []
        while before is not None or not met:
            pyatspi.Registry.generateKeyboardEvent(TAB_KEY, None, pyatspi.KEY_PRESSRELEASE)
            reader.wait(lambda: focused(page) != before, f"the next stop of {tab}")
            now = focused(page)
            # The report's rows are the page itself, which all else stands on.
            if before not in (None, page) and now is not None:
                assert goes_on(before, now), f"{tab}: back from {before.name} to {now.name}"
            before = now
            met.append(now)
            assert len(met) < 60, f"the focus does not come round on {tab}"
        met.pop()
        reached = {one.path for one in met}
        for one in all_below(page):
            state = one.getState()
            stops = one.getRoleName() in STOPS and shows(one)
            if stops and state.contains(pyatspi.STATE_ENABLED):
                assert one.path in reached, f"{tab}: no key leads to {one.name}"


SCENES = [
    the_setup_is_filled_in,
    every_choice_of_a_group_is_a_radio_button_with_its_group,
    nothing_of_a_hidden_page_is_showing,
    the_pictures_say_what_they_are,
    the_order_of_the_tab_key_is_that_of_the_eye,
    the_readings_are_read_with_their_names,
    the_table_of_phasors_tells_channel_and_unit,
    the_rows_of_a_report_are_read_with_their_titles,
    the_lines_of_a_recording_are_read_with_their_names,
]


def give_the_keyboard_to(process):
    # No window manager is there to do it.
    window = ["search", "--onlyvisible", "--pid", str(process.pid), "--name", "Vornik"]
    subprocess.run(["xdotool", *window, "windowfocus"], check=True)


def main():
    reader = Reader(sys.argv[1:])
    failed = 0
    try:
        reader.wait(lambda: reader.find("page tab", "Exit"), "the window")
        give_the_keyboard_to(reader.process)
        for scene in SCENES:
            began = time.monotonic()
            try:
                scene(reader)
                outcome = "ok"
            except AssertionError as wrong:
                outcome = f"FAILED: {wrong}"
                failed += 1
            print(f"{scene.__name__}: {outcome} ({time.monotonic() - began:.1f} s)", flush=True)
    finally:
        ended = reader.close()
    if ended != 0:
        print(f"the program ended with {ended}")
    return 1 if failed or ended != 0 else 0


if __name__ == "__main__":
    sys.exit(main())
