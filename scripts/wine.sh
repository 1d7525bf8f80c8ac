#!/usr/bin/env bash
# Runs a Windows program under Wine: wine.sh PROGRAM ARGUMENT...
#
#   MYDB_WINE_LOCALE=de_DE   the user's locale, one of those that scripts/wine-prefix.sh makes; en_US without it
#   TZ=UTC                   the zone that it takes for the system's; without it one with daylight saving
#
# Its output passes through a file: Wine's background processes keep the output open, and whoever reads it until its end
# would wait for them. Standard input is empty.
#
# The program has a folder of its own, MYDB_TEST_RUN_FOLDER. What it starts with wine-child.sh is ended, and the folder
# removed, when this script has ended: by a guard that also notices when the script is killed.
set -u
scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
cache=$(cd "$scripts/.." && pwd)/.cache
locale=${MYDB_WINE_LOCALE:-en_US}
export WINEPREFIX=${WINEPREFIX:-$cache/wine/$locale}
export TZ=${TZ:-CET-1CEST,M3.5.0,M10.5.0/3}
wine=/usr/lib/wine/wine64
if ! [ -O "$WINEPREFIX" ]; then
    echo "wine.sh: $WINEPREFIX is not there, or another user's; scripts/wine-prefix.sh makes it" >&2
    exit 1
fi

# GoogleTest for Windows takes a path without a drive for one in the working folder.
case ${GTEST_OUTPUT:-} in
xml:/*) export GTEST_OUTPUT=xml:Z:${GTEST_OUTPUT#xml:} ;;
esac
MYDB_TEST_WINE_CHILD=$scripts/wine-child.sh
MYDB_TEST_RUN_FOLDER=$(mktemp -d "${TMPDIR:-/tmp}/mydb_wine_XXXXXX") || exit
export MYDB_TEST_WINE_CHILD MYDB_TEST_RUN_FOLDER
output=$MYDB_TEST_RUN_FOLDER/output

# The guard reads until nobody holds the other end.
exec {lifeline}> >(exec setsid "$MYDB_TEST_WINE_CHILD" guard "$MYDB_TEST_RUN_FOLDER" >/dev/null 2>&1)
guard=$!

finish() {
    [ -e "$output" ] && cat "$output"
    exec {lifeline}>&-
    wait "$guard"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

LOCPATH=$cache/locale LC_ALL=$locale.UTF-8 "$MYDB_TEST_WINE_CHILD" run "$MYDB_TEST_RUN_FOLDER" "$wine" "$@" \
    >"$output" 2>&1 </dev/null {lifeline}>&- &
wait $!
result=$?
rm -f "$MYDB_TEST_RUN_FOLDER/process"
exit "$result"
