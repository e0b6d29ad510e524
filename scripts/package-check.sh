#!/usr/bin/env bash
# Checks the built Debian package with Debian's own tools, then runs the programs from its
# contents unpacked into a temporary root: the links in /usr/bin must find the program folder
# and its ../share data there.
set -euo pipefail
build=${1:-build}
source_dir=$(cd "$(dirname "$0")/.." && pwd)

deb=$(ls -t "$build"/package/tavolor_*.deb 2>/dev/null | head -n1 || true)
if [ -z "$deb" ]; then
    echo "package-check: no package in $build/package (run make package)" >&2
    exit 1
fi
echo "package-check: $deb"

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
dpkg-deb -x "$deb" "$root"

step() { echo "package-check: $*"; }

step "lintian"
# Tags a locally built package cannot avoid: it is not uploaded, so it closes no bug and
# has no signed origin. Everything else is shown; errors fail the check.
lintian --fail-on error --tag-display-limit 0 \
    --suppress-tags no-manual-page,initial-upload-closes-no-bugs "$deb"

step "desktop-file-validate"
desktop-file-validate "$root"/usr/share/applications/*.desktop

step "appstreamcli validate"
appstreamcli validate --no-net --explain "$root"/usr/share/metainfo/*.metainfo.xml

step "manual pages"
for page in "$root"/usr/share/man/man1/*.1.gz; do
    out=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l "$page" 2>&1 >/dev/null || true)
    if [ -n "$out" ]; then
        echo "$page: $out" >&2
        exit 1
    fi
done

step "tav from the unpacked root"
"$root"/usr/bin/tav /dev/null "Package check" --help

sample="$source_dir/data/laser_mfp.xml"
if [ -e "$root/usr/bin/tavctl" ]; then
    step "tavctl --spec $(basename "$sample") show"
    lines=$("$root"/usr/bin/tavctl --spec "$sample" show | wc -l)
    [ "$lines" -gt 10 ] || { echo "tavctl show printed $lines lines" >&2; exit 1; }
fi
if [ -e "$root/usr/bin/tavolor" ]; then
    step "tavolor (offscreen)"
    # The chooser keeps its window open: still running when the time is up means it started.
    status=0
    QT_QPA_PLATFORM=offscreen timeout 5 "$root"/usr/bin/tavolor --choose || status=$?
    [ "$status" -eq 124 ] || { echo "tavolor ended with status $status" >&2; exit 1; }
fi
step "passed"
