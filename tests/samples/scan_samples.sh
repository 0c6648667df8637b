#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Scans the sample project against the sample sites, with secure connections off and on, and compares every row
# with what the samples promise; then builds the link page and posts the results by the window's buttons, and
# compares what the script got.
# Usage: scan_samples.sh SERVER CONSOLE SOURCE_FOLDER
set -euo pipefail
server="$1" console="$2" source="$3"

work="$(mktemp -d)"
pids=()
cleanup() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  rm -rf "$work"
}
trap cleanup EXIT

"$server" --sites "$source/samples/sites" --port 0 --secure-port 0 --authority "$work/authority.pem" \
  > "$work/server.log" &
pids+=($!)
for _ in $(seq 200); do
  grep -q '^listening securely on' "$work/server.log" && break
  sleep 0.05
done
port="$(sed -n 's/^listening on 127\.0\.0\.1:\([0-9]*\)$/\1/p' "$work/server.log")"
securePort="$(sed -n 's/^listening securely on 127\.0\.0\.1:\([0-9]*\)$/\1/p' "$work/server.log")"
export SSL_CERT_FILE="$work/authority.pem"
connect=(--connect-to ":443:127.0.0.1:$securePort" --connect-to "::127.0.0.1:$port")

# Clients that are silent, speak no TLS, or stop in the middle of their first record hold up nobody. They stay
# connected until the end.
exec 5<> "/dev/tcp/127.0.0.1/$securePort" 6<> "/dev/tcp/127.0.0.1/$securePort" 7<> "/dev/tcp/127.0.0.1/$securePort"
printf 'GET / HTTP/1.1\r\n\r\n' >&6
printf '\x16\x03\x01\x02\x00\x01' >&7

# prepare NAME: a program folder of its own.
prepare() {
  mkdir -p "$work/$1"
  cp -r "$source/installed/." "$work/$1/"
}

# scan NAME OPTION...: the rows go to NAME.txt, the exit status to NAME.status.
scan() {
  local folder="$work/$1" status=0
  prepare "$1"
  "$console" scan "$source/samples/sample.prj" --program-folder "$folder" --settings "$folder/settings" \
    --set txtTimeout=2 "${@:2}" "${connect[@]}" \
    --tab "$folder/rows.tab" --page "$folder/page.html" --save "$folder/scanned.prj" \
    > "$work/$1.txt" 2> "$work/$1.err" || status=$?
  echo "$status" > "$work/$1.status"
}

# The errors of a scan by the window's buttons, with secure connections.
errors() {
  prepare errors
  "$console" script --program-folder "$work/errors" --settings "$work/errors/settings" --set txtTimeout=2 --secure \
    "${connect[@]}" > "$work/errors.txt" << END || true
answer file $source/samples/sample.prj
click cmdOpen
click Command1
wait idle 60
rows lstErr
END
}

# The second scan shows the one verdict that the first cannot: with redirects off, the text seen is only a reason.
scan plain & scans=($!)
scan noredirect --set chkRedirect=0 & scans+=($!)
scan secure --secure & scans+=($!)
# Several sites at a time leave what one at a time leaves: what is told, and every file but for times of day.
scan several --sites-at-a-time 16 & scans+=($!)
scan several-secure --secure --sites-at-a-time 16 & scans+=($!)
errors & scans+=($!)
wait "${scans[@]}"

cp "$source/samples/expected.txt" "$work/plain.expected"
cp "$source/samples/expected-secure.txt" "$work/secure.expected"
sed $'/old-mill-press/s/Redirect Link\t001\t.*/None Found (Possible Redirected URL)\t000\told-mill-press.example/' \
  "$work/plain.expected" > "$work/noredirect.expected"

failed=0
cp "$work/plain.expected" "$work/several.expected"
cp "$work/secure.expected" "$work/several-secure.expected"
for name in plain noredirect secure several several-secure; do
  diff "$work/$name.expected" "$work/$name.txt" || failed=1
  # The saved file holds the same rows, after its captions and an empty line.
  diff <(tail -n +2 "$work/$name.expected") <(tr -d '\r' < "$work/$name/rows.tab" | sed '1,2d;$d') || failed=1
  [ "$(cat "$work/$name.status")" = 1 ] || { cat "$work/$name.status" "$work/$name.err"; failed=1; }
done
all=("$work"/{plain,several,secure,several-secure})
for folder in "${all[@]}"; do
  sed -i -E 's/^(Date|Time): .*<BR>/\1/' "$folder"/{tempreport.html,"Project Files/sample.html"}
  # Only the last value of each setting counts: how often counters are written depends on the machine's speed.
  awk -F = '$1 != "LastProject" { last[$1] = $0 } END { for (key in last) print last[key] }' "$folder/settings" |
    sort > "$folder/settings.last"
  rm "$folder/settings"
done
for pair in plain:several secure:several-secure; do
  diff -r "$work/${pair%:*}" "$work/${pair#*:}" || failed=1
  diff "$work/${pair%:*}.err" "$work/${pair#*:}.err" || failed=1
done
cmp "$work/plain.expected" "$work/noredirect.expected" > /dev/null && { echo "the two scans cannot differ"; failed=1; }

# What is said of sites that a scan without secure connections could not read.
[ "$(tail -n 1 "$work/plain.err")" = \
  "2 sites answer over HTTPS only; this scan could not read them. With --secure it can." ] ||
  { cat "$work/plain.err"; failed=1; }
! grep 'HTTPS only' "$work/secure.err" || failed=1
diff <(printf '%s\n' $'Certificate is for another host\trigging-loft.example' \
         $'Certificate has expired\tebb-tide.example' $'Certificate is for another host\tshared-mooring.example') \
     <(grep '^Certificate' "$work/errors.txt") || failed=1

folder="$work/plain"
"$console" script --program-folder "$folder" --settings "$folder/settings" "${connect[@]}" \
  > "$work/script.txt" << END || failed=1
answer file $folder/scanned.prj
click cmdOpen
click Command5
answer file $folder/by-button.html
click Command6
click cmdPost
print Form5.Text4
END
cmp "$folder/page.html" "$folder/by-button.html" || failed=1
# A link for each row with "Direct" or "Redirect" in its status, in order.
rows="$(tail -n +2 "$work/plain.expected")"
diff <(awk -F '\t' 'tolower($3) ~ /direct/ { print $2 }' <<< "$rows") \
     <(sed -n 's#^<a href="http://\([^"/]*\)" target="_blank">.*</a>.*<br><br>.$#\1#p' "$folder/page.html") || failed=1
# The script echoes its query: for each row but the missing ones what was asked for and what came back.
diff <(awk -F '\t' '$3 !~ /^Missing/ {
         gsub("/", "%2F", $5)
         query = "main=" $1 "&link=" $2 "&found=" $5 "&back=" (tolower($3) ~ /direct/ ? "True" : "False")
         print "URL: http://script.example/echo.php?" query; print "Returned: " query }' <<< "$rows") \
     <(sed 's/\\r\\n/\n/g' "$work/script.txt" | grep .) || failed=1
exit "$failed"
