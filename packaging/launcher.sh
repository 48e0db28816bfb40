#!/bin/bash
# Starts the console, or the companion whose name it is called by, from a folder of the user's own.
# The programs keep their settings in data/ beside themselves, so each user gets copies of
# them there, renewed when the package is, and links to what nobody changes.
set -eu

name=${0##*/}
case $name in kwedit) companion=KWEdit ;; kwplot) companion=KWPlot ;; *) companion= ;; esac
here=$(dirname -- "$(readlink -f -- "$0")")
shared=$here/../libexec/kewlink-console
own=${XDG_DATA_HOME:-$HOME/.local/share}/kewlink-console
settings=$own/data/KWCC.inf

usage() {
    cat <<END
usage: kewlink-console [FILE]
       kewlink-console --help | --version

Opens the console; with a FILE it connects and uploads it. Where the console of this user runs
already, the FILE is handed to it. The settings are in
$settings
END
}

# A sentence for the user: on the terminal where there is one, else in a window.
tell() {
    set -- "$(printf %s "$1" | fold -s -w 90)"
    printf '%s: %s\n' "$name" "$1" >&2
    [ -t 2 ] && return
    for dialog in "zenity --error --no-markup --text" "kdialog --error" "xmessage -center"; do
        command -v "${dialog%% *}" >/dev/null || continue
        $dialog "$1" 2>/dev/null || true # unquoted: the program and its options
        return
    done
    notify-send "Kewlink Console" "$1" 2>/dev/null || true
}

# True when another user's process listens on one of the given TCP ports (proc(5), tcp and tcp6:
# the second field is address and port in hexadecimal, the fourth the state, the eighth the user).
taken() {
    awk -v wanted="$(printf ' %04X' "$@") " -v me="$(id -u)" '
        { sub(".*:", "", $2) }
        $4 == "0A" && $8 != me && index(wanted, " " $2 " ") { found = 1 }
        END { exit !found }' /proc/net/tcp $([ ! -e /proc/net/tcp6 ] || echo /proc/net/tcp6)
}

# The first settings, with ports that no other user has.
seed() {
    step=0
    while taken $((50899 + step)) $((50900 + step)) $((6832 + step)); do step=$((step + 2)); done
    cp -- "$shared/first_settings.inf" "$settings.$$"
    [ "$step" -eq 0 ] || printf '\n[Network]\n%s = %d\n%s = %d\n%s = %d\n' \
        "IP control port" $((50899 + step)) "IP data port" $((50900 + step)) \
        "KWedit control port" $((6832 + step)) >>"$settings.$$"
    mv -- "$settings.$$" "$settings"
}

# What this user's folder needs, made or renewed.
prepare() {
    mkdir -p -- "$own/data"
    # A copy is put in place by a rename: the one before may be running.
    for program in KWCC KWEdit KWPlot; do
        cmp -s -- "$shared/$program" "$own/$program" && continue
        cp -- "$shared/$program" "$own/$program.$$"
        mv -f -- "$own/$program.$$" "$own/$program"
    done
    for part in libkewlink_web.so data/html data/html2; do
        ln -sfn -- "$shared/$part" "$own/$part"
    done
    [ -e "$settings" ] || seed
}

# A program that was renewed since its start has "(deleted)" behind its path.
running() {
    readlink /proc/[0-9]*/exe 2>/dev/null |
        grep -qxF -e "$own/KWCC" -e "$own/KWCC (deleted)"
}

# Gives a file to the console that runs, by the control port of its settings.
hand_over() {
    port=$(sed -n 's/^IP control port = \([0-9]*\).*/\1/p' "$settings" | head -n 1)
    case $1 in /*) path=$1 ;; *) path=$PWD/$1 ;; esac
    exec 3<>"/dev/tcp/127.0.0.1/${port:-50899}" || return
    printf '/load %s\r' "$path" >&3
    # Closing at once would meet the console's welcome with a reset, which can cost the words.
    read -r -t 0.3 -u 3 || true
    exec 3>&-
}

# Runs a program to its end. When it failed by itself, what it said last is told; one that was
# ended from outside (128 and SIGHUP, SIGINT, SIGKILL or SIGTERM) is not.
run() {
    words=$own/last-words
    status=0
    if [ -t 2 ]; then
        "$@" || status=$?
    else
        "$@" 2>"$words" || status=$?
    fi
    case $status in
        0 | 129 | 130 | 137 | 143) ;;
        *) tell "The program ended with status $status. $(tail -n 5 "$words" 2>/dev/null)" ;;
    esac
    rm -f -- "$words"
    exit "$status"
}

case $name:${1:-} in
    kw*:--help | kw*:--version) exec "$shared/$companion" "$1" ;;
    *:--help) usage && exit ;;
    *:--version) echo "kewlink-console @PROJECT_VERSION@" && exit ;;
esac
trouble=$(prepare 2>&1) || { tell "The folder $own cannot be made ready. $trouble" && exit 1; }
own=$(readlink -f -- "$own") # by this path a second start knows the first
[ -z "$companion" ] || run "$own/$companion" "$@"
running || run "$own/KWCC" "$@"
[ $# -gt 0 ] || { tell "Kewlink Console is running already." && exit; }
# A console that has only just been started opens its port a little later.
for pause in 0.3 0.3 0.3 0.3 1 1 0; do
    (hand_over "$*") 2>/dev/null && exit
    sleep "$pause"
done
tell "The running console does not take files: $*"
exit 1
