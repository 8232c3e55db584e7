#!/usr/bin/env bash
# The connector program: a path that is not there and one that names a folder are told and the
# program goes on; a real one with blanks in its path is started in its folder, found running at the
# next start, and ended with the monitor; so is a script that runs under its interpreter's name, while
# who reads it is left alone.
. "$(dirname "$0")/lib.sh"

set_connector() { # PATH
  sed -i '/^ZVConector/d' "$till/ZVMonitor.ini"
  printf 'ZVConectorActive=1\r\nZVConectorPath=%s\r\n' "$1" >>"$till/ZVMonitor.ini"
}
start_told() { # PATH ID1
  set_connector "$1"
  local before
  before=$(connections)
  start_monitor
  answer right "the connector is not there: $1"
  wait_for 30 "the connection of the monitor" more_connections_than "$before"
  put_sale 500 "$2"
  wait_sold "$2"
  stop_monitor
}

start_screen
start_till --cliente redondeo
folder="$till/con ector"
mkdir "$folder"
# Longer than the 15 characters that the system keeps of a name, and nobody else's.
connector="$folder/ZV conector $$ de prueba"

start_told "$connector" T0001
start_told "$folder" T0002
start_told "$folder/" T0003
check_books

cat >"$connector" <<'PROGRAM'
#!/bin/sh
pwd >>"$0.starts"
echo $$ >"$0.pid"
while :; do sleep 0.2; done
PROGRAM
chmod +x "$connector"
set_connector "$connector"
start_monitor_connected
wait_for 10 "the connector" test -s "$connector.pid"
connector_pid=$(cat "$connector.pid")
pids+=("$connector_pid")
equals "the working folder of the connector" "$folder" "$(cat "$connector.starts")"

# It outlives a crash of the monitor, and the next start does not start it again.
cut_off "$monitor_pid"
kill -0 "$connector_pid" || fail "the connector has gone with the monitor"
start_monitor_connected
equals "the starts of the connector" 1 "$(wc -l <"$connector.starts" | tr -d ' ')"
put_sale 700 T0004
wait_sold T0004
wait_exit_balance $((start_money + 2200))
stop_monitor
wait_for 10 "the end of the connector" ended "$connector_pid"
check_books

script="$folder/zv$$.py"
cat >"$script" <<'PROGRAM'
#!/usr/bin/env python3
import os, time
with open(__file__ + ".pids", "a") as pids:
    print(os.getpid(), file=pids)
time.sleep(600)
PROGRAM
chmod +x "$script"
tail -f "$script" >/dev/null &
reader=$!
pids+=("$reader")
set_connector "$script"
start_monitor_connected
wait_for 10 "the script" test -s "$script.pids"
script_pid=$(cat "$script.pids")
pids+=("$script_pid")
equals "the name of its process" python3 "$(cut -d' ' -f2 "/proc/$script_pid/stat" | tr -d '()')"
cut_off "$monitor_pid"
start_monitor_connected
stop_monitor
wait_for 10 "the end of the script" ended "$script_pid"
equals "the starts of the script" "$script_pid" "$(cat "$script.pids")"
! ended "$reader" || fail "who reads the script was ended too"
check_books
