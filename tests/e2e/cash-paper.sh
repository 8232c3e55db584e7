#!/usr/bin/env bash
# The cash office on paper and in a spreadsheet: its screen prints through a print server and exports
# to a file; both are compared with what the table says. cash-paper.sh [LANGUAGE_FILE] does the same
# under that file.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/bus-lib.sh"
. "$(dirname "$0")/cups-lib.sh"

language=${1:+$project/$1}
start_server
start_screen
start_bus
[ -z "$language" ] || cp "$language" "$till/RWLang.ini"
start_till_shown --cliente manual
sed -i 's/^MODO=.*/MODO=MANUAL\r\nCOLTERMINAL=1\r/' "$till/ZVMonitor.ini"
start_monitor_connected
drive cash-paper "$monitor_pid" "$simulator_pid" "$simulator_display" "$language"
stop_monitor
