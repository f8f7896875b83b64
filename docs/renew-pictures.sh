#!/usr/bin/env bash
# Renews docs/pictures: all kinds of statistics and the steps of the tour, on the sample events of a fixed day, so that
# only real changes show.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
"$root/run.sh" --now 2024-05-03T17:20 --language en --snapshot "$root/docs/pictures"
rm -f -- "$root"/docs/pictures/*.pdf

cmake --build "$root/build/release" --target talvix-tour
"$root/build/release/tests/talvix-tour" "$root/docs/pictures"
