#!/usr/bin/env bash
# The monitor is killed at every point of an operation of its foot, or of a touch on a row:
# crash-manual.sh OPERATION STATES [FAULTS], with the states of the records that the whole operation
# leaves, and what it files one after the other in the manner of "ERROR,ERROR OK". After a kill and a
# new start the file is sound, what the log calls committed stands in it, the records of one filing
# stand all or not at all, and rows are in cola exactly when no record stands for them; nothing is
# left open at the device, and the log has the amounts of all that it has moved.
operation=$1
IFS=, read -ra filings <<<"$2"
faults=${3:-}
case "$operation" in
  grupo) rows=3 moves=yes ;;
  enviar) rows=1 moves=yes ;;
  anular) rows=1 moves=no ;;
  *) rows=0 moves=yes ;;
esac
. "$(dirname "$0")/crash-lib.sh"
with_records=0
unfiled=0

set_up() {
  if [ "$rows" != 0 ]; then
    # Only what is touched is sent.
    sed -i 's/^MODO=.*/MODO=MANUAL\r/' "$till/ZVMonitor.ini"
  fi
}
fresh_books() {
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
sound() { # WHAT
  local id
  while read -r id; do
    equals "the record $id, which the log calls committed, $1" 1 \
      "$(sql "SELECT count(*) FROM procesados WHERE idZV=$id")"
  done < <(committed)
}

# What the log tells of each operation that the device has begun.
all_told() { # WHAT
  local id told=0 in out
  while read -r id; do
    grep -q "^acuse $id\$" "$till/simulador.log" || fail "an operation is left open $1"
    read -r in out <<<"$(log_lines | sed -nE \
      "s/^>>> Operación (terminada|interrumpida|pendiente) en Zorvex: .* $id .*PAIDINVALUE=(-?[0-9]+) PAIDOUTVALUE=(-?[0-9]+).*/\2 \3/p" | tail -n 1)"
    [ -n "$out" ] || fail "the log does not tell of an operation $1"
    told=$((told + in - out))
  done < <(sed -n 's/^inicio .* //p' "$till/simulador.log")
  equals "the money of the device $1" $((start_money + told)) "$(money)"
}
tally() { # FILED
  if [ "$1" != nothing ]; then
    with_records=$((with_records + 1))
  elif grep -qE '^(entra|sale) ' "$till/simulador.log"; then
    unfiled=$((unfiled + 1))
  fi
}
the_end_of_the_books() {
  equals "the books of the whole operation" "$(after "${filings[-1]}")" "$(books)"
}

kill_at_every_point
echo "$kills kills: $with_records with the records filed, $unfiled with money moved and in no record"
[ "$with_records" -gt 0 ] || fail "no kill came after the filing"
[ "$unfiled" -gt 0 ] || [ "$moves" = no ] || fail "no kill came between the money and its filing"
[ $((kills - with_records - unfiled)) -gt 0 ] || fail "no kill came before the money"
