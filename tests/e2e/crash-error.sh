#!/usr/bin/env bash
# The device fails with part of the money in it, and the monitor is killed at every point around
# that: the credit in the row and the record of the failure stand both or neither, and the sale ends
# paid once. Money that came in without being filed before the kill is told by the next start.
[ ! -w /dev/shm ] || export TMPDIR=/dev/shm # a kill, unlike a power cut, asks nothing of a disk
. "$(dirname "$0")/lib.sh"

amount=1250
partial=1000 # the first piece of the customer, after which the device fails
mkdir -p "$(dirname "$(registry_file x)")"

# The charge that fails is the first of each device.
failing_device() {
  if [ -n "$simulator_pid" ]; then
    cut_off "$simulator_pid"
    rm -rf "$till/simulador" "$till/simulador.log"
  fi
  start_till --cliente exacto --ritmo 0 --fallo 'cobro#1:parcial=33'
  printf %s "$start_money" >"$(registry_file Saldo_Exit)"
}
state() { # ID1: rows in cola, their credit, failures, sales, kept in all records, check of the file
  sql "SELECT (SELECT count(*) FROM cola WHERE id1='$1'),
    (SELECT coalesce(sum(CAST(creditoError AS INTEGER)), 0) FROM cola WHERE id1='$1'),
    (SELECT count(*) FROM procesados WHERE id1='$1' AND estado='ERROR'),
    (SELECT count(*) FROM procesados WHERE id1='$1' AND estado='OK'),
    (SELECT CAST(coalesce(sum(cobrado - devuelto), 0) AS INTEGER) FROM procesados WHERE id1='$1');
    PRAGMA integrity_check" | tr '\n' ' '
}

failing_device
"$bin/zv_crash_monitor" "$till" 0 >"$till/points" || fail "the first start"
# Those of a start without a sale are not repeated here.
first=$(cat "$till/points")
kills=0
with_credit=0
unfiled=0
for ((n = first;; n++)); do
  [ "$n" -lt 1000 ] || fail "no end after $n points"
  failing_device
  rm -rf "$till/Debug"
  put_sale "$amount" "V$n"
  code=0
  { "$bin/zv_crash_monitor" "$till" "$n" >"$till/points"; } 2>/dev/null || code=$?
  [ "$code" != 0 ] || break
  equals "the end at point $n" 137 "$code"
  kills=$((kills + 1))

  read -r rows check <<<"$(state "V$n")"
  IFS='|' read -r queued credit failures filed kept <<<"$rows"
  equals "the database after point $n" ok "$check"
  equals "the places of the sale after point $n" 1 $((queued + filed))
  if [ "$filed" = 0 ]; then
    equals "the credit after point $n" $((failures * partial)) "$credit"
    with_credit=$((with_credit + failures))
  fi

  "$bin/zv_crash_monitor" "$till" 0 >/dev/null || fail "the start after point $n"
  read -r rows check <<<"$(state "V$n")"
  IFS='|' read -r queued credit failures filed kept <<<"$rows"
  equals "the sale after point $n and a new start" "0|0|1|ok" "$queued|$credit|$filed|$check"
  equals "the money in the books after point $n" "$amount" "$kept"
  extra=$(($(money) - start_money - amount))
  if [ "$extra" -ne 0 ]; then
    log_lines | grep -q '^>>> Último Saldo Registrado: ' ||
      fail "the money in no record after point $n is not told"
    unfiled=$((unfiled + 1))
  fi
done
check_rows
echo "$kills kills: $with_credit with the credit filed, $unfiled with money in no record"
[ "$kills" -gt 20 ] || fail "only $kills kills"
[ "$with_credit" -gt 0 ] || fail "no kill came with the credit filed"
[ "$unfiled" -gt 0 ] || fail "no kill came between the money and the record of the failure"
