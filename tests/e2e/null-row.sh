#!/usr/bin/env bash
# Rows with Null in all that may be Null: without an amount nothing is charged and the record says
# so; with an amount alone it is a sale like any other.
. "$(dirname "$0")/lib.sh"

start_till --cliente redondeo
start_monitor_connected
sql "INSERT INTO cola DEFAULT VALUES"
wait_line "ENVIARZV0_1_COMMIT"
equals "the record" "1|0|0|0|$start_money|OK|||0||||0|1" \
  "$(sql "SELECT idZV, importeVenta, cobrado, devuelto, saldoZV, estado, id1, id2, idcaja,
    terminal, vendedor, formapago, idCierre, idcola FROM procesados")"
equals "the charges of the device" 0 "$(charges)"

sql "INSERT INTO cola (importe) VALUES (500)"
wait_line "ENVIARZV1_2_COMMIT"
equals "the sale" "500|500|0|OK|0" \
  "$(sql "SELECT importeVenta, cobrado, devuelto, estado, idcaja FROM procesados WHERE idcola=2")"
equals "the rows of cola" 0 "$(sql 'SELECT count(*) FROM cola')"
check_books
stop_monitor
