#!/usr/bin/env bash
# A morning's work at the till, through the names of its controls: users are made and identify; change
# is given, float added, money paid out and charged by hand, well and badly; rows of the queue are
# grouped, annulled and sent. The program's tables, log, registry tree and the recycler's money are
# compared after each step. morning.sh [LANGUAGE_FILE] does a shorter one under that file.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/bus-lib.sh"

language=${1:+$project/$1}
start_screen
start_bus
[ -z "$language" ] || cp "$language" "$till/RWLang.ini"
# Faults by the number of the operation of its kind, in the order of morning.py. Where a time stands
# the device cannot be had again for so long, and the client gives up before.
faults=(
  cambio#4:error=12 cambio#5:cortar=durante+9000
  ingreso#8:error=31 ingreso#9:cortar=durante+14000
  pago#4:error=12 pago#5:cancelar pago#6:cortar=antes+9000
  cobro#2:parcial=27 cobro#3:error=5 cobro#5:cortar=durante+9000
  cobro#10:error=12 cobro#11:cortar=durante+9000
)
[ -z "$language" ] || faults=()
start_till_shown --cliente manual "${faults[@]/#/--fallo=}"
sed -i 's/^MODO=.*/MODO=MANUAL\r\nBOTONACCESO=1\r/' "$till/ZVMonitor.ini"
start_monitor_connected
drive morning "$monitor_pid" "$simulator_pid" "$simulator_display" "$language"
stop_monitor
check_rows
