#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The nightly job of examples/, with a program and a mailer that only note how they were called: who gets which mail.
# Usage: nightly_test.sh SOURCE_FOLDER
set -euo pipefail
source="$1"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
mkdir "$work/bin"
cat > "$work/bin/requite-console" << 'END'
#!/bin/sh
echo "$*" >> "$NOTES"
[ "$1" = scan ] && { [ "$SCAN" = 2 ] && echo "requite-console: no project" >&2; exit "$SCAN"; }
printf 'Kind\tMain Site\n~!touch escaped\n.\nlost\tmain.example\n'
exit "$CHANGES"
END
cat > "$work/bin/sendmail" << 'END'
#!/bin/sh
{ echo "to: $*"; cat; } >> "$NOTES"
END
chmod +x "$work/bin/"*

failed=0
# night SCAN_STATUS CHANGES_STATUS STATUS WORD...: each word is in the notes, one that begins with "!" is not.
night() {
  local scan="$1" changes="$2" expected="$3" status=0 word
  shift 3
  rm -f "$work/notes"
  NOTES="$work/notes" SCAN="$scan" CHANGES="$changes" PATH="$work/bin:$PATH" REQUITE_SCAN_OPTIONS="--secure" \
    "$source/examples/requite-nightly" "$work/my partners.prj" me@example.org 2> "$work/err" || status=$?
  [ "$status" = "$expected" ] || { echo "night $scan $changes: status $status"; cat "$work/err"; failed=1; }
  for word in "$@"; do
    if [[ "$word" == !* ]]; then ! grep -qF -- "${word#!}" "$work/notes"; else grep -qxF -- "$word" "$work/notes"; fi ||
      { echo "night $scan $changes: $word"; cat "$work/notes"; failed=1; }
  done
}

scan="scan -q --private --history --skip-after 600 --stop-after 21600 --output /dev/null --secure $work/my partners.prj"
night 0 0 0 "$scan" "changes --format text $work/my partners.prj" '!Subject'
night 1 0 0 "$scan" '!Subject'
night 1 1 0 "to: -i -- me@example.org" "Subject: Requite: links to your sites were lost" \
  "  Changes in $work/my partners.prj since the last scan:" $'  lost\tmain.example' "  ~!touch escaped" "  ."
night 2 0 2 "Subject: Requite: the scan failed" "  requite-console: no project" '!changes'
night 0 2 2 "Subject: Requite: the changes could not be told"
night 130 1 130 "$scan" '!Subject' '!changes'
exit "$failed"
