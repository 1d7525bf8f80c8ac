#!/usr/bin/env bash
# Runs same_answers of both systems and compares what they wrote: compare.sh LINUX_PROGRAM WINDOWS_PROGRAM
# Prints a line for each section, "same SECTION: N lines" or "different SECTION" with the first lines that differ.
#
#   MYDB_WINE_LOCALE=de_DE   the locale of the Windows program's user, see scripts/wine.sh
set -uo pipefail

if [ $# -ne 2 ]; then
    echo "usage: compare.sh LINUX_PROGRAM WINDOWS_PROGRAM" >&2
    exit 2
fi
repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export TZ=UTC # other time zones follow rules of the system

"$1" "$work/linux" >"$work/linux.log" 2>&1 &
linux=$!
"$repository/scripts/wine.sh" "$2" "$work/windows" >"$work/windows.log" 2>&1
windows_result=$?
wait "$linux"
linux_result=$?
result=0
if [ "$linux_result" -ne 0 ] || [ "$windows_result" -ne 0 ]; then
    echo "different programs: Linux ended with $linux_result, Windows with $windows_result"
    tail -n 5 "$work/linux.log" "$work/windows.log"
    result=1
fi

mkdir -p "$work/linux" "$work/windows"
while read -r file; do
    name=${file%.txt}
    if [ -s "$work/linux/$file" ] && cmp -s "$work/linux/$file" "$work/windows/$file"; then
        printf 'same %s: %d lines\n' "$name" \
            "$(awk -F '\t' '/^===\t/ { sum += $3 } END { print sum }' "$work/linux/$file")"
    else
        echo "different $name"
        diff "$work/linux/$file" "$work/windows/$file" 2>&1 | head -n 8 | cut -c 1-300 | sed 's/^/    /'
        result=1
    fi
done < <(find "$work/linux" "$work/windows" -name '*.txt' -printf '%f\n' | sort -u)
exit "$result"
