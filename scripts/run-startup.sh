#!/usr/bin/env bash
# Writes a Server.ini with an enciphered password for the server of MYDB_SERVER, MYDB_USER and MYDB_PASSWORD and runs the
# example program with it. What it writes is removed again.
#
#   run-startup.sh FOLDER    the folder with the programs startup and encipher_password
set -euo pipefail

programs=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# The file hides the password from a glance only; its access rights protect it.
umask 077
mkdir -p "$folder"/data/{dbs,mdbs,temp}
{
    printf '[SQL-Server]\r\n'
    printf 'DataDir=%s\r\nAlias=Zentrale\r\n' "$folder/data"
    printf 'Server=%s\r\nPort=%s\r\nUser=%s\r\n' "${MYDB_SERVER%:*}" "${MYDB_SERVER##*:}" "${MYDB_USER:-vela_root}"
    printf '%s\n' "${MYDB_PASSWORD:-}" | "$programs/encipher_password"
    printf 'Charset=utf8mb4\r\n'
} >"$folder/Server.ini"

echo "The settings file:"
echo
sed 's/^/  /; s/\r$//' "$folder/Server.ini"
echo
"$programs/startup" "$folder/Server.ini"
