#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running Tavolor need.
# Idempotent and quick when everything is present: only missing packages are fetched.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config clang-format
  qt6-base-dev qt6-base-dev-tools qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools
  libqt6svg6 qt6-translations-l10n
  libusb-1.0-0-dev libx11-dev libudev-dev
  umockdev libumockdev-dev
  xvfb xauth xdotool x11-utils imagemagick
  clang-14 libclang-rt-14-dev
  qemu-system-x86 busybox-static cpio binutils
  locales
  dpkg-dev file scdoc lintian desktop-file-utils appstream
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done

sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
  sudo_cmd=(sudo)
fi

if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  "${sudo_cmd[@]}" apt-get update -qq
  "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

# The translation tests run the program under English and German locales.
wanted_locales=(en_US.UTF-8 de_DE.UTF-8)
available=$(locale -a 2>/dev/null | tr 'A-Z' 'a-z' | sed 's/utf-8/utf8/')
need_gen=0
for l in "${wanted_locales[@]}"; do
  key=$(echo "$l" | tr 'A-Z' 'a-z' | sed 's/utf-8/utf8/')
  if ! grep -qx "$key" <<<"$available"; then
    need_gen=1
    "${sudo_cmd[@]}" sed -i "s/^# *\($l UTF-8\)/\1/" /etc/locale.gen
    grep -q "^$l UTF-8" /etc/locale.gen || echo "$l UTF-8" | "${sudo_cmd[@]}" tee -a /etc/locale.gen >/dev/null
  fi
done
if [ "$need_gen" -eq 1 ]; then
  "${sudo_cmd[@]}" locale-gen >/dev/null
fi
