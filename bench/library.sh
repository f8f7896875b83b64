#!/usr/bin/env bash
# What loading the library has to do: its size, its relocations, and the median time of twenty processes that load it.
# --build DIR: where it is built (build/bench).
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build/bench
[[ ${1:-} == --build ]] && build=$2
library=$build/plugin/libTalvixDataStatics.so

stripped=$(mktemp)
trap 'rm -f -- "$stripped"' EXIT
strip --strip-unneeded -o "$stripped" "$library"
echo "bytes, stripped: $(stat --format=%s "$stripped")"
echo "relocations: $(readelf --relocs --wide "$library" | grep -cE '^[0-9a-f]{8,}')"
echo "of them relative: $(readelf --relocs --wide "$library" | grep -c RELATIVE)"

times=$(for _ in {1..20}; do QT_QPA_PLATFORM=offscreen "$build/bench/talvix-bench-loading" "$library" 2> /dev/null; done)
echo "microseconds: $(sort -n <<< "$times" | sed -n 10p)"
