#!/usr/bin/env bash
# Boots the USB test guest and runs SCRIPT (a path on the host) inside it; OUT_DIR, a host
# folder, is writable in the guest at the same path. Without SCRIPT the guest opens a shell
# on this terminal. The console goes to standard output.
# Usage: run.sh BUILD_DIR [SCRIPT [OUT_DIR]]
# TAV_GUEST_ACCEL picks QEMU's accelerator (default tcg: plain emulation, which works inside
# a virtual machine where KVM may hang).
set -euo pipefail
build_dir=$(realpath "${1:-build}")
script=${2:-}
out=${3:-}
guest="$build_dir/usb-guest"
accel=${TAV_GUEST_ACCEL:-tcg}
[ -f "$guest/vmlinuz" ] && [ -f "$guest/initramfs.gz" ] ||
  { echo "run: no guest in $guest; run scripts/usb-guest/prepare.sh first" >&2; exit 2; }

append="console=ttyS0 quiet loglevel=3 panic=-1 tsc=reliable"
shares=(-virtfs "local,path=/,mount_tag=hostroot,security_model=none,readonly=on,multidevs=remap")
if [ -n "$out" ]; then
  out=$(realpath "$out")
  append+=" tav.out=$out"
  shares+=(-virtfs "local,path=$out,mount_tag=out,security_model=none,multidevs=remap")
  # The guest's /tmp is its own: the script travels in the shared folder.
  if [ -n "$script" ]; then
    cp "$script" "$out/guest-script.sh"
    script="$out/guest-script.sh"
  fi
fi
if [ -n "$script" ]; then
  append+=" tav.script=$(realpath "$script")"
fi
exec qemu-system-x86_64 -accel "$accel" -M pc -cpu max -smp 2 -m 1536 \
  -kernel "$guest/vmlinuz" -initrd "$guest/initramfs.gz" -append "$append" \
  "${shares[@]}" -nic none -display none -serial stdio -monitor none -no-reboot
