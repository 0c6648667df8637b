# SPDX-License-Identifier: MIT
# Turns CHANGELOG.md into the changelog of the Debian package. What is not released yet belongs to the package of the
# newest release.
# Usage: awk -f debian-changelog.awk -v contact="NAME <ADDRESS>" CHANGELOG.md

function end_entry() {
  if (version != "") printf "\n -- %s  %s\n\n", contact, date
}
function wrap(text,    words, count, i, line, start) {
  count = split(text, words, " ")
  line = "  *"
  for (i = 1; i <= count; ++i) {
    if (length(line) + length(words[i]) > 78) { print line; line = "   " }
    line = line " " words[i]
  }
  print line
}
function flush_item() {
  if (item == "") return
  if (version == "") waiting[++waits] = item; else wrap(item)
  item = ""
}

/^## [0-9]/ {
  flush_item()
  end_entry()
  version = $2
  # The day of the release, as RFC 5322 writes it.
  command = "LC_ALL=C date -uR -d " $4
  command | getline date
  close(command)
  printf "requite (%s) stable; urgency=medium\n\n", version
  for (i = 1; i <= waits; ++i) wrap(waiting[i])
  waits = 0
  next
}
/^#/ { flush_item(); next }
/^- / { flush_item(); item = substr($0, 3); inside = 1; next }
/^ / { if (inside) item = item $0; next }
/^$/ { flush_item(); inside = 0; next }
!/^$/ && version != "" && item == "" { gsub(/^ +/, ""); item = $0; inside = 1 }
END { flush_item(); end_entry() }
