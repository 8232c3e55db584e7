#!/usr/bin/env bash
# A till of an empty folder is set up on the screen, by the names of its controls, and sells: nobody
# has touched a file. Later its settings are changed while it runs, and hold at once.
# first-use.sh [LANGUAGE_FILE] does the same under that file.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/bus-lib.sh"

language=${1:+$project/$1}
start_screen
start_bus
start_till_shown --cliente manual
rm -rf "$till/ZVMonitor.ini" "$till/Registro"
[ -z "$language" ] || cp "$language" "$till/RWLang.ini"
start_monitor
drive first-use "$monitor_pid" "$simulator_pid" "$simulator_display" "$language" "127.0.0.1:$port" "$fast_address"
exit_of "$monitor_pid" 20
equals "the exit code" 0 "$code"
check_books

# Left without saving, a till of an empty folder does not start.
rm -rf "$till/ZVMonitor.ini"
start_monitor
drive first-use-left "$monitor_pid" "$language"
exit_of "$monitor_pid" 20
[ ! -e "$till/ZVMonitor.ini" ] || fail "leaving has made a file"
