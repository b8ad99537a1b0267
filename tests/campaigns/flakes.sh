#!/bin/bash
# Runs the suite many times in random order, four tests at a time, and lists every test that has
# failed.
# Usage: tests/campaigns/flakes.sh [ROUNDS, by default 20] [further arguments of ctest]
set -uo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

rounds=${1:-20}
shift || true
cmake --preset dev >/dev/null && cmake --build --preset dev || exit 1

failed=0
for ((round = 1; round <= rounds; ++round)); do
    log=build/dev/flakes-$round.log
    if ctest --preset dev -j4 --schedule-random -LE 'slow|campaign' "$@" >"$log" 2>&1; then
        rm "$log"
        echo "round $round of $rounds: all passed"
    else
        failed=$((failed + 1))
        echo "round $round of $rounds: FAILED, see $log"
        sed -n '/The following tests FAILED/,/Errors while/p' "$log"
    fi
done
echo "$failed of $rounds rounds failed"
[[ $failed -eq 0 ]]
