#!/usr/bin/env bash
# Lets the Windows host use itself under Wine, on a screen that nobody sees, and takes pictures of it.
#
#   run.sh WINDOWS_HOST.EXE [PICTURE.PNG]    mydb.dll lies beside the program
#
# MYDB_SERVER, MYDB_USER, MYDB_PASSWORD and MYDB_DATA_DIR name a server whose files are on this machine
# (scripts/private-server.sh): one of its tables is damaged. With PICTURE.PNG a picture for the manual is kept there.
#
# It runs in a copy of the prefix of scripts/wine-prefix.sh: the programs of a prefix share one screen.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
scripts=$here/../../scripts
program=$1
picture=${2:-}
folder=$(mktemp -d)
xvfb_pid=
host_pid=

end() {
    if [ -n "$host_pid" ]; then
        kill "$host_pid" 2>/dev/null || true
    fi
    if [ -d "$WINEPREFIX" ]; then
        /usr/lib/wine/wineserver -k || true
        /usr/lib/wine/wineserver -w || true
    fi
    if [ -n "$xvfb_pid" ]; then
        kill "$xvfb_pid" 2>/dev/null || true
    fi
    rm -rf "$folder"
}

start_screen() {
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>"$folder/display" >"$folder/xvfb.log" 2>&1 </dev/null &
    xvfb_pid=$!
    for ((tries = 0; tries < 200; tries++)); do
        [ ! -s "$folder/display" ] || break
        sleep 0.1
    done
    if ! [ -s "$folder/display" ]; then
        echo "Xvfb does not start:" >&2
        cat "$folder/xvfb.log" >&2
        return 1
    fi
    DISPLAY=:$(cat "$folder/display")
    export DISPLAY
}

# A German host: the buttons of a message box follow the locale. Without a window manager Wine has to draw the frames of
# the windows; the signs in them are letters of a font that Debian's Wine does not find where it is.
prepare_wine() {
    cp -a "$scripts/../.cache/wine/$MYDB_WINE_LOCALE" "$folder/copy"
    rm -f "$folder/copy/wineserver" # names the server of the original
    mv "$folder/copy" "$WINEPREFIX"
    cp /usr/share/wine/fonts/{marlett,tahoma,tahomabd}.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    "$scripts/wine.sh" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f
    "$scripts/wine.sh" reg add 'HKCU\Software\Wine\Fonts\Replacements' /v 'Segoe UI' /d Tahoma /f
}

prepare_database() {
    MYSQL_PWD=$MYDB_PASSWORD mariadb --no-defaults --host="${MYDB_SERVER%:*}" --port="${MYDB_SERVER##*:}" --user="$MYDB_USER" \
        --default-character-set=utf8mb4 <"$here/demo.sql"
    : >"$MYDB_DATA_DIR/DBS/vela_windows_host/lager.MYI"
}

take_picture() { # take_picture NAME: waits for the host, and fails when the picture shows nothing
    local name=$1 colours
    for ((tries = 0; tries < 600; tries++)); do
        [ ! -f "$folder/$name.ready" ] || break
        kill -0 "$host_pid" 2>/dev/null || return 1
        sleep 0.1
    done
    import -window root "$folder/$name.png"
    colours=$(identify -format '%k' "$folder/$name.png")
    echo "a picture of the $name, with $colours colours"
    : >"$folder/$name.taken"
    [ "$colours" -gt 1 ]
}

# With TMPDIR the folder that Wine makes for its server goes the way of the others.
export WINEPREFIX=$folder/wine MYDB_WINE_LOCALE=de_DE TMPDIR=$folder
trap end EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

start_screen
prepare_wine
prepare_database
"$scripts/wine.sh" "$program" --selftest "Z:${folder//\//\\}" &
host_pid=$!
result=0
{ take_picture box && take_picture dump; } || result=1
wait "$host_pid" || result=$?
host_pid=
cat "$folder/log.txt" || result=1
if [ -n "$picture" ]; then
    convert "$folder/box.png" "$folder/dump.png" -trim +repage -background white -gravity center +append "$picture"
fi
exit "$result"
