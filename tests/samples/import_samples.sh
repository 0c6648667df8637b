#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Imports the links of a sample page, the output of a sample script and a text file by the windows' buttons.
# Usage: import_samples.sh SERVER CONSOLE SOURCE_FOLDER
set -euo pipefail
server="$1" console="$2" source="$3"

work="$(mktemp -d)"
"$server" --sites "$source/samples/sites" --port 0 > "$work/server.log" &
pid=$!
trap 'kill "$pid" 2>/dev/null || true; rm -rf "$work"' EXIT
for _ in $(seq 200); do
  grep -q '^listening on' "$work/server.log" && break
  sleep 0.05
done
port="$(sed -n 's/^listening on 127\.0\.0\.1:\([0-9]*\)$/\1/p' "$work/server.log")"

cp -r "$source/installed/." "$work/"
printf 'fog-signal.example|3\r\n\r\n salt-marsh.example\n' > "$work/sites.txt"
"$console" script --program-folder "$work" --settings "$work/settings" --connect-to "::127.0.0.1:$port" \
  > "$work/got.txt" << END
set txtDomain harbour-books.example
click cmdAdd2
click cmdImport
set Form4.Text1 www.reading-room.example/links.html
trace Form4.StatusBar1
click Form4.Command1
rows Form4.ListView1
rightclick Form4.ListView1 2
click Form4.cmdAdd
answer file $work/sites.txt
click Form4.Command4
rows List1
click cmdImport2
title Form4a
click Form4a.Option1(1)
set Form4a.Text2 http://reading-room.example/domains.txt
choose Form4a.Combo1 0
click Form4a.Command1
rows Form4a.ListView1
print Form4a.StatusBar1
answer file $work/sites.txt
click Form4a.Command4
rows List4
tab Form4a 2
state Form4a.Command1
close Form4
windows
END
grep -v '^Form4.StatusBar1: ' "$work/got.txt" > "$work/rows.txt"
diff - "$work/rows.txt" << 'END'
lighthouse-cafe.example/
www.tidewater-potters.example/links/
seaside-walks.example/map

lighthouse-cafe.example/	1			
www.tidewater-potters.example/links/	1			
seaside-walks.example/map	1			
fog-signal.example	3			
salt-marsh.example	1			
Import Main Sites
lighthouse-cafe.example
www.tidewater-potters.example
seaside-walks.example
Finished Downloading - 3 links found.
harbour-books.example
fog-signal.example|3
 salt-marsh.example
enabled hidden
Form1
Form4a
END
diff - <(sed -n 's/^Form4.StatusBar1: //p' "$work/got.txt") << 'END'
Conecting to www.reading-room.example/links.html
Extracted 1 link(s)
Extracted 2 link(s)
Extracted 3 link(s)
Added 0 link(s)
Added 1 link(s)
Added 2 link(s)
Added 3 link(s)
Finished Downloading - 4 links found.
Added 2 link(s)
END
