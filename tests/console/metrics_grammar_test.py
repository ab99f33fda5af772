#!/usr/bin/env python3
"""The reader of metrics refuses what the format does not allow, each for its own reason."""
import tempfile
import unittest
from pathlib import Path

import metrics_grammar

GOOD = r"""# HELP vornik_frames_total Frames received.
# TYPE vornik_frames_total counter
vornik_frames_total{svID="MU 1",vlan=""} 4000
vornik_frames_total{svID="a \"b\" \\ \n,}",vlan="5"} 1.5e+06
# A remark.

# TYPE vornik_angle_degrees gauge
# HELP vornik_angle_degrees Angle \\ of a channel,\nin degrees.
vornik_angle_degrees -120.5
# HELP vornik_gap_seconds Nothing measured yet.
# TYPE vornik_gap_seconds gauge
"""
HEAD = "# HELP a_total A.\n# TYPE a_total counter\n"


class MetricsGrammar(unittest.TestCase):
    def faults(self, text):
        return metrics_grammar.Reader(text).faults

    def refuses(self, text, words):
        faults = self.faults(text)
        self.assertEqual(len(faults), 1, faults)
        self.assertIn(words, faults[0])

    def test_takes_what_is_right(self):
        reader = metrics_grammar.Reader(GOOD)
        self.assertEqual(reader.faults, [])
        series = reader.families["vornik_frames_total"].series
        self.assertEqual(series[(("svID", 'a "b" \\ \n,}'), ("vlan", "5"))], 1.5e6)
        self.assertEqual(reader.families["vornik_angle_degrees"].series, {(): -120.5})
        self.assertEqual(reader.families["vornik_gap_seconds"].series, {})

    def test_takes_the_numbers_that_there_are(self):
        for number in ["0", "-1", "+1.", ".5", "1e9", "1E-9", "NaN", "+Inf", "-Inf"]:
            self.assertEqual(self.faults(f"# HELP a A.\n# TYPE a gauge\na {number}\n"), [], number)

    def test_refuses_other_numbers(self):
        for number in ["1,5", "0x10", "1_000", "nan", "inf", "-", ".", "1e", "--1"]:
            self.refuses(f"# HELP a A.\n# TYPE a gauge\na {number}\n", "is no number")

    def test_refuses_a_cut_file(self):
        self.refuses(HEAD + "a_total 1", "no line feed")
        self.refuses(HEAD + "a_total\n", "no value")

    def test_refuses_line_ends_of_two_characters(self):
        self.assertIn("carriage return", self.faults("# HELP a A.\r\n# TYPE a gauge\r\na 1\r\n")[0])

    def test_refuses_a_family_without_its_head(self):
        self.refuses("# TYPE a gauge\na 1\n", "a has no HELP")
        self.refuses("# HELP a A.\na 1\n", "a has no TYPE")

    def test_refuses_a_second_head(self):
        self.refuses("# HELP a_total B.\n" + HEAD + "a_total 1\n", "a second HELP")
        self.refuses(HEAD + "# TYPE a_total counter\na_total 1\n", "a second TYPE")

    def test_refuses_a_head_behind_its_series(self):
        self.refuses("# TYPE a gauge\na 1\n# HELP a A.\n", "behind its series")

    def test_refuses_a_family_in_two_places(self):
        self.refuses(HEAD + 'a_total{x="1"} 1\n# HELP b B.\n# TYPE b gauge\nb 1\na_total{x="2"} 1\n',
                     "do not stand together")

    def test_refuses_types_that_there_are_not(self):
        self.refuses("# HELP a A.\n# TYPE a Gauge\na 1\n", "is no type")

    def test_refuses_names_that_tell_another_type(self):
        self.refuses("# HELP a A.\n# TYPE a counter\na 1\n", "counters end in _total")
        self.refuses("# HELP a_total A.\n# TYPE a_total gauge\na_total 1\n", "counters end in _total")

    def test_refuses_counters_that_count_nothing(self):
        for number in ["-1", "NaN", "+Inf"]:
            self.refuses(HEAD + f"a_total {number}\n", "the counter")

    def test_refuses_names_with_other_characters(self):
        self.refuses("# HELP a-b A.\n", "is no name")
        self.refuses(HEAD + "1a 1\n", "begins with no name")
        self.refuses(HEAD + 'a_total{b-c="1"} 1\n', "no label")
        self.refuses(HEAD + 'a_total{__a="1"} 1\n', "Prometheus' own")

    def test_refuses_labels_that_are_not_escaped(self):
        self.refuses(HEAD + 'a_total{x="a"b"} 1\n', "no comma")
        self.refuses(HEAD + r'a_total{x="C:\temp"} 1' + "\n", "no label")
        self.refuses(HEAD + 'a_total{x="1} 1\n', "no label")
        self.refuses(HEAD + "a_total{x='1'} 1\n", "no label")

    def test_refuses_a_help_that_is_not_escaped(self):
        self.refuses("# HELP a C:\\temp\n# TYPE a gauge\na 1\n", "no text of a HELP")
        self.refuses("# HELP a\n# TYPE a gauge\na 1\n", "no text of a HELP")

    def test_refuses_a_series_that_comes_twice(self):
        self.refuses(HEAD + 'a_total{x="1",y="2"} 1\na_total{y="2",x="1"} 1\n', "a second value")
        self.refuses(HEAD + 'a_total{x="1",x="2"} 1\n', "comes twice")

    def test_refuses_series_of_a_family_with_other_labels(self):
        self.refuses(HEAD + 'a_total{x="1"} 1\na_total 1\n', "other labels")

    def test_refuses_times_and_what_else_stands_behind_a_value(self):
        self.refuses(HEAD + "a_total 1 1766000000000\n", "a time stamp")
        self.refuses(HEAD + "a_total 1 noon\n", "more than a value")
        self.refuses(HEAD + 'a_total{x="1"}1\n', "no value behind a space")

    def test_refuses_other_characters_than_those_of_utf_8(self):
        with tempfile.NamedTemporaryFile() as file:
            Path(file.name).write_bytes(HEAD.encode() + b'a_total{x="\xc4"} 1\n')
            self.assertIn("no UTF-8", metrics_grammar.read(file.name).faults[0])


if __name__ == "__main__":
    unittest.main()
