#!/usr/bin/env bash
# Nobody answers at the device's address when the program starts: it says so, opens its screen all
# the same, and the button "Conectar" connects once the device is there.
. "$(dirname "$0")/lib.sh"

start_screen
start_till --cliente redondeo
cut_off "$simulator_pid"
start_monitor
answer right "the device does not answer"
wait_line "ZVCONNECT_CONECTARZORV_CONNECT_ERRORZV1"
log_lines | grep -q '^>>> Error Zorvex: 1 - ' || fail "the log does not tell the error"
wait_for 20 "the main window" find_main
import -window root "$till/screen.png"
colours=$(identify -format %k "$till/screen.png")
[ "$colours" -gt 50 ] || fail "the screen shows nothing ($colours colours)"
put_sale 1250 T0001

restart_simulator --cliente redondeo
wait_for 20 "the device" sh -c "[ \$(grep -c '^escuchando' '$till/simulador.log') = 2 ]"
equals "the row before the connection" 1 "$(queued T0001)"
click_connect
wait_line "ZVCONNECT_CONECTARZORV_CONNECT_OK"
wait_sold T0001
wait_exit_balance $((start_money + 1250))
check_books
stop_monitor
