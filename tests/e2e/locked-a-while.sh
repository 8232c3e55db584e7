#!/usr/bin/env bash
# Another program holds the database's write lock for some seconds when the money has been taken:
# the filing waits, and nothing is lost. locked-a-while.sh good|error
. "$(dirname "$0")/lib.sh"

start_screen
if [ "$1" = error ]; then
  start_till --cliente exacto --ritmo 200 --fallo 'cobro#1:parcial=33'
else
  start_till --cliente redondeo --ritmo 200
fi
start_monitor_connected
put_sale 1250 T0001
hold_charge
coproc other { exec sqlite3 "$till/ZVMonito2.mdb" 2>&1; }
pids+=("$other_PID")
printf '.timeout 2000\nBEGIN IMMEDIATE;\nSELECT 1;\n' >&"${other[1]}"
read -r -t 10 told <&"${other[0]}" || fail "the other program says nothing"
equals "what the other program says with the lock" 1 "$told"
release_charge

# The amounts stand in the log before the books can be opened.
begun() { log_lines | grep -qE '^ENVIARZV[12]_1_BEGINTRANS$'; }
wait_for 20 "the begin of the filing" begun
equals "the records" 0 "$(sql 'SELECT count(*) FROM procesados')"
sleep 3 # longer than any statement waits by itself
printf 'ROLLBACK;\n.quit\n' >&"${other[1]}"

if [ "$1" = error ]; then
  answer right "the error of the device"
  wait_for 20 "the question about the credit" find_dialog
  equals "the credit" 1000 "$(sql 'SELECT creditoError FROM cola')"
  equals "the record" "1000|ERROR" "$(sql 'SELECT cobrado, estado FROM procesados')"
  answer left "the credit"
fi
wait_sold T0001
wait_exit_balance $((start_money + 1250))
equals "the failures in the log" 0 "$(log_lines | grep -c 'ERROR_5\|Error nº 5' || true)"
check_books
stop_monitor
