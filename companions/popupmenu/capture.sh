#!/usr/bin/env bash
# Takes docs/menu-interventions.png and docs/menu-sites.png: the gallery with each menu of the contract open, on a
# display and in a Wine prefix of its own.
#   capture.sh [BUILD]   the folder of the build, by default that of ./sav build
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=$(cd "${1:-$root/build/release}" && pwd)
title='Galerie VelmoSAV'

fail() { printf 'capture: %s\n' "$*" >&2; exit 1; }
require() { command -v "$1" >/dev/null || fail "$1 is missing (package $2)"; }
require wine wine
require Xvfb xvfb
require import imagemagick
require xwininfo x11-utils
for file in bin/VelmoSAV_DLL14.dll bin/ApiPopupMenu.dll bin/galerie.exe companions/popupmenu/open_menu.exe; do
  [ -f "$build/$file" ] || fail "$build/$file is missing: ./sav build makes it"
done

work=$(mktemp -d)
in_wine() {
  env WINEPREFIX="$work/prefix" WINEARCH=win32 WINEDEBUG=-all WINEDLLOVERRIDES=winedbg.exe=d LC_ALL=fr_FR.UTF-8 "$@" \
    2>/dev/null
}
stop() {
  [ -n "${gallery:-}" ] && kill "$gallery" 2>/dev/null || true
  in_wine "$(command -v wineserver || echo /usr/lib/wine/wineserver)" -k || true
  [ -n "${display:-}" ] && kill "$display" 2>/dev/null || true
  rm -rf "$work"
}
trap stop EXIT

Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$work/number" >/dev/null 2>&1 &
display=$!
for _ in $(seq 100); do [ -s "$work/number" ] && break; sleep 0.05; done
[ -s "$work/number" ] || fail "the display did not start"
export DISPLAY=:$(<"$work/number")

in_wine wineboot -i >/dev/null || fail "the Wine prefix could not be made"
for library in VelmoSAV_DLL14 ApiPopupMenu; do
  in_wine wine regsvr32 /s "$build/bin/$library.dll" || fail "$library could not be registered"
done

# The gallery's place on the screen, as WIDTHxHEIGHT+LEFT+TOP.
place() {
  xwininfo -name "$title" 2>/dev/null | awk '/Absolute upper-left X/ {x = $NF} /Absolute upper-left Y/ {y = $NF}
    /Width:/ {w = $NF} /Height:/ {h = $NF} END {if (w) print w "x" h "+" x "+" y}'
}

# take BUTTON LINE PICTURE
take() {
  in_wine wine "$build/bin/galerie.exe" --visite 9 &
  gallery=$!
  for _ in $(seq 100); do [ -n "$(place)" ] && break; sleep 0.1; done
  [ -n "$(place)" ] || fail "the window did not come"
  sleep 3 # the window puts the mouse on a cell after a moment
  in_wine wine "$build/companions/popupmenu/open_menu.exe" "$title" "$1" "$2" || fail "no button $1"
  sleep 1
  # The whole screen, cut: the menu is a window beside the gallery's.
  import -window root -crop "$(place)" +repage "$root/docs/$3"
  wait "$gallery" || true
  gallery=
  printf 'capture: docs/%s\n' "$3"
}

take Interventions 2 menu-interventions.png
take Sites 4 menu-sites.png
