#!/usr/bin/env bash
# Runs tests under valgrind's memcheck: all of them, in hours, or those that are named. Long tests are cut to a few rounds.
# usage: tests/memcheck.sh [TEST...]      tests/memcheck.sh tst_titles tst_periods
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
source "$root/cmake/packages.sh"
install_missing "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}" "${memcheck_packages[@]}"

cd -- "$root"
cmake --preset dev > /dev/null
cmake --build build/dev > /dev/null

tests=("$@")
[[ ${#tests[@]} -gt 0 ]] || mapfile -t tests < <(cd tests && printf '%s\n' tst_*.cpp | sed 's/\.cpp$//')
work=build/dev/memcheck
mkdir -p -- "$work"
export QT_QPA_PLATFORM=offscreen QTEST_FUNCTION_TIMEOUT=2000000000
# Code that is compiled while it runs reads in whole words.
export QT_ENABLE_REGEXP_JIT=0
export TALVIX_MONKEY_EVENTS=450 TALVIX_SOAK_CYCLES=9 TALVIX_SOAK_RELOADS=20

# Prints what memcheck found in a test. A test that goes by the clock may fail on so slow a machine; what it asserts is not
# the matter here.
check() {
    local test=$1 found totals
    valgrind --quiet --suppressions="$PWD/tests/memcheck.supp" --num-callers=25 --log-file="$2/$test.memcheck" \
        "build/dev/tests/$test" > "$2/$test.log" 2>&1 || true
    found=$(grep -cE '^==[0-9]+== (Invalid|Conditional|Use of|Syscall|Mismatched|Source and)' "$2/$test.memcheck" || true)
    totals=$(grep '^Totals: ' "$2/$test.log") || totals="did not end"
    echo "$test: ${found:-0} errors; $totals"
    [[ $found -eq 0 && $totals != "did not end" ]]
}
export -f check
printf '%s\0' "${tests[@]}" | xargs -0 -I TEST -P "$(nproc)" bash -c 'check "$@"' check TEST "$work"
