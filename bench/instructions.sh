#!/usr/bin/env bash
# Counts the instructions of a page's reload and of its floor, prints their ratios and fails above bench/limits.txt.
# --short: without the rows of more than 1,000 bars. --build DIR: where the benchmarks were built; otherwise it builds what
# it needs in build/bench.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
build=
most_bars=1000000
while [[ $# -gt 0 ]]; do
    case $1 in
        --short) most_bars=1000 ;;
        --build)
            build=$(cd -- "$2" && pwd)
            shift
            ;;
        *)
            echo "usage: ${BASH_SOURCE[0]} [--short] [--build DIR]" >&2
            exit 2
            ;;
    esac
    shift
done

if [[ -z $build ]]; then
    source "$root/cmake/packages.sh"
    install_missing "${build_packages[@]}" "${run_packages[@]}" "${bench_packages[@]}"
    (cd -- "$root" && cmake --preset bench && cmake --build build/bench --target talvix-bench-instructions) > /dev/null
    build=$root/build/bench
fi

work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT

mapfile -t rows < <(awk -v most="$most_bars" '!/^#/ && NF == 3 && $2 <= most { print $1; print $2 }' "$root/bench/limits.txt")
cd -- "$work"
# An instruction that copies a block by itself would be counted once for each byte.
export GLIBC_TUNABLES=glibc.cpu.x86_rep_movsb_threshold=0x7fffffff
if ! valgrind --tool=callgrind --instr-atstart=no --callgrind-out-file="$work/count" \
    "$build/bench/talvix-bench-instructions" "${rows[@]}" > "$work/log" 2>&1; then
    cat "$work/log" >&2
    exit 1
fi

# Each dump names what it counted in its trigger: "page KIND BARS" or "floor KIND BARS".
for dump in "$work"/count.*; do
    awk '/^desc: Trigger: Client Request:/ { sub(/.*Request: */, ""); name = $0 }
        /^totals:/ { if (name != "") print name, $2 }' "$dump"
done > "$work/counts"

awk '
    FNR == NR { if (!/^#/ && NF == 3) limit[$1 " " $2] = $3; next }
    { count[$1, $2 " " $3] = $4; if ($1 == "page") row[++rows] = $2 " " $3 }
    END {
        printf "%8s %6s %15s %15s %7s %7s\n", "kind", "bars", "page", "floor", "ratio", "limit"
        for (i = 1; i <= rows; ++i) {
            split(row[i], part, " ")
            ratio = count["page", row[i]] / count["floor", row[i]]
            over = ratio > limit[row[i]]
            printf "%8s %6d %15.0f %15.0f %7.3f %7.3f%s\n", part[1], part[2], count["page", row[i]],
                count["floor", row[i]], ratio, limit[row[i]], over ? "  too much" : ""
            failed += over
        }
        exit rows == 0 || failed > 0
    }' "$root/bench/limits.txt" "$work/counts"
