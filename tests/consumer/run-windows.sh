#!/usr/bin/env bash
# Installs the DLL into an empty prefix and uses it from a project outside of the tree.
# usage: run-windows.sh BUILD_DIR CMAKE TOOLCHAIN_FILE EMULATOR
set -euo pipefail

build=$1 cmake=$2 toolchain=$3 emulator=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

run() { # run TITLE COMMAND...
    printf -- '-- %s\n' "$1"
    "${@:2}" >"$work/log" 2>&1 || { cat "$work/log"; return 1; }
}

run "install" "$cmake" --install "$build" --prefix "$prefix" --strip
for file in bin/mydb.dll lib/libmydb.dll.a include/mydb/MyDB.h; do
    [ -f "$prefix/$file" ] || { echo "$file was not installed"; exit 1; }
done
run "find_package" "$cmake" -S "$(dirname "${BASH_SOURCE[0]}")/app" -B "$work/found" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DMyDB_DIR="$prefix/lib/cmake/MyDB"
run "build" "$cmake" --build "$work/found"
cp "$prefix/bin/mydb.dll" "$work/found/"
"$emulator" "$work/found/consumer.exe"
