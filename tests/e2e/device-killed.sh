#!/usr/bin/env bash
# The device's power goes while a customer's money lies in it, and comes back: the money is still
# there, it is the row's credit, and the sale ends with what is missing.
. "$(dirname "$0")/lib.sh"

start_screen
start_till --cliente exacto --ritmo 600
start_monitor_connected
put_sale 1250 T0001
wait_for 20 "the first money" trace_has '^entra 1000'
cut_off "$simulator_pid"
in_device=$(($(money) - start_money))
[ "$in_device" -gt 0 ] && [ "$in_device" -lt 1250 ] || fail "the device holds $in_device of the sale"
restart_simulator --cliente exacto

answer right "the error of the device"
wait_for 20 "the question about the credit" find_dialog
equals "the credit" "$in_device" "$(sql 'SELECT creditoError FROM cola')"
equals "the money in the books" "$in_device" "$(kept)"
check_books
answer left "the credit"
wait_sold T0001
wait_exit_balance $((start_money + 1250))
equals "the money in the books" 1250 "$(kept)"
check_books
stop_monitor
