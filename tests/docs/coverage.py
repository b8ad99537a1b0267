#!/usr/bin/env python3
"""Which command is asked by which dialog, played by which script, disturbed and named by which test.

docs/coverage.md is the matrix. Dialogs and scripts come from recordings of the walks, the sweeps'
scripts and the demonstrations; tests and faults from the texts in the tests' sources. Without
--write the columns of tests are read again, and the check fails when the page has a command too many
or too few, or when more cells are empty than the page says.

usage: coverage.py [--write WORKBENCH]
"""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

import screentexts

PAGE = screentexts.PROJECT / "docs" / "coverage.md"
COMMANDS = screentexts.PROJECT / "docs" / "commands.md"
TESTS = screentexts.PROJECT / "tests"
COUNT = re.compile(r"^Empty cells: (\d+)\.$", re.M)
PLACEHOLDERS = {"TYPE": r"\S+", "NAME": r"\S+", "VALUE": r"\S+", "SENSOR": r".+", "TEXT": r".+"}
SAMPLES = {"TYPE": "standard", "NAME": "name", "VALUE": "1", "SENSOR": "sensor", "TEXT": "text"}
ACCESS_OF = {"set": "set", "command": "action"}
# "get body desc* at 2 answer ..." as the tests write it
RULE = re.compile(r"^(?:(get|set|command|\*) )?(.+?) (?:(?:at|from|every|call|of) \d+ |always )?"
                  r"(fail|refuse|empty|garbled|long|over-long|answer|report-failed|wrong-type|lock"
                  r"|clamp|delay|link-dead|none)\b")
HEAD = """# Coverage of the commands

Every command of the simulated controller against what uses, plays, disturbs and checks it. A cell
without an entry is something nobody looks at. `tests/docs/coverage.py --write build/release/bin/workbench`
makes this page again; the test `docs_coverage` reads the last two columns from the sources and fails when
more cells are empty than here.

- Dialog: which dialog was in front when the command was asked, in the scripts named in the next column;
  "loading" when none was.
- Script: a walk, a demonstration or the script of a sweep that plays the command.
- Disturbed by: "sweep" when the script of a sweep plays the command, so that `tests/campaigns/sweep.sh`
  disturbs it with every fault; else tests with a fault rule for it.
- Named by: tests that hold a line of the command.

The area for the tracking pulse stays hidden in the dialog, so no script plays its commands: tests call its operations.

"""
COLUMNS = "| Command | Access | Dialog | Script | Disturbed by | Named by |"


class Command:
    """A row of the matrix."""

    def __init__(self, pattern, access):
        self.pattern = pattern
        self.access = access
        words = [self.shape(word) for word in pattern.split(" ")]
        self.line = re.compile(" ".join(words) + r"\s*")
        self.sample = " ".join(SAMPLES.get(word, word.replace("NN", "01")) for word in pattern.split(" "))
        self.dialogs, self.scripts, self.faults, self.tests = set(), set(), set(), set()

    @staticmethod
    def shape(word):
        if word in PLACEHOLDERS:
            return PLACEHOLDERS[word]
        return re.escape(word).replace("NN", r"\d\d+")

    def literals(self):
        return sum(word not in SAMPLES and "NN" not in word for word in self.pattern.split(" "))

    def cells(self):
        # One test shows where to look; more would make the table unreadable.
        shown = lambda names, most: ", ".join(sorted(names)[:most]) + (", ..." if len(names) > most else "")
        return [shown(self.dialogs, 4), shown(self.scripts, 3), shown(self.faults, 2), shown(self.tests, 3)]


def commands():
    rows = re.findall(r"^\| `([^`]+)` \| (\w+) \|", COMMANDS.read_text(encoding="utf-8"), re.M)
    return [Command(pattern, access) for pattern, access in rows]


def find(known, access, line):
    """The command of a line; if several match, the one with the most fixed words."""
    fitting = [one for one in known if one.access == access and one.line.fullmatch(line.strip())]
    return max(fitting, key=Command.literals, default=None)


