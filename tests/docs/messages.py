#!/usr/bin/env python3
"""Compares docs/messages.md with the messages that the sources hold.

Without arguments: says what is missing, gone or not described, and fails if anything is.
With --write: adds rows for new messages under the last heading, drops the rows of messages that
are gone, and keeps what was written about all others.
"""

import re
import sys

import screentexts

PAGE = screentexts.PROJECT / "docs" / "messages.md"
NEW_HEADING = "## Not described yet"
COLUMNS = ["| Message | Cause | Effect | Remedy |", "|---|---|---|---|"]

# Calls whose texts explain a widget and report nothing.
EXPLAINING = {"setWhatsThis", "setAccessibleName", "setAccessibleDescription", "setToolTip",
              "setStatusTip", "addItem", "setWindowTitle"}
# Pages of help are not messages either.
HELP_SOURCES = {"helpdialog.cpp", "filterhelp.cpp"}
# Texts of three or more words that report nothing.
NO_MESSAGES = {
    "Change settings of the 6DOF standard bodies and the 3DOF markers and body administration",
    "GUI Settings Tracking",
    "Settings of all bodies",
    "- Found Targets -",
    "Target Library, re-calibrated",
    "standard body %1",
    "Joywand body %1",
}
SHORTEST = 3


def boxes():
    """The texts of boxes and of the lines that a dialog shows in red or under its buttons."""
    found = set()
    for path, literal in screentexts.module_literals():
        if path.name in HELP_SOURCES or not literal.is_translated() or literal.is_log_line():
            continue
        text = screentexts.shown(literal.text)
        if EXPLAINING.intersection(literal.calls) or text in NO_MESSAGES:
            continue
        if len(text.split()) >= SHORTEST:
            found.add(text)
    return found


def expected_keys():
    return {f"`{line}`" for line in screentexts.log_lines()} | {f"**{text}**" for text in boxes()}


def cells(line):
    """The cells of a row that describes a message; nothing for other rows."""
    if not re.match(r"\| (`|\*\*)", line):
        return None
    return [cell.strip() for cell in line.strip().strip("|").split("|")]


def compared(page, expected):
    """The problems of a page, and the page without them."""
    problems = []
    kept = []
    known = set()
    for line in page.splitlines():
        row = cells(line)
        if row is None:
            kept.append(line)
            continue
        key = row[0]
        if key not in expected:
            problems.append(f"no source holds {key}")
        elif key in known:
            problems.append(f"{key} is described twice")
        else:
            known.add(key)
            kept.append(line)
            if len(row) != 4 or not all(row):
                problems.append(f"{key} needs a cause, an effect and a remedy")
    missing = sorted(expected - known)
    problems += [f"{key} is not described" for key in missing]
    if missing:
        if NEW_HEADING not in kept:
            kept += ["", NEW_HEADING, ""] + COLUMNS
        kept += [f"| {key} |  |  |  |" for key in missing]
    return problems, "\n".join(kept).rstrip("\n") + "\n"


def main(arguments):
    page = PAGE.read_text(encoding="utf-8")
    problems, mended = compared(page, expected_keys())
    for problem in problems:
        print(problem)
    if arguments == ["--write"]:
        PAGE.write_text(mended, encoding="utf-8")
        return 0
    if problems:
        print(f"{len(problems)} differences; tests/docs/messages.py --write adds and drops rows,"
              " causes and remedies are written by hand")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
