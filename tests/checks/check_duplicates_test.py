#!/usr/bin/env python3
"""Tests of tools/check_duplicates.py on small libraries that CMake builds for it.

    check_duplicates_test.py TOOL ONE.a TWO.a OTHER.a TWICE.a
"""
import subprocess
import sys
import unittest

TOOL = ONE = TWO = OTHER = TWICE = ""


def check(*archives):
    run = subprocess.run([sys.executable, TOOL, "--archives", *archives], capture_output=True, text=True)
    return run.returncode, run.stdout + run.stderr


def symbol_types(archive):
    out = subprocess.run(["nm", "-g", "--defined-only", "-P", "-C", archive], capture_output=True, text=True,
                         check=True).stdout
    return {line.rsplit(" ", 3)[0]: line.rsplit(" ", 3)[1] for line in out.splitlines() if line.count(" ") >= 3}


class CheckDuplicates(unittest.TestCase):
    def test_samples_hold_what_the_cases_need(self):
        one, two = symbol_types(ONE), symbol_types(TWO)
        for types in (one, two):
            self.assertEqual(types.get("checksDuplicateProbe(int)"), "T")
            self.assertEqual(types.get("checksDuplicateValue"), "D")
            self.assertEqual(types.get("checksDuplicateZero"), "B")
            self.assertEqual(types.get("checksDuplicateTable"), "R")
            self.assertEqual(types.get("checksSharedInline(int)"), "W")
        self.assertEqual(symbol_types(OTHER).get("checksSharedInline(int)"), "W")

    def test_a_function_of_two_libraries_fails_and_is_named(self):
        code, out = check(ONE, TWO)
        self.assertEqual(code, 1, out)
        line = next((l for l in out.splitlines() if l.startswith("checksDuplicateProbe(int) ")), "")
        self.assertIn("libcheck_sample_one.a(probe_one.cpp.o)", line, out)
        self.assertIn("libcheck_sample_two.a(probe_two.cpp.o)", line, out)

    def test_data_of_two_libraries_is_named(self):
        _, out = check(ONE, TWO)
        for name in ("checksDuplicateValue ", "checksDuplicateZero ", "checksDuplicateTable "):
            self.assertTrue(any(l.startswith(name) for l in out.splitlines()), name + " missing in:\n" + out)

    def test_weak_and_single_definitions_are_not_reported(self):
        _, out = check(ONE, TWO)
        self.assertNotIn("checksSharedInline", out)
        self.assertNotIn("checksOnlyInOne", out)
        self.assertNotIn("checksOnlyInTwo", out)

    def test_libraries_without_a_common_strong_symbol_pass(self):
        code, out = check(ONE, OTHER)
        self.assertEqual(code, 0, out)

    def test_two_objects_of_one_library_fail_and_are_named(self):
        code, out = check(TWICE)
        self.assertEqual(code, 1, out)
        line = next((l for l in out.splitlines() if l.startswith("checksTwiceProbe() ")), "")
        self.assertIn("libcheck_sample_twice.a(twice_a.cpp.o)", line, out)
        self.assertIn("libcheck_sample_twice.a(twice_b.cpp.o)", line, out)
        self.assertNotIn("checksTwiceOnly", out)


if __name__ == "__main__":
    TOOL, ONE, TWO, OTHER, TWICE = sys.argv[1:6]
    unittest.main(argv=sys.argv[:1], verbosity=2)
