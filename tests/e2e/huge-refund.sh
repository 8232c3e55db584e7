#!/usr/bin/env bash
# A refund beyond 32 bits cannot even be shown to the operator: the program says so in its plain
# box and ends with exit code 1; the row stays.
. "$(dirname "$0")/lib.sh"

start_screen
start_till --cliente redondeo
start_monitor_connected
put_sale -2147483649 GRANDE
close_box "the end of the program"
exit_of "$monitor_pid" 20
equals "the exit code" 1 "$code"
wait_line "Error nº 6 - Desbordamiento" 1
equals "the row" 1 "$(queued GRANDE)"
equals "the records" 0 "$(sql 'SELECT count(*) FROM procesados')"
equals "the charges of the device" 0 "$(charges)"
check_books
