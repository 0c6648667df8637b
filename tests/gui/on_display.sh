#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs a test on a display of its own. The X server itself takes the first number that is free, so that runs beside
# each other cannot take the same one.
# Usage: on_display.sh WIDTHxHEIGHT PROGRAM [ARGUMENT...]
set -uo pipefail
work="$(mktemp -d)"
trap 'kill "${server:-}" 2>/dev/null; rm -rf "$work"' EXIT
mkfifo "$work/number"
Xvfb -displayfd 3 -screen 0 "$1x24" 3> "$work/number" > "$work/log" 2>&1 &
server=$!
if ! read -r -t 30 number < "$work/number"; then
  echo "on_display: the X server did not start:" >&2
  cat "$work/log" >&2
  exit 1
fi
shift
DISPLAY=":$number" QT_QPA_PLATFORM=xcb "$@"
