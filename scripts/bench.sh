#!/usr/bin/env bash
# Measures reading and writing through the library against the plain C client, on a private server. docs/performance.md
# explains.
#
#   bench.sh [--rows N] [--statements N] [--runs N]
#                          times: tables of seconds, processor seconds and ratios
#   bench.sh --edit [--statements N] [--runs N] [--engine NAME]
#                          the same of writing alone
#   bench.sh --bulk [--rows N] [--runs N] [--table numbers|texts]
#                          the same of dumping a table and copying a database
#   bench.sh --instructions [--edit]
#                          instructions per row, select and statement, counted by valgrind: the same on every run; of
#                          the texts that are built also the allocations
#   bench.sh --memory      peak memory of stored and streamed scans of two sizes
#
# MYDB_SERVER=host:port (MYDB_USER, MYDB_PASSWORD) measures on that server in place of a private one.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/setup.sh
source scripts/setup.sh

scan=build/release/benchmarks/benchmark_scan
edit=build/release/benchmarks/benchmark_edit
bulk=build/release/benchmarks/benchmark_bulk

# scan_loop and edit_loop LOOP TIMES: the command that runs one loop once.
scan_loop() {
    command=("$scan" --loop "$1" --rows "$2")
    [[ $1 != *one-row ]] || command+=(--one-row)
}
edit_loop() { command=("$edit" --loop "$1" --statements "$2"); }

instructions_of() { # instructions_of PROGRAM LOOP TIMES
    "$1_loop" "$2" "$3"
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "${command[@]}" 2>&1 | sed -n 's/.*Collected : //p'
}

allocations_of() { # allocations_of PROGRAM LOOP TIMES
    "$1_loop" "$2" "$3"
    valgrind --tool=memcheck "${command[@]}" 2>&1 | sed -n 's/.*total heap usage: \([0-9,]*\) allocs.*/\1/p' | tr -d ,
}

slope_of() { # slope_of COUNTER PROGRAM LOOP SMALL LARGE: what one more row or call takes
    echo $((($("$1_of" "$2" "$3" "$5") - $("$1_of" "$2" "$3" "$4")) / ($5 - $4)))
}

print_slopes() { # print_slopes PROGRAM SMALL LARGE LOOP...: the first loop is what the ratios are of
    local program=$1 small=$2 large=$3 loop first=0 slope
    shift 3
    for loop in "$@"; do
        slope=$(slope_of instructions "$program" "$loop" "$small" "$large")
        [ "$first" -ne 0 ] || first=$slope
        awk -v name="$loop" -v slope="$slope" -v first="$first" \
            'BEGIN { printf "%-22s %8d %6.2f\n", name, slope, slope / first }'
    done
}

print_texts() { # print_texts LOOP...
    local loop
    for loop in "$@"; do
        printf '%-22s %8d %11d\n' "$loop" "$(slope_of instructions edit "$loop" 1000 5000)" \
            "$(slope_of allocations edit "$loop" 1000 5000)"
    done
}

# Inside the private server: bench.sh --within MODE ...
if [ "${1:-}" = --within ]; then
    case $2 in
    instructions)
        printf '%-22s %8s %6s\n' loop "per row" ratio
        print_slopes scan 10000 60000 plain chars position name literal
        print_slopes scan 10000 60000 plain-streamed chars-streamed position-streamed
        printf '%-22s %8s %6s\n' loop "per select" ratio
        print_slopes scan 1000 5000 plain-one-row one-row
        ;;
    edit-instructions)
        printf '%-22s %8s %6s\n' loop "per stmt" ratio
        print_slopes edit 1000 5000 plain-insert insert
        print_slopes edit 1000 5000 plain-update update
        print_slopes edit 1000 5000 plain-audited-insert audited-insert
        print_slopes edit 1000 5000 plain-audited-update audited-update
        printf '%-22s %8s %11s\n' text "per call" allocations
        print_texts key clause changes set-list date
        ;;
    memory)
        for rows in 50000 500000; do
            for loop in position position-streamed; do
                printf '%8d rows  ' "$rows"
                "$scan" --loop "$loop" --rows "$rows"
            done
        done
        ;;
    times) "$scan" "${@:3}" ;;
    one-row) "$scan" --one-row "${@:3}" ;;
    edit) "$edit" "${@:3}" ;;
    bulk) "$bulk" "${@:3}" ;;
    esac
    exit
fi

within() { scripts/private-server.sh run "$0" --within "$@"; }

measure_edits() {
    say "Writing row by row, client and server on one processor"
    taskset -c 0 scripts/private-server.sh run "$0" --within edit "$@"
}

need_packages "${build_packages[@]}" "${server_packages[@]}"
build_preset release "Building library and benchmarks" -DMYDB_BENCHMARKS=ON
case ${1:-} in
--instructions)
    need_packages valgrind
    say "Instructions, the slope between two sizes"
    [ "${2:-}" = --edit ] || within instructions
    within edit-instructions
    ;;
--memory)
    say "Peak memory"
    within memory
    ;;
--edit) measure_edits "${@:2}" ;;
--bulk)
    say "Dumping and copying"
    within bulk "${@:2}"
    ;;
*)
    say "Scans"
    within times "$@"
    say "20,000 one-row selects, client and server on one processor"
    taskset -c 0 scripts/private-server.sh run "$0" --within one-row "$@"
    measure_edits "$@"
    ;;
esac
