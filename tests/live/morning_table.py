"""Compares what was done to a recording with what its events file tells of it, and prints both side
by side."""

from dataclasses import dataclass, field
from datetime import datetime, timezone

from morning_told import (AGAIN, DOUBLED, DROPPED, GONE, LATE, MISSING, NOT_STORED, RATE, Recorded,
                          read)

# From what is done to what is told: a ring, a look at the interface, and a program that is late.
SLACK = 4.0
EARLY = 0.5
# The program finds an interface that is back within half a second, when it is not late.
REOPENS = 3.0
# A clock that is set may be led by so many seconds beside that.
LED = 0.1
SILENT, UP_TO_END = "stream silent", "none came up to the end"
AWAY, BACK, DOWN, SET = ("interface gone", "interface is there again", "interface switched off",
                         "clock set")
FRAME = ["start", "stream met", "total", "end"]


@dataclass
class Act:
    """Something that is done: when, in seconds behind the first ring, and for how long."""

    what: str
    at: float
    length: float = 0
    # When it was done, as the program's clock shows it.
    begun: float = 0
    ended: float = 0
    # Frames that came meanwhile, where they were counted.
    sent: int = 0
    told: list = field(default_factory=list)

    def words(self):
        return f"{self.what} for {self.length:g} s" if self.length else self.what


def clock(at):
    return datetime.fromtimestamp(at, timezone.utc).strftime("%H:%M:%S.%f")[:-3]


