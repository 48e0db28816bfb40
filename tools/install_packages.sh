#!/usr/bin/env bash
# Installs the Debian packages that are missing, and says so first.
# usage: install_packages.sh SET...   (sets: build demo test package fuzz bench)
set -euo pipefail

declare -A sets=(
  [build]="g++ cmake ninja-build pkg-config qtbase5-dev libqt5serialport5-dev libqt5webkit5-dev libqt5x11extras5-dev libxcb1-dev libqscintilla2-qt5-dev libqcustomplot-dev libpcre2-dev libsodium-dev fonts-liberation python3"
  [demo]="xvfb xauth openbox xdotool wmctrl xclip imagemagick x11-utils"
  [test]="libgtest-dev clang-format-14 git socat netcat-openbsd picocom desktop-file-utils appstream mandoc udev umockdev shared-mime-info"
  [package]="dpkg-dev file lintian"
  [fuzz]="clang libclang-rt-14-dev"
  [bench]="libbenchmark-dev libgtest-dev"
)

missing=()
for set in "$@"; do
  for package in ${sets[$set]}; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
      missing+=("$package")
  done
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing with apt-get: ${missing[*]}"
as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || {
    echo "These packages are missing, and there is no sudo to install them with." >&2
    exit 1
  }
  as_root=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -q >/dev/null
"${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}" >/dev/null
