#!/bin/sh
# Adds the programs in this folder to the desktop's menu, for this user alone, and opens BASIC
# sources in the editor. usage: ./add-to-menu [--remove | --help]
# Call it again when the folder has moved.
set -eu

folder=$(dirname -- "$(readlink -f -- "$0")")
share=${XDG_DATA_HOME:-$HOME/.local/share}

applications=$share/applications
types=$share/mime/packages

# The desktop's own lists; a machine without these tools has no such lists.
tell_the_desktop() {
    update-desktop-database -q "$applications" 2>/dev/null || true
    update-mime-database "$share/mime" >/dev/null 2>&1 || true
}

case ${1:-} in
    '') ;;
    --remove)
        rm -f -- "$applications/kewlink-console.desktop" "$applications/kwedit.desktop" \
            "$applications/kwplot.desktop" "$types/kewlink-console.xml"
        tell_the_desktop
        exit 0
        ;;
    *)
        sed -n '2,4s/^# //p' "$0"
        [ "$1" = --help ]
        exit
        ;;
esac

# A path as desktop entries want it: quoted, and its own special characters behind backslashes,
# which the entry doubles; "%" would begin a field code.
quoted() { printf '"%s"' "$(printf %s "$1" | sed -e 's/[\\"`$]/\\&/g' -e 's/\\/\\\\/g' -e 's/%/%%/g')"; }

mkdir -p -- "$applications" "$types"
entry() {
    grep -v -e '^Exec=' -e '^TryExec=' -e '^Icon=' "$folder/share/applications/$1.desktop"
    printf 'Exec=%s %s\n' "$(quoted "$folder/$2")" "$3"
    printf 'Icon=%s\n' "$(printf %s "$folder" | sed 's/\\/\\\\/g')/share/icons/hicolor/scalable/apps/$4.svg"
}
entry kewlink-console KWCC %f kewlink-console > "$applications/kewlink-console.desktop"
entry kwedit KWEdit %F kewlink-console > "$applications/kwedit.desktop"
entry kwplot KWPlot %f kwplot > "$applications/kwplot.desktop"
cp -- "$folder/share/mime/packages/kewlink-console.xml" "$types"
tell_the_desktop
echo "Added to $applications"
