#!/usr/bin/env bash
# Measures reading through the library against the plain C client, on a private server. docs/performance.md explains.
#
#   bench.sh [--rows N] [--runs N]   times: tables of seconds, processor seconds and ratios
#   bench.sh --instructions          instructions per row or select, counted by valgrind: the same on every run
#   bench.sh --memory                peak memory of stored and streamed scans of two sizes
#
# MYDB_SERVER=host:port (MYDB_USER, MYDB_PASSWORD) measures on that server in place of a private one.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/setup.sh
source scripts/setup.sh

# Inside the private server: bench.sh --within MODE ...
scan=build/release/benchmarks/benchmark_scan

instructions_of() { # instructions_of LOOP ROWS
    local options=(--loop "$1" --rows "$2")
    [[ $1 != *one-row ]] || options+=(--one-row)
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "$scan" "${options[@]}" 2>&1 | sed -n 's/.*Collected : //p'
}

print_slopes() { # print_slopes SMALL LARGE LOOP...: the first loop is what the ratios are of
    local small=$1 large=$2 loop first=0 slope
    shift 2
    for loop in "$@"; do
        slope=$((($(instructions_of "$loop" "$large") - $(instructions_of "$loop" "$small")) / (large - small)))
        [ "$first" -ne 0 ] || first=$slope
        awk -v name="$loop" -v slope="$slope" -v first="$first" \
            'BEGIN { printf "%-20s %8d %6.2f\n", name, slope, slope / first }'
    done
}

if [ "${1:-}" = --within ]; then
    case $2 in
    instructions)
        printf '%-20s %8s %6s\n' loop "per row" ratio
        print_slopes 10000 60000 plain chars position name literal
        print_slopes 10000 60000 plain-streamed chars-streamed position-streamed
        printf '%-20s %8s %6s\n' loop "per select" ratio
        print_slopes 1000 5000 plain-one-row one-row
        ;;
    memory)
        for rows in 50000 500000; do
            "$scan" --loop position --rows "$rows"
            "$scan" --loop position-streamed --rows "$rows"
        done
        ;;
    times) "$scan" "${@:3}" ;;
    one-row) "$scan" --one-row "${@:3}" ;;
    esac
    exit
fi

need_packages "${build_packages[@]}" "${server_packages[@]}"
build_preset release "Building library and benchmark" -DMYDB_BENCHMARKS=ON
case ${1:-} in
--instructions)
    need_packages valgrind
    say "Instructions, the slope between two sizes"
    scripts/private-server.sh run "$0" --within instructions
    ;;
--memory)
    say "Peak memory"
    scripts/private-server.sh run "$0" --within memory
    ;;
*)
    say "Scans"
    scripts/private-server.sh run "$0" --within times "$@"
    say "20,000 one-row selects, client and server on one processor"
    taskset -c 0 scripts/private-server.sh run "$0" --within one-row "$@"
    ;;
esac
