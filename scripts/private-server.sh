#!/usr/bin/env bash
# A private database server: its files in a temporary folder, its port on the loopback address, its end with the script.
#
#   private-server.sh run COMMAND...   runs the command with MYDB_SERVER, MYDB_USER and MYDB_PASSWORD set; when MYDB_SERVER
#                                      is set already, that server is used and none is started. For one that is started
#                                      MYDB_DATA_DIR is set too: its databases are in the folder DBS there
#   private-server.sh run-second COMMAND...
#                                      starts a server in any case and runs the command with MYDB_SECOND_SERVER,
#                                      MYDB_SECOND_USER, MYDB_SECOND_PASSWORD and MYDB_SECOND_DATA_DIR set
#
# Sourced, it offers the functions. No system service is touched, and only the process that was started here is ended.

private_server_folder=
private_server_pid=
private_server_address=
private_server_password=

# Accounts exist before the first connection is accepted: the library's own, with all privileges, and a closed root.
private_server_accounts() {
    local host
    for host in localhost 127.0.0.1; do
        echo "CREATE USER vela_root@'$host' IDENTIFIED BY '$private_server_password';"
        echo "GRANT ALL PRIVILEGES ON *.* TO vela_root@'$host' WITH GRANT OPTION;"
    done
    echo "DELETE FROM mysql.global_priv WHERE User = 'root' AND Host <> 'localhost';"
    echo "FLUSH PRIVILEGES;"
    echo "ALTER USER root@localhost IDENTIFIED BY '$private_server_password';"
}

private_server_answers() {
    MYSQL_PWD=$private_server_password mariadb --no-defaults --host=127.0.0.1 --port="$1" --user=vela_root \
        --connect-timeout=2 --execute='SELECT 1' >/dev/null 2>&1
}

# A server that starts removes what it finds in its folder for temporary files, so each has its own.
# Launched so that the server also ends when the script is killed and no trap runs.
private_server_launch() { # private_server_launch PORT
    local as_user=() with_parent=()
    [ "$(id -u)" -ne 0 ] || as_user=(--user=root)
    ! command -v setpriv >/dev/null || with_parent=(setpriv --pdeathsig TERM)
    "${with_parent[@]}" mariadbd --no-defaults "${as_user[@]}" --datadir="$private_server_folder/data/DBS" \
        --tmpdir="$private_server_folder" --bind-address=127.0.0.1 --port="$1" --socket="$private_server_folder/s.sock" \
        --lower-case-table-names=1 --local-infile=1 --skip-name-resolve \
        --character-set-server=utf8mb4 \
        --init-file="$private_server_folder/accounts.sql" \
        >"$private_server_folder/log" 2>&1 </dev/null &
    private_server_pid=$!
}

private_server_wait() { # private_server_wait PORT: false when the server ended, for example because the port is taken
    local tries
    for ((tries = 0; tries < 600; tries++)); do
        kill -0 "$private_server_pid" 2>/dev/null || return 1
        if private_server_answers "$1"; then
            return 0
        fi
        sleep 0.1
    done
    return 1
}

private_server_start() {
    local attempt port as_user=()
    PATH=$PATH:/usr/sbin:/sbin
    [ "$(id -u)" -ne 0 ] || as_user=(--user=root)
    private_server_folder=$(mktemp -d)
    private_server_password=$(od -An -N16 -tx1 /dev/urandom | tr -d ' \n')
    mkdir -p "$private_server_folder"/data/{DBS,mdbs,temp}
    (umask 077 && private_server_accounts >"$private_server_folder/accounts.sql")
    if ! mariadb-install-db --no-defaults --force "${as_user[@]}" --auth-root-authentication-method=normal --skip-test-db \
        --datadir="$private_server_folder/data/DBS" --tmpdir="$private_server_folder" >"$private_server_folder/log" 2>&1; then
        cat "$private_server_folder/log" >&2
        return 1
    fi
    for ((attempt = 0; attempt < 10; attempt++)); do
        port=$((20000 + (RANDOM * 32768 + RANDOM) % 40000))
        private_server_launch "$port"
        if private_server_wait "$port"; then
            private_server_address=127.0.0.1:$port
            return 0
        fi
        private_server_stop_process
    done
    tail -n 20 "$private_server_folder/log" >&2
    return 1
}

private_server_stop_process() {
    if [ -n "$private_server_pid" ]; then
        kill "$private_server_pid" 2>/dev/null
        wait "$private_server_pid" 2>/dev/null
        private_server_pid=
    fi
    return 0
}

private_server_stop() {
    private_server_stop_process
    if [ -n "$private_server_folder" ]; then
        rm -rf "$private_server_folder"
        private_server_folder=
    fi
}

# Waits in the background of the shell, so that a signal is served at once and not after the command's end.
private_server_wait_for() { # private_server_wait_for COMMAND...
    local command_pid result=0
    "$@" &
    command_pid=$!
    trap 'kill "$command_pid" 2>/dev/null; exit 130' INT
    trap 'kill "$command_pid" 2>/dev/null; exit 143' TERM HUP
    wait "$command_pid" || result=$?
    return "$result"
}

private_server_export() {
    export MYDB_SERVER=$private_server_address MYDB_USER=vela_root MYDB_PASSWORD=$private_server_password
    export MYDB_DATA_DIR=$private_server_folder/data
}

private_server_run() {
    if [ -z "${MYDB_SERVER:-}" ]; then
        private_server_start || return 1
        private_server_export
    fi
    private_server_wait_for "$@"
}

# Each run of this script has one server and stops that one: a second server is another run, within the first.
private_server_run_second() {
    private_server_start || return 1
    export MYDB_SECOND_SERVER=$private_server_address MYDB_SECOND_USER=vela_root
    export MYDB_SECOND_PASSWORD=$private_server_password MYDB_SECOND_DATA_DIR=$private_server_folder/data
    private_server_wait_for "$@"
}

if [ "${BASH_SOURCE[0]}" = "$0" ]; then
    case ${1:-} in
    run) runner=private_server_run ;;
    run-second) runner=private_server_run_second ;;
    *) runner= ;;
    esac
    if [ -z "$runner" ] || [ $# -lt 2 ]; then
        echo "usage: private-server.sh run|run-second COMMAND..." >&2
        exit 2
    fi
    trap private_server_stop EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM HUP
    "$runner" "${@:2}"
fi
