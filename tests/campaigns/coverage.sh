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
ctest --preset coverage -j"$(nproc)" -LE 'slow|campaign' --output-on-failure >build/coverage/ctest.log || {
    sed -n '/The following tests FAILED/,$p' build/coverage/ctest.log
    exit 1
}

floor() { sed -n "s/^$1 //p" tests/campaigns/coverage.txt; }
mkdir -p build/coverage/report
# Branches that only an exception takes cannot be reached, because the module throws none.
gcovr --root . --object-directory build/coverage --filter SourceFiles/ --filter general/ \
    --exclude-throw-branches --exclude-unreachable-branches --sort-uncovered \
    --html-details build/coverage/report/index.html \
    --txt build/coverage/report/report.txt --print-summary \
    --fail-under-line "$(floor lines)" --fail-under-branch "$(floor branches)" \
    build/coverage
