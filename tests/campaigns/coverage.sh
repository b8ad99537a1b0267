#!/bin/bash
# Measures which lines and branches of the module the tests run, writes the report to
# build/coverage/report/index.html, and fails when the figures fall below those in coverage.txt.
# Usage: tests/campaigns/coverage.sh
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

cmake/install-packages.sh coverage
cmake --preset coverage >/dev/null
cmake --build --preset coverage
find build/coverage -name '*.gcda' -delete
# Left out: checks that run no code of the module, and two that link it into programs of their own,
# which are not built for counting.
left_out='style|run_command|forms|command_lines|docs_.*|install|tst_vendorprefix'
ctest --preset coverage -j"$(nproc)" -LE 'slow|campaign' -E "^($left_out)\$" --output-on-failure \
    >build/coverage/ctest.log || {
    sed -n '/The following tests FAILED/,$p' build/coverage/ctest.log
    exit 1
}

floor() { sed -n "s/^$1 //p" tests/campaigns/coverage.txt; }
mkdir -p build/coverage/report
gcovr --root . --object-directory build/coverage --filter SourceFiles/ --filter general/ \
    --exclude-unreachable-branches --sort-uncovered \
    --html-details build/coverage/report/index.html \
    --txt build/coverage/report/report.txt --print-summary \
    --fail-under-line "$(floor lines)" --fail-under-branch "$(floor branches)" \
    build/coverage
