#!/usr/bin/env bash
# device-fault.sh RULES: the link or the gateway misbehaves around a charge, as the simulator's rules
# say, and recovers. The sale is charged once, filed once, and nobody has to press anything.
. "$(dirname "$0")/lib.sh"

rule=${1:?usage: device-fault.sh RULES}
start_till --cliente redondeo --ritmo 20 --fallo "$rule"
start_monitor_connected
put_sale 1250 T0001
wait_sold T0001 60
for one in ${rule//,/ }; do
  wait_for 5 "the fault $one" trace_has "^fallo $one"
done
wait_exit_balance $((start_money + 1250))
equals "the record" "1250|2000|750|$((start_money + 1250))" \
  "$(sql 'SELECT importeVenta, cobrado, devuelto, saldoZV FROM procesados')"
equals "the charges of the device" 1 "$(charges)"
equals "the records" 1 "$(sql 'SELECT count(*) FROM procesados')"

# The next sale finds nothing left over.
put_sale 500 T0002
wait_sold T0002
wait_exit_balance $((start_money + 1750))
check_books
stop_monitor
