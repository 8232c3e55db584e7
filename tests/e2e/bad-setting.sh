#!/usr/bin/env bash
# A letter where the settings want a number: the start fails with a message and exit code 1.
. "$(dirname "$0")/lib.sh"

start_screen
start_till
sed -i 's/^MODO=AUTO\r*$/MODO=AUTO\r\nREFRESCO=x\r/' "$till/ZVMonitor.ini"
grep -q '^REFRESCO=x' "$till/ZVMonitor.ini" || fail "the setting is not in the file"
start_monitor
answer right "the start has failed"
exit_of "$monitor_pid" 20
equals "the exit code" 1 "$code"
[ ! -e "$till/ZVMonito2.mdb" ] || fail "the start went on to the database"
