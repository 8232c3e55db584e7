#!/usr/bin/env bash
# A point of sale on ODBC: it inserts a sale with date, decimal amount and accents, and reads the
# outcome back with dates as dates.
. "$(dirname "$0")/lib.sh"

driver=$(find /usr/lib /usr/local/lib -name 'libsqlite3odbc.so' -print -quit 2>/dev/null)
[ -n "$driver" ] || fail "the ODBC driver of SQLite is not installed"
# Nothing of the machine's own ODBC set-up is read.
export ODBCSYSINI=$till/odbc ODBCINI=$till/odbc/odbc.ini
mkdir "$ODBCSYSINI"
printf '[ZVMonitor]\nDriver=%s\nDatabase=%s\nTimeout=5000\n' "$driver" "$till/ZVMonito2.mdb" >"$ODBCINI"
: >"$ODBCSYSINI/odbcinst.ini"

odbc() { isql ZVMonitor -b -v '-d|'; }

start_till --cliente redondeo
start_monitor_connected
odbc <<'SQL' >"$till/insert.out"
INSERT INTO cola (fecha, importe, id1, id2, idcaja, terminal, vendedor, formapago) VALUES ({ts '2026-03-14 10:20:30'}, 1250.00, 'Ñandú 7', 'Peluquería', 3, 'TPV1', 'María José Núñez', 'Tarjeta € contado')
SQL
wait_sold 'Ñandú 7'
equals "the record by ODBC" \
  "1250|2000|750|OK|Ñandú 7|Peluquería|3|TPV1|María José Núñez|Tarjeta € contado" \
  "$(odbc <<'SQL' | grep '|'
SELECT importeVenta, cobrado, devuelto, estado, id1, id2, idcaja, terminal, vendedor, formapago FROM procesados
SQL
  )"

# column_type TABLE COLUMN: the ODBC type number.
column_type() { echo "help $1" | odbc | awk -F'|' -v c="$2" 'tolower($4) == tolower(c) { print $5 }'; }
timestamp=11 # of ODBC 2, which isql speaks
for column in fechaZV fechaVenta; do
  equals "the ODBC type of $column" "$timestamp" "$(column_type procesados "$column")"
done
equals "the ODBC type of fecha" "$timestamp" "$(column_type cola fecha)"
date=$(echo "SELECT fechaZV FROM procesados" | odbc | grep '^20')
equals "the date by ODBC" "$date" "$(date -d "$date" '+%Y-%m-%d %H:%M:%S')"
check_books
stop_monitor
