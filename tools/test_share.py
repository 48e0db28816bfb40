#!/usr/bin/env python3
"""Counts lines of tests and of code that are not blank, and fails above the bound.

Tests are tests/ and fuzz/; code is src/, the programs beside it, simulator/ and the scripts of the package.
The house's aim is a quarter to a third. The bound goes down with the share and never up.
"""
import os
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BOUND = 33  # per cent


def lines(names):
    count = 0
    for name in names:
        with open(os.path.join(ROOT, name), encoding="utf-8") as f:
            count += sum(1 for line in f if line.strip())
    return count


def main():
    names = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT, check=True,
                           capture_output=True, text=True).stdout.split("\n")
    names = [n for n in names if n.endswith((".cpp", ".h", ".py", ".sh"))
             and os.path.exists(os.path.join(ROOT, n))]
    code = lines(n for n in names if n.startswith(("src/", "simulator/", "companion/", "editor/", "plotter/",
                                              "ports/", "packaging/")))
    tests = lines(n for n in names if n.startswith(("tests/", "fuzz/")))
    share = 100 * tests / code
    print(f"tests: {tests} lines to {code} lines of code, {share:.1f} %, bound {BOUND} %")
    sys.exit(0 if share <= BOUND else 1)


main()
