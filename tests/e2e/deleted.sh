#!/usr/bin/env bash
# The database is deleted while a customer pays: the filing fails and is told, and no record goes
# into a file that nobody can open any more.
. "$(dirname "$0")/lib.sh"

start_screen
start_till --cliente redondeo --ritmo 200
start_monitor_connected
put_sale 1250 T0001
hold_charge
rm "$till"/ZVMonito2.mdb*
release_charge
wait_for 30 "the box" find_box
text="el fichero de la base de datos ha sido movido o borrado"
lines_in_order \
  "ZVCHARGE_ENVIARZV_1_OK: VALUEINCENTS=1250 PAIDINVALUE=2000 PAIDOUTVALUE=750" \
  "ENVIARZV1_1_BEGINTRANS" \
  "ADDPROC_ERROR_1032_RESUME_1 [ENVIARCOLA]" \
  "ADDPROC_ERROR_1032 - $text [ENVIARCOLA]"
! log_lines | grep -q '^ADDPROC_OK_\|^PROCCOLA_DELCOLA_OK_\|_COMMIT$' || fail "something was filed"
[ -z "$(ls "$till"/ZVMonito2.mdb* 2>/dev/null)" ] || fail "a file stands where the database was"
