#!/bin/bash
# Runs clang-tidy over the program sources, or over the given folders or files. The small host in
# examples is left out, because it has a build of its own. The script generates headers but compiles
# nothing. Needs the Debian package clang-tidy.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."

[[ $# -gt 0 ]] || set -- SourceFiles general simulator userinput workbench examples/bodynames.cpp benchmarks
mapfile -t files < <(find "$@" -name '*.cpp' | sort)
[[ ${#files[@]} -gt 0 ]] || { echo "no source files found in $*" >&2; exit 1; }
cmake --preset tidy >/dev/null
cmake --build --preset tidy --target tracking_general_forms tracking_module_forms >/dev/null
printf '%s\0' "${files[@]}" | xargs -0 -n 2 -P "$(nproc)" clang-tidy --quiet -p build/tidy
