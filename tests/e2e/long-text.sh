#!/usr/bin/env bash
# Fifty characters of four bytes each arrive whole in the record.
. "$(dirname "$0")/lib.sh"

text=$(printf '😀%.0s' {1..50})
start_till --cliente redondeo
start_monitor_connected
put_sale 1250 "$text"
wait_sold "$text"
equals "the length of id1" "50|200" "$(sql "SELECT length(id1), length(CAST(id1 AS BLOB)) FROM procesados")"
equals "id1" "$text" "$(sql "SELECT id1 FROM procesados")"
check_books
stop_monitor
