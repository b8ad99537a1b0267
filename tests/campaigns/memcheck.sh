#!/bin/bash
# Runs the tests of the built plug-in with valgrind's memcheck, which finds reads of memory that was
# never written. The sanitizers of ./test do not find them.
# Usage: tests/campaigns/memcheck.sh
set -uo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."

cmake/install-packages.sh memcheck
# Built without the sanitizers, which do not work with valgrind.
cmake --preset memcheck >/dev/null && cmake --build --preset memcheck || exit 1

# Valgrind cannot read code that is made at run time.
export QT_QPA_PLATFORM=offscreen QT_ENABLE_REGEXP_JIT=0
failed=0
for test in tst_plugin tst_pluginfile; do
    log=build/memcheck/$test.log
    if valgrind --quiet --error-exitcode=99 --errors-for-leak-kinds=none --child-silent-after-fork=yes \
        --suppressions=tests/campaigns/memcheck.supp "build/memcheck/bin/$test" >"$log" 2>&1; then
        echo "$test: no error"
    else
        echo "$test: FAILED, see $log"
        failed=1
    fi
done
exit $failed
