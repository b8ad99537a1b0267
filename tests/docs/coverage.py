#!/usr/bin/env python3
"""Which command is asked by which dialog, in which script, disturbed by what, in which test.

docs/coverage.md is the matrix. It is made from the tallies that the tests leave in BUILD/tallies: what
each of them really asked of simulated controllers (see simulator/CommandTally.h). Without --write the
check fails when the page has a command too many or too few, or when more cells are empty than the
page says; where a test left no tally, because not all were run, it says so and skips.

usage: coverage.py [--write | --empty] BUILD/tallies
"""

import collections
import pathlib
import re
import sys

import screentexts

PAGE = screentexts.PROJECT / "docs" / "coverage.md"
COMMANDS = screentexts.PROJECT / "docs" / "commands.md"
SCRIPTS = ("tests/workbench/walks", "tests/workbench/sweeps", "tests/workbench/recordings",
           "scenarios", "scenarios/demos")
TESTS_OF_THE_RUN = "tests.txt"
SKIPPED = 77
COUNT = re.compile(r"^Empty cells: (\d+) of \d+\.$", re.M)
# What is shown of each column: enough to know where to look, and still readable.
COLUMNS = {"Dialog": 4, "Script": 3, "Disturbed by": 4, "Test": 3}
BOXES = ("QMessageBox",)
HEAD = """# Coverage of the commands

Every command of the simulated controller against what asks, plays, disturbs and checks it. Each test records what
simulated controllers are asked while it runs; after a whole `./test`, `tests/docs/coverage.py --write build/dev/tallies`
makes this page from that. The test `docs_coverage` waits for all of them and fails when more cells are empty than here.

- Dialog: class of the window in front when the command was asked, message boxes left out; "loading" when a script
  asked it without a window.
- Script: a walk, a demonstration, a part of the tour, or the script of a sweep that asked the command.
- Disturbed by: effects of the faults that met the command, in any test.
- Test: tests in which the module asked the command. A test that asks in the module's place does not count.

Scripts and tests that ask few commands come first. An empty cell is something that nobody looks at. These remain:

- The tracking pulse is hidden in its dialog, so that no script reaches its commands: `tracking pulse`, `synccard`, and
  four queries of `inertial`. Tests call the dialog's operations; only what OK writes is asked with the dialog in front.
- `joywand number_of_devices` is asked for a list of all Joywands in the 6DOF filter dialog. No menu entry shows that
  list; a host that embeds the dialog fills it before the dialog opens.

"""


class Command:
    """A row of the matrix."""

    def __init__(self, pattern, access):
        self.pattern = pattern
        self.access = access
        self.found = {column: set() for column in COLUMNS}

    def add(self, test, dialog, effect, script):
        front = dialog or ("loading" if script else "")
        for column, name in zip(COLUMNS, (front, script, effect, test)):
            if name and name not in BOXES:
                self.found[column].add(name)

    def cells(self, scopes):
        """The texts of the columns; a script or test that asks little comes before one that asks much."""
        for column, most in COLUMNS.items():
            names = sorted(self.found[column], key=lambda name: (scopes.get(name, 0), name))
            yield ", ".join(names[:most]) + (", ..." if len(names) > most else "")


def commands():
    rows = re.findall(r"^\| `([^`]+)` \| (\w+) \|", COMMANDS.read_text(encoding="utf-8"), re.M)
    return {(access, pattern): Command(pattern, access) for pattern, access in rows}


def known_scripts():
    """The scripts of the project, as the tallies name them."""
    return {f"{pathlib.Path(folder).name}/{file.stem}" for folder in SCRIPTS
            for file in (screentexts.PROJECT / folder).glob("*.script")}


def read_tallies(folder, known):
    scripts = known_scripts()
    for tally in sorted(folder.glob("*.tsv")):
        for line in set(tally.read_text(encoding="utf-8").splitlines()):
            access, pattern, dialog, effect, script = line.split("\t")
            # A test writes scripts of its own, too, into folders with names of that day.
            row = known.get((access, pattern))
            if row:
                row.add(tally.stem, dialog, effect, script if script in scripts else "")


def scopes(known):
    """How many commands each script and each test asks."""
    return collections.Counter(name for one in known.values() for column in ("Script", "Test")
                               for name in one.found[column])


def without_tally(folder):
    """The tests that left none; all where nothing is known about them."""
    tests = (folder / TESTS_OF_THE_RUN).read_text(encoding="utf-8").split()
    return [test for test in tests if not (folder / f"{test}.tsv").is_file()]


def empty_cells(known):
    return sum(not names for one in known.values() for names in one.found.values())


def write(known):
    asked = scopes(known)
    lines = ["| Command | Access | " + " | ".join(COLUMNS) + " |", "|---" * (len(COLUMNS) + 2) + "|"]
    lines += ["| " + " | ".join([f"`{one.pattern}`", one.access, *one.cells(asked)]) + " |"
              for one in known.values()]
    count = f"Empty cells: {empty_cells(known)} of {len(known) * len(COLUMNS)}."
    PAGE.write_text(f"{HEAD}{count}\n\n" + "\n".join(lines) + "\n", encoding="utf-8")


def problems(known):
    page = PAGE.read_text(encoding="utf-8")
    rows = {(access, pattern)
            for pattern, access in re.findall(r"^\| `([^`]+)` \| (\w+) \|", page, re.M)}
    for access, pattern in sorted(known.keys() - rows):
        yield f"{access} {pattern}: has no row"
    for access, pattern in sorted(rows - known.keys()):
        yield f"{access} {pattern}: is no command"
    allowed = int(COUNT.search(page).group(1))
    if empty_cells(known) > allowed:
        yield f"{empty_cells(known)} cells are empty, but the page says {allowed}"
        for one in known.values():
            empty = [column for column, names in one.found.items() if not names]
            if empty:
                yield f"  {one.access} {one.pattern}: {', '.join(empty)}"


def main(arguments):
    folder = pathlib.Path(arguments[-1])
    if "--empty" in arguments:
        for tally in folder.glob("*.tsv"):
            tally.unlink()
        return 0
    missing = without_tally(folder)
    if missing:
        print(f"{len(missing)} tests left no tally of what they asked, {missing[0]} for one: run all")
        return SKIPPED
    known = commands()
    read_tallies(folder, known)
    if "--write" in arguments:
        write(known)
        return 0
    found = list(problems(known))
    for problem in found:
        print(f"docs/coverage.md: {problem}", file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
