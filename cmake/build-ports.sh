#!/bin/bash
# Builds module, simulator and workbench with the other compiler, as the next C++ and with Qt 6,
# with warnings as errors, and runs the plug-in's tests with each. Arguments: the presets; the
# default is all three.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."

[[ $# -gt 0 ]] || set -- clang cpp20 qt6
cmake/install-packages.sh run
for preset in "$@"; do
    cmake/install-packages.sh "$preset"
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset" --target workbench bodynames plugin_tests
    ctest --preset "$preset" -j"$(nproc)" -L plugin
done
