#!/usr/bin/env python3
"""Breaks single lines of the module and checks whether a test notices.

Works on a copy of the sources below build/mutants, so that the tree itself does not change. Each
sampled mutant is compiled and the test classes are run until one fails. Survivors are listed with
their change: either a test is missing, or the change has no effect, which a person has to decide.

Usage: tests/campaigns/mutants.py [--count N] [--seed N] [--files PATTERN] [--minutes N]
"""

import argparse
import concurrent.futures
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
WORK = ROOT / "build" / "mutants"
COPY = WORK / "source"
BUILD = WORK / "build"
PROGRAMS = ["unit_tests", "gui_tests", "accessibility_tests"]  # of many classes
PLUGIN_TESTS = ["tst_plugin", "tst_pluginfile"]  # of one class each
COPIED = ["CMakeLists.txt", "CMakePresets.json", "SourceFiles", "benchmarks", "cmake", "docs", "examples", "forms",
          "general", "hostinterface", "packaging", "portability", "resources", "scenarios", "simulator", "tests",
          "translations", "userinput", "workbench"]
SECONDS_PER_CLASS = 90

# What is replaced in code, outside texts and comments, and by what.
OPERATORS = [
    (r"==", "!="), (r"!=", "=="),
    (r"(?<![-<>=])<=", "<"), (r"(?<![->=])>=", ">"),
    (r" < ", " <= "), (r" > ", " >= "),
    (r"&&", "||"), (r"\|\|", "&&"),
    (r" \+ ", " - "), (r" - ", " + "),
    (r"\btrue\b", "false"), (r"\bfalse\b", "true"),
    (r"(?<=[(\s])!(?=[A-Za-z_(*])", ""),
]
NUMBER = r"(?<![\w.])\d+(?![\w.])"
STATEMENT = re.compile(r"^\s+(?!return\b|delete\b|throw\b)[\w:\->.*<>]+(\(.*\)|\s[-+]?=\s.*);$")
CONDITION = re.compile(r"^(\s*(?:\} else )?if \()(.*)(\)(?: \{)?)$")


def masked(line):
    """The line with the contents of texts and comments as blanks of the same length."""
    blank = lambda match: " " * len(match.group(0))
    line = re.sub(r'"(?:[^"\\]|\\.)*"|\'(?:[^\'\\]|\\.)*\'', blank, line)
    return re.sub(r"//.*", blank, line)


def mutants_of(path):
    """Every mutant of a source as (line number, changed line, description of the change)."""
    found = []
    lines = path.read_text().split("\n")
    in_comment = False
    for number, line in enumerate(lines):
        if "/*" in line:
            in_comment = "*/" not in line
            continue
        if in_comment:
            in_comment = "*/" not in line
            continue
        if line.startswith("#") or not line.startswith(" "):
            continue
        code = masked(line)
        for pattern, replacement in OPERATORS:
            for match in re.finditer(pattern, code):
                changed = line[:match.start()] + replacement + line[match.end():]
                found.append((number, changed, f"{match.group(0).strip()} -> {replacement.strip()}"))
        for match in re.finditer(NUMBER, code):
            changed = line[:match.start()] + str(int(match.group(0)) + 1) + line[match.end():]
            found.append((number, changed, f"{match.group(0)} + 1"))
        condition = CONDITION.match(line)
        if condition and code.count("(") == code.count(")"):
            head, what, tail = condition.groups()
            found.append((number, f"{head}!({what}){tail}", "condition negated"))
        complete = number > 0 and re.search(r"[;{}:]\s*$|^\s*$", masked(lines[number - 1]))
        if STATEMENT.match(code.rstrip()) and complete and code.count("(") == code.count(")"):
            found.append((number, re.match(r"\s*", line).group(0) + ";", "statement removed"))
    return found


