#!/usr/bin/env bash
# Runs both commands on bare systems. See --help.
set -euo pipefail

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
usage="usage: ${BASH_SOURCE[0]} [--keep FOLDER] [--as-user] [--path PATH] [12] [13] [testing]
Makes a bare system of each named Debian, all three without a name, with nothing but git in it, runs ./run.sh and
./test.sh in a clean clone of the last commit, and prints a table of what came out. Needs root and the package sources of
this machine, which must be Debian's.
  --keep FOLDER  keeps the systems there with their packages and compiled files, so that the next time is quicker
  --as-user      root installs the packages, the commands are run by another user
  --path PATH    where in the system the clone is put (/root/source, or /home/tester/source)"

keep=
as_user=
path=
releases=()
while [[ $# -gt 0 ]]; do
    case $1 in
        --keep | --path)
            if [[ -z ${2:-} ]]; then
                echo "$usage" >&2
                exit 2
            fi
            [[ $1 == --path ]] && path=$2 || keep=$2
            shift
            ;;
        --as-user) as_user=tester ;;
        12 | 13 | testing) releases+=("$1") ;;
        -h | --help)
            echo "$usage"
            exit 0
            ;;
        *)
            echo "\"$1\" is neither an option nor a release that is known here." >&2
            echo "$usage" >&2
            exit 2
            ;;
    esac
    shift
done
[[ ${#releases[@]} -gt 0 ]] || releases=(12 13 testing)
if [[ $EUID -ne 0 ]]; then
    echo "Only root can make a bare system." >&2
    exit 2
fi
source "$root/cmake/packages.sh"
install_missing "${platform_packages[@]}"

work=$(mktemp -d)
systems=$work
if [[ -n $keep ]]; then
    mkdir -p -- "$keep"
    systems=$(cd -- "$keep" && pwd)
fi
inside=
# shellcheck disable=SC2317 # the trap calls it
clean_up() {
    trap '' INT TERM HUP
    if [[ -n $inside ]]; then
        kill -KILL "$inside" 2> /dev/null || true
        wait "$inside" 2> /dev/null || true
    fi
    rm -rf --one-file-system -- "$work"
}
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# What runs here has mounts and processes of its own. They end with it, however it ends.
apart() {
    unshare --mount --propagation private --pid --fork --kill-child "$@" &
    inside=$!
    local ended=0
    wait "$inside" || ended=$?
    inside=
    return "$ended"
}

# Runs a command in a system.
enter() {
    local system=$1
    shift
    # shellcheck disable=SC2016 # expanded there
    apart bash -c 'mount -t proc proc "$0/proc" && mount --rbind /dev "$0/dev" && exec chroot "$0" "$@"' "$system" \
        /usr/bin/env -i HOME=/root LANG=C.UTF-8 PATH=/usr/sbin:/usr/bin:/sbin:/bin CCACHE_DIR=/var/cache/ccache \
        ${http_proxy:+http_proxy="$http_proxy"} ${https_proxy:+https_proxy="$https_proxy"} "$@"
}

# The mirror that this machine's own packages come from.
mirror() {
    # shellcheck disable=SC2016 # expanded by apt-get
    apt-get indextargets --format '$(REPO_URI) $(LABEL)' 'Created-By: Packages' | awk '$2 == "Debian" { print $1; exit }'
}

code_name() {
    case $1 in
        12) echo bookworm ;;
        13) echo trixie ;;
        *) echo "$1" ;;
    esac
}

