#!/usr/bin/env bash
# Checks that clang-format leaves every source as it is, and that shellcheck finds nothing in the shell scripts.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
source "$root/cmake/packages.sh"
install_missing "${format_packages[@]}"

cd -- "$root"
mapfile -d '' sources < <(git ls-files -z -- '*.h' '*.cpp')
mapfile -d '' scripts < <(git ls-files -z -- '*.sh' .ci/run)

# Each version formats in its own way; the sources are as this one likes them.
readonly version=14
format=$(command -v "clang-format-$version" || command -v clang-format || true)
if [[ -n $format && $("$format" --version) == *" version $version."* ]]; then
    printf '%s\0' "${sources[@]}" | xargs -0 -P "$(nproc)" -n 40 "$format" --dry-run --Werror
    echo "${#sources[@]} sources are formatted."
else
    echo "There is no clang-format $version here: ${left_out[clang-format-14]}." >&2
fi
if command -v shellcheck > /dev/null; then
    shellcheck --external-sources --source-path=SCRIPTDIR "${scripts[@]}"
    echo "shellcheck finds nothing in ${#scripts[@]} scripts."
else
    echo "There is no shellcheck here: ${left_out[shellcheck]}." >&2
fi
