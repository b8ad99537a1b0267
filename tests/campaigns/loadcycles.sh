#!/bin/bash
# Loads the plug-in, opens its dialogs, shuts it down and unloads it a thousand times; fails when a
# round leaves more memory behind than the toolkit itself keeps.
# Usage: tests/campaigns/loadcycles.sh [ROUNDS, by default 1000]
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

cmake --preset dev >/dev/null
cmake --build --preset dev --target tst_plugin
export QT_QPA_PLATFORM=offscreen QTEST_FUNCTION_TIMEOUT=3600000 TRACKING_LOAD_CYCLES=${1:-1000}
export LSAN_OPTIONS="suppressions=$PWD/tests/support/leaks.supp:print_suppressions=0"
build/dev/bin/tst_plugin loadingAgainAndAgainKeepsNoMemory
