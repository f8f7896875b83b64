#!/usr/bin/env bash
# Static analysis of product and development host: cppcheck, clazy, and clang-tidy with clang's own warnings. The
# checks stand in .clang-tidy and below; every finding is an error.
# usage: tests/static.sh [PRESET THAT IS BUILT]      (dev)
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
source "$root/cmake/packages.sh"
install_missing "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}" "${static_packages[@]}"

cd -- "$root"
preset=${1:-dev}
cmake --preset "$preset" > /dev/null
cmake --build "build/$preset" > /dev/null

# gcc's precompiled headers and counters are of no use to clang.
commands=build/$preset/static
mkdir -p "$commands"
sed 's/-Winvalid-pch -include [^ ]*cmake_pch\.hxx//; s/--coverage -fprofile-abs-path//' \
    "build/$preset/compile_commands.json" > "$commands/compile_commands.json"
folders=(page statistics charts export plugin devhost)
mapfile -t sources < <(git ls-files -- "${folders[@]/%//*.cpp}")

# What the contract with the host fixes, signatures by value and slots that are connected by name, is no finding.
# Signatures for SIGNAL and SLOT stand as clang-format writes them. cppcheck can't see what Q_DISABLE_COPY_MOVE does.
cppcheck --std=c++17 --library=qt --enable=warning,performance,portability --inline-suppr --quiet --error-exitcode=1 \
    -j 2 -I . -I client -D QT_VERSION=0x060402 '-DQ_DISABLE_COPY_MOVE(Class)=' \
    --suppress=noCopyConstructor --suppress=noOperatorEq \
    '--suppress=passedByValue:devhost/widgets/QssFormatHelper.cpp' "${folders[@]}" client
clazy=level1,no-connect-by-name,no-connect-not-normalized,no-fully-qualified-moc-types,no-qstring-arg
headers='/(client|page|statistics|charts|export|plugin|devhost)/[A-Za-z/]*\.h$'

# Prints what a checker says only when it found something; both are chatty about headers that are not ours.
check() {
    local report
    report=$(clazy-standalone -p "$1" -checks="$2" --header-filter="$3" "$4" 2>&1 \
        && clang-tidy -p "$1" --quiet "$4" 2>&1) && return
    printf '%s\n' "$report"
    return 1
}
export -f check
printf '%s\0' "${sources[@]}" | xargs -0 -n 1 -P "$(nproc)" bash -c 'check "$@"' check "$commands" "$clazy" "$headers"
echo "cppcheck, clazy and clang-tidy found nothing in ${#sources[@]} sources and their headers."
