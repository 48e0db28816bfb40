#!/bin/sh
# Adds the console in this folder to the desktop's menu, for this user alone.
# usage: ./add-to-menu [--remove]      Call it again when the folder has moved.
set -eu

folder=$(dirname -- "$(readlink -f -- "$0")")
share=${XDG_DATA_HOME:-$HOME/.local/share}

if [ "${1:-}" = --remove ]; then
    rm -f -- "$share/applications/kewlink-console.desktop" "$share/applications/kwedit.desktop"
    exit 0
fi

# A path as desktop entries want it: quoted, and its own special characters behind backslashes,
# which the entry doubles; "%" would begin a field code.
quoted() { printf '"%s"' "$(printf %s "$1" | sed -e 's/[\\"`$]/\\&/g' -e 's/\\/\\\\/g' -e 's/%/%%/g')"; }

mkdir -p -- "$share/applications"
entry() {
    grep -v -e '^Exec=' -e '^TryExec=' -e '^Icon=' "$folder/share/applications/$1.desktop"
    printf 'Exec=%s %s\n' "$(quoted "$folder/$2")" "$3"
    printf 'Icon=%s\n' "$(printf %s "$folder" | sed 's/\\/\\\\/g')/share/icons/hicolor/scalable/apps/kewlink-console.svg"
}
entry kewlink-console KWCC %f > "$share/applications/kewlink-console.desktop"
entry kwedit KWEdit %F > "$share/applications/kwedit.desktop"
echo "Added to $share/applications"
