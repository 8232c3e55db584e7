#!/usr/bin/env bash
# A client that knows nothing of the monitor (nc) speaks the fast link: every answer byte for byte
# and with no end of line, the sales that come of it, and the lines of the link's log.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/fast-lib.sh"

# ask MESSAGE ANSWER: on a connection of its own; both with the escapes of printf %b.
ask() {
  printf '%b' "$1" | nc -w 1 127.0.0.1 "$fast_port" >"$till/answer"
  printf '%b' "$2" | cmp - "$till/answer" || fail "the answer to $1 is \"$(cat "$till/answer")\", not \"$2\""
}

more_charges_than() { [ "$(charges)" -gt "$1" ]; }

start_till_fast --cliente redondeo --fallo cobro#2:lento=3000
start_monitor_fast

# ---- a sale and its states
ask 'C|T0001|1250|A|3|TPV1|ANA|EFECTIVO' 'OK|Added'
wait_sold T0001
equals "the record" "1250|A|3|TPV1|ANA|EFECTIVO|OK" "$(sql "SELECT importeVenta, id2, idcaja,
  terminal, vendedor, formapago, estado FROM procesados WHERE id1='T0001'")"
ask 'C|T0001|1250' 'NOK|Already exists'
ask 'C|T0002|abc' 'NOK|Amount too big'
ask 'C||100' 'NOK|Invalid ID'
ask 'S|T0001' 'OK|OK'
ask 'S|T0099' 'NOK|Not found'
ask 'X|T0001' 'NOK|Unknown command'
ask 'HELLO' ''

# The whole log of these exchanges. Whoever has looked whether the port is open has said nothing.
equals "the log of the link" "$(
  cat <<'LOG'
R: C|T0001|1250|A|3|TPV1|ANA|EFECTIVO
E: OK|Added
R: C|T0001|1250
E: NOK|Already exists
R: C|T0002|abc
E: NOK|Amount too big
R: C||100
E: NOK|Invalid ID
R: S|T0001
E: OK|OK
R: S|T0099
E: NOK|Not found
R: X|T0001
E: NOK|Unknown command
R: HELLO
LOG
)" "$(fast_lines)"
log=$(echo "$till"/Debug/*_Fast.log)
equals "the name of the log" "$(date -r "$log" +%Y%m%d)_Fast.log" "${log##*/}"
form=$'^([01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9]-[1-9][0-9]* [RE]: [^\r]*\r$'
equals "the lines of another form" 0 "$(grep -cvE "$form" "$log" || true)"

# ---- many messages on one connection
coproc NC { exec nc 127.0.0.1 "$fast_port"; }
pids+=("$NC_PID")
to=${NC[1]}
from=${NC[0]}
# say MESSAGE ANSWER: reads as many bytes as the answer has, and finds none behind them.
say() {
  local answer='' more=''
  printf '%b' "$1" >&"$to"
  IFS= LC_ALL=C read -r -d '' -t 10 -N "${#2}" -u "$from" answer || true
  IFS= LC_ALL=C read -r -d '' -t 0.2 -N 1 -u "$from" more || true
  equals "the answer to $1" "$2" "$answer$more"
}
# Asked while the customer pays, who takes three seconds.
say 'C|T0003|800' 'OK|Added'
wait_for 20 "the second charge" more_charges_than 1
say 'S|T0003' 'OK|PENDING'
say 'C|T0003|800' 'NOK|Already exists'
wait_sold T0003
say 'S|T0003' 'OK|OK'
# Commands in lower case are taken; an unknown sale is then told in other words.
say 's|T0003' 'OK|OK'
say 's|T0099' 'OK|NOT FOUND'
# A line ending is part of the last field; two messages at once are one; half a message is one too.
say 'S|T0003\r\n' 'NOK|Not found'
say 'S|T0003S|T0001' 'NOK|Not found'
say 'S|' 'NOK|Not found'
say 'T0003' ''
# The edges of an amount.
say 'C|T0004|2147483648' 'NOK|Amount too big'
say 'C|T0004|2147483647,5' 'NOK|Amount too big'
say 'C|T0004|' 'NOK|Amount too big'
say 'C||abc' 'NOK|Amount too big'
# Without an amount it is a sale of nothing.
say 'c|T0005' 'OK|Added'
wait_sold T0005
equals "the sale of nothing" "0|0|0" \
  "$(sql "SELECT importeVenta, cobrado, devuelto FROM procesados WHERE id1='T0005'")"
# Text of the code page, and one that is too long.
long=$(printf 'x%.0s' {1..50})
say 'C|\xd1and\xfa \x80|500|'"$long"'y' 'OK|Added'
wait_sold 'Ñandú €'
equals "the long text" "$long" "$(sql "SELECT id2 FROM procesados WHERE id1='Ñandú €'")"
say "C|${long}1|500" 'OK|Added'
say "C|${long}2|500" 'NOK|Already exists'
wait_sold "$long"

# ---- who leaves without waiting for the answer has still queued its sale
printf 'C|T0006|1500' | nc -N -w 5 127.0.0.1 "$fast_port" >/dev/null
wait_sold T0006

kill "$NC_PID"
equals "the rows of cola" 0 "$(sql 'SELECT count(*) FROM cola')"
check_books
stop_monitor
