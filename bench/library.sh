#!/usr/bin/env bash
# What loading the library has to do: its size and its relocations. --build DIR: where it is built (build/bench).
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
