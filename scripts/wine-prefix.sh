#!/usr/bin/env bash
# Makes what Windows programs and locale tests run in: the locales in .cache/locale, and under .cache/wine a Wine prefix
# for each of them. Does nothing for what is there and made by this recipe and this Wine.
#
# A prefix as Wine makes it takes 690 MB, copies of its own DLLs. They are replaced by links to the installed ones, which
# leaves 20 MB; Wine is told never to update such a prefix, because it would write through the links.
set -euo pipefail
# shellcheck source=scripts/setup.sh
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

locales=(de_DE en_US)
wine=/usr/lib/wine/wine64
dlls=/usr/lib/x86_64-linux-gnu/wine/x86_64-windows
cache=$repository/.cache
need_packages "${windows_packages[@]}"

recipe() {
    sha256sum <"$repository/scripts/wine-prefix.sh"
    dpkg-query -W -f '${Package} ${Version}\n' "$@"
}

# All are made aside and put into their place at the end and at once, so that an interrupted run leaves nothing that
# looks complete.
is_current() { # is_current FOLDER PACKAGE...
    local folder=$1 locale
    shift
    for locale in "${locales[@]}"; do
        [ -e "$folder/$locale/system.reg" ] || [ -e "$folder/$locale.UTF-8/LC_TIME" ] || return
    done
    [ -f "$folder/recipe" ] && diff -q "$folder/recipe" <(recipe "$@") >/dev/null
}

publish() { # publish STAGE FOLDER PACKAGE...
    local stage=$1 folder=$2
    shift 2
    recipe "$@" >"$stage/recipe" && rm -rf "$folder" && mv -T "$stage" "$folder"
}

make_locales() {
    local locale
    mkdir "$work/locale" || return
    for locale in "${locales[@]}"; do
        localedef --no-archive -i "$locale" -f UTF-8 "$work/locale/$locale.UTF-8" || return
    done
    publish "$work/locale" "$cache/locale" locales
}

# Runs a program and waits until it and the prefix's server have ended and everything is on disk.
run_in_prefix() { # run_in_prefix PREFIX LOCALE PROGRAM ARGUMENT...
    local prefix=$1 locale=$2
    shift 2
    if ! env -u DISPLAY WINEPREFIX="$prefix" LC_ALL="$locale.UTF-8" "$wine" "$@" </dev/null 9>&-; then
        WINEPREFIX="$prefix" /usr/lib/wine/wineserver -k
        return 1
    fi
    WINEPREFIX="$prefix" /usr/lib/wine/wineserver -w
}

link_dlls() { # link_dlls PREFIX
    local file original
    while IFS= read -r -d '' file; do
        original=$dlls/${file##*/}
        if cmp -s "$file" "$original"; then
            ln -sf "$original" "$file" || return
        fi
    done < <(find "$1/drive_c/windows" -type f -size +8k -print0)
    echo disable >"$1/.update-timestamp"
}

# A prefix takes its locale over from the first program that runs in it.
make_prefixes() {
    local locale first=$work/first
    run_in_prefix "$first" en_US wineboot -i || return
    # Windows exist without a display, too: a test answers its message boxes by itself.
    run_in_prefix "$first" en_US reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d x11,null /f || return
    link_dlls "$first" || return
    rm -f "$first/wineserver" # names the folder of the running server
    mkdir "$work/wine" || return
    for locale in "${locales[@]}"; do
        cp -a "$first" "$work/wine/$locale" || return
        run_in_prefix "$work/wine/$locale" "$locale" cmd /c exit || return
    done
    publish "$work/wine" "$cache/wine" wine64 libwine locales
}

mkdir -p "$cache"
exec 9>"$cache/wine-prefix.lock"
flock 9
work=$cache/wine-prefix.stage
rm -rf "$work" # of a run that was killed
mkdir "$work"
trap 'rm -rf "$work"' EXIT
export LOCPATH=$cache/locale WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml='

if is_current "$cache/locale" locales; then
    say "Locales: as made before"
else
    run_step "Making the locales ${locales[*]}" make_locales
fi
if is_current "$cache/wine" wine64 libwine locales; then
    say "Wine prefixes: as made before"
else
    run_step "Making Wine prefixes for the locales ${locales[*]}" make_prefixes
fi
