#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Completes command lines in bash and, where they are installed, in zsh and fish.
# Usage: completion_test.sh FOLDER   (as requite-manual fills it)
set -euo pipefail
made="$1"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
cd "$work"
mkdir sub
touch "two words.prj" notes.txt

# Command lines, and what completes the last word: all of it in the shell's own order, one word after another.
cases() {
  "$1" "import,open,scan," requite-console ""
  "$1" "scan,script," requite-console sc
  "$1" "--file-types,--format," requite-console scan --f
  "$1" "csv,json,junit,tsv," requite-console scan --format ""
  "$1" "50,500,5000,50000,500000," requite-console scan -q --max-pages 5
  "$1" "txtTimeout=," requite-console script --set txtTi
  "$1" "sub,two words.prj," requite-console changes ""
  "$1" "notes.txt," requite-console scan --report no
  "$1" "sub," requite-console scan --program-folder s
  "$1" "--new," requite --n
}
# check SHELL EXPECTED FOUND LINE...: the first case names only some of the commands.
check() {
  local shell="$1" expected="$2" found="$3"
  if [ "$expected" = "import,open,scan," ]; then
    found="$(grep -oE '(import|open|scan),' <<< "$found" | tr -d '\n')"
  fi
  [ "$found" = "$expected" ] || { echo "completion_test: $shell: ${*:4}: $found instead of $expected" >&2; exit 1; }
}

# shellcheck disable=SC2034  # the names are bash's own
in_bash() {
  local expected="$1" word function
  shift
  COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMPREPLY=()
  function="$(complete -p "$1" | sed -E 's/.*-F ([^ ]+) .*/\1/')"
  "$function" "$1" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
  check bash "$expected" "$(printf '%s\n' "${COMPREPLY[@]}" | LC_ALL=C sort | tr '\n' ',')" "$@"
}
compopt() { :; }   # works only while bash itself completes
# shellcheck source=/dev/null
source "$made/bash/requite-console"
# shellcheck source=/dev/null
source "$made/bash/requite"
cases in_bash

in_fish() {
  local expected="$1" found
  shift
  found="$(fish --no-config -c "source '$made/fish/$1.fish'; complete -C '$*'" | cut -f1 | sed 's|/$||')"
  # It shows folders and files of any name where a project is wanted, those that end in .prj first.
  [ "$expected" != "sub,two words.prj," ] || found="$(grep -v notes.txt <<< "$found")"
  check fish "$expected" "$(LC_ALL=C sort <<< "$found" | tr '\n' ',')" "$@"
}
if command -v fish > /dev/null; then
  cases in_fish
else
  echo "completion_test: fish is not installed, so its completion was not tried"
fi

if command -v zsh > /dev/null; then
  # The line editor needs a terminal, so lines are completed there, and what stands for the program prints them.
  cat > zsh-lines <<END
zmodload zsh/zpty
zpty shell TERM=dumb zsh -fi
zpty -w shell 'unsetopt zle; fpath=($made/zsh \$fpath); autoload -Uz compinit; compinit -D -u; PS1='
zpty -w shell 'requite-console() { print -r -- "ran:\$*:" }; requite() { requite-console "\$@" }'
zpty -w shell 'setopt zle; print rea""dy'
zpty -r shell text '*ready*'
for line in "\$@"; do
  zpty -w shell "\$line"\$'\t'
  zpty -r shell text '*ran:*:*'
  print -r -- "\$text"
done
END
  zsh -f zsh-lines 'requite-console setti' 'requite-console scan --forma' 'requite-console scan --format js' \
    'requite-console scan tw' 'requite-console script --set txtTi' 'requite --n' > zsh-output
  for line in 'settings' 'scan --format' 'scan --format json' 'scan two words.prj' 'script --set txtTimeout' '--new'; do
    grep -qE -- "ran:$line[ =]*:" zsh-output ||
      { echo "completion_test: zsh did not complete '$line':" >&2; cat zsh-output >&2; exit 1; }
  done
else
  echo "completion_test: zsh is not installed, so its completion was not tried"
fi
