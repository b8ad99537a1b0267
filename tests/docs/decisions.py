#!/usr/bin/env python3
"""Fails when docs/decisions.md names a test that does not exist, or a row lacks one of its cells."""

import re
import sys

import screentexts

PAGE = screentexts.PROJECT / "docs" / "decisions.md"
HEAD = "| Decision | Reason | Test that holds it |"


def test_functions():
    """All test functions as program::function."""
    found = set()
    for path in (screentexts.PROJECT / "tests").rglob("tst_*.cpp"):
        for name in re.findall(r"^    void (\w+)\(\);", path.read_text(encoding="utf-8"), re.M):
            found.add(f"{path.stem}::{name}")
    return found


def problems():
    functions = test_functions()
    for number, line in enumerate(PAGE.read_text(encoding="utf-8").splitlines(), 1):
        if re.match(r"\s*[-*] ", line):
            yield f"{number}: a decision is a row of the table: {line}"
        if not line.startswith("|") or line == HEAD or re.fullmatch(r"[|-]+", line):
            continue
        row = [cell.strip() for cell in re.split(r"(?<!\\)\|", line)[1:-1]]
        if len(row) != 3 or not all(row):
            yield f"{number}: a row has a decision, a reason and a test"
            continue
        named = re.findall(r"`(tst_\w+(?:::\w+)?)`", row[2])
        for test in named:
            if test not in functions:
                yield f"{number}: there is no test {test}"
        for script in re.findall(r"`(tests/[\w./-]+)`", row[2]):
            if not (screentexts.PROJECT / script).exists():
                yield f"{number}: there is no {script}"
            named.append(script)
        if not named and not row[2].startswith("none"):
            yield f"{number}: name a test, or say none"


def main():
    found = list(problems())
    for problem in found:
        print(f"docs/decisions.md:{problem}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
