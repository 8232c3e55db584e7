#!/usr/bin/env bash
# The monitor is killed at every point of its start, of a charge and of the filing; after each kill
# it is started again. The row is the durable state of a sale: after a kill it stands either in cola
# or as one "OK" record in procesados, never in both and never in neither. A sale whose money had
# come in but was not filed yet is charged again; the money of the first charge is in no record, and
# the next start tells it in the log. Nothing else may differ between device and books.
[ ! -w /dev/shm ] || export TMPDIR=/dev/shm # a kill, unlike a power cut, asks nothing of a disk
. "$(dirname "$0")/lib.sh"

amount=1250
monitor() { "$bin/zv_crash_monitor" "$till" "$1"; }

# A device with all its change, every few kills: the customers pay with notes, and two charges may
# stand behind one kill.
fresh_device() {
  if [ -n "$simulator_pid" ]; then
    kill -TERM "$simulator_pid"
    exit_of "$simulator_pid" 10
    rm -rf "$till/simulador" "$till/simulador.log"
  fi
  start_till --cliente redondeo --ritmo 0
  printf %s "$start_money" >"$(registry_file Saldo_Exit)"
  device=$start_money
}

state() { # ID1: rows in cola, OK records, kept in all records, check of the file
  sql "SELECT (SELECT count(*) FROM cola WHERE id1='$1'),
    (SELECT count(*) FROM procesados WHERE id1='$1' AND estado='OK'),
    (SELECT CAST(coalesce(sum(cobrado - devuelto), 0) AS INTEGER) FROM procesados);
    PRAGMA integrity_check" | tr '\n' ' '
}

fresh_device
monitor 0 >/dev/null || fail "the first start"
kept_before=0
kills=0
filed_before=0
charged_twice=0
for ((n = 1;; n++)); do
  [ "$n" -lt 1000 ] || fail "no end after $n points"
  [ $((n % 4)) -ne 0 ] || fresh_device
  rm -rf "$till/Debug"
  put_sale "$amount" "V$n"
  code=0
  { monitor "$n" >"$till/points"; } 2>/dev/null || code=$?
  [ "$code" = 0 ] || equals "the end at point $n" 137 "$code"

  read -r rows check <<<"$(state "V$n")"
  IFS='|' read -r queued filed kept <<<"$rows"
  equals "the database after point $n" ok "$check"
  equals "the places of the sale after point $n" 1 $((queued + filed))
  [ "$code" != 0 ] || break
  kills=$((kills + 1))
  filed_before=$((filed_before + filed))

  monitor 0 >/dev/null || fail "the start after point $n"
  read -r rows check <<<"$(state "V$n")"
  equals "the books after point $n and a new start" "0|1|$((kept_before + amount)) ok" "$rows $check"
  kept_before=$((kept_before + amount))
  money_now=$(money)
  extra=$((money_now - device - amount))
  device=$money_now
  if [ "$extra" -ne 0 ]; then
    equals "the money in no record after point $n" "$amount" "$extra"
    [ "$filed" = 0 ] || fail "a filed sale has been charged again after point $n"
    log_lines | grep -q '^>>> Último Saldo Registrado: ' ||
      fail "the money in no record after point $n is not told"
    charged_twice=$((charged_twice + 1))
  fi
done
equals "the last sale" "0|1" "$queued|$filed"
check_rows
echo "$kills kills: $filed_before after the filing, $charged_twice between money and filing"
[ "$kills" -gt 20 ] || fail "only $kills kills"
[ "$filed_before" -gt 0 ] || fail "no kill came after a filing"
[ "$charged_twice" -gt 0 ] || fail "no kill came between the money and its filing"
[ $((kills - filed_before - charged_twice)) -gt 0 ] || fail "no kill came before the money"
