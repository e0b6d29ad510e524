#!/usr/bin/env bash
# Makes the USB test guest in BUILD_DIR/usb-guest: Debian's kernel package, fetched once and
# unpacked there (never installed), and a busybox initramfs holding the modules the guest needs.
set -euo pipefail
build_dir=$(realpath "${1:-build}")
here=$(cd "$(dirname "$0")" && pwd)
guest="$build_dir/usb-guest"
mkdir -p "$guest"
cd "$guest"

# The metapackage names the current kernel image package.
if ! ls linux-image-*.deb >/dev/null 2>&1; then
  image=$(apt-cache depends linux-image-amd64 | awk '/Depends: linux-image-/ {print $2; exit}')
  [ -n "$image" ] || { echo "prepare: no kernel image package known to apt" >&2; exit 1; }
  # apt's download user may not write here; fetch into a folder it can.
  fetch=$(mktemp -d)
  chmod 777 "$fetch"
  (cd "$fetch" && apt-get download -q "$image" >/dev/null)
  mv "$fetch"/linux-image-*.deb .
  rmdir "$fetch"
fi
deb=$(ls linux-image-*.deb | head -n1)
# The package's own dates go with the files, so a stamp tells when it was unpacked.
if [ ! -f root.stamp ] || [ "$deb" -nt root.stamp ]; then
  rm -rf root
  dpkg-deb -x "$deb" root
  touch root.stamp
fi
version=$(ls root/lib/modules | head -n1)
modules="root/lib/modules/$version/kernel"
cp "root/boot/vmlinuz-$version" vmlinuz

# Every module with what it depends on first; the package has no modules.dep, so the
# dependencies come from each module's own information section.
declare -A placed=()
order=()
place() {
  local name=$1 file deps dep
  [ -n "${placed[$name]:-}" ] && return
  placed[$name]=1
  file=$(find "$modules" -name "$name.ko" -print -quit)
  [ -n "$file" ] || { echo "prepare: module $name missing" >&2; exit 1; }
  deps=$(strings -a "$file" | sed -n 's/^depends=//p' | head -n1 | tr ',' ' ')
  for dep in $deps; do place "$dep"; done
  order+=("$name")
  cp "$file" initramfs/modules/
}
initramfs_input=(virtio_pci 9pnet_virtio 9p configfs dummy_hcd libcomposite usb_f_fs usblp)
rm -rf initramfs
mkdir -p initramfs/{bin,dev,proc,sys,host,modules}
for m in "${initramfs_input[@]}"; do place "$m"; done
printf '%s\n' "${order[@]}" > initramfs/modules/order
cp /bin/busybox initramfs/bin/busybox
cp "$here/init" initramfs/init
chmod 755 initramfs/init
(cd initramfs && find . | cpio -o -H newc --quiet | gzip -1) > initramfs.gz
echo "$guest"
