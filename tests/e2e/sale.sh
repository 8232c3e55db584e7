#!/usr/bin/env bash
# A row written by the sqlite3 shell in "AUTO" is charged, filed with every column and gone from
# the queue; log, device, books and registry tell the same.
. "$(dirname "$0")/lib.sh"

start_till --cliente redondeo
start_monitor_connected
before=$(date '+%Y-%m-%d %H:%M:%S')
put_sale 1250 T0001
wait_sold T0001
wait_exit_balance $((start_money + 1250))
after=$(date '+%Y-%m-%d %H:%M:%S')

equals "the rows of cola" 0 "$(sql 'SELECT count(*) FROM cola')"
equals "the record" \
  "1|1250|2000|750|$((start_money + 1250))|OK|T0001|A-17|3|TPV1|Ana|EFECTIVO||0|1|ZVFast" \
  "$(sql "SELECT idZV, importeVenta, cobrado, devuelto, saldoZV, estado, id1, id2, idcaja,
    terminal, vendedor, formapago, error, idCierre, idcola, usuario FROM procesados")"
# The sale's own date is dropped: both dates are those of the filing.
equals "the dates of the record" 1 "$(sql "SELECT count(*) FROM procesados
  WHERE fechaZV BETWEEN '$before' AND '$after' AND fechaVenta BETWEEN '$before' AND '$after'")"
lines_in_order \
  "INICIADO" \
  "ZVCONNECT_CONECTARZORV_CONNECT_OK" \
  "ENVIARZV_INICIO_CHARGE: 1250" \
  "ZVCHARGE_ENVIARZV_1_OK: VALUEINCENTS=1250 PAIDINVALUE=2000 PAIDOUTVALUE=750" \
  "ENVIARZV1_1_BEGINTRANS" \
  "ADDPROC_OK_1_ENVIARCOLA" \
  "PROCCOLA_DELCOLA_OK_1 [ENVIARCOLA]" \
  "ENVIARZV1_1_COMMIT"
equals "the charges of the device" 1 "$(charges)"
check_books
stop_monitor
registry_is Activo 0 || fail "the busy mark stands"
