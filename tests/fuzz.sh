#!/usr/bin/env bash
# Builds the fuzz targets and runs all of them for a while, two at a time, on top of their seeds.
# usage: tests/fuzz.sh [SECONDS FOR EACH TARGET]      (120)
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
seconds=${1:-120}
if ! [[ $seconds =~ ^[1-9][0-9]*$ ]]; then
    echo "usage: ${BASH_SOURCE[0]} [SECONDS FOR EACH TARGET]" >&2
    exit 2
fi

source "$root/cmake/packages.sh"
install_missing "${build_packages[@]}" "${run_packages[@]}" "${sanitizer_packages[@]}"

cd -- "$root"
cmake --preset asan
cmake --build --preset fuzz

programs=$root/build/asan/tests
work=$root/build/asan/findings
mkdir -p -- "$work"

# What is found new stays in the build tree, so that another run goes on from there.
fuzz() {
    local target=$1 seeds=$root/tests/fuzz/seeds/$1 words=$root/tests/fuzz/$1.dict
    local options=(-max_total_time="$seconds" -timeout=30 -max_len=2048 -len_control=0 -rss_limit_mb=4096
        -print_final_stats=1 -artifact_prefix="$work/$target-")
    [[ ! -f $words ]] || options+=(-dict="$words")
    mkdir -p -- "$work/$target"
    QT_QPA_PLATFORM=offscreen QT_HASH_SEED=0 FONTCONFIG_FILE="$root/tests/fuzz/fonts.conf" \
        UBSAN_OPTIONS=print_stacktrace=1 ASAN_OPTIONS=quarantine_size_mb=32:malloc_context_size=8 \
        "$programs/$target" "${options[@]}" "$work/$target" "$seeds" > "$work/$target.log" 2>&1
}

# Prints how a target ended; false when it found something.
tell() {
    local target=$1 ended=$2 executions
    executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$work/$target.log")
    echo "$target: ${executions:-?} executions, $([[ $ended -eq 0 ]] && echo 'nothing found' || echo FOUND)"
    [[ $ended -ne 0 ]] || return 0
    tail -n 60 -- "$work/$target.log" >&2
    return 1
}

targets=("$root"/tests/fuzz/fuzz_*.cpp)
targets=("${targets[@]##*/}")
targets=("${targets[@]%.cpp}")
found=0
for ((first = 0; first < ${#targets[@]}; first += 2)); do
    pair=("${targets[@]:first:2}")
    runs=()
    for target in "${pair[@]}"; do
        fuzz "$target" &
        runs+=($!)
    done
    for i in "${!runs[@]}"; do
        ended=0
        wait "${runs[i]}" || ended=$?
        tell "${pair[i]}" "$ended" || found=1
    done
done
exit "$found"
