#!/usr/bin/env bash
# Runs everything that has to hold before a change is accepted. Works on a fresh Debian 12, as root or with sudo.
# The last line is "N passed, M failed": test cases, checks and fuzz targets.
#
#   test.sh                      everything: this system, then Windows
#   test.sh --linux              this system alone
#   test.sh --windows            Windows alone: cross-built, and run under Wine
#
#   MYDB_TEST_SERVER=host:port   run the server tests on that server in place of a private one
#   MYDB_FUZZ_SECONDS=30         time per fuzz target
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit
# shellcheck source=scripts/setup.sh
source scripts/setup.sh

case ${1:-} in
"") parts=(linux windows) ;;
--linux | --windows) parts=("${1#--}") ;;
*) fail "usage: scripts/test.sh [--linux|--windows]" ;;
esac

started=$SECONDS
results=$(mktemp -d)
has_wine_servers=
clean_up() {
    [ -z "$has_wine_servers" ] || wine_servers -k
    rm -rf "$results"
}
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

record() { # record passed|failed NAME
    echo "$1 $2" >>"$results/other.txt"
}

# A build that fails is a failure like another one: the steps that do not need it still run.
try_build() { # try_build PRESET TITLE [CMAKE OPTION...]
    if (build_preset "$@"); then
        record passed "$1: builds without a warning"
    else
        record failed "$1: builds without a warning"
        return 1
    fi
}

run_ctest() { # run_ctest PRESET CTEST OPTION...
    local preset=$1 from=$SECONDS
    shift
    say "Running the tests (build/$preset)"
    mkdir -p "$results/$preset/gtest"
    GTEST_BRIEF=1 GTEST_OUTPUT="xml:$results/$preset/gtest/" ctest --test-dir "build/$preset" --output-on-failure --no-tests=error \
        --parallel "$(nproc)" --output-junit "$results/$preset/ctest.xml" "$@" | sed 's/^/    /'
    printf '    done in %d s\n' $((SECONDS - from))
}

fuzz_one() { # fuzz_one PROGRAM: runs it on a copy of its corpus
    local program=$1 name target work log
    name=$(basename "$program")
    target=${name#Fuzz}
    work=$(mktemp -d)
    log=$work/log
    if cp -r "tests/fuzz/corpus/$target" "$work/corpus" 2>"$log" &&
        "$program" "$work/corpus" -max_total_time="${MYDB_FUZZ_SECONDS:-30}" -timeout=10 -rss_limit_mb=2048 \
            -artifact_prefix="$work/" -print_final_stats=1 >"$log" 2>&1; then
        printf '    %-28s %s executions\n' "$name" "$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")"
        record passed "$name"
    else
        printf '    %s failed\n' "$name"
        tail -n 40 "$log"
        for log in "$work"/crash-* "$work"/timeout-* "$work"/oom-*; do
            [ -f "$log" ] && printf 'input of %s, in base64: %s\n' "$name" "$(base64 -w0 "$log")"
        done
        record failed "$name"
    fi
    rm -rf "$work"
}

run_fuzzers() {
    local program from=$SECONDS running=0
    say "Fuzzing, ${MYDB_FUZZ_SECONDS:-30} s each, two at a time"
    for program in build/fuzz/fuzz/Fuzz*; do
        if [ "$running" -eq 2 ]; then
            wait -n
            running=1
        fi
        fuzz_one "$program" &
        running=$((running + 1))
    done
    wait
    printf '    done in %d s\n' $((SECONDS - from))
}

test_linux() {
    need_packages "${build_packages[@]}" "${server_packages[@]}" "${test_packages[@]}"
    export CXX=g++
    try_build dev "Building library, tests and examples" && run_ctest dev
    try_build asan "Building them for the address and undefined-behaviour sanitizers" && run_ctest asan -LE 'tools|headers'
    unset CXX
    try_build fuzz "Building the fuzz programs with clang" && run_fuzzers
}

# A step that the tests of Windows need: what fails here fails the run, and the tests are left out.
prepare() { # prepare SCRIPT
    if ! "scripts/$1"; then
        record failed "windows: $1"
        return 1
    fi
}

# What the library answers on Windows has to be what it answers here, byte for byte.
compare_systems() {
    local from=$SECONDS result name log=$results/same_answers.log
    say "Comparing the answers of both systems"
    if ! { cmake --preset dev && cmake --build --preset dev --target same_answers mydb &&
        cmake --build --preset windows --target same_answers; } >"$log" 2>&1; then
        tail -n 40 "$log"
        record failed "both systems: same_answers builds"
        return
    fi
    result=failed
    tools/check_exports --dll x86_64-w64-mingw32-objdump x86_64-w64-mingw32-c++filt --same-as build/windows/bin/mydb.dll \
        build/dev/source/libmydb.so && result=passed
    record "$result" "both systems: the same classes and members are exported"
    if ! timeout 600 tests/differential/compare.sh build/dev/tests/same_answers build/windows/bin/same_answers.exe \
        >"$log" 2>&1; then
        record failed "both systems: compare.sh"
    fi
    sed 's/^/    /' "$log"
    while read -r result name _; do
        case $result in
        same) record passed "both systems: ${name%:}" ;;
        different) record failed "both systems: ${name%:}" ;;
        esac
    done <"$log"
    printf '    done in %d s\n' $((SECONDS - from))
}

# One server per prefix for the whole run: each program would start and end its own.
wine_servers() { # wine_servers OPTION
    local prefix
    for prefix in .cache/wine/*/; do
        WINEPREFIX=$PWD/${prefix%/} WINEDEBUG=-all /usr/lib/wine/wineserver "$1"
    done
}

test_windows() {
    local from=$SECONDS
    need_packages "${build_packages[@]}" "${server_packages[@]}" "${windows_packages[@]}"
    if prepare windows-client.sh && prepare wine-prefix.sh &&
        try_build windows "Cross-building library, tests and examples for Windows"; then
        has_wine_servers=yes
        wine_servers -p
        run_ctest windows -LE tools
        try_build windows-mfc "Cross-building the library for hosts with MFC, with a double of the framework" &&
            run_ctest windows-mfc
        compare_systems
    fi
    say "The Windows part took $((SECONDS - from)) s"
}

export PYTHONDONTWRITEBYTECODE=1
for part in "${parts[@]}"; do
    "test_$part"
done

say "Everything together took $((SECONDS - started)) s"
tools/count_results "$results"
