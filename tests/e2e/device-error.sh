#!/usr/bin/env bash
# The device fails with half of the money in it: the part paid is the row's credit, the operator is
# told, confirms the credit, and only the rest is charged.
. "$(dirname "$0")/lib.sh"

start_screen
start_till --cliente exacto --fallo 'cobro#1:parcial=33'
start_monitor_connected
put_sale 1250 T0001
answer right "the error of the device"
wait_for 20 "the question about the credit" find_dialog
equals "the credit" 1000 "$(sql 'SELECT creditoError FROM cola')"
equals "the record of the failure" "1250|1000|0|ERROR|33 - Fallo del equipo|0" \
  "$(sql 'SELECT importeVenta, cobrado, devuelto, estado, error, idcola FROM procesados')"
check_books
answer left "the credit"
wait_sold T0001
equals "the record of the sale" "250|250|0|OK|1" \
  "$(sql "SELECT importeVenta, cobrado, devuelto, estado, idcola FROM procesados WHERE estado='OK'")"
lines_in_order \
  "ENVIARZV_INICIO_CHARGE: 1250" \
  "EDIT_COLA_CREDITO_1_OK" \
  "ZVCHARGE_ENVIARZV2_1_ERROR_33: VALUEINCENTS=1250 PAIDINVALUE=1000 PAIDOUTVALUE=0" \
  "ADDPROC_OK_1_ENVIARCOLA_ERRORZV" \
  ">>> Error en Zorvex: 33 - Fallo del equipo" \
  "ENVIARZV2_1_COMMIT" \
  "ENVIARZV_CREDITO_OK: 1000" \
  "ENVIARZV_INICIO_CHARGE: 250" \
  "ENVIARZV1_1_COMMIT"
wait_exit_balance $((start_money + 1250))
check_books
stop_monitor
