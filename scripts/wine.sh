#!/usr/bin/env bash
# Runs a Windows program under Wine: wine.sh PROGRAM ARGUMENT...
#
#   MYDB_WINE_LOCALE=de_DE   the user's locale, one of those that scripts/wine-prefix.sh makes; en_US without it
#
# Its output passes through a file: Wine's background processes keep the output open, and whoever reads it until its end
# would wait for them. Standard input is empty.
set -u

export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
cache=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/.cache
locale=${MYDB_WINE_LOCALE:-en_US}
export WINEPREFIX=${WINEPREFIX:-$cache/wine/$locale}
wine=/usr/lib/wine/wine64

output=$(mktemp)
trap 'rm -f "$output"' EXIT
env LOCPATH="$cache/locale" LC_ALL="$locale.UTF-8" "$wine" "$@" >"$output" 2>&1 </dev/null
result=$?
cat "$output"
exit "$result"
