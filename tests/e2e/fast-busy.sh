#!/usr/bin/env bash
# The fast link goes on answering while somebody is asked something, while a customer pays, while the
# window is minimised, and while another program holds the database; it queues what it says it has.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/fast-lib.sh"

click_manual() { click 492 28; }
click_minimise() { click 938 28; }
click_close() { click 992 28; }

# A client that stays connected, on $link.
connect_link() { exec {link}<>"/dev/tcp/127.0.0.1/$fast_port"; }
hang_up() { exec {link}>&-; }
# say MESSAGE ANSWER: the answer comes at once, on a busy machine too.
say() {
  local answer=''
  printf %s "$1" >&"$link"
  IFS= LC_ALL=C read -r -d '' -t 3 -N "${#2}" -u "$link" answer || true
  equals "the answer to $1" "$2" "$answer"
}
rows() { sql 'SELECT group_concat(id1) FROM (SELECT id1 FROM cola ORDER BY idZV)'; }
# works WHAT ID1: a new charge, its state, the same again, and a client that comes just then.
works() {
  local shown=${window:-}
  say "C|$2|500" 'OK|Added'
  say "S|$2" 'OK|PENDING'
  say "C|$2|500" 'NOK|Already exists'
  say 'S|NOBODY' 'NOK|Not found'
  equals "the answer to a new client: $1" 'NOK|Unknown command' "$(printf 'X|' | nc -w 1 127.0.0.1 "$fast_port")"
  equals "the row: $1" 1 "$(queued "$2")"
  [ -z "$shown" ] || shown "$shown" || fail "the dialog has gone: $1"
}

start_screen
start_till_fast --cliente redondeo --fallo cobro#2:error=5
start_monitor_fast
wait_for 20 "the main window" find_main
connect_link

# ---- under the question about a refund; what was queued meanwhile is sold behind it
say 'C|REFUND|-450' 'OK|Added'
wait_for 20 "the refund's dialog" find_dialog
find_dialog
works "a refund waits" T0001
equals "the charges of the device" 0 "$(charges)"
answer right "the refund"
wait_sold REFUND
wait_sold T0001

# ---- under an error of the device
say 'C|FAULT|995' 'OK|Added'
wait_for 20 "the error of the device" find_dialog
find_dialog
works "an error is told" T0002
say 'S|FAULT' 'OK|PENDING'
answer right "the error of the device"
wait_sold FAULT
wait_sold T0002
say 'S|FAULT' 'OK|OK'

# ---- under the question whether to close: the till goes on behind it
click_close
wait_for 20 "the question" find_dialog
find_dialog
say 'C|CLOSE|800' 'OK|Added'
wait_sold CLOSE
say 'S|CLOSE' 'OK|OK'
shown "$window" || fail "the question has gone"
answer right "the close question, refused"
window=

# ---- minimised
click_minimise
minimised() { ! find_main; }
wait_for 10 "the minimised window" minimised
say 'C|SMALL|300' 'OK|Added'
wait_sold SMALL
say 'S|SMALL' 'OK|OK'
! find_main || fail "a sale in AUTO has brought the window back"
wait_exit_balance "$(money)"
check_books
stop_monitor
hang_up

# ---- while a customer pays, who needs his time
kill -TERM "$simulator_pid"
exit_of "$simulator_pid" 10
restart_simulator --cliente manual
listening() { [ "$(grep -c '^escuchando' "$till/simulador.log")" = "$1" ]; }
wait_for 20 "the device" listening 2
start_monitor_fast
connect_link
before=$(charges)
say 'C|CUSTOMER|1250' 'OK|Added'
more_charges_than() { [ "$(charges)" -gt "$1" ]; }
wait_for 20 "the charge" more_charges_than "$before"
works "a customer pays" T0003
say 'S|CUSTOMER' 'OK|PENDING'
sleep 1
works "a customer still pays" T0004
equals "the charges meanwhile" $((before + 1)) "$(charges)"
stop_monitor
hang_up
kill -TERM "$simulator_pid"
exit_of "$simulator_pid" 10
restart_simulator --cliente redondeo
wait_for 20 "the device" listening 3
start_monitor_fast
connect_link
for sale in CUSTOMER T0003 T0004; do
  wait_sold "$sale"
done

# ---- another program holds the database
# hold HOW: from then on; release: no more.
hold() {
  coproc other { exec sqlite3 "$till/ZVMonito2.mdb" 2>&1; }
  other_pid=$other_PID
  pids+=("$other_pid")
  printf '.timeout 5000\nBEGIN %s;\nSELECT 1;\n' "$1" >&"${other[1]}"
  read -r -t 10 told <&"${other[0]}" || fail "the other program says nothing"
  equals "what the other program says with the lock" 1 "$told"
}
release() {
  printf 'ROLLBACK;\n.quit\n' >&"${other[1]}"
  wait "$other_pid" 2>/dev/null || true
}

wait_exit_balance "$(money)"
sed -i 's/^MODO=.*/MODO=MANUAL\r/' "$till/ZVMonitor.ini"
stop_monitor
hang_up
for how in IMMEDIATE EXCLUSIVE; do
  start_monitor_fast
  connect_link
  say "C|BEFORE-$how|100" 'OK|Added'
  hold "$how"
  say "S|BEFORE-$how" 'OK|PENDING'
  say "C|LOCKED-$how|200" 'NOK|Failed'
  say "S|BEFORE-$how" 'OK|PENDING'
  say "S|LOCKED-$how" 'NOK|Not found'
  say 'S|CUSTOMER' 'OK|OK'
  # From the first row that it could not add the link adds none, until the next start.
  say "C|SECOND-$how|200" 'NOK|Failed'
  release
  say "C|LOCKED-$how|200" 'NOK|Failed'
  say "C|BEFORE-$how|100" 'NOK|Already exists'
  say "S|LOCKED-$how" 'NOK|Not found'
  equals "the rows" "BEFORE-$how" "$(rows)"
  # Nor is anything left open that would keep others from writing.
  put_sale 300 "OTHER-$how"
  stop_monitor
  hang_up
  equals "the rows after the end" "BEFORE-$how,OTHER-$how" "$(rows)"
  start_monitor_fast
  connect_link
  say "C|LOCKED-$how|200" 'OK|Added'
  equals "the rows of a new start" "BEFORE-$how,OTHER-$how,LOCKED-$how" "$(rows)"
  sql 'DELETE FROM cola'
  stop_monitor
  hang_up
done
check_books
