#!/usr/bin/env bash
# The barcode layout set from a real ticket, through the names of the controls: from the settings, by
# the ticket's own scan; saved; and then a scan is sold. barcode.sh [LANGUAGE_FILE] does the same under
# that file.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/bus-lib.sh"

language=${1:+$project/$1}
start_screen
start_bus
[ -z "$language" ] || cp "$language" "$till/RWLang.ini"
start_till_shown --cliente exacto --ritmo 2
start_monitor_connected
drive barcode "$monitor_pid" "$simulator_pid" "$simulator_display" "$language"
stop_monitor
check_books
