#!/usr/bin/env bash
# The port of the fast link: taken by another program, no number, out of range, switched off, and
# bound again at once after a kill with clients connected.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/fast-lib.sh"

set_ini() { # KEY VALUE
  sed -i "s/^$1=.*/$1=$2\r/" "$till/ZVMonitor.ini"
}
books() { sql 'SELECT * FROM cola; SELECT * FROM procesados'; }
# Port and socket number of whoever listens.
listeners() {
  local hex inode
  awk '$4 == "0A" { n = split($2, a, ":"); print a[n], $10 }' /proc/net/tcp /proc/net/tcp6 |
    while read -r hex inode; do echo "$((16#$hex)) $inode"; done
}
taken() { listeners | grep -q "^$fast_port "; }
# The ports on which a process listens.
listens() {
  local port inode
  listeners | while read -r port inode; do
    if find "/proc/$1/fd" -lname "socket:\[$inode\]" 2>/dev/null | grep -q .; then echo "$port"; fi
  done
}
ask() { printf %s "$1" | nc -w 1 127.0.0.1 "$fast_port"; }

# refused WHAT: the start tells it in a dialog and ends, with nothing done; picture in $picture.
refused() {
  local before starts tried
  before=$(books)
  starts=$(count_lines INICIADO)
  tried=$(connections)
  xdotool mousemove 5 5
  start_monitor --fast-direccion 127.0.0.1
  wait_for 30 "the dialog: $1" find_dialog
  find_dialog
  sleep 0.5 # painted
  picture=$(import -window "$window" rgb:- | sha256sum)
  equals "the windows: $1" 1 "$(windows | wc -l)"
  answer right "$1"
  exit_of "$monitor_pid" 20
  equals "the exit code: $1" 1 "$code"
  equals "the starts told in the log: $1" $((starts + 1)) "$(count_lines INICIADO)"
  equals "the connections to the device: $1" "$tried" "$(connections)"
  equals "the books: $1" "$before" "$(books)"
  equals "the database: $1" ok "$(sql 'PRAGMA integrity_check')"
}

start_screen
start_till_fast --cliente redondeo
set_ini MODO MANUAL
start_monitor_fast
equals "the ports of the monitor" "$fast_port" "$(listens "$monitor_pid")"
equals "the answer" "OK|Added" "$(ask 'C|T0001|1250')"
stop_monitor
! taken || fail "the port stays open after the end"

# ---- taken
nc -lk 127.0.0.1 "$fast_port" >/dev/null &
taker=$!
pids+=("$taker")
wait_for 10 "the other program's port" taken
refused "a port in use"
in_use=$picture
refused "a port in use, again"
equals "the dialog of a port in use" "$in_use" "$picture"
# The title is that of a start that fails: another word for it gives another picture.
printf '[COMMON]\r\nerrorDeInicio=Otro inicio\r\n' >"$till/RWLang.ini"
refused "a port in use, in other words"
[ "$picture" != "$in_use" ] || fail "the dialog has not the title of a failed start"
rm "$till/RWLang.ini"

# ---- no port at all
for wrong in abc 70000 -1 16501x; do
  set_ini ZVFastPort "$wrong"
  refused "the port \"$wrong\""
  [ "$picture" != "$in_use" ] || fail "\"$wrong\" is told as a port in use"
done

# ---- switched off it opens nothing, and even a wrong port does not matter
set_ini ZVFastActive 0
start_monitor_connected --fast-direccion 127.0.0.1
equals "the ports of a link that is switched off" "" "$(listens "$monitor_pid")"
equals "the queue" T0001 "$(sql 'SELECT id1 FROM cola')"
stop_monitor

# ---- once the port is free, anything but 0 opens it
cut_off "$taker"
set_ini ZVFastPort "$fast_port"
set_ini ZVFastActive yes
set_ini MODO AUTO
start_monitor_fast
equals "the ports of the monitor" "$fast_port" "$(listens "$monitor_pid")"
wait_sold T0001
# A balance that is not stored yet would be asked about at the next start.
wait_exit_balance $((start_money + 1250))

# ---- killed with clients connected, some in the middle of a question: bound again at once
for round in 1 2 3; do
  clients=()
  for i in 1 2 3 4 5; do
    exec {client}<>"/dev/tcp/127.0.0.1/$fast_port"
    clients+=("$client")
    [ "$i" -gt 2 ] || printf 'S|T0001' >&"$client"
  done
  cut_off "$monitor_pid"
  start_monitor_fast
  equals "the ports in round $round" "$fast_port" "$(listens "$monitor_pid")"
  equals "the answer in round $round" "OK|OK" "$(ask 'S|T0001')"
  for client in "${clients[@]}"; do
    # The old connections have ended, whether answered or not.
    code=0
    IFS= read -r -t 5 told <&"$client" 2>/dev/null || code=$?
    [ "$code" -gt 0 ] && [ "$code" -lt 128 ] || fail "an old connection goes on: $code, $told"
    exec {client}>&-
  done
done
equals "the answer" "OK|Added" "$(ask 'C|T0002|700')"
wait_sold T0002
wait_exit_balance $((start_money + 1950))
check_books
stop_monitor
