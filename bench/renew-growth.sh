#!/usr/bin/env bash
# Measures growth anew and redraws its pictures in docs/pictures. --build DIR: where the benchmarks are built.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build/bench
[[ ${1:-} == --build ]] && build=$2

figures=$(mktemp --suffix=.json)
trap 'rm -f -- "$figures"' EXIT
"$build/bench/talvix-bench-growth" --benchmark_out="$figures" --benchmark_out_format=json
"$build/bench/talvix-growth-curves" "$figures" "$root/docs/pictures"