def prepare():
    """Copies the sources, configures and builds the copy once, and returns it."""
    COPY.mkdir(parents=True, exist_ok=True)
    for name in COPIED:
        source = ROOT / name
        files = [source] if source.is_file() else [p for p in source.rglob("*") if p.is_file()]
        wanted = {COPY / one.relative_to(ROOT): one for one in files}
        for copy in (COPY / name).rglob("*"):
            if copy.is_file() and copy not in wanted:
                copy.unlink()
        for copy, one in wanted.items():
            # An unchanged file keeps its time, so that it is not compiled again.
            if copy.exists() and copy.read_bytes() == one.read_bytes():
                continue
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(one, copy)
    linker = "-fuse-ld=mold" if shutil.which("mold") else ""
    subprocess.run(["cmake", "-S", COPY, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                    "-DCMAKE_CXX_FLAGS_DEBUG=-g0", "-DTRACKING_PRECOMPILED_HEADERS=ON",
                    f"-DCMAKE_EXE_LINKER_FLAGS={linker}"], check=True, stdout=subprocess.DEVNULL)
    build()


def build():
    """Builds the copy; False when it does not compile."""
    done = subprocess.run(["cmake", "--build", BUILD, "--target", *PROGRAMS, *PLUGIN_TESTS],
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    return done.returncode == 0


def classes():
    """Every (program, class)."""
    listed = []
    for program in PROGRAMS:
        usage = subprocess.run([BUILD / "bin" / program], stderr=subprocess.PIPE, text=True).stderr
        listed += [(program, line.strip()) for line in usage.split("\n") if line.startswith("  ")]
    return listed + [(program, program) for program in PLUGIN_TESTS]


def fails(program_and_class):
    program, name = program_and_class
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    try:
        arguments = [] if name == program else [name]
        done = subprocess.run([BUILD / "bin" / program, *arguments, "-silent"], env=environment,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              timeout=SECONDS_PER_CLASS)
    except subprocess.TimeoutExpired:
        return True
    return done.returncode != 0


def killer(order, pool):
    """The first class that fails; None when all pass."""
    waiting = list(order)
    running = {}
    killed_by = None
    while (waiting or running) and not killed_by:
        while waiting and len(running) < 2:
            one = waiting.pop(0)
            running[pool.submit(fails, one)] = one
        done, _ = concurrent.futures.wait(running,
                                          return_when=concurrent.futures.FIRST_COMPLETED)
        for future in done:
            one = running.pop(future)
            if future.result():
                killed_by = one
    concurrent.futures.wait(running)
    return killed_by


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--count", type=int, default=100)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--files", default="", help="only sources whose path holds this")
    parser.add_argument("--minutes", type=float, default=0, help="begins no mutant after this")
    parser.add_argument("--list", action="store_true", help="shows the sample and runs nothing")
    options = parser.parse_args()

    sources = sorted(p.relative_to(ROOT) for folder in ("SourceFiles", "general")
                     for p in (ROOT / folder).rglob("*.cpp") if options.files in str(p))
    everything = [(source, *mutant) for source in sources for mutant in mutants_of(ROOT / source)]
    sample = random.Random(options.seed).sample(everything, min(options.count, len(everything)))
    print(f"{len(sample)} of {len(everything)} mutants")
    if options.list:
        for source, number, changed, what in sample:
            print(f"{source}:{number + 1}: {what}: {changed.strip()}")
        return 0

    prepare()
    order = classes()
    end = time.monotonic() + options.minutes * 60 if options.minutes else None
    killed = survived = invalid = 0
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        for source, number, changed, what in sample:
            if end and time.monotonic() > end:
                break
            original = (ROOT / source).read_text()
            lines = original.split("\n")
            lines[number] = changed
            (COPY / source).write_text("\n".join(lines))
            where = f"{source}:{number + 1}: {what}: {changed.strip()}"
            if not build():
                invalid += 1
            else:
                # Classes named like the source are the most likely ones.
                stem = source.stem.lower()
                order.sort(key=lambda one: stem not in one[1])
                noticed = killer(order, pool)
                if noticed:
                    killed += 1
                    order.remove(noticed)
                    order.insert(0, noticed)
                else:
                    survived += 1
                print(("killed by " + noticed[1] if noticed else "SURVIVED") + f": {where}",
                      flush=True)
            (COPY / source).write_text(original)
    run = killed + survived
    rate = 100.0 * killed / run if run else 0.0
    print(f"{run} run, {killed} killed, {survived} survived: {rate:.1f} %; "
          f"{invalid} did not compile")
    return 0


if __name__ == "__main__":
    sys.exit(main())
