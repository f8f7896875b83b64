#!/usr/bin/env bash
# Checks that page/BasicChart.h lists each function of the page under the file that has it.
set -euo pipefail

cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

# "file function" for each function that stands below a line that names a file.
listed() {
    sed -nE '
        \|^    // ([a-z]+/[A-Za-z]+\.cpp)$| { s|^    // ||; h; }
        /^private:/ { s/.*//; h; }
        /^    [A-Za-z].*[ *&]([A-Za-z_]+)\(/ { s/^[^(]*[ *&]([A-Za-z_]+)\(.*/\1/; G; s/(.*)\n(.+)/\2 \1/p; }
    ' page/BasicChart.h
}

failed=0
total=0
while read -r file function; do
    total=$((total + 1))
    grep -qE "^[A-Za-z].*BasicChart::$function\(" "$file" && continue
    echo "page/BasicChart.h lists $function under $file, which does not have it." >&2
    failed=1
done < <(listed)
[[ $total -gt 100 ]] || { echo "Only $total functions were found in page/BasicChart.h." >&2; failed=1; }
exit $failed
