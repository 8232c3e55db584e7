#!/usr/bin/env bash
# Ends and starts: a polite end in the middle of a charge leaves the busy mark at 0 and the row in
# the queue; a second start on the same folder says so and touches nothing; after a kill the folder
# is free again.
. "$(dirname "$0")/lib.sh"

start_screen
start_till --cliente manual
start_monitor_connected
put_sale 1250 T0001
wait_for 20 "the charge" trace_has '^inicio charge.start'
registry_is Activo 1 || fail "no busy mark during a send"
stop_monitor
registry_is Activo 0 || fail "the busy mark stands"
equals "the row" 1 "$(queued T0001)"
equals "the money of the device" "$start_money" "$(money)"

# What the device still had open is cancelled by the next start, and the log tells of it.
kill -TERM "$simulator_pid"
exit_of "$simulator_pid" 10
restart_simulator --cliente redondeo
wait_for 20 "the device" sh -c "[ \$(grep -c '^escuchando' '$till/simulador.log') = 2 ]"
start_monitor_connected
log_lines | grep -q '^>>> Operación pendiente en Zorvex: charge.start ' || fail "the open charge is not told"
wait_sold T0001
first=$monitor_pid

starts=$(count_lines INICIADO)
before=$(sha256sum "$till/ZVMonitor.ini" "$(registry_file Saldo_Inicial)")
start_monitor
answer right "the program runs already"
exit_of "$monitor_pid" 20
equals "the lines of starts" "$starts" "$(count_lines INICIADO)"
equals "settings and balance" "$before" \
  "$(sha256sum "$till/ZVMonitor.ini" "$(registry_file Saldo_Inicial)")"
put_sale 500 T0002
wait_sold T0002

cut_off "$first"
start_monitor_connected
put_sale 700 T0003
wait_sold T0003
wait_exit_balance $((start_money + 2450))
check_books
stop_monitor
