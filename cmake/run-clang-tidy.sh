#!/bin/bash
# Runs clang-tidy over the program sources (or the files given), by the dev build's compile commands.
# It takes minutes, so it is no test. Needs the Debian package clang-tidy.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."

if [[ $# -gt 0 ]]; then
    files=("$@")
else
    mapfile -t files < <(find SourceFiles general simulator userinput workbench -name '*.cpp' | sort)
fi
cmake --preset dev >/dev/null
# The headers that the build generates have to exist.
cmake --build --preset dev >/dev/null
printf '%s\0' "${files[@]}" | xargs -0 -n 4 -P "$(nproc)" clang-tidy --quiet -p build/dev
