#!/usr/bin/env bash
# Takes the dialog's screenshot for the AppStream metadata (share/screenshots/) under Xvfb,
# on the virtual printer: the Paper Handling group of the laser sample.
set -euo pipefail
build_dir=${1:-build}
cd "$(dirname "$0")/.."
root=$(pwd)
work=$(mktemp -d)
trap 'kill $printer 2>/dev/null || true; rm -rf "$work"' EXIT
"$root/$build_dir/bin/tav-vprinter" "$root/data/laser_mfp.xml" --link "$work/lp0" >/dev/null 2>&1 &
printer=$!
for _ in $(seq 100); do [ -e "$work/lp0" ] && break; sleep 0.05; done
xvfb-run -a -s "-screen 0 1280x900x24 -nolisten tcp" bash -c '
  "$1" "$2" "Tavolor Laser MFP 4200" >/dev/null 2>&1 &
  tav=$!
  win=$(timeout 30 xdotool search --sync --onlyvisible --name "Tavolor Laser MFP 4200" | head -n1)
  sleep 1
  # A start-up warning about a device value, if any, is dismissed first.
  xdotool key --clearmodifiers Return; sleep 0.5
  xdotool key --window "$win" Down Down; sleep 1
  import -window "$win" "$3"
  kill $tav 2>/dev/null; wait $tav 2>/dev/null || true
' _ "$root/$build_dir/bin/tav" "$work/lp0" "$root/share/screenshots/settings-dialog.png"
echo "share/screenshots/settings-dialog.png"
