#!/usr/bin/env bash
# Another program holds the database's write lock during a filing: the filing is tried four times,
# told in the plain box and rolled back; the row stays and is sold once the lock has gone.
. "$(dirname "$0")/lib.sh"

start_screen
start_till --cliente redondeo --ritmo 200
start_monitor_connected
put_sale 1250 T0001
hold_charge
coproc other { exec sqlite3 "$till/ZVMonito2.mdb" 2>&1; }
pids+=("$other_PID")
printf '.timeout 2000\nBEGIN IMMEDIATE;\nSELECT 1;\n' >&"${other[1]}"
read -r -t 10 told <&"${other[0]}" || fail "the other program says nothing"
equals "what the other program says with the lock" 1 "$told"
release_charge

wait_for 30 "the box" find_box
lines_in_order \
  "ENVIARZV1_1_BEGINTRANS" \
  "ADDPROC_ERROR_5_RESUME_1 [ENVIARCOLA]" \
  "ADDPROC_ERROR_5_RESUME_2 [ENVIARCOLA]" \
  "ADDPROC_ERROR_5_RESUME_3 [ENVIARCOLA]" \
  "ADDPROC_ERROR_5 - database is locked [ENVIARCOLA]"
equals "the row" 1 "$(queued T0001)"
equals "the records" 0 "$(sql 'SELECT count(*) FROM procesados')"

printf 'ROLLBACK;\n.quit\n' >&"${other[1]}"
close_box "the failed filing"
wait_line "ENVIARZV1_1_ROLLBACK"
# The row is what stands of a sale: it is charged again. The money of the charge that could not be
# filed stays in the device and is told by its line in the log alone.
wait_sold T0001
wait_exit_balance $((start_money + 2500))
equals "the charges told in the log" 2 \
  "$(count_lines 'ZVCHARGE_ENVIARZV_1_OK: VALUEINCENTS=1250 PAIDINVALUE=2000 PAIDOUTVALUE=750')"
equals "the money in the books" 1250 "$(kept)"
equals "the money of the device" $((start_money + 2500)) "$(money)"
check_rows
stop_monitor
