#!/usr/bin/env bash
# Measures the development host's database at 1,000,000 and 10,000,000 events, in SQLite and in PostgreSQL.
# Fails when a query is slower, or grows more, than it may. Everything it makes lies in temporary folders.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
usage="usage: ${BASH_SOURCE[0]} [--quick] [option of talvix-store-figures]...
  --quick  100,000 and 1,000,000 events"
options=()
for option in "$@"; do
    case $option in
        --quick) options+=(--events 100000 --rounds 10) ;;
        -h | --help)
            echo "$usage"
            exit 0
            ;;
        *) options+=("$option") ;;
    esac
done

build=$root/build/bench
source "$root/cmake/packages.sh"
install_missing "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}" "${bench_packages[@]}"
(cd -- "$root" && cmake --preset bench) >&2
cmake --build "$build" --target talvix-store-figures >&2
exec "$build/bench/talvix-store-figures" ${options[@]+"${options[@]}"}
