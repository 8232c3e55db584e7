#!/usr/bin/env bash
# The monitor is killed at every point of what a register does with its rows: crash-registro.sh
# OPERATION (reenviar, descartar, incidencias, accesos). After a kill and a new start the file is
# sound, and all of the operation stands or nothing of it: an incident that waits in the queue is one
# that has been resent, and the other way round.
operation=$1
faults=
. "$(dirname "$0")/crash-lib.sh"
done_all=0

set_up() {
  # What has been queued stays there.
  sed -i 's/^MODO=.*/MODO=MANUAL\r/' "$till/ZVMonitor.ini"
}
fresh_books() {
  sql "DELETE FROM cola; DELETE FROM historial; DELETE FROM procesados; DELETE FROM Accesos;
    INSERT INTO procesados (estado, id1, terminal, importeVenta, idCierre, usuario)
    VALUES ('ERROR', '1', 'TPV1', 250, 0, '7'), ('OK', '2', 'TPV1', 300, 0, '7'),
      ('ERROR', '3', 'TPV1', 350, 0, '7');
    INSERT INTO Accesos (usuario, lugar) VALUES ('ANA', 'authCaja'), ('ANA', 'authPago')"
}
# The queue, the history of what was queued, states and closes of the records, the accesses.
books() {
  sql "SELECT (SELECT coalesce(group_concat(id1 || ' ' || CAST(importe AS INTEGER)), '') FROM cola) ||
    '|' || (SELECT count(*) FROM historial) || '|' ||
    (SELECT group_concat(estado || idCierre) FROM (SELECT * FROM procesados ORDER BY idZV)) || '|' ||
    (SELECT count(*) FROM Accesos)"
}
before="|0|ERROR0,OK0,ERROR0|2"
case "$operation" in
  reenviar) after="1 250|1|REENVIADO0,OK0,ERROR0|2" ;;
  descartar) after="|0|ERROR-1,OK0,ERROR0|2" ;;
  incidencias) after="|0|ERROR-1,OK0,ERROR-1|2" ;;
  accesos) after="|0|ERROR0,OK0,ERROR0|0" ;;
  *) fail "no such operation: $operation" ;;
esac
filed() { # WHAT
  case "$(books)" in
    "$before") echo nothing ;;
    "$after") echo all ;;
    *) fail "$1 the books are \"$(books)\"" ;;
  esac
}
sound() { filed "$1" >/dev/null; }
all_told() { equals "the money of the device $1" "$start_money" "$(money)"; }
tally() { [ "$1" = nothing ] || done_all=$((done_all + 1)); }
the_end_of_the_books() { equals "the books of the whole operation" "$after" "$(books)"; }

kill_at_every_point
echo "$kills kills: $done_all with all of it done"
[ "$done_all" -gt 0 ] || fail "no kill came after it"
[ "$kills" -gt "$done_all" ] || fail "no kill came before it"
