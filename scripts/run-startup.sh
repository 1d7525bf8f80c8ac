#!/usr/bin/env bash
# Writes a Server.ini with an enciphered password for the server of MYDB_SERVER, MYDB_USER and MYDB_PASSWORD and runs the
# example program with it. What it writes is removed again.
#
#   run-startup.sh FOLDER    the folder with the programs startup and encipher_password
set -euo pipefail

# shellcheck source=scripts/server-ini.sh
source "$(dirname "${BASH_SOURCE[0]}")/server-ini.sh"

programs=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

mkdir -p "$folder"/data/{dbs,mdbs,temp}
write_server_ini "$programs" "$folder/data" Zentrale "$MYDB_SERVER" "${MYDB_USER:-vela_root}" "${MYDB_PASSWORD:-}" \
    >"$folder/Server.ini"

echo "The settings file:"
echo
sed 's/^/  /; s/\r$//' "$folder/Server.ini"
echo
"$programs/startup" "$folder/Server.ini"
