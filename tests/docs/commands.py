#!/usr/bin/env python3
"""Runs the commands of the pages, so that none goes stale.

A block of commands is fenced as "sh test", or as "sh slow" when it takes long; a block fenced as
"sh" alone fails. The blocks run in a copy of the sources. The package manager and the build tools
have stand-ins there: they check that the presets and variables named exist, and what is built is
the workbench of this build. A workbench that would wait for a person plays an empty script.

usage: commands.py [--slow] WORKBENCH
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import screentexts

BLOCK = re.compile(r"^```sh(?P<mark>[^\n]*)\n(?P<commands>.*?)^```$", re.M | re.S)

STAND_INS = {
    "dpkg": 'echo "Status: install ok installed"',
    "apt-get": "exit 0",
    "sudo": 'exec "$@"',
    "cpack": 'exec "$(dirname "$0")/preset" "$@"',
    "ctest": 'exec "$(dirname "$0")/preset" "$@"',
    "cmake": """"$(dirname "$0")/preset" "$@" || exit
[[ "$*" == *--build* ]] || exit 0
mkdir -p build/release/bin
cp "$(dirname "$0")/workbench" build/release/bin/workbench""",
    # Fails when a preset or a variable on the command line is not one of the project.
    "preset": """while (($#)); do
    case $1 in
    --preset) shift; grep -q "\\"name\\": \\"$1\\"" CMakePresets.json || { echo "no preset $1"; exit 1; } ;;
    -D*) name=${1#-D}; name=${name%%=*}
        [[ $name == CMAKE_* ]] || grep -rqw "$name" --include=CMakeLists.txt --include=*.cmake . \\
            || { echo "no variable $name"; exit 1; } ;;
    esac
    shift
done""",
    "workbench": """case " $* " in
*" --tour "* | *" --script "* | *" --help "* | *" --demo "* | *"-diff"*) ;;
*) set -- "$@" --headless --script "$STAND_INS/empty.script" ;;
esac
exec "$WORKBENCH" "$@\"""",
}


def pages():
    yield from sorted(screentexts.PROJECT.glob("*.md"))
    yield from sorted((screentexts.PROJECT / "docs").rglob("*.md"))


def blocks():
    """The page, line, mark and commands of each block."""
    for page in pages():
        text = page.read_text(encoding="utf-8")
        for block in BLOCK.finditer(text):
            line = text.count("\n", 0, block.start()) + 1
            name = page.relative_to(screentexts.PROJECT)
            yield f"{name}:{line}", block["mark"].strip(), block["commands"]


def prepared(folder, workbench):
    """Copies the sources, makes the stand-ins and returns the environment for the commands."""
    shutil.copytree(
        screentexts.PROJECT,
        folder / "copy",
        ignore=shutil.ignore_patterns("build", ".git", ".cache", "__pycache__"),
    )
    tools = folder / "bin"
    tools.mkdir()
    for name, text in STAND_INS.items():
        path = tools / name
        path.write_text(f"#!/bin/bash\n{text}\n", encoding="utf-8")
        path.chmod(0o755)
    (tools / "empty.script").write_text("mark\n", encoding="utf-8")
    (folder / "home").mkdir()
    environment = dict(os.environ)
    environment.update(
        PATH=f"{tools}:{environment['PATH']}",
        STAND_INS=str(tools),
        WORKBENCH=str(workbench),
        HOME=str(folder / "home"),
        TMPDIR=str(folder),
        QT_QPA_PLATFORM="offscreen",
    )
    return environment


def main(arguments):
    slow = "--slow" in arguments
    workbench = pathlib.Path(arguments[-1]).resolve()
    wanted = "slow" if slow else "test"
    failures = 0
    ran = 0
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch)
        environment = prepared(folder, workbench)
        for place, mark, commands in blocks():
            if mark not in ("test", "slow"):
                print(f"{place}: fence the block as sh test or sh slow")
                failures += 1
            if mark != wanted:
                continue
            ran += 1
            result = subprocess.run(
                ["bash", "-euo", "pipefail", "-c", commands],
                cwd=folder / "copy",
                env=environment,
                stdin=subprocess.DEVNULL,
                stdout=subprocess.PIPE,
                stderr=subprocess.STDOUT,
                text=True,
                check=False,
            )
            if result.returncode != 0:
                print(f"{place}: exit status {result.returncode}\n{commands}{result.stdout}")
                failures += 1
    if ran == 0:
        print(f"no block is marked {wanted}")
        failures += 1
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
