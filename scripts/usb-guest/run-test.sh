#!/usr/bin/env bash
# Runs PROGRAM inside the USB test guest and passes on its output and exit status. Exits 77
# (a skip for ctest), saying why, where the guest cannot start at all.
# Usage: run-test.sh BUILD_DIR PROGRAM [ARGUMENTS...]
set -uo pipefail
build_dir=$(realpath "$1")
shift
here=$(cd "$(dirname "$0")" && pwd)
skip() { echo "SKIP: $*"; exit 77; }

command -v qemu-system-x86_64 >/dev/null || skip "qemu-system-x86_64 is not installed"
"$here/prepare.sh" "$build_dir" >/dev/null || skip "the guest's kernel could not be prepared"
out=$(mktemp -d "$build_dir/usb-guest/run.XXXXXX")
trap 'rm -rf "$out"' EXIT
{
  echo "export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=/tmp"
  echo "cut -d' ' -f1 /proc/uptime > $out/boot-seconds"
  echo "cd /tmp"
  printf '%q ' "$@"
  echo "> $out/output 2>&1"
  echo "echo \$? > $out/status"
} > "$out/script.sh"
started=$(date +%s.%N)
timeout 560 "$here/run.sh" "$build_dir" "$out/script.sh" "$out" > "$out/console" 2>&1
qemu_status=$?
ended=$(date +%s.%N)
cat "$out/output" 2>/dev/null
if [ ! -f "$out/boot-seconds" ]; then
  cat "$out/console"
  # QEMU that never ran a guest is a machine without the means; a guest that ran and broke is a failure.
  grep -q "Linux version\|Run /init\|reboot:" "$out/console" || skip "QEMU could not start the guest (status $qemu_status)"
  echo "FAIL: the guest did not reach the test"
  exit 1
fi
awk -v boot="$(cat "$out/boot-seconds")" -v a="$started" -v b="$ended" -v accel="${TAV_GUEST_ACCEL:-tcg}" \
  'BEGIN { printf "guest boot %.1f s, whole run %.1f s, accelerator %s\n", boot, b - a, accel }' 
[ -f "$out/status" ] || { echo "FAIL: the guest ended before the test did"; tail -20 "$out/console"; exit 1; }
exit "$(cat "$out/status")"
