#!/bin/bash
# Plays every script of an operator's day with every fault at every operation, and then drives the
# dialogs at random. Takes hours. The arguments are passed to each sweep, e.g. --every 3 --faults
# dead.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

run=${WORKBENCH:-./run}
seeds=${SEEDS:-1-1000}
status=0
for script in tests/workbench/sweeps/*.script; do
    "$run" --headless --sweep "$script" "$@" || status=1
done
"$run" --headless --explore "$seeds" || status=1
exit $status
