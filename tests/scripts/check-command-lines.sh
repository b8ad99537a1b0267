#!/bin/bash
# Checks that the programs end with a message and a status, not with an abort, when they are started
# wrongly or without a screen.
# Usage: check-command-lines.sh WORKBENCH BODYNAMES
set -euo pipefail
workbench=$1
bodynames=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
failures=0

# check STATUS TEXT [NAME=VALUE...] PROGRAM [ARGUMENT...]: the output contains the text.
check() {
    local expected=$1 text=$2 status=0
    shift 2
    env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM HOME="$work" "$@" >output 2>&1 </dev/null \
        || status=$?
    if [[ $status != "$expected" ]] || ! grep -qF -- "$text" output; then
        echo "FAIL: $*: status $status instead of $expected, or no \"$text\" in:"
        cat output
        failures=$((failures + 1))
    fi
}

check 0 "Usage: workbench" "$workbench" -h
check 0 "Usage: workbench" "$workbench" --help
check 0 "workbench 3." "$workbench" -v
check 2 "workbench: there is no display." "$workbench"
check 2 "--bogus: expected an option" "$workbench" --bogus
check 2 "--scenario: expected a file or one of" "$workbench" --scenario nowhere
check 2 "--demo: expected one of" "$workbench" --demo nothing
check 2 'cannot use the platform "nosuch"' QT_QPA_PLATFORM=nosuch "$workbench"
check 2 'cannot use the platform "nosuch"' QT_QPA_PLATFORM=nosuch "$workbench" --tour pictures

check 0 "Usage: " "$bodynames" -h
check 0 "bodynames 3." "$bodynames" -v
check 2 "bogus" "$bodynames" --bogus
check 2 "no such file.json: " "$bodynames" "no such file.json"
check 2 "no screen can be used" "$bodynames"
check 2 "no screen can be used" QT_QPA_PLATFORM=nosuch "$bodynames"

[[ $failures == 0 ]] && echo "PASS"
