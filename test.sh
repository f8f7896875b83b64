#!/usr/bin/env bash
# Builds everything and runs all tests. --asan: with the address and undefined behaviour sanitizers.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
preset=dev
for option in "$@"; do
    case $option in
        --asan) preset=asan ;;
        -h | --help)
            echo "usage: ${BASH_SOURCE[0]} [--asan]"
            exit 0
            ;;
        *)
            echo "\"$option\" is no option; the only one is --asan." >&2
            exit 2
            ;;
    esac
done

source "$root/cmake/packages.sh"
install_missing "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"

cd -- "$root"
cmake --preset "$preset"
cmake --build "build/$preset"
QT_QPA_PLATFORM=offscreen ctest --test-dir "build/$preset" --output-on-failure --no-tests=error --parallel 2
