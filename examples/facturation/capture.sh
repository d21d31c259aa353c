#!/usr/bin/env bash
# Takes docs/facture.png: an invoice of the demonstration as a browser shows its page (chromium, imagemagick).
#   capture.sh PAGE.html
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
picture=$root/docs/facture.png
page=$(realpath "$1")
fail() { printf 'capture: %s\n' "$*" >&2; exit 1; }
command -v chromium >/dev/null || fail "chromium is missing (package chromium)"
command -v convert >/dev/null || fail "convert is missing (package imagemagick)"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# A profile of its own, and no sandbox: a build machine often runs as root.
chromium --headless --no-sandbox --disable-gpu --hide-scrollbars --user-data-dir="$work/profile" \
  --force-device-scale-factor=1.25 --window-size=908,1400 --screenshot="$work/page.png" "file://$page" \
  >"$work/log" 2>&1 || { cat "$work/log" >&2; fail "chromium failed"; }
[ -s "$work/page.png" ] || { cat "$work/log" >&2; fail "no picture"; }
# The page's ground below the sheet is cut, all but the margin that stands above it.
convert "$work/page.png" -bordercolor '#e9edf1' -border 1 -trim +repage -bordercolor '#e9edf1' -border 24 \
  +dither -colors 96 -define png:compression-level=9 -strip "$picture"
printf 'capture: %s\n' "$picture"
