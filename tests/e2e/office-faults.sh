#!/usr/bin/env bash
# The cash office when its device or its database does not do its part, through the names of its
# controls: the table locked by another program; a close and an emptying that the device refuses, that
# lose the link for good, that the device falls silent in; a reconciling without a link; the device's
# own settings. office-faults.sh [LANGUAGE_FILE] does the same under that file.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/bus-lib.sh"

language=${1:+$project/$1}
start_screen
start_bus
[ -z "$language" ] || cp "$language" "$till/RWLang.ini"
# By the number of the operation of its kind, in the order of office-faults.py. Where a time stands the
# device cannot be had again for so long, and the client gives up before.
faults=(
  cierre#1:error=12 cierre#2:cortar=antes+9000 cierre#3:mudo
  vaciado#1:error=31 vaciado#2:cortar=antes+9000
  cuadre#1:cortar=antes+9000
)
start_till_shown --cliente manual "${faults[@]/#/--fallo=}"
sed -i 's/^MODO=.*/MODO=MANUAL\r/' "$till/ZVMonitor.ini"
start_monitor_connected
drive office-faults "$monitor_pid" "$simulator_pid" "$simulator_display" "$language"
stop_monitor
check_rows
