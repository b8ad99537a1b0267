#!/bin/bash
# Searches for input that a reader cannot handle, with libFuzzer on each target, one after the
# other. Findings are kept in build/fuzz/findings. A corrected one belongs into tests/fuzz/corpus,
# which ./test replays.
# Usage: tests/campaigns/fuzz.sh [SECONDS for each target, by default 600] [TARGET...]
set -uo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

seconds=${1:-600}
shift || true
targets=("$@")
[[ ${#targets[@]} -gt 0 ]] || mapfile -t targets < <(cd tests/fuzz/corpus && ls)

cmake/install-packages.sh fuzz
cmake --preset fuzz >/dev/null && cmake --build --preset fuzz || exit 1

export QT_QPA_PLATFORM=offscreen
export LSAN_OPTIONS="suppressions=$PWD/tests/support/leaks.supp:print_suppressions=0"
failed=()
for target in "${targets[@]}"; do
    found=build/fuzz/found/$target
    findings=build/fuzz/findings/$target
    mkdir -p "$found" "$findings"
    log=build/fuzz/$target.log
    if build/fuzz/bin/"fuzz_$target" -max_total_time="$seconds" -timeout=10 -max_len=4096 \
        -rss_limit_mb=2048 -artifact_prefix="$findings/" "$found" "tests/fuzz/corpus/$target" \
        >"$log" 2>&1; then
        echo "$target: $(grep -oE '^Done [0-9]+ runs in [0-9]+ second' "$log")s, no finding"
    else
        failed+=("$target")
        echo "$target: FINDING, see $log and $findings"
        grep -E 'ERROR|not so|runtime error' "$log" | head -3
    fi
done
[[ ${#failed[@]} -eq 0 ]]
