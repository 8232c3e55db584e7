#!/usr/bin/env bash
# A failure that nobody catches, with a log that cannot be written: the plain box tells it, the exit
# code is 1, the busy mark is down, and the next start finds queue and books as they were.
. "$(dirname "$0")/lib.sh"

connector_mark() {
  mkdir -p "$till/Registro/HKLM/Software/Zorvex/ZVConnector"
  printf %s "$1" >"$till/Registro/HKLM/Software/Zorvex/ZVConnector/Activo"
}

start_screen
start_till --cliente redondeo
start_monitor_connected
put_sale 1250 T0001
wait_sold T0001
wait_exit_balance $((start_money + 1250))

# While the connector works the pulse writes a line each second, and sends nothing.
connector_mark 1
wait_line "TIMER_COLA_ZVCONNECTOR_ACTIVO"
put_sale 500 T0002
mv "$till/Debug" "$till/Debug.kept"
echo >"$till/Debug"
close_box "the end of the program"
exit_of "$monitor_pid" 20
equals "the exit code" 1 "$code"
registry_is Activo 0 || fail "the busy mark stands"
equals "the queue" 1 "$(queued T0002)"
equals "the records" 1 "$(sql 'SELECT count(*) FROM procesados')"
check_books

rm "$till/Debug"
mv "$till/Debug.kept" "$till/Debug"
connector_mark 0
start_monitor_connected
wait_sold T0002
wait_exit_balance $((start_money + 1750))
check_books
stop_monitor
