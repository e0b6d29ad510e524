#!/usr/bin/env bash
# Runs tav as far as it is built today.
set -euo pipefail
build_dir=${1:-build}
cd "$(dirname "$0")/.."
run() {
  if [ -z "${DISPLAY:-}" ]; then xvfb-run -a -s "-screen 0 1280x1024x24 -nolisten tcp" "$@"; else "$@"; fi
}
run "$build_dir/bin/tav" /dev/null "Demo Printer" || true
echo "Still missing: the virtual printer and the settings dialog."
