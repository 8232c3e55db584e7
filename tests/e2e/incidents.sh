#!/usr/bin/env bash
# The registers through the names of their controls: an incident is resent and sold, one discarded,
# all of them archived, the charges exported, 5,000 accesses looked at and deleted; at last one whose
# user is no date is resent, which ends the program with its plain box. incidents.sh [LANGUAGE_FILE]
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/bus-lib.sh"

language=${1:+$project/$1}
start_screen
start_bus
[ -z "$language" ] || cp "$language" "$till/RWLang.ini"
start_till_shown --cliente manual
start_monitor_connected
drive incidents "$monitor_pid" "$simulator_pid" "$simulator_display" "$language"
exit_of "$monitor_pid" 20
equals "the exit code behind the plain box" 1 "$code"
registry_is Activo 0 || fail "the busy mark stands"
equals "the queue" 0 "$(sql 'SELECT count(*) FROM cola')"
equals "the incident that could not be dated" "ERROR|0" \
  "$(sql "SELECT estado, idCierre FROM procesados WHERE id1='80'")"
check_rows
