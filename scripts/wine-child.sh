#!/usr/bin/env bash
# The Unix side of programs that run under wine.sh. Wine starts a Unix program and then knows nothing of it: no process
# number, no end, no exit code. So a folder stands for each: "process" holds the number while it runs, "ended" the exit
# code afterwards.
#
#   wine-child.sh run FOLDER PROGRAM ARGUMENT...            becomes the program
#   wine-child.sh start FOLDER OUTPUT PROGRAM ARGUMENT...   runs it, its output appended to a file
#   wine-child.sh signal FOLDER NAME                        sends it a signal, unless it has ended
#   wine-child.sh drive TARGET ANSWER                       a free drive letter for a folder, written into a file
#   wine-child.sh no-drive LETTER ANSWER                    gives it back
#   wine-child.sh guard FOLDER                              waits for the end of standard input, then ends and removes all
set -u

put() { # put FILE TEXT: the file appears with its text
    printf '%s\n' "$2" >"$1.new" && mv "$1.new" "$1"
}

await() { # await SECONDS FILE...: until one of them exists
    local end=$((SECONDS + $1 + 1)) file
    shift
    while [ "$SECONDS" -lt "$end" ]; do
        for file in "$@"; do
            [ -e "$file" ] && return
        done
        sleep 0.01
    done
    return 1
}

run() {
    put "$1/process" "$$"
    shift
    exec "$@"
}

# Wine's own descriptors stay open in a program that it starts, which would then seem to live on in it.
close_inherited() {
    local path descriptor
    for path in /proc/$$/fd/*; do
        descriptor=${path##*/}
        case $descriptor in
            0 | 1 | 2 | 255) ;; # the last one is this script
            *) eval "exec $descriptor>&-" ;;
        esac
    done
}

start() {
    local folder=$1 output=$2
    shift 2
    close_inherited 2>/dev/null
    "$@" >>"$output" 2>&1 </dev/null &
    put "$folder/process" $!
    wait $!
    put "$folder/ended" $?
}

signal() {
    await 5 "$1/process"
    [ -e "$1/ended" ] || kill -s "$2" "$(cat "$1/process")"
}

drive() {
    local letter
    for letter in t u v w x y s r q p o n m l; do
        if ln -sT "$1" "$WINEPREFIX/dosdevices/$letter:" 2>/dev/null; then
            put "$2" "$letter"
            return
        fi
    done
}

no_drive() {
    rm "$WINEPREFIX/dosdevices/$1:"
    put "$2" "$1"
}

end_program() { # end_program FOLDER
    await 10 "$1/process" "$1/ended" || return
    [ -e "$1/ended" ] && return
    kill -s KILL "$(cat "$1/process")"
    await 10 "$1/ended"
}

guard() {
    local folder=$1 child link
    cat >/dev/null
    [ -e "$folder/process" ] && kill -s KILL "$(cat "$folder/process")"
    for child in "$folder"/program_*; do
        [ -d "$child" ] && end_program "$child"
    done
    for link in "$WINEPREFIX"/dosdevices/?:; do
        [[ $(readlink "$link") == "$folder"/* ]] && rm "$link"
    done
    rm -rf "$folder"
}

command=$1
shift
case $command in
    run | start | signal | drive | guard) "$command" "$@" ;;
    no-drive) no_drive "$@" ;;
    *) exit 2 ;;
esac
