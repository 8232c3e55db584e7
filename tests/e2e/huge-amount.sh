#!/usr/bin/env bash
# An amount beyond 32 bits cannot go to the device: the row stays, the log tells it, the monitor
# goes on in "MANUAL".
. "$(dirname "$0")/lib.sh"

start_till --cliente redondeo
start_monitor_connected
put_sale 2147483648 GRANDE
wait_line ">>> Error nº 6 al procesar operación nº 1 - Desbordamiento"
put_sale 1250 T0002
# Dozens of ticks later nothing has been sent; a line of the yielding pulse tells that it still runs.
money >/dev/null
mkdir -p "$till/Registro/HKLM/Software/Zorvex/ZVConnector"
printf 1 >"$till/Registro/HKLM/Software/Zorvex/ZVConnector/Activo"
wait_line "TIMER_COLA_ZVCONNECTOR_ACTIVO"
equals "the big row" 1 "$(queued GRANDE)"
equals "the row behind it" 1 "$(queued T0002)"
equals "the records" 0 "$(sql 'SELECT count(*) FROM procesados')"
equals "the charges of the device" 0 "$(charges)"
check_books
stop_monitor
