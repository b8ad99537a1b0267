#!/usr/bin/env python3
"""Runs the commands of the pages, so that none becomes outdated.

A block of commands is fenced as "sh test", or as "sh slow" when it takes long; a block fenced as
"sh" alone fails, and so does one that is indented only. The blocks run in a copy of the sources.
The package manager and the build tools have stand-ins there: they check that the presets, variables
and folders named exist, and what is built is the workbench of this build. A workbench that would
wait for a person plays an empty script.

The workbench plays what is fenced as "script" and takes each line of "faults" as a rule. Lines
fenced as "cpp" are in one of the examples.

usage: commands.py [--slow] WORKBENCH
"""

import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile

import screentexts

BLOCK = re.compile(r"^```(?P<fence>[^\n]*)\n(?P<lines>.*?)^```$", re.M | re.S)
INDENTED = re.compile(r"(?<=\n\n)    \S.*")
IN_A_LIST = re.compile(r"^\s*([-*]|\d+\.) ")

# Fences that are not run: drawings and the output of programs.
NOT_RUN = ("", "text")

STAND_INS = {
    "dpkg": 'echo "Status: install ok installed"',
    "apt-get": "exit 0",
    "sudo": 'exec "$@"',
    "cpack": 'exec "$(dirname "$0")/preset" "$@"',
    "ctest": 'exec "$(dirname "$0")/preset" "$@"',
    "cmake": """"$(dirname "$0")/preset" "$@" || exit
if [[ "$*" == "--build build/minimalhost"* ]]; then
    cp "$(dirname "$0")/minimalhost" build/minimalhost/minimalhost
elif [[ "$*" == *--build* ]]; then
    mkdir -p build/release/bin
    cp "$(dirname "$0")/workbench" build/release/bin/workbench
    ln -sfn "$(dirname "$(dirname "$WORKBENCH")")/plugins" build/release/plugins
fi""",
    # Fails when a folder of sources, a preset or a variable on the command line is not one of the project.
    "preset": """while (($#)); do
    case $1 in
    --preset) shift; grep -q "\\"name\\": \\"$1\\"" CMakePresets.json || { echo "no preset $1"; exit 1; } ;;
    -S) shift; [[ -f $1/CMakeLists.txt ]] || { echo "no sources $1"; exit 1; } ;;
    -B) shift; mkdir -p "$1" ;;
    -D*) name=${1#-D}; name=${name%%=*}
        [[ $name == CMAKE_* ]] || grep -rqw "$name" --include=CMakeLists.txt --include=*.cmake . \\
            || { echo "no variable $name"; exit 1; } ;;
    esac
    shift
done""",
    # The check of the installation builds and runs the real one.
    "minimalhost": """for option; do
    grep -qF -- "\"$option\"" examples/minimalhost/minimalhost.cpp || { echo "no $option"; exit 1; }
done""",
    "workbench": """case " $* " in
*" --tour "* | *" --script "* | *" --help "* | *"-diff"* | *" --headless "* | *-check*) ;;
*" --demo "*) set -- "$@" --headless ;;
*) set -- "$@" --headless --script "$STAND_INS/empty.script" ;;
esac
exec "$WORKBENCH" "$@\"""",
}


def pages():
    yield from sorted(screentexts.PROJECT.glob("*.md"))
    yield from sorted((screentexts.PROJECT / "docs").rglob("*.md"))


def place(page, text, start):
    line = text.count("\n", 0, start) + 1
    return f"{page.relative_to(screentexts.PROJECT)}:{line}"


def blocks():
    """The place, fence and lines of each block."""
    for page in pages():
        text = page.read_text(encoding="utf-8")
        for block in BLOCK.finditer(text):
            yield place(page, text, block.start()), block["fence"].strip(), block["lines"]


def unfenced():
    """The places of blocks that are only indented; paragraphs of a list do not count."""
    for page in pages():
        text = page.read_text(encoding="utf-8")
        for block in INDENTED.finditer(text):
            before = text[: block.start()].rstrip("\n").rsplit("\n\n", 1)[-1]
            if not IN_A_LIST.match(before) and not before.startswith("  "):
                yield place(page, text, block.start())


def commands(fence, lines):
    """The shell commands that run a block; nothing when no command can."""
    if fence in ("sh test", "sh slow"):
        return lines
    workbench = '"$STAND_INS/workbench" --headless --script'
    if fence == "script":
        return f"cat >page.script <<'END'\n{lines}END\n{workbench} page.script\n"
    if fence == "faults":
        rules = " ".join("--fault " + shlex.quote(line) for line in lines.splitlines())
        return f'{workbench} "$STAND_INS/empty.script" {rules}\n'
    if fence == "cpp":
        return "".join(
            f"grep -rqF {shlex.quote(line.strip())} examples || {{ echo 'in no example'; exit 1; }}\n"
            for line in lines.splitlines()
        )
    return None


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


def output_of_failure(text, folder, environment):
    """The output and status of commands that fail; nothing when they succeed."""
    result = subprocess.run(
        ["bash", "-euo", "pipefail", "-c", text],
        cwd=folder / "copy",
        env=environment,
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        text=True,
        check=False,
    )
    return f"exit status {result.returncode}\n{text}{result.stdout}" if result.returncode else ""


def problems(slow, workbench):
    for found in unfenced():
        yield f"{found}: fence the block"
    done = set()  # what stands on several pages is run once
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch)
        environment = prepared(folder, workbench)
        for found, fence, lines in blocks():
            text = commands(fence, lines)
            if text is None and fence not in NOT_RUN:
                yield f"{found}: fence the block as sh test, sh slow, script, faults, cpp or text"
            if text is None or text in done or (fence == "sh slow") != slow:
                continue
            done.add(text)
            failure = output_of_failure(text, folder, environment)
            if failure:
                yield f"{found}: {failure}"
    if not done:
        yield "no block was run"


def main(arguments):
    workbench = pathlib.Path(arguments[-1]).resolve()
    found = list(problems("--slow" in arguments, workbench))
    for problem in found:
        print(problem)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
