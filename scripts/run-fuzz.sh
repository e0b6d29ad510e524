#!/usr/bin/env bash
# Runs every libFuzzer target of a fuzz build for a bounded time, each seeded from a copy of
# fuzz/corpus. Findings are kept in <build-dir>/fuzz-artifacts.
# Usage: run-fuzz.sh <build-dir> <seconds per target>
set -euo pipefail
build_dir=$(cd "${1:-build-fuzz}" && pwd)
seconds=${2:-60}
source_dir=$(cd "$(dirname "$0")/.." && pwd)

targets=()
for candidate in "$build_dir"/fuzz/fuzz_*; do
  if [ -f "$candidate" ] && [ -x "$candidate" ]; then targets+=("$candidate"); fi
done
if [ ${#targets[@]} -eq 0 ]; then
  echo "run-fuzz.sh: no fuzz targets in $build_dir/fuzz (configure with the fuzz preset)" >&2
  exit 1
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
artifacts="$build_dir/fuzz-artifacts"
mkdir -p "$artifacts"

status=0
for target in "${targets[@]}"; do
  name=$(basename "$target")
  corpus="$work/$name"
  mkdir -p "$corpus"
  cp "$source_dir"/fuzz/corpus/* "$corpus"/
  echo "== $name for ${seconds}s"
  # The working folder holds no dependencies.xml, so runs do not depend on the caller's.
  # Undefined behaviour ends the run like a crash, so that it is reported and kept.
  (cd "$work" && QT_QPA_PLATFORM=offscreen UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1 \
      LSAN_OPTIONS="suppressions=$source_dir/fuzz/lsan.supp" "$target" \
      -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 -max_len=65536 \
      -dict="$source_dir/fuzz/settings.dict" -artifact_prefix="$artifacts/$name-" \
      -print_final_stats=1 "$corpus") || status=$?
done
exit $status
