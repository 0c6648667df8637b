#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The window program itself on a display: what it does when all is well, with two copies at once, and when
# things are missing or broken. Keys come from the X server, as a user's would.
# Usage: program_test.sh PROGRAM CONSOLE INSTALLED_FOLDER SAMPLE_PROJECT [FAULT_LIBRARY]   (on a display)
set -euo pipefail
installed="$3" sample="$4" faults="${5:-}"
work="$(mktemp -d)"
pids=()
cleanup() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  rm -rf "$work"
}
trap cleanup EXIT
fail() { echo "program_test: $scenario: $1" >&2; exit 1; }

# Laid out like an installation, so that the user's data folder is used.
mkdir -p "$work/bin" "$work/share"
ln "$1" "$work/bin/requite" 2>/dev/null || cp "$1" "$work/bin/requite"
ln "$2" "$work/bin/requite-console" 2>/dev/null || cp "$2" "$work/bin/requite-console"
cp -r "$installed" "$work/share/requite"
# A session without a bus: the program must not have one started.
unset DBUS_SESSION_BUS_ADDRESS
mkdir "$work/launcher"
printf '#!/bin/sh\n: > "%s/bus-asked-for"\n' "$work" > "$work/launcher/dbus-launch"
chmod +x "$work/launcher/dbus-launch"
export PATH="$work/launcher:$PATH"
mainTitle='Requite by'

# scene NAME: from here on everything is another user's, who has no data yet.
scene() {
  scenario="$1"
  export XDG_DATA_HOME="$work/$1/data" XDG_CONFIG_HOME="$work/$1/config"
  mkdir -p "$XDG_DATA_HOME" "$XDG_CONFIG_HOME"
  set_to showHelp 0   # the help of the first start would take the keyboard
}
set_to() { printf 'put %s %s\n' "$@" | "$work/bin/requite-console" script || fail "settings cannot be written"; }
setting() { printf 'get %s\n' "$1" | "$work/bin/requite-console" script; }
start() { "$work/bin/requite" "$@" 2> "$work/err" & pids+=($!); pid=$!; }
# window_of PID TITLE: waits for a window of that process with that title and gives it the keyboard.
window_of() {
  for _ in 1 2 3; do   # a window that closes while xdotool looks at it ends xdotool
    window="$(timeout 20 xdotool search --sync --all --onlyvisible --pid "$1" --name "$2" 2>/dev/null | head -1)" || true
    [ -n "$window" ] && xdotool windowfocus --sync "$window" 2>/dev/null && return
  done
  fail "no window '$2' came up"
}
keys() { xdotool key --delay 50 "$@"; }
# ended PID STATUS
ended() {
  local status=0
  timeout 30 tail --pid="$1" -s 0.1 -f /dev/null || fail "process $1 does not end"
  wait "$1" || status=$?
  [ "$status" -eq "$2" ] || fail "ended with $status instead of $2: $(cat "$work/err")"
}
# save_to PATH: answers the dialog of a save.
save_to() {
  window_of "$pid" 'Save|Requite$'
  keys ctrl+a
  xdotool type --delay 20 "$1"
  keys Return
}
close_main() { window_of "$1" "$mainTitle"; keys alt+f x; }

for display in "" ":0.nowhere"; do
  scene "no display '$display'"
  status=0
  env -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM DISPLAY="$display" "$work/bin/requite" 2> "$work/err" || status=$?
  [ "$status" -eq 1 ] || fail "ended with $status"
  [ "$(grep -c . "$work/err")" -eq 1 ] && grep -q '^requite: there is no display' "$work/err" || fail "$(cat "$work/err")"
done

scene two-copies
start; first=$pid
start; second=$pid
window_of "$first" "$mainTitle"
keys alt+y m
window_of "$second" "$mainTitle"
xdotool type --delay 20 two-copies.example
keys Return ctrl+s
save_to "$work/both.prj"
close_main "$first"; ended "$first" 0
close_main "$second"; ended "$second" 0
[ "$(setting ScanType)" = 1 ] || fail "the first copy's setting is lost"
[ "$(setting LastProject)" = "$work/both.prj" ] || fail "the second copy's setting is lost"
grep -q '^two-copies.example' "$work/both.prj" || fail "the project was not saved"
[ -z "$(find "$XDG_CONFIG_HOME" -name '*damaged*')" ] || fail "the settings file was damaged"

