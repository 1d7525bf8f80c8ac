#!/usr/bin/env bash
# Builds the library and shows it reading and changing a real database. Works on a fresh Debian 12, as root or with sudo.
#
# A private server is started for the demonstration and stopped at its end. To use another one:
#   MYDB_SERVER=host:port MYDB_USER=user MYDB_PASSWORD=password scripts/demo.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/setup.sh
source scripts/setup.sh
# shellcheck source=scripts/private-server.sh
source scripts/private-server.sh

trap private_server_stop EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

need_packages "${build_packages[@]}" "${server_packages[@]}"
build_preset release "Building the library and the examples"
if [ -n "${MYDB_SERVER:-}" ]; then
    say "Using the server $MYDB_SERVER"
else
    run_step "Starting a private server" private_server_start
    say "It listens on $private_server_address and ends with this script"
    private_server_export
fi
say "Running examples/quickstart"
echo
private_server_run build/release/examples/quickstart
echo
say "Running examples/customers"
echo
private_server_run build/release/examples/customers
echo
say "Running examples/startup"
echo
private_server_run scripts/run-startup.sh build/release/examples
echo
say "Starting a second private server and running examples/maintenance"
echo
private_server_run scripts/private-server.sh run-second scripts/run-maintenance.sh build/release/examples