def record(workbench, arguments, name, known, swept):
    """Plays a script and enters its commands."""
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder) / "recording"
        subprocess.run([workbench, "--headless", *arguments, "--record", file], check=True,
                       env=environment, stderr=subprocess.DEVNULL)
        for text in file.read_text(encoding="utf-8").splitlines():
            entry = json.loads(text)
            kind = entry["operation"]
            if kind == "message":
                continue
            row = find(known, ACCESS_OF.get(kind, "get"), entry["line"])
            if row:
                row.dialogs.add(entry.get("dialog") or "loading")
                row.scripts.add(name)
                if swept:
                    row.faults.add("sweep")


def play(workbench, known):
    for script in sorted((TESTS / "workbench" / "walks").glob("*.script")):
        record(workbench, ["--script", script], script.stem, known, False)
    for script in sorted((TESTS / "workbench" / "sweeps").glob("*.script")):
        record(workbench, ["--script", script], f"sweep {script.stem}", known, True)
    for script in sorted((screentexts.PROJECT / "scenarios" / "demos").glob("*.script")):
        record(workbench, ["--demo", script.stem], f"demo {script.stem}", known, False)


def read_page(known):
    """Reads the columns that only a recording gives from the page; returns the mistakes of its rows."""
    text = PAGE.read_text(encoding="utf-8")
    rows = {(row[0], row[1]): row for row in
            ([cell.strip(" `") for cell in line.split("|")[1:-1]] for line in text.splitlines()
             if line.startswith("| `"))}
    for one in known:
        row = rows.pop((one.pattern, one.access), None)
        if row is None:
            yield f"{one.access} {one.pattern}: has no row"
            continue
        one.dialogs.update(filter(None, [row[2]]))
        one.scripts.update(filter(None, [row[3]]))
        if "sweep" in row[4].split(", "):
            one.faults.add("sweep")
    for pattern, access in rows:
        yield f"{access} {pattern}: is no command"


def read_tests(known):
    for path in sorted(TESTS.rglob("tst_*.cpp")):
        source = re.sub(r'"\s*\n\s*"', "", path.read_text(encoding="utf-8"))
        for text in set(re.findall(r'"((?:[^"\\\n]|\\.)+)"', source)):
            text = text.replace('\\"', '"')
            rule = RULE.match(text)
            for one in known:
                words = text.split(" ", 1)
                named = words[1] if words[0] in ("get", "set", "command") and len(words) > 1 else text
                if one.line.fullmatch(named):
                    one.tests.add(path.stem)
                if rule and rule.group(2) != "*" and rule.group(1) in (None, "*", one.access,
                        "command" if one.access == "action" else None):
                    glob = ".*".join(re.escape(part) for part in rule.group(2).split("*"))
                    if re.fullmatch(glob, one.sample):
                        one.faults.add(path.stem)


def empty_cells(known):
    return sum(cell == "" for one in known for cell in one.cells())


def write(known):
    lines = [COLUMNS, "|---|---|---|---|---|---|"]
    lines += ["| " + " | ".join([f"`{one.pattern}`", one.access, *one.cells()]) + " |" for one in known]
    PAGE.write_text(f"{HEAD}Empty cells: {empty_cells(known)}.\n\n" + "\n".join(lines) + "\n",
                    encoding="utf-8")


def main(arguments):
    known = commands()
    if arguments[:1] == ["--write"]:
        play(pathlib.Path(arguments[1]).resolve(), known)
        read_tests(known)
        write(known)
        return 0
    wrong = list(read_page(known))
    read_tests(known)
    allowed = int(COUNT.search(PAGE.read_text(encoding="utf-8")).group(1))
    if empty_cells(known) > allowed:
        wrong.append(f"{empty_cells(known)} cells are empty, but the page says {allowed}")
    for problem in wrong:
        print(f"docs/coverage.md: {problem}", file=sys.stderr)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
