#!/usr/bin/env bash
# Opens a shell in the USB test guest with the virtual USB printer plugged in (make usb-shell).
# Usage: shell.sh BUILD_DIR [tav-usbgadget options...]
set -euo pipefail
build_dir=$(realpath "${1:-build}")
shift || true
here=$(cd "$(dirname "$0")" && pwd)
source_dir=$(dirname "$(dirname "$here")")
"$here/prepare.sh" "$build_dir" >/dev/null
out=$(mktemp -d "$build_dir/usb-guest/shell.XXXXXX")
trap 'rm -rf "$out"' EXIT
cat > "$out/script.sh" <<SCRIPT
export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=/tmp TAV_GADGET_LOG=/tmp/gadget.log
$here/setup-gadget.sh start $build_dir/bin $source_dir/data/laser_mfp.xml --state /tmp/state.xml $*
cat <<TEXT

The virtual USB printer is plugged in: /dev/usb/lp0, its report in /tmp/gadget.log.
  $build_dir/bin/tav /dev/usb/lp0 "Virtual USB Printer" debug
  $here/setup-gadget.sh unbind | bind | stop | start BIN_DIR SPEC [options]
  /run/tav-guest/busybox rmmod usblp      (the guest's module tools)
Leave with exit; the guest then powers off.
TEXT
cd /tmp
/run/tav-guest/busybox setsid -c /bin/bash -i
SCRIPT
"$here/run.sh" "$build_dir" "$out/script.sh" "$out"
