#!/bin/sh
# Takes docs/galerie.png, docs/menu-interventions.png and docs/menu-sites.png: the gallery, and with each menu of the
# contract open. Called by ./sav pictures, which sets up the display and the Wine prefix.
#   capture.sh BUILD
set -eu

root=$(cd "$(dirname "$0")/../.." && pwd)
build=$1
title='Galerie VelmoSAV'

fail() { printf 'capture: %s\n' "$*" >&2; exit 1; }

stop() { [ -n "${gallery:-}" ] && wait "$gallery" || true; }
trap stop EXIT

# The gallery's place on the screen, as WIDTHxHEIGHT+LEFT+TOP; empty before its window is there.
place() {
  xwininfo -name "$title" 2>/dev/null | awk '/Absolute upper-left X/ {x = $NF} /Absolute upper-left Y/ {y = $NF}
    /Width:/ {w = $NF} /Height:/ {h = $NF} END {if (w) print w "x" h "+" x "+" y}'
}

# take PICTURE [BUTTON LINE]: opens the button's menu first, with the line selected.
take() {
  wine "$build/bin/galerie.exe" --visite 9 2>/dev/null &
  gallery=$!
  for _ in $(seq 300); do
    [ -n "$(place)" ] && break
    kill -0 "$gallery" 2>/dev/null || fail "the gallery ended before its window came"
    sleep 0.1
  done
  [ -n "$(place)" ] || fail "the window did not come"
  sleep 4 # the window puts the mouse on a cell after a moment
  if [ $# -gt 1 ]; then
    wine "$build/examples/galerie/open_menu.exe" "$title" "$2" "$3" 2>/dev/null || fail "no button $2"
    sleep 1
  fi
  # The whole screen, cut: a menu is a window beside the gallery's.
  import -window root -crop "$(place)" +repage "$root/docs/$1"
  wait "$gallery" || true
  gallery=
  printf 'capture: docs/%s\n' "$1"
}

take galerie.png
take menu-interventions.png Interventions 2
take menu-sites.png Sites 4
