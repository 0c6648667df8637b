#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs one test in surroundings that are the same on every machine and for every user. Nothing of the caller's
# environment gets through: not the locale, the time zone, the search path, the session bus, the display or the user's
# own folders. The test has folders of its own, which are removed when it ends, so any number of runs can go on at once.
# Usage: isolated.sh [NAME=VALUE...] PROGRAM [ARGUMENT...]
set -u
umask 022
home="$(mktemp -d /tmp/requite-test-home-XXXXXX)" || exit 1
trap 'rm -rf "$home"' EXIT
trap 'exit 130' INT TERM HUP
mkdir -m 700 "$home/run"
mkdir "$home/tmp" "$home/config" "$home/data" "$home/cache" "$home/state"

# "disabled:" is no bus at all: where the variable is missing, libraries look for one, or start one.
env -i PATH=/usr/local/bin:/usr/bin:/bin HOME="$home" TMPDIR="$home/tmp" \
  XDG_CONFIG_HOME="$home/config" XDG_DATA_HOME="$home/data" XDG_CACHE_HOME="$home/cache" \
  XDG_STATE_HOME="$home/state" XDG_RUNTIME_DIR="$home/run" DBUS_SESSION_BUS_ADDRESS=disabled: \
  LANG=C.UTF-8 LC_ALL=C.UTF-8 TZ=UTC QT_QPA_PLATFORM=offscreen "$@"
