#!/usr/bin/env bash
# Runs a Windows program under Wine: wine.sh PROGRAM ARGUMENT...
#
# Its output passes through a file: Wine's background processes keep the output open, and whoever reads it until its end
# would wait for them. Standard input is empty.
set -u

export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
export WINEPREFIX=${WINEPREFIX:-$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/.cache/wine/en_US}
wine=/usr/lib/wine/wine64

output=$(mktemp)
trap 'rm -f "$output"' EXIT
"$wine" "$@" >"$output" 2>&1 </dev/null
result=$?
cat "$output"
exit "$result"
