#!/usr/bin/env bash
# Last week's close: found in the history, printed through a print server, exported; and the button
# that clears the history, which deletes nothing and ends the program with its plain box. history.sh
# [LANGUAGE_FILE] does the same under that file.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/bus-lib.sh"
. "$(dirname "$0")/cups-lib.sh"

language=${1:+$project/$1}
start_server
start_screen
start_bus
[ -z "$language" ] || cp "$language" "$till/RWLang.ini"
start_till_shown --cliente manual
sed -i 's/^MODO=.*/MODO=MANUAL\r/' "$till/ZVMonitor.ini"
start_monitor_connected
drive history "$monitor_pid" "$simulator_pid" "$simulator_display" "$language"
close_box "the end of the program"
exit_of "$monitor_pid" 20
equals "the exit code" 1 "$code"
equals "the closes" 3 "$(sql 'SELECT count(*) FROM cierres')"
