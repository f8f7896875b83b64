#!/usr/bin/env bash
# Runs the suite again and again in random order and in parallel, each round in another time zone, locale, set of fonts and
# at another date: the 31st, the leap day, hours that a clock change skips and repeats, New Year's night. Stops at the first
# round that fails. usage: tests/repeat.sh [ROUNDS]      (50)
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
rounds=${1:-50}
if ! [[ $rounds =~ ^[1-9][0-9]*$ ]]; then
    echo "usage: ${BASH_SOURCE[0]} [ROUNDS]" >&2
    exit 2
fi
source "$root/cmake/packages.sh"
install_missing "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}" "${repeat_packages[@]}"

cd -- "$root"
cmake --preset dev > /dev/null
cmake --build build/dev > /dev/null

zones=(Europe/Berlin America/St_Johns Asia/Kathmandu Pacific/Apia UTC Australia/Lord_Howe America/Sao_Paulo)
locales=(C de_DE ar_EG zh_CN tr_TR fa_IR)
dates=("2024-02-29 12:00:00" "2024-12-31 23:59:55" "2025-03-30 01:59:55" "2024-10-27 02:30:00" "2024-08-31 23:59:58"
    "2026-01-01 00:00:01" "2038-01-19 03:14:00")
fonts=(/usr/share/fonts /usr/share/fonts/truetype/dejavu /usr/share/fonts/truetype/noto)

work=build/dev/repeat
mkdir -p -- "$work"
for ((round = 0; round < rounds; ++round)); do
    zone=${zones[round % ${#zones[@]}]}
    locale=${locales[round % ${#locales[@]}]}
    moment=${dates[round / 2 % ${#dates[@]}]}
    font=${fonts[round % ${#fonts[@]}]}
    printf '<fontconfig><dir>%s</dir><cachedir>%s</cachedir></fontconfig>\n' "$font" "$PWD/$work/fonts" \
        > "$work/fonts.conf"
    echo "round $((round + 1)): $zone, $locale, $moment, $font"
    # The clock that timers and waits go by runs on as it is, and files keep their dates.
    env TALVIX_TEST_TIME_ZONE="$zone" TALVIX_TEST_LOCALE="$locale" FONTCONFIG_FILE="$PWD/$work/fonts.conf" \
        LD_PRELOAD="$(dpkg -L libfaketime | grep -m1 'libfaketimeMT.so.1$')" FAKETIME="@$moment" \
        FAKETIME_DONT_FAKE_MONOTONIC=1 FAKETIME_FORCE_MONOTONIC_FIX=0 NO_FAKE_STAT=1 \
        ctest --test-dir build/dev --schedule-random --parallel 4 --label-exclude package --no-tests=error \
        --output-on-failure > "$work/log" 2>&1 || {
        grep -E '^FAIL|Loc:|\*\*\*|tests failed' "$work/log" >&2
        exit 1
    }
done
echo "$rounds rounds, all the same"
