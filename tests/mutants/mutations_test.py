#!/usr/bin/env python3
"""What the mutants break: each kind of mistake once, and nothing that is no code."""
import unittest

from mutations import broken, by_line


def breaks(line, *, kind=None, body=True):
    """What a line can become, as a line of a routine's body or as one outside of all bodies."""
    text = f"void F() {{\n{line}\n}}\n" if body else f"\n{line}\n"
    return {broken(text, mutation).split("\n")[1] for mutation in by_line(text).get(2, [])
            if kind in (None, mutation.kind)}


class Mutations(unittest.TestCase):
    def test_operators_between_blanks_alone(self):
        self.assertEqual(breaks("bool b = x < y;", kind="comparison"), {"bool b = x <= y;", "bool b = x >= y;"})
        self.assertEqual(breaks("std::vector<int> v(n);", kind="comparison"), set())
        self.assertEqual(breaks("b = x &&\n  y;", kind="logic"), {"b = x ||"})
        self.assertEqual(breaks("b = !x;", kind="logic"), {"b = x;"})
        self.assertEqual(breaks("const char* p = -x - y;", kind="arithmetic"), {"const char* p = -x + y;"})
        self.assertEqual(breaks("x <<= 2U;", kind="arithmetic"), {"x >>= 2U;"})
        self.assertEqual(breaks("++x;", kind="arithmetic"), {"--x;"})

    def test_constants_go_by_one(self):
        self.assertEqual(breaks("x = 0;", kind="constant"), {"x = 1;", "x = (-1);"})
        self.assertEqual(breaks("x = 1'000U;", kind="constant"), {"x = 1001U;", "x = 999U;"})
        self.assertEqual(breaks("x = 0x80;", kind="constant"), {"x = 0x81;", "x = 0x7F;"})
        self.assertEqual(breaks("x = 2.5;", kind="constant"), {"x = (2.5 + 1);", "x = (2.5 - 1);"})
        self.assertEqual(breaks("Label5 = x2;", kind="constant"), set())

    def test_conditions_without_what_is_declared_in_front_of_them(self):
        self.assertEqual(breaks("if (f(x)) g();", kind="condition"), {"if (!(f(x))) g();"})
        self.assertEqual(breaks("if (auto x = f(); x) g();", kind="condition"), {"if (auto x = f(); !(x)) g();"})

    def test_returns_choices_and_orders(self):
        self.assertEqual(breaks("return f(x);", kind="return"), {"return {};", "return !(f(x));"})
        self.assertIn("x = c ? 2 : 1;", breaks("x = c ? 1 : 2;", kind="order"))
        self.assertEqual(breaks("f(a.b, c);", kind="order"), {"f(c, a.b);"})
        self.assertEqual(breaks("x = std::max(a, b);", kind="order"), set())
        self.assertIn("x = std::max(a, 2);", breaks("x = std::min(a, 2);", kind="name"))

    def test_texts_but_no_remarks_and_no_directives(self):
        self.assertEqual(breaks('f("a // b");', kind="text"), {'f("a // b?");', 'f("");'})
        self.assertEqual(breaks("f('a');", kind="text"), {"f('b');"})
        self.assertEqual(breaks('f(R"(a "b")");', kind="text"), {'f(R"(a "b"?)");', 'f("");'})
        self.assertEqual(breaks("// x < 1", body=False), set())
        self.assertEqual(breaks('#include "a/b.h"', body=False), set())

    def test_statements_of_bodies_alone_are_taken_away(self):
        self.assertEqual(breaks("f(x, {1});", kind="removal"), {";"})
        self.assertEqual(breaks("if (x) f();", kind="removal"), {"if (x) ;"})
        self.assertEqual(breaks("return;", kind="removal"), {";"})
        self.assertEqual(breaks("return x;", kind="removal"), set())
        self.assertEqual(breaks("x = c ? a : b;", kind="removal"), {";"})
        self.assertEqual(breaks("case 1: f();", kind="removal"), {"case 1: ;"})
        self.assertEqual(breaks("class A { void F(); };", kind="removal", body=False), set())
        self.assertEqual(breaks("class A { void F() { g(); } };", kind="removal", body=False),
                         {"class A { void F() { ; } };"})

    def test_lines_are_counted_from_one(self):
        self.assertEqual(sorted(by_line("int a = 1;\n\nint b = 1;\n")), [1, 3])


if __name__ == "__main__":
    unittest.main()
