#!/usr/bin/env bash
# Builds the library alone, installs it into an empty prefix and uses it from outside in three ways.
# usage: run.sh SOURCE_DIR CMAKE CXX GENERATOR CLIENT_INCLUDE_DIR
set -euo pipefail

source_dir=$1 cmake=$2 cxx=$3 generator=$4 client_include=$5
app=$source_dir/tests/consumer/app
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

say() { printf -- '-- %s\n' "$*"; }

configure() { # configure SOURCE BUILD OPTIONS...
    "$cmake" -S "$1" -B "$2" -G "$generator" -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_BUILD_TYPE=Debug "${@:3}" >"$work/log" 2>&1 ||
        { cat "$work/log"; return 1; }
}

build() { # build DIRECTORY OPTIONS...
    "$cmake" --build "$@" >"$work/log" 2>&1 || { cat "$work/log"; return 1; }
}

# Packages for tests, examples and benchmarks are hidden: the library alone has to do without them.
say "build and install the library alone"
configure "$source_dir" "$work/library" -DBUILD_TESTING=OFF -DCMAKE_INSTALL_PREFIX="$prefix" \
    -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON -DCMAKE_DISABLE_FIND_PACKAGE_benchmark=ON \
    -DCMAKE_DISABLE_FIND_PACKAGE_Python3=ON -DCMAKE_DISABLE_FIND_PACKAGE_PkgConfig=ON
build "$work/library"
"$cmake" --install "$work/library" >"$work/log"
library=$(find "$prefix" -name libmydb.so)
[ -n "$library" ] || { echo "libmydb.so was not installed"; exit 1; }
readelf -d "$library" | grep -q 'SONAME.*libmydb\.so\.[0-9]\+\]' || { echo "libmydb.so has no SONAME with a version"; exit 1; }

say "every installed header, from the installed tree alone"
(cd "$prefix/include/mydb" && find . -name '*.h' | sed 's|^\./\(.*\)|#include "\1"|') >"$work/headers.cpp"
"$cxx" -std=c++20 -fsyntax-only -I"$prefix/include/mydb" -I"$client_include" "$work/headers.cpp"

say "the sample of the README"
# shellcheck disable=SC2016
sed -n '/^```cpp$/,/^```$/{/^```/!p}' "$source_dir/README.md" >"$work/sample.cpp"
grep -q 'int main' "$work/sample.cpp"
"$cxx" -std=c++20 -fsyntax-only -I"$prefix/include/mydb" -I"$client_include" "$work/sample.cpp"

say "find_package"
configure "$app" "$work/found" -DCMAKE_PREFIX_PATH="$prefix"
build "$work/found"
"$work/found/consumer"

if command -v pkg-config >/dev/null; then
    say "pkg-config and a plain compiler, from a moved prefix"
    mv "$prefix" "$work/moved"
    libdir=$(dirname "${library/#$prefix/$work/moved}")
    export PKG_CONFIG_PATH=$libdir/pkgconfig
    # shellcheck disable=SC2046  # the flags are words
    "$cxx" -std=c++20 "$app/main.cpp" $(pkg-config --cflags --libs mydb) -o "$work/plain"
    LD_LIBRARY_PATH=$libdir "$work/plain"
    mv "$work/moved" "$prefix"
else
    say "pkg-config is not installed"
    exit 1
fi

say "add_subdirectory"
configure "$app" "$work/inside" -DMYDB_SOURCE="$source_dir"
build "$work/inside" --target consumer
"$work/inside/consumer"
