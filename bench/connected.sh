#!/usr/bin/env bash
# Starts a console in a folder of its own on the current display and presses Connect for it:
# for side-by-side runs that want a program which connects by itself. The pace is "fast", a poll
# of 10 ms and a buffer of 65,536 bytes, "default", or "choice", which is "Read as it comes".
# usage: connected.sh KWCC ADDRESS PORT [fast|default|choice]
set -euo pipefail
folder=$(mktemp -d)
mkdir "$folder/data"
cp "$1" "$folder/KWCC"
case ${4:-fast} in
  fast) pace=$'Serial polling interval = 10\nComms buffer size = 65536' ;;
  choice) pace=$'[Choices]\nRead as it comes = 1' ;;
  *) pace= ;;
esac
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
$pace
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
