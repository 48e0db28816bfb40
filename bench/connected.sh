#!/usr/bin/env bash
# Starts a console in a folder of its own on the current display, with the fast poll, and
# presses Connect for it: for side-by-side runs that want a program which connects by itself.
# usage: connected.sh KWCC ADDRESS PORT
set -euo pipefail
folder=$(mktemp -d)
mkdir "$folder/data"
cp "$1" "$folder/KWCC"
cat > "$folder/data/KWCC.inf" <<END
[Windows]
MainX = 0
MainY = 0
MainW = 960
MainH = 1000
[Device]
Comport = TCPIP
TCPIP address = $2
TCPIP port = $3
Serial polling interval = 10
Comms buffer size = 65536
END
(
  while ! window=$(xdotool search --onlyvisible --name '^Kewlink Console$' | grep -m 1 .); do
    sleep 0.02
  done
  sleep 0.4
  xdotool mousemove --window "$window" 652 90 click 1
  sleep 0.3
  xdotool mousemove --window "$window" 400 500
) &
exec "$folder/KWCC"