scene new-project   # as the desktop's action starts it: the last project is neither shown nor forgotten
set_to LastProject "$sample"
start --new
window_of "$pid" "$mainTitle"
[ "$(setting LastProject)" = "$sample" ] || fail "the last project is forgotten"
xdotool type --delay 20 new.example
keys Return ctrl+s
save_to "$work/new.prj"
close_main "$pid"; ended "$pid" 0
[ "$(grep -c '\.example' "$work/new.prj")" -eq 1 ] || fail "the last project was loaded"
[ "$(setting LastProject)" = "$work/new.prj" ] || fail "the new project is not the last one"

scene help   # no program shows help files: the pages come up in a window of the program
set_to showHelp 1
mkdir "$work/no-opener"
ln -s "$(command -v sh)" "$work/no-opener/sh"
PATH="$work/no-opener" start
window_of "$pid" '^Requite Help$'
keys Escape
close_main "$pid"; ended "$pid" 0
[ "$(setting showHelp)" = 0 ] || fail "the help would come up at each start"

scene no-folder   # a file is where the folders would be made, so that even root cannot write
: > "$work/no-folder/file"
export XDG_DATA_HOME="$work/no-folder/file" XDG_CONFIG_HOME="$work/no-folder/file"
start
window_of "$pid" "$mainTitle"
window_of "$pid" '^Settings Not Saved$'   # said once
keys Return
window_of "$pid" "$mainTitle"
xdotool type --delay 20 folder.example
keys Return F5
window_of "$pid" '^Requite$'
keys Return
close_main "$pid"
window_of "$pid" '^Save Project\?$'
keys alt+n
ended "$pid" 0

scene failure-at-start
set_to ScanType abc
start
window_of "$pid" '^Requite$'
keys Return
ended "$pid" 70
[ -z "$(find "$XDG_DATA_HOME" -name Recovered.prj)" ] || fail "nothing was edited, yet a project was recovered"

scene failure-in-a-scan
set_to LastProject "$sample" chkAutoSave abc
start
window_of "$pid" "$mainTitle"
keys F5
window_of "$pid" '^Requite$'
keys Return
ended "$pid" 70
# What a project file does not keep apart (the descriptions) aside, the sites are those of the sample.
sites() { sed '/^HTML01:/,$d' "$1" | cut -d'|' -f1,2; }
cmp <(sites "$sample") <(sites "$XDG_DATA_HOME/requite/Project Files/Recovered.prj") ||
  fail "the recovered project differs"

if [ -n "$faults" ]; then
  scene full-disk-twice   # the dialog comes again; nothing handles a second failure: the work is written to a file of its own
  disk="$work/$scenario/disk"
  mkdir "$disk"
  printf 'old.example\r\nHTML01:x\r\n\r\n' > "$disk/a.prj"
  cp "$disk/a.prj" "$work/old.prj"
  set_to LastProject "$disk/a.prj"
  LD_PRELOAD="$faults" REQUITE_FAULT=1f REQUITE_FAULT_BELOW="$disk" start
  window_of "$pid" "$mainTitle"
  xdotool type --delay 20 typed.example
  keys Return ctrl+s
  save_to "$disk/a.prj"
  save_to "$disk/b.prj"
  window_of "$pid" '^Requite$'
  keys Return
  ended "$pid" 70
  grep -q '^NEXTSITE:typed.example' "$XDG_DATA_HOME/requite/Project Files/Recovered.prj" || fail "the work is lost"
  cmp -s "$work/old.prj" "$disk/a.prj" || cmp -s "$work/old.prj" "$XDG_DATA_HOME/requite/Backup/a.prj" ||
    fail "the old project is lost"
fi

[ ! -e "$work/bus-asked-for" ] || fail "a message bus was to be started"
