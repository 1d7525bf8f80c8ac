#!/usr/bin/env bash
# Sourced by the scripts that need a settings file; docs/server-ini.md describes it.

# The file hides the password from a glance only; its access rights protect it.
umask 077

# write_server_ini PROGRAMS DATA_DIR ALIAS HOST:PORT USER PASSWORD    PROGRAMS: the folder with encipher_password
write_server_ini() {
    printf '[SQL-Server]\r\n'
    printf 'DataDir=%s\r\nAlias=%s\r\n' "$2" "$3"
    printf 'Server=%s\r\nPort=%s\r\nUser=%s\r\n' "${4%:*}" "${4##*:}" "$5"
    printf '%s\n' "$6" | "$1/encipher_password"
    printf 'Charset=utf8mb4\r\n'
}
