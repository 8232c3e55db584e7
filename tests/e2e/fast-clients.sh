#!/usr/bin/env bash
# Clients of the fast link that behave badly, a thousand of them; after each kind the monitor answers
# a good one at once, sells its sale, and holds no descriptor more than before.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/fast-lib.sh"

[ "$(ulimit -n)" -ge 1100 ] || ulimit -n 2048
start_till_fast --cliente redondeo
start_monitor_fast
equals "the first answer" "NOK|Not found" "$(printf 'S|NOBODY' | nc -w 1 127.0.0.1 "$fast_port")"
python3 "${BASH_SOURCE[0]%.sh}.py" 127.0.0.1 "$fast_port" "$monitor_pid" "$till/ZVMonito2.mdb" \
  "$(echo "$till"/Debug/*_Fast.log)" || fail "see above"

# After all that money is taken too.
equals "the answer at the end" "OK|Added" "$(printf 'C|T0001|1250' | nc -w 1 127.0.0.1 "$fast_port")"
wait_sold T0001
equals "the record" "1250|2000|750" \
  "$(sql "SELECT importeVenta, cobrado, devuelto FROM procesados WHERE id1='T0001'")"
wait_exit_balance $((start_money + 1250))
check_books
stop_monitor
