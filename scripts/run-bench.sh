#!/usr/bin/env bash
# Runs every benchmark program; each prints its own side-by-side ratios.
set -euo pipefail
build_dir=${1:-build}
cd "$(dirname "$0")/.."
run() {
  if [ -z "${DISPLAY:-}" ]; then xvfb-run -a -s "-screen 0 1280x1024x24 -nolisten tcp" "$@"; else "$@"; fi
}
for b in "$build_dir"/bench/bench_*; do
  [ -x "$b" ] || continue
  echo "== $(basename "$b")"
  case "$(basename "$b")" in
    # Measures the real USB path: runs inside the USB test guest; 77 means no guest here.
    bench_usb*) ./scripts/usb-guest/run-test.sh "$build_dir" "$(realpath "$b")" || [ $? -eq 77 ] ;;
    *) QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} run "$b" ;;
  esac
done
