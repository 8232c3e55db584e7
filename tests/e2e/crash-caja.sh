#!/usr/bin/env bash
# The monitor is killed at every point of an operation of the cash office: crash-caja.sh OPERATION
# RECORDS [FAULTS], with what the whole operation files, one after the other. An operation that ends
# in a close has "CIERRE" behind them, one that files nothing is "-". After a kill and a new start
# the file is sound, what the log calls committed stands in it, and the period is open and whole,
# with no record in a close, or closed and whole, with all of them; nothing is left open at the
# device, and the log has the amounts of all that has left it.
operation=$1
filings=()
[ "$2" = - ] || read -ra filings <<<"$2"
faults=${3:-}
. "$(dirname "$0")/crash-lib.sh"
declare -A at=()
moved=0

set_up() {
  printf %s 4321 >"$(registry_file Saldo_Inicial)"
  case "$operation" in
    cuadre | monedas | billetes)
      # Money in the boxes: a close has moved it there.
      "$bin/zv_crash_monitor" "$till" 0 valor >/dev/null || fail "the close before it"
      wait_for 5 "the acknowledgement of the close before it" acknowledged
      : >"$till/simulador.log"
      ;;
  esac
}
# Three sales of the period, and one of a close before it.
fresh_books() {
  sql "DELETE FROM procesados; DELETE FROM cierres;
    INSERT INTO procesados (estado, id1, terminal, importeVenta, cobrado, devuelto, idCierre)
    VALUES ('OK', 'ANTES', 'TPV1', 100, 100, 0, 99999), ('OK', 'V1', 'TPV1', 250, 250, 0, 0),
      ('ERROR', 'V2', 'TPV1', 300, 100, 0, 0), ('CANCEL', 'V3', 'TPV1', 300, 0, 0, 0)"
  rm -f "$(registry_file Activo)"
}

# What the cash office has filed, then the closes.
books() {
  sql "SELECT trim(coalesce((SELECT group_concat(id1, ' ') FROM
      (SELECT id1 FROM procesados WHERE terminal='ZV' ORDER BY idZV)), '') ||
    (SELECT coalesce(group_concat(' CIERRE', ''), '') FROM cierres))"
}
# How many of the filings stand: the first so many, and nothing else.
filed() { # WHAT
  local now n
  now=$(books)
  for ((n = 0; n <= ${#filings[@]}; n++)); do
    [ "$now" != "${filings[*]:0:n}" ] || { echo "$n" && return; }
  done
  fail "$1 the books are \"$now\""
}
# Open and whole, or closed and whole.
sound() { # WHAT
  local close
  committed_stand "$1"
  close=$(sql "SELECT coalesce(max(idCierre), 0) FROM cierres")
  equals "the records of another period $1" "" \
    "$(sql "SELECT id1 FROM procesados WHERE idCierre<>$close AND id1<>'ANTES'")"
  equals "the record of the close before $1" 1 \
    "$(sql "SELECT count(*) FROM procesados WHERE idCierre=99999 AND id1='ANTES'")"
  [ "$close" = 0 ] || equals "the totals of the close $1" "350|0|0" \
    "$(sql "SELECT CAST(cobros AS INTEGER), CAST(abonos AS INTEGER), CAST(ingresos AS INTEGER) FROM cierres")"
}

committed_stand() { # WHAT
  local id
  while read -r id; do
    equals "the close $id, which the log calls committed, $1" 1 \
      "$(sql "SELECT count(*) FROM cierres WHERE idCierre=$id")"
  done < <(log_lines | sed -nE 's/^CIERRE_[A-Z]+_([0-9]+)_COMMIT$/\1/p')
  while read -r id; do
    equals "the record $id, which the log calls committed, $1" 1 \
      "$(sql "SELECT count(*) FROM procesados WHERE idZV=$id")"
  done < <(log_lines | sed -nE 's/^ADDPROC_OK_([0-9]+)_.*/\1/p; s/^[^ ]*_COMMIT$/commit/p' |
    awk '/commit/ { printf "%s", open; open = ""; next } { open = open $0 "\n" }')
}

# What has left the device: an emptied box, and what a hand has taken out of the boxes.
all_told() { # WHAT
  local method id out told=0
  while read -r method id; do
    grep -q "^acuse $id\$" "$till/simulador.log" || fail "an operation is left open $1"
    out=$(log_lines | grep -E "^>>> Operación (terminada|interrumpida|pendiente) en Zorvex: .* $id " | tail -n 1)
    [ -n "$out" ] || fail "the log does not tell of an operation $1"
    if [ "$method" = box.empty ]; then
      told=$((told + $(sed -nE 's/.* VALUE=([0-9]+).*/\1/p' <<<"$out")))
    elif [ "$operation" = cuadre ]; then
      told=$((told + $(sed -nE 's/.*COINSVALUEINCB=([0-9]+) NOTESVALUEINCB=([0-9]+).*/\1+\2/p' <<<"$out")))
    fi
  done < <(sed -nE 's/^inicio ([a-zA-Z.]+) .*[^ ]* ([^ ]+)$/\1 \2/p' "$till/simulador.log")
  equals "the money of the device $1" $((start_money - told)) "$(money)"
}

tally() { # FILED
  at[$1]=$((${at[$1]:-0} + 1))
  if [ "$1" = 0 ] && grep -qE '^(mueve|cuadra|vacia) ' "$till/simulador.log"; then
    moved=$((moved + 1))
  fi
}
the_end_of_the_books() {
  equals "the books of the whole operation" "${#filings[@]}" "$(filed "after the whole operation")"
}

kill_at_every_point
echo "$kills kills: ${at[0]:-0} with nothing filed, $moved of them after the device had worked; by what stood:"
for ((n = 1; n <= ${#filings[@]}; n++)); do
  echo "  ${at[$n]:-0} with ${filings[*]:0:n}"
done
[ "$moved" -gt 0 ] || fail "no kill came between the device and the filing"
[ "${at[${#filings[@]}]:-0}" -gt 0 ] || fail "no kill came after the last filing"
[ $((${at[0]:-0} - moved)) -gt 0 ] || fail "no kill came before the device"