class Comparison:
    def __init__(self, acts, sent, record):
        self.acts = {act.what: act for act in acts}
        self.sent = sent
        self.record = record
        self.told = read(record.with_name(f"Events {record.stem}.csv"))
        self.streams = [1, 2]
        self.wrong = []
        self.others = []

    def demand(self, holds, words):
        if not holds:
            self.wrong.append(words)

    # What the frames show.

    def lost_rings(self, stream):
        """How many are lost behind which line, and what samples are told as missing meanwhile."""
        lost, beside, counting = {}, [], 0
        for told in self.told:
            if told.stream != stream:
                continue
            if told.event == NOT_STORED:
                counting += 1
            elif told.event == AGAIN:
                lost[told.line - 1] = counting
                counting = 0
            elif counting and told.event == MISSING:
                beside.append(told)
        return lost, beside

    def check_stream(self, stream):
        lost, beside = self.lost_rings(stream)
        there = Recorded(self.record.with_name(f"{stream}_{self.record.name}"), lost)
        found = [(told.event, told.line, told.count, told.figure("by counter"))
                 for told in self.told
                 if told.stream == stream and told.event in (MISSING, DOUBLED, LATE)
                 and told not in beside and told.line <= there.rows
                 and not told.figures.startswith(UP_TO_END)]
        for k in range(max(len(found), len(there.expected))):
            has = found[k] if k < len(found) else None
            due = there.expected[k] if k < len(there.expected) else None
            self.demand(has == due, f"stream {stream}: told {has}, the frames show {due}")
        self.demand(there.beside_lost == sum(told.count for told in beside),
                    f"stream {stream}: {there.beside_lost} samples missing beside lost rings")
        self.check_total(stream, there, sum(lost.values()))

    def check_total(self, stream, there, lost):
        total = self.of("total", stream)
        if len(total) != 1:
            self.wrong.append(f"stream {stream}: {len(total)} totals")
            return
        figure = total[0].figure
        behind = sum(told.count for told in self.of(MISSING, stream)
                     if told.figures.startswith(UP_TO_END))
        self.demand(total[0].count == total[0].line == figure("samples stored") == there.rows,
                    f"stream {stream}: {there.rows} lines in the file")
        for name, due in (("missing", there.missing + behind), ("doubled", there.doubled),
                          ("out of order", there.late), ("rings not stored", lost)):
            self.demand(figure(name) == due, f"stream {stream}: {name} {due} in all")
        due = (self.sent[f"BAY-{stream:02}"] - self.sent["doubled"] + self.sent.get("left out", 0)
               - there.first)
        told = figure("received") - figure("doubled") + figure("missing") - behind
        self.demand(told == due, f"stream {stream}: {due} sent since its first frame, {told} told")

    # What was done.

    def of(self, event, stream=None):
        return [told for told in self.told
                if told.event == event and stream in (None, told.stream)]

    def take(self, what, events):
        """The lines of these events that are told of an act, which are its own from now on."""
        act = self.acts[what]
        act.told = [told for told in self.told if told.event in events
                    and act.begun - EARLY <= told.at <= act.ended + SLACK]
        return act

    def counted(self, act, event, stream):
        return sum(told.count for told in act.told
                   if told.event == event and told.stream == stream)

    def check_disturbed(self, what, event, sent):
        act = self.take(what, [event, MISSING])
        for stream in self.streams:
            count = self.counted(act, event, stream)
            lost = self.counted(act, MISSING, stream)
            self.demand(count == sent or lost and 0 < count < sent,
                        f"{what}: {sent} sent, {count} told of stream {stream}")

    def check_folder(self):
        act = self.take("folder away", [GONE, NOT_STORED, AGAIN])
        for stream in self.streams:
            own = [told for told in act.told if told.stream == stream and told.event != GONE]
            lost = [told for told in own if told.event == NOT_STORED]
            self.demand(bool(lost) and [told.event for told in own]
                        == [NOT_STORED] * len(lost) + [AGAIN]
                        and own[-1].figure("rings lost until now") == len(lost),
                        f"folder away: {[told.event for told in own]} of stream {stream}")

    def check_interface(self):
        act = self.take("interface away", [AWAY, BACK, DOWN, MISSING, DROPPED])
        system = [told.event for told in act.told if told.event in (AWAY, BACK)]
        self.demand(system == [AWAY, BACK], f"interface away: {system}")
        for stream in self.streams:
            count = self.counted(act, MISSING, stream)
            longest = act.ended - act.begun + REOPENS
            self.demand(act.length <= count / RATE <= longest,
                        f"interface away: {count} told as missing of stream {stream}")

    def check_clock(self, by):
        act = self.take("clock set", [SET])
        steps = [float(told.figures.split()[1]) for told in act.told]
        self.demand(len(steps) == 1 and abs(steps[0] - by) < LED, f"clock set: by {steps}")

    def check_stopped(self):
        act = self.take("program stopped", [MISSING, DROPPED])
        missing = [self.counted(act, MISSING, stream) for stream in self.streams]
        for stream, count in zip(self.streams, missing):
            blind = sum(told.count - told.figure("by counter") for told in act.told
                        if told.stream == stream and told.figure("by counter") is not None)
            self.demand(0 < blind <= count < act.sent / len(self.streams),
                        f"program stopped: {act.sent} came, {count} missing of stream {stream}")
        dropped = sum(told.count for told in act.told if told.event == DROPPED)
        # What a bus that was held up did not send is missing, too.
        left_out = self.sent.get("left out", 0) * len(self.streams)
        self.demand(0 <= sum(missing) - dropped <= left_out,
                    f"program stopped: {dropped} dropped, {missing} missing")

    def check_bus(self):
        """It ended before STOP, and what would have come since is missing."""
        act = self.take("bus ended", [SILENT, MISSING])
        end = self.told[-1].at
        for stream in self.streams:
            own = [told for told in act.told if told.stream == stream]
            self.demand([told.event for told in own] == [SILENT, MISSING]
                        and abs(own[0].at - act.begun) < EARLY
                        and abs(own[1].count / RATE - (end - own[0].at)) < EARLY,
                        f"bus ended: {own}")

    def check_rest(self):
        """What is told in no act is what the computer itself has done: samples that were lost,
        which the frames show too."""
        taken = [told for act in self.acts.values() for told in act.told]
        rest = [told for told in self.told if told not in taken]
        frame = [told.event for told in rest if told.event in FRAME]
        self.demand(sorted(frame) == sorted(FRAME + ["stream met", "total"]), f"told are {frame}")
        self.demand(self.told[0].event == "start" and self.told[-1].event == "end"
                    and self.told[-1].figures == "STOP was pressed", "its start and its end")
        self.others = [told for told in rest if told.event not in FRAME]
        for told in self.others:
            self.demand(told.event in (MISSING, DROPPED), f"{told.event}: nobody did that")

    def check_order(self):
        places = [self.told.index(act.told[0]) for act in self.acts.values() if act.told]
        self.demand(len(places) == len(self.acts) and places == sorted(places),
                    f"the acts are told at {places}")

    def check(self, by):
        for stream in self.streams:
            self.check_stream(stream)
        self.check_disturbed("frames doubled", DOUBLED, self.sent["doubled"])
        self.check_disturbed("frames swapped", LATE, self.sent["out of order"])
        self.check_folder()
        self.check_interface()
        self.check_clock(by)
        self.check_stopped()
        self.check_bus()
        self.check_order()
        self.check_rest()

    def print(self):
        rows = [(self.told[0].at, "done: the recording begins", self.told[:1]),
                *((act.begun, "done: " + act.words(), act.told) for act in self.acts.values()),
                (self.told[-1].at, "done: STOP", [*self.of("total"), self.told[-1]]),
                (0, "beside that", self.others)]
        for begun, words, told in rows:
            if begun or told:
                print(clock(begun) if begun else " " * 12, words)
            for line in told:
                print(f"    told: {clock(line.at)}  stream {line.stream or '-'}  "
                      f"line {line.line or '-'}  {line.event}  {line.count or ''}  {line.figures}")
        print("sent:", self.sent)
        for words in self.wrong:
            print("wrong:", words)
        print("wrong" if self.wrong else "right", "line by line")


def compare(acts, by, sent, record):
    """Prints the table; whether all of it is right."""
    comparison = Comparison(acts, sent, record)
    comparison.check(by)
    comparison.print()
    return not comparison.wrong
