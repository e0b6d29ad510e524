#!/usr/bin/env bash
# Runs the whole test suite with ctest; provides an X server (Xvfb) when there is none.
set -euo pipefail
build_dir=${1:-build}
cd "$(dirname "$0")/.."
ctest_cmd=(ctest --test-dir "$build_dir" --output-on-failure --timeout 300)
if [ -z "${DISPLAY:-}" ]; then
  exec xvfb-run -a -s "-screen 0 1280x1024x24 -nolisten tcp" "${ctest_cmd[@]}"
fi
exec "${ctest_cmd[@]}"
