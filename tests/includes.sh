#!/usr/bin/env bash
# Checks from the includes that the product's folders use each other in one direction only.
set -euo pipefail

cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.."

# What each folder may include beside itself and the client's contract.
declare -A allowed=(
    [client]=""
    [page]=""
    [access]="page"
    [charts]="page access"
    [statistics]="page"
    [export]="page"
    [plugin]="page"
)
folders='client|page|access|charts|statistics|export|plugin|devhost|hostcheck|tests|bench'

failed=0
for folder in "${!allowed[@]}"; do
    [[ -d $folder ]] || continue
    while IFS=: read -r file line included; do
        [[ " $folder ${allowed[$folder]} " == *" $included "* ]] && continue
        echo "$file:$line: $folder must not include $included" >&2
        failed=1
    done < <(grep -rnoE --include='*.h' --include='*.cpp' "^#include [<\"]($folders)/" "$folder" |
        sed -E 's|#include [<"](.*)/|\1|')
done
exit $failed
