#!/usr/bin/env bash
# Cross-builds the client library for Windows into .cache/windows-client: MariaDB Connector/C, unpatched, from Debian's
# source package "mariadb". Does nothing when the library is there, unchanged, and made by this recipe and compiler.
#
# The machine's own package lists stay as they are: the source lists are derived from them and kept in a folder aside.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/setup.sh
source scripts/setup.sh

cache=$repository/.cache/windows-client
plugins=(CACHING_SHA2_PASSWORD DIALOG MYSQL_CLEAR_PASSWORD SHA256_PASSWORD)
need_packages "${build_packages[@]}" "${windows_packages[@]}"

recipe() {
    sha256sum <"$repository/scripts/windows-client.sh"
    sha256sum <"$repository/cmake/mingw-w64.cmake"
    x86_64-w64-mingw32-gcc-posix --version
}

is_current() {
    [ -f "$cache/recipe" ] && diff -q "$cache/recipe" <(recipe) >/dev/null &&
        (cd "$cache" && sha256sum --check --quiet --strict SHA256SUMS >/dev/null 2>&1)
}

private_apt() { # private_apt TOOL ARGUMENT...: with the source lists in the working folder
    local tool=$1
    shift
    "$tool" -q -o Dir::Etc::sourcelist="$PWD/sources.list" -o Dir::Etc::sourceparts=- -o Dir::State::lists="$PWD/lists" \
        -o Dir::Cache="$PWD/cache" -o APT::Sandbox::User="$(id -un)" "$@"
}

# What the machine calls its Debian archive, as an archive of sources.
write_source_list() {
    # shellcheck disable=SC2016 # apt replaces the names
    apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' | sort -u >sources.list
    [ -s sources.list ] || complain "apt knows no Debian archive; run apt-get update first"
}

# A version can be listed and be missing in the archive; the newest one that is there is taken.
download_source() {
    local version
    mkdir -p lists/partial cache/archives/partial && write_source_list && private_apt apt-get update || return
    for version in $(private_apt apt-cache showsrc mariadb | sed -n 's/^Version: //p' | sort -ruV); do
        if private_apt apt-get source --download-only "mariadb=$version"; then
            printf '%s\n' "$version" >version
            return
        fi
    done
    complain "no version of the source package mariadb can be downloaded"
}

unpack_source() {
    local archive
    archive=$(ls mariadb_*.orig.tar.?z) && mkdir source &&
        tar -xf "$archive" -C source --strip-components=2 --wildcards '*/libmariadb/*'
}

build_library() {
    cmake -G Ninja -S source -B build -DCMAKE_TOOLCHAIN_FILE="$repository/cmake/mingw-w64.cmake" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$PWD/installed" \
        -DWITH_SSL=SCHANNEL -DWITH_UNIT_TESTS=OFF -DWITH_CURL=OFF -DWITH_EXTERNAL_ZLIB=OFF \
        "${plugins[@]/#/-DCLIENT_PLUGIN_}" &&
        cmake --build build --target mariadbclient &&
        cmake --install build --component Development
}

# Put into its place at the end and at once, so that an interrupted run leaves nothing that looks complete.
publish() {
    mv installed/include installed/lib version "$stage/" &&
        (cd "$stage" && find include lib version -type f -print0 | sort -z | xargs -0 sha256sum >SHA256SUMS) &&
        recipe >"$stage/recipe" && chmod 755 "$stage" && rm -rf "$cache" && mv -T "$stage" "$cache"
}

make_library() {
    cd "$work" && download_source && unpack_source && build_library && publish
}

mkdir -p "$repository/.cache"
exec 9>"$cache.lock"
flock 9
if is_current; then
    say "Client library for Windows: $(cat "$cache/version"), as built before"
    exit
fi
plugins=("${plugins[@]/%/=STATIC}")
work=$(mktemp -d)
stage=$cache.stage
rm -rf "$stage" # of a run that was killed
mkdir "$stage"
trap 'rm -rf "$work" "$stage"' EXIT
run_step "Cross-building the client library for Windows" make_library
