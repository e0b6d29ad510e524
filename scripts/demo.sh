#!/usr/bin/env bash
# Opens the settings dialog on the built-in virtual printer: a laser MFP served from the
# sample specification. Applied settings are kept in build/demo/, so running the demo
# again shows them. Without a display it runs under Xvfb and saves a screenshot instead.
set -euo pipefail
build_dir=${1:-build}
cd "$(dirname "$0")/.."
root=$(pwd)
demo_dir="$root/$build_dir/demo"
mkdir -p "$demo_dir"
model="Tavolor Laser MFP 4200"
device="$demo_dir/lp0"

"$root/$build_dir/bin/tav-vprinter" "$root/data/laser_mfp.xml" \
  --state "$demo_dir/laser_mfp_state.xml" --link "$device" >"$demo_dir/vprinter.out" 2>"$demo_dir/vprinter.log" &
printer=$!
trap 'kill $printer 2>/dev/null; wait $printer 2>/dev/null || true' EXIT
for _ in $(seq 100); do
  [ -e "$device" ] && break
  sleep 0.05
done
if [ ! -e "$device" ]; then
  echo "The virtual printer did not start; see $demo_dir/vprinter.log" >&2
  exit 1
fi
echo "Virtual printer: $device (log: $demo_dir/vprinter.log)"

if [ -n "${DISPLAY:-}" ]; then
  "$root/$build_dir/bin/tav" "$device" "$model" || true
  exit 0
fi

shot="$demo_dir/demo.png"
xvfb-run -a -s "-screen 0 1280x900x24 -nolisten tcp" bash -c '
  "$1" "$2" "$3" >"$4/tav.log" 2>&1 &
  tav=$!
  timeout 20 xdotool search --sync --onlyvisible --name "$3" >/dev/null 2>&1 || sleep 3
  sleep 1
  import -window root "$5"
  kill $tav 2>/dev/null; wait $tav 2>/dev/null || true
' _ "$root/$build_dir/bin/tav" "$device" "$model" "$demo_dir" "$shot"
echo "No display here: the dialog ran under Xvfb. Screenshot: $shot (log: $demo_dir/tav.log)"
