#!/bin/sh
# Starts the console, or the editor when called as kwedit, from a folder of the user's own.
# The programs keep their settings in data/ beside themselves, so each user gets copies of
# them there, renewed when the package is, and links to what nobody changes.
set -eu

here=$(dirname -- "$(readlink -f -- "$0")")
shared=$here/../libexec/kewlink-console
own=${XDG_DATA_HOME:-$HOME/.local/share}/kewlink-console

mkdir -p -- "$own/data"
own=$(readlink -f -- "$own") # by this path a second start knows the first

# A copy is put in place by a rename: the one before may be running.
for program in KWCC KWEdit; do
    cmp -s -- "$shared/$program" "$own/$program" && continue
    cp -- "$shared/$program" "$own/$program.$$"
    mv -f -- "$own/$program.$$" "$own/$program"
done
for name in libkewlink_web.so data/html data/html2; do
    ln -sfn -- "$shared/$name" "$own/$name"
done

case ${0##*/} in
    kwedit) exec "$own/KWEdit" "$@" ;;
    *) exec "$own/KWCC" "$@" ;;
esac
