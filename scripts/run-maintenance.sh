#!/usr/bin/env bash
# Writes a Server.ini for the server of MYDB_SERVER, MYDB_USER and MYDB_PASSWORD, another one for that of
# MYDB_SECOND_SERVER (and so on) if there is one, and runs the example program with them. What it writes is removed again.
#
#   run-maintenance.sh FOLDER    the folder with the programs maintenance and encipher_password
#
# MYDB_DATA_DIR says where the server has its folder DBS with the databases, if that is on this machine. Without it the
# program gets a folder without tables, and damages none.
set -euo pipefail
# shellcheck source=scripts/server-ini.sh
source "$(dirname "${BASH_SOURCE[0]}")/server-ini.sh"

programs=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

mkdir -p "$folder"/{first,second}/data/DBS "$folder/temp"
settings=("$folder/first/Server.ini")
write_server_ini "$programs" "${MYDB_DATA_DIR:-$folder/first/data}" Zentrale "$MYDB_SERVER" "${MYDB_USER:-vela_root}" \
    "${MYDB_PASSWORD:-}" >"${settings[0]}"
if [ -n "${MYDB_SECOND_SERVER:-}" ]; then
    settings+=("$folder/second/Server.ini")
    write_server_ini "$programs" "${MYDB_SECOND_DATA_DIR:-$folder/second/data}" Filiale "$MYDB_SECOND_SERVER" \
        "${MYDB_SECOND_USER:-vela_root}" "${MYDB_SECOND_PASSWORD:-}" >"${settings[1]}"
fi
TMPDIR=$folder/temp "$programs/maintenance" "${settings[@]}"

left=$(ls -A "$folder/temp")
if [ -n "$left" ]; then
    echo "left behind: $left" >&2
    exit 1
fi
