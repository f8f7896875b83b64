# Debian 12 packages that the commands in the repository's root need. Sourced by them with bash.

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
    clang lld libclang-rt-14-dev
)
readonly test_packages=(
    poppler-utils binutils postgresql-15
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
    python3 python3-clang-14
)
readonly static_packages=(
    clang-tidy clazy cppcheck
)

# The tests run database servers of their own, so installing one need not leave another running on the machine.
keep_database_server_idle() {
    local settings=/etc/postgresql-common/createcluster.conf
    [[ -e $settings ]] && return 0
    mkdir -p "${settings%/*}"
    echo "create_main_cluster = false" > "$settings"
}

# Installs those of the named packages that are missing. Where it may not, it says what is missing and goes on:
# the build tells best whether that matters.
install_missing() {
    command -v dpkg-query > /dev/null && command -v apt-get > /dev/null || return 0
    local installed missing=() name
    installed=$(dpkg-query -W -f '${db:Status-Abbrev} ${Package}\n' "$@" 2> /dev/null | sed -n 's/^ii *//p') || true
    for name in "$@"; do
        grep -qxF -- "$name" <<< "$installed" || missing+=("$name")
    done
    [[ ${#missing[@]} -gt 0 ]] || return 0
    if [[ $EUID -ne 0 ]]; then
        echo "These packages are missing and only root can install them: ${missing[*]}" >&2
        return 0
    fi
    echo "Installing: ${missing[*]}" >&2
    [[ " ${missing[*]} " != *" postgresql-"* ]] || keep_database_server_idle
    local apt_get=(env DEBIAN_FRONTEND=noninteractive UCF_FORCE_CONFFOLD=1 apt-get -qq -o Acquire::Retries=3)
    "${apt_get[@]}" update > /dev/null || echo "The package lists could not be renewed; trying with the old ones." >&2
    "${apt_get[@]}" install --yes --no-install-recommends "${missing[@]}" > /dev/null
}
