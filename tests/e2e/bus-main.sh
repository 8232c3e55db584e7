#!/usr/bin/env bash
# The main screen by the names of its controls: all of them have one, it is their caption, and what
# can be pressed says whether it can. bus-main.sh [LANGUAGE_FILE] does the same under that file.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/bus-lib.sh"

language=${1:+$project/$1}
start_screen
start_bus
[ -z "$language" ] || cp "$language" "$till/RWLang.ini"
start_till_shown --cliente manual
sed -i 's/^MODO=.*/MODO=MANUAL\r/' "$till/ZVMonitor.ini"
start_monitor_connected
drive bus-main "$monitor_pid" "$simulator_pid" "$simulator_display" "$language"
exit_of "$monitor_pid" 20
equals "the exit code" 0 "$code"
registry_is Activo 0 || fail "the busy mark stands"
check_books
