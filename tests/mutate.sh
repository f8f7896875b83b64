#!/usr/bin/env bash
# Changes the product in many single places and tells which changes no test notices (--help for the options).
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
source "$root/cmake/packages.sh"
install_missing "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}" "${mutation_packages[@]}"

# The distribution's own interpreter: it is the one that has the bindings.
exec /usr/bin/python3 -B "$root/tests/mutate/mutate.py" "$@"
