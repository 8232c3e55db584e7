#!/usr/bin/env bash
# A refund beyond 32 bits is told with its true amount and fails like any send: the row stays, the
# log tells it, the monitor goes on in "MANUAL", and so does the next start.
. "$(dirname "$0")/lib.sh"

start_screen
start_till --cliente redondeo
start_monitor_connected
put_sale -2147483648 GRANDE
answer right "the refund"
wait_line ">>> Error nº 6 al procesar operación nº 1 - Desbordamiento"
put_sale 1250 T0002
# Dozens of ticks later nothing has been sent; a line of the yielding pulse tells that it still runs.
money >/dev/null
mkdir -p "$till/Registro/HKLM/Software/Zorvex/ZVConnector"
printf 1 >"$till/Registro/HKLM/Software/Zorvex/ZVConnector/Activo"
wait_line "TIMER_COLA_ZVCONNECTOR_ACTIVO"
printf 0 >"$till/Registro/HKLM/Software/Zorvex/ZVConnector/Activo"
equals "the big row" 1 "$(queued GRANDE)"
equals "the row behind it" 1 "$(queued T0002)"
equals "the records" 0 "$(sql 'SELECT count(*) FROM procesados')"
equals "the charges of the device" 0 "$(charges)"
stop_monitor

told_twice() { [ "$(count_lines ">>> Error nº 6 al procesar operación nº 1 - Desbordamiento")" = 2 ]; }
# The next start in "AUTO" asks again and survives again; without the row it sells.
start_monitor_connected
answer right "the refund, at the second start"
wait_for 20 "the second failure" told_twice
sql "DELETE FROM cola WHERE id1='GRANDE'"
click_automatic
wait_sold T0002
check_books
stop_monitor
