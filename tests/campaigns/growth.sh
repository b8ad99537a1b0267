#!/bin/bash
# Counts the instructions of an unchanged refresh at 500 and at 2,000 bodies with callgrind: with
# four times the bodies they may grow 4.2 times.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

few=500 many=2000 most_growth=4.2
cmake/install-packages.sh memcheck
cmake --preset release >/dev/null
cmake --build --preset release --target trackingbenchmark

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export QT_QPA_PLATFORM=offscreen HOME=$scratch

# instructions BODIES ROUNDS: the instructions of the whole program
instructions() {
    valgrind --tool=callgrind --callgrind-out-file="$scratch/out" \
        build/release/bin/trackingbenchmark --repeat refresh --bodies "$1" --rounds "$2" \
        >"$scratch/log" 2>&1 || { cat "$scratch/log" >&2; exit 1; }
    sed -n 's/.*Collected : //p' "$scratch/log"
}

# a_refresh BODIES: the difference between two numbers of rounds, without start and opening
a_refresh() {
    local less more
    less=$(instructions "$1" 2)
    more=$(instructions "$1" 10)
    echo $(((more - less) / 8))
}

at_few=$(a_refresh $few)
at_many=$(a_refresh $many)
growth=$(awk "BEGIN { printf \"%.2f\", $at_many / $at_few }")
echo "$few bodies: $at_few instructions, $many bodies: $at_many, growth $growth"
awk "BEGIN { exit !($growth <= $most_growth) }" || { echo "more than $most_growth" >&2; exit 1; }