# Makes the bare system in the folder, unless a kept one is there.
make_system() {
    local release=$1 system=$2 suite from script
    [[ ! -e $system/made ]] || return 0
    rm -rf --one-file-system -- "$system"
    suite=$(code_name "$release")
    from=$(mirror)
    if [[ -z $from ]]; then
        echo "This machine's package sources name no mirror of Debian's." >&2
        return 1
    fi
    # A release that is newer than debootstrap is made like the newest one that it knows.
    script=/usr/share/debootstrap/scripts/$suite
    [[ -e $script ]] || script=/usr/share/debootstrap/scripts/sid
    apart debootstrap --variant=minbase --include=ca-certificates,git "$suite" "$system" "$from" "$script" || return 1
    echo "deb $from $suite main" > "$system/etc/apt/sources.list"

    # How this machine gets at its packages holds there as well.
    local file
    while read -r file; do
        cp -- "$file" "$system/etc/apt/apt.conf.d/"
    done < <(grep -lsE '^\s*Acquire' /etc/apt/apt.conf /etc/apt/apt.conf.d/*)
    cp -rn -- /etc/apt/trusted.gpg.d/. "$system/etc/apt/trusted.gpg.d/"
    cp -L -- /etc/resolv.conf /etc/hosts "$system/etc/"
    # No service is started by being installed.
    printf '#!/bin/sh\nexit 101\n' > "$system/usr/sbin/policy-rc.d"
    chmod +x "$system/usr/sbin/policy-rc.d"
    touch "$system/made"
}

# Clones the last commit, which alone counts, into the system.
clone_into() {
    local system=$1 place=$2
    rm -rf --one-file-system -- "${system:?}$place"
    mkdir -p -- "$(dirname -- "$system$place")"
    git clone --quiet --no-local -- "$root" "$system$place"
}

# Runs both commands; each leaves its output and its seconds beside the table's other facts.
run_commands() {
    local system=$1 facts=$2 place=$3 command ended failed=0
    local -a as=()
    if [[ -n $as_user ]]; then
        # shellcheck disable=SC2016 # expanded there
        enter "$system" bash -c 'id -u "$1" > /dev/null 2>&1 || useradd --create-home "$1"
            mkdir -p /var/cache/ccache && chown -R "$1:" /var/cache/ccache "/home/$1" "$2"
            source "$2/cmake/packages.sh" && install_missing "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"' \
            prepare "$as_user" "$place" || return 1
        as=(setpriv --reuid="$as_user" --regid="$as_user" --init-groups env HOME="/home/$as_user")
    fi
    for command in run test; do
        SECONDS=0
        ended=0
        enter "$system" ${as[@]+"${as[@]}"} env CCACHE_BASEDIR="$place" "$place/$command.sh" > "$facts/$command" 2>&1 || ended=$?
        echo "$SECONDS" > "$facts/$command.seconds"
        [[ $ended -eq 0 ]] && continue
        failed=1
        echo "./$command.sh failed with $ended:" >&2
        grep -aE 'error:|^FAIL|\*\*\*|tests failed|^E: ' "$facts/$command" | tail -n 30 >&2 || tail -n 30 "$facts/$command" >&2
    done
    # shellcheck disable=SC2016 # expanded there
    enter "$system" bash -c 'echo "$(sed -n "s/^PRETTY_NAME=\"Debian GNU.Linux \(.*\)\"/\1/p" /etc/os-release)"
        dpkg-query -W -f "\${Version}\n" qt6-base-dev | sed "s/[+-].*//"
        g++ -dumpfullversion' > "$facts/about" || return 1
    return "$failed"
}

# One line of the table.
tell() {
    local release=$1 facts=$2 tests warnings
    local -a about=("?" "?" "?")
    [[ ! -s $facts/about ]] || mapfile -t about < "$facts/about"
    tests=$(sed -nE 's/^.*, ([0-9]+) tests? failed out of ([0-9]+).*/\2 \1/p' "$facts/test" 2> /dev/null | tail -n 1)
    warnings=$(cat -- "$facts/run" "$facts/test" 2> /dev/null | grep -ac 'warning:' || true)
    printf '%-8s  %-14s  %-7s  gcc %-7s  %8s  %8s  %14s  %8s\n' "$release" "${about[0]}" "${about[1]}" "${about[2]}" \
        "$(cat -- "$facts/run.seconds" 2> /dev/null || echo -)" "$(cat -- "$facts/test.seconds" 2> /dev/null || echo -)" \
        "$(awk '{ print $1 - $2 " of " $1 }' <<< "${tests:-0 0}")" "$warnings"
}

failed=0
home=${as_user:+/home/$as_user}
for release in "${releases[@]}"; do
    system=$systems/debian-$release
    facts=$work/facts-$release
    place=${path:-${home:-/root}/source}
    mkdir -p -- "$facts"
    echo "Debian $release …" >&2
    if ! { make_system "$release" "$system" > "$facts/made" 2>&1 && clone_into "$system" "$place"; }; then
        tail -n 20 "$facts/made" >&2
        failed=1
    elif ! run_commands "$system" "$facts" "$place"; then
        failed=1
    fi
    [[ -z $keep || ! -e $system/made ]] || cp -- "$facts"/* "$system/var/log/"
done

printf '%-8s  %-14s  %-7s  %-11s  %8s  %8s  %14s  %8s\n' Debian system Qt compiler "run.sh s" "test.sh s" "tests passed" warnings
for release in "${releases[@]}"; do
    tell "$release" "$work/facts-$release"
done
exit "$failed"
