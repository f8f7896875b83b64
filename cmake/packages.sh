# shellcheck shell=bash disable=SC2034
# Debian packages that the commands in the repository's root need, by the names that every release knows. Sourced by them
# with bash. "one|other*" is wanted once: any of them that is installed will do, else the first that is to be had.

readonly build_packages=(
    g++ cmake ninja-build ccache mold git
    qt6-base-dev qt6-charts-dev libqt6opengl6-dev libgl-dev
    qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools
)
readonly run_packages=(
    libqt6sql6-sqlite libqt6sql6-psql libqt6svg6 qt6-translations-l10n
    fonts-inter fonts-dejavu-core fonts-noto-core fonts-noto-cjk
)
readonly sanitizer_packages=(
    clang lld "libclang-rt-dev|libclang-rt-*-dev"
)
readonly test_packages=(
    poppler-utils binutils "postgresql|postgresql-[0-9]*"
)
readonly coverage_packages=(
    gcovr
)
readonly bench_packages=(
    libbenchmark-dev valgrind
)
readonly memcheck_packages=(
    valgrind
)
readonly repeat_packages=(
    libfaketime
)
readonly mutation_packages=(
    python3 "python3-clang|python3-clang-[0-9]*"
)
readonly static_packages=(
    clang-tidy clazy cppcheck
)
readonly format_packages=(
    "clang-format-14|clang-format" shellcheck
)
readonly platform_packages=(
    debootstrap
)

# What is lost where a package can't be had. All others are needed.
declare -rA left_out=(
    [ccache]="every build starts from nothing"
    [mold]="linking takes longer"
    [libqt6sql6-psql]="databases on a PostgreSQL server can't be used, and their tests are skipped"
    [qt6-translations-l10n]="Qt's own texts stay English"
    [fonts-inter]="texts show in another font"
    [fonts-dejavu-core]="texts show in another font"
    [fonts-noto-core]="texts show in another font"
    [fonts-noto-cjk]="Chinese texts show in another font, or as boxes"
    [postgresql]="tests on a PostgreSQL server are skipped"
    [clang-format-14]="formatting is not checked, since every version formats in its own way"
    [shellcheck]="shell scripts are not checked"
)

# The tests run database servers of their own, so installing one need not leave another running on the machine.
keep_database_server_idle() {
    local settings=/etc/postgresql-common/createcluster.conf
    [[ -e $settings ]] && return 0
    mkdir -p "${settings%/*}"
    echo "create_main_cluster = false" > "$settings"
}

# Prints those of the wanted packages that are neither installed nor provided by one that is.
missing_packages() {
    local installed wanted pattern
    installed=$(dpkg-query -W -f '${db:Status-Abbrev}, ${Package}, ${Provides}\n' | grep '^ii' | tr ',' '\n' \
        | sed 's/ *(.*//; s/^ *//')
    for wanted in "$@"; do
        pattern=${wanted//+/\\+}
        grep -qxE -- "${pattern//\*/.*}" <<< "$installed" || echo "$wanted"
    done
}

# Prints the first of the alternatives that the package sources have, by its own name or as what another one provides.
first_offered() {
    local name
    local -a names
    IFS='|' read -ra names <<< "$1"
    for name in "${names[@]}"; do
        apt-cache showpkg "$name" 2> /dev/null | sed -n '/^Versions:/,/^$/p; /^Reverse Provides:/,$p' \
            | grep '[0-9]' > /dev/null || continue
        echo "$name"
        return 0
    done
    return 1
}

# Installs those of the named packages that are missing. Where it may not, it says what is missing and goes on:
# the build tells best whether that matters.
install_missing() {
    command -v dpkg-query > /dev/null && command -v apt-get > /dev/null || return 0
    local missing=() offered=() wanted name
    mapfile -t missing < <(missing_packages "$@")
    [[ ${#missing[@]} -gt 0 ]] || return 0
    if [[ $EUID -ne 0 ]]; then
        echo "These packages are missing and only root can install them: ${missing[*]%%|*}" >&2
        return 0
    fi
    local apt_get=(env DEBIAN_FRONTEND=noninteractive UCF_FORCE_CONFFOLD=1 apt-get -qq -o Acquire::Retries=3)
    "${apt_get[@]}" update > /dev/null || echo "The package lists could not be renewed; trying with the old ones." >&2
    for wanted in "${missing[@]}"; do
        if name=$(first_offered "$wanted"); then
            offered+=("$name")
            continue
        fi
        name=${wanted%%|*}
        echo "There is no package $name here: ${left_out[$name]:-what needs it will fail}." >&2
    done
    [[ ${#offered[@]} -gt 0 ]] || return 0
    echo "Installing: ${offered[*]}" >&2
    [[ " ${offered[*]}" != *" postgresql"* ]] || keep_database_server_idle
    "${apt_get[@]}" install --yes --no-install-recommends "${offered[@]}" > /dev/null
}
