#!/usr/bin/env bash
# Takes docs/galerie.png: the gallery on a display of its own.
#   capture.sh               the program of ./sav build, run by ./sav run
#   capture.sh PROGRAM.exe   another one, run by wine where WINEPREFIX says (the library must be registered there)
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
picture=$root/docs/galerie.png
program=${1:-$root/build/release/bin/galerie.exe}
title='Galerie VelmoSAV'

fail() { printf 'capture: %s\n' "$*" >&2; exit 1; }
require() { command -v "$1" >/dev/null || fail "$1 is missing (package $2)"; }
require Xvfb xvfb
require import imagemagick
require xwininfo x11-utils
[ -f "$program" ] || fail "$program is missing: ./sav build makes it"

work=$(mktemp -d)
stop() {
  [ -n "${gallery:-}" ] && wait "$gallery" || true
  [ -n "${display:-}" ] && kill "$display" || true
  rm -rf "$work"
}
trap stop EXIT

Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$work/number" >/dev/null 2>&1 &
display=$!
for _ in $(seq 100); do [ -s "$work/number" ] && break; sleep 0.05; done
[ -s "$work/number" ] || fail "the display did not start"
export DISPLAY=:$(<"$work/number")

if [ $# -gt 0 ]; then
  env LC_ALL=fr_FR.UTF-8 WINEDEBUG=-all wine "$program" --visite 12 2>/dev/null &
else
  "$root/sav" run "$program" --visite 12 &
fi
gallery=$!

is_shown() { xwininfo -name "$title" >/dev/null 2>&1; }
for _ in $(seq 300); do
  is_shown && break
  kill -0 "$gallery" 2>/dev/null || fail "the gallery ended before its window came"
  sleep 0.2
done
is_shown || fail "the window did not come"
sleep 5 # the window puts the mouse on a cell after a moment
import -window "$title" "$picture"
printf 'capture: %s\n' "$picture"
