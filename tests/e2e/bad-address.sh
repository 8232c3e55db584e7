#!/usr/bin/env bash
# A device's address that is empty, has no sense, cannot be resolved, or belongs to somebody who never
# answers: each is told, the screen opens disconnected, and queue, books and balances stay.
. "$(dirname "$0")/lib.sh"

start_screen
start_till --cliente redondeo
start_monitor_connected
put_sale 1250 T0001
wait_sold T0001
wait_exit_balance $((start_money + 1250))
stop_monitor
put_sale 500 T0002

refused() { # ADDRESS MESSAGE
  sed -i "s/^IP=.*/IP=$1\r/" "$till/ZVMonitor.ini"
  rm -rf "$till/Debug"
  start_monitor
  answer right "the device at \"$1\""
  wait_line "ZVCONNECT_CONECTARZORV_CONNECT_ERRORZV1"
  wait_line ">>> Error Zorvex: 1 - $2"
  wait_for 20 "the main window" find_main
  sleep 0.3
  equals "the queue" 1 "$(queued T0002)"
  equals "the records" 1 "$(sql 'SELECT count(*) FROM procesados')"
  registry_is Saldo_Exit $((start_money + 1250)) || fail "the balance has been written"
  stop_monitor
  check_books
}

refused "" "Falta la dirección IP de Zorvex en la configuración"
refused "caja:puerto" "La dirección de Zorvex no es válida: caja:puerto"
refused "no-existe.invalid:$port" "No se puede conectar con Zorvex en no-existe.invalid:$port"
# Stopped, it still takes connections and says nothing.
kill -STOP "$simulator_pid"
refused "127.0.0.1:$port" "Zorvex no contesta al saludo de la sesión en 127.0.0.1:$port"
kill -CONT "$simulator_pid"

start_monitor_connected
wait_sold T0002
wait_exit_balance $((start_money + 1750))
check_books
stop_monitor
