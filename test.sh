#!/usr/bin/env bash
# Builds everything and runs all tests.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
usage="usage: ${BASH_SOURCE[0]} [--asan | --coverage]
  --asan      with the address and undefined behaviour sanitizers
  --coverage  and tell what the tests reach; less than what is promised is a failure"
preset=dev
packages=()
source "$root/cmake/packages.sh"
for option in "$@"; do
    case $option in
        --asan)
            preset=asan
            packages=("${sanitizer_packages[@]}")
            ;;
        --coverage)
            preset=coverage
            packages=("${coverage_packages[@]}")
            ;;
        -h | --help)
            echo "$usage"
            exit 0
            ;;
        *)
            echo "\"$option\" is no option." >&2
            echo "$usage" >&2
            exit 2
            ;;
    esac
done

install_missing "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}" ${packages[@]+"${packages[@]}"}

cd -- "$root"
cmake --preset "$preset"
cmake --build "build/$preset"
[[ $preset != coverage ]] || find build/coverage -name '*.gcda' -delete
QT_QPA_PLATFORM=offscreen ctest --test-dir "build/$preset" --output-on-failure --no-tests=error --parallel 2
[[ $preset == coverage ]] || exit 0

# What an exception or the clearing up after an expression takes is the compiler's branch, not ours: those count that
# stand on a line with a condition.
report=(gcovr --root . --exclude-throw-branches --exclude-unreachable-branches -j 2
    --exclude-branches-by-pattern '^(?!.*(\b(if|while|for|switch|case)\b|\?|&&|\|\|)).*$')
product=(--filter plugin/ --filter page/ --filter statistics/ --filter charts/ --filter export/
    --exclude plugin/preview/ build/coverage/plugin)
echo "Product, lines, and which are not reached:"
"${report[@]}" --fail-under-line 98 "${product[@]}"
echo "Product, branches:"
"${report[@]}" --branches --fail-under-branch 95 "${product[@]}"
echo "Development host, lines:"
"${report[@]}" --fail-under-line 90 --filter devhost/ build/coverage/devhost
