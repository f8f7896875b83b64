#!/usr/bin/env bash
# Builds the development host and runs it with the options that are given (./run.sh --help).
# Without a display it makes pictures of all kinds of statistics in out/ instead.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
called_from=$PWD
source "$root/cmake/packages.sh"
install_missing "${build_packages[@]}" "${run_packages[@]}"

cd -- "$root"
log=$(mktemp)
trap 'rm -f -- "$log"' EXIT
echo "Building …" >&2
if ! { cmake --preset release -D TALVIX_BUILD_TESTS=OFF -D TALVIX_BUILD_BENCHMARKS=OFF && cmake --build build/release --target talvix-devhost; } > "$log" 2>&1; then
    cat -- "$log" >&2
    echo "The build failed." >&2
    exit 1
fi
grep -A4 -F 'warning:' "$log" >&2 || true
rm -f -- "$log"
trap - EXIT

cd -- "$called_from"
program="$root/build/release/devhost/app/talvix-devhost"
if [[ $# -gt 0 || -n ${DISPLAY:-} || -n ${WAYLAND_DISPLAY:-} || -n ${QT_QPA_PLATFORM:-} ]]; then
    exec "$program" "$@"
fi
"$program" --snapshot "$root/out"
echo "There is no display. Pictures of all statistics are in $root/out." >&2
