# shellcheck shell=bash disable=SC2034
# Sourced by the other scripts: packages, build steps and how both are reported.

repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

build_packages=(g++ cmake ninja-build libmariadb-dev)
server_packages=(mariadb-server-core mariadb-client-core tzdata)
test_packages=(libgtest-dev locales pkg-config python3 clang-14 libclang-rt-14-dev clang-format-14)
windows_packages=(g++-mingw-w64-x86-64-posix wine wine64 googletest libgtest-dev locales python3 fonts-wine xvfb imagemagick)
coverage_packages=(gcovr)

say() { printf '==> %s\n' "$*"; }

# For a step: its output is shown when it fails, and not when it ends the script.
complain() {
    printf 'error: %s\n' "$*" >&2
    return 1
}

fail() {
    complain "$*" || exit
}

# run_step TITLE COMMAND...: says what is done and how long it took; shows the command's output only when it fails. Within
# the command `set -e` means nothing: what can fail there is followed by "|| return" or "&&".
run_step() {
    local title=$1 log started=$SECONDS
    shift
    log=$(mktemp)
    say "$title"
    if ! "$@" >"$log" 2>&1; then
        tail -n 60 "$log" >&2
        rm -f "$log"
        fail "this step failed: $title"
    fi
    rm -f "$log"
    printf '    done in %d s\n' $((SECONDS - started))
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        complain "root rights are needed for: $*"
    fi
}

is_installed() { [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

apt_install() {
    as_root apt-get update -q || return
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "$@"
}

# need_packages NAME...: installs those that are missing, and does nothing when none is.
need_packages() {
    local name missing=()
    command -v dpkg-query >/dev/null || fail "this is not a Debian system; install what these packages contain: $*"
    for name in "$@"; do
        is_installed "$name" || missing+=("$name")
    done
    if [ ${#missing[@]} -eq 0 ]; then
        say "Packages: nothing to install"
        return
    fi
    if [ "$(id -u)" -ne 0 ] && command -v sudo >/dev/null; then
        say "Packages have to be installed; sudo may ask for your password"
        sudo -v || fail "root rights are needed to install: ${missing[*]}"
    fi
    run_step "Installing packages: ${missing[*]}" apt_install "${missing[@]}"
}

configure_and_build() {
    local preset=$1
    shift
    if command -v ccache >/dev/null; then
        set -- -DCMAKE_CXX_COMPILER_LAUNCHER=ccache "$@"
    fi
    (cd "$repository" && cmake --preset "$preset" "$@" && cmake --build --preset "$preset")
}

# build_preset PRESET TITLE [CMAKE OPTION...]
build_preset() {
    local preset=$1 title=$2
    shift 2
    run_step "$title (build/$preset)" configure_and_build "$preset" "$@"
}
