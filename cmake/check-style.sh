#!/bin/bash
# Fails when a source file is not formatted as .clang-format says. With --fix it formats the files.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."

mode=(--dry-run -Werror)
[[ ${1:-} == --fix ]] && mode=(-i)

folders=()
for folder in SourceFiles benchmarks examples general hostinterface portability simulator tests \
        userinput workbench; do
    [[ -d $folder ]] && folders+=("$folder")
done
mapfile -t files < <(find "${folders[@]}" -name '*.cpp' -o -name '*.h' | sort)
[[ ${#files[@]} -gt 0 ]] || { echo "no source files found" >&2; exit 1; }
clang-format "${mode[@]}" "${files[@]}"
