#!/usr/bin/env bash
# The monitor is killed at every point of an operation of its foot, or of a touch on a row:
# crash-manual.sh OPERATION STATES [FAULTS], with the states of the records that the whole operation
# leaves, and what it files one after the other in the manner of "ERROR,ERROR OK". After a kill and a
# new start the file is sound, what the log calls committed stands in it, the records of one filing
# stand all or not at all, and rows are in cola exactly when no record stands for them; nothing is
# left open at the device, and the log has the amounts of all that it has moved.
[ ! -w /dev/shm ] || export TMPDIR=/dev/shm # a kill, unlike a power cut, asks nothing of a disk
. "$(dirname "$0")/lib.sh"

operation=$1
IFS=, read -ra filings <<<"$2"
faults=${3:-}
case "$operation" in
  grupo) rows=3 moves=yes ;;
  enviar) rows=1 moves=yes ;;
  anular) rows=1 moves=no ;;
  *) rows=0 moves=yes ;;
esac
mkdir -p "$(dirname "$(registry_file x)")"

fresh_device() {
  if [ -n "$simulator_pid" ]; then
    cut_off "$simulator_pid"
    rm -rf "$till/simulador" "$till/simulador.log"
  fi
  start_till --cliente redondeo --ritmo 0 ${faults:+--fallo "$faults"}
  printf %s "$start_money" >"$(registry_file Saldo_Exit)"
  if [ "$rows" != 0 ]; then
    # Only what is touched is sent.
    sed -i 's/^MODO=.*/MODO=MANUAL\r/' "$till/ZVMonitor.ini"
  fi
}
fresh_rows() {
  local n
  sql "DELETE FROM cola; DELETE FROM procesados"
  for ((n = 1; n <= rows; n++)); do
    put_sale $((n * 250)) "T$n"
  done
}

# The rows that wait, the records, what the rows have as a credit.
books() {
  sql "SELECT (SELECT count(*) FROM cola) || '|' ||
    (SELECT coalesce(group_concat(estado, ' '), '') FROM (SELECT estado FROM procesados ORDER BY idZV)) || '|' ||
    (SELECT CAST(coalesce(sum(creditoError), 0) AS INTEGER) FROM cola)"
}
before="$rows||0"
# After an error the rows wait on, the sent one with the credit of what the device has kept.
after() { # STATES
  local left=0 credit=0
  [ "$1" != ERROR ] || left=$rows
  [ "$operation $1" != "enviar ERROR" ] || credit=$(kept)
  echo "$left|$1|$credit"
}
# Which of the states the books are in; "nothing" before the first.
filed() { # WHAT
  local now states
  now=$(books)
  [ "$now" != "$before" ] || { echo nothing && return; }
  for states in "${filings[@]}"; do
    [ "$now" != "$(after "$states")" ] || { echo "$states" && return; }
  done
  fail "$1 the books are \"$now\""
}

# The keys of the records before each commit line of the log.
committed() {
  log_lines | sed -nE 's/^ADDPROC_OK_([0-9]+)_.*/\1/p; s/^[^ ]*_COMMIT$/commit/p; s/^[^ ]*_ROLLBACK$/rollback/p' |
    awk '/commit/ { printf "%s", open; open = ""; next } /rollback/ { open = ""; next } { open = open $0 "\n" }'
}
committed_stand() {
  local id
  while read -r id; do
    equals "the record $id, which the log calls committed, after point $1" 1 \
      "$(sql "SELECT count(*) FROM procesados WHERE idZV=$id")"
  done < <(committed)
}

# What the log tells of each operation that the device has begun.
all_told() {
  local id told=0 in out
  while read -r id; do
    grep -q "^acuse $id\$" "$till/simulador.log" || fail "an operation is left open after point $1"
    read -r in out <<<"$(log_lines | sed -nE \
      "s/^>>> Operación (terminada|interrumpida|pendiente) en Zorvex: .* $id .*PAIDINVALUE=(-?[0-9]+) PAIDOUTVALUE=(-?[0-9]+).*/\2 \3/p" | tail -n 1)"
    [ -n "$out" ] || fail "the log does not tell of an operation after point $1"
    told=$((told + in - out))
  done < <(sed -n 's/^inicio .* //p' "$till/simulador.log")
  equals "the money of the device after point $1" $((start_money + told)) "$(money)"
}
acknowledged() {
  [ "$(grep -c '^inicio ' "$till/simulador.log")" = "$(grep -c '^acuse ' "$till/simulador.log")" ]
}

start_again() { "$bin/zv_crash_monitor" "$till" 0 >/dev/null || fail "the start $1"; }

fresh_device
"$bin/zv_crash_monitor" "$till" 0 >"$till/points" || fail "the first start"
# Those of a start and an end without an operation are not repeated here.
first=$(cat "$till/points")
kills=0
with_records=0
unfiled=0
for ((n = first / 2;; n++)); do
  [ "$n" -lt 1000 ] || fail "no end after $n points"
  fresh_device
  rm -rf "$till/Debug"
  fresh_rows
  code=0
  { "$bin/zv_crash_monitor" "$till" "$n" "$operation" >"$till/points"; } 2>/dev/null || code=$?
  equals "the database after point $n" ok "$(sql 'PRAGMA integrity_check')"
  committed_stand "$n"
  [ "$code" != 0 ] || break
  equals "the end at point $n" 137 "$code"
  kills=$((kills + 1))
  filed=$(filed "after point $n") || exit 1

  start_again "after point $n"
  if log_lines | grep -q '^ZVCONNECT_CONECTARZORV_CONNECT_ERRORZV1$'; then
    # It was the one that the device was to refuse.
    start_again "once more after point $n"
  fi
  equals "the database after point $n and a new start" ok "$(sql 'PRAGMA integrity_check')"
  equals "the books after point $n and a new start" "$filed" "$(filed "after point $n and a new start")"
  committed_stand "$n"
  wait_for 5 "the acknowledgement after point $n" acknowledged
  all_told "$n"
  ! registry_is Activo 1 || fail "the mark stands after point $n"
  if [ "$filed" != nothing ]; then
    with_records=$((with_records + 1))
  elif grep -qE '^(entra|sale) ' "$till/simulador.log"; then
    unfiled=$((unfiled + 1))
  fi
done
equals "the books of the whole operation" "$(after "${filings[-1]}")" "$(books)"
# Where no operation asks for the link back, the next start ends what stands at the device.
acknowledged || start_again "after the whole operation"
wait_for 5 "the acknowledgement" acknowledged
all_told "$n"
echo "$kills kills: $with_records with the records filed, $unfiled with money moved and in no record"
[ "$with_records" -gt 0 ] || fail "no kill came after the filing"
[ "$unfiled" -gt 0 ] || [ "$moves" = no ] || fail "no kill came between the money and its filing"
[ $((kills - with_records - unfiled)) -gt 0 ] || fail "no kill came before the money"
