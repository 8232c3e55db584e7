#!/usr/bin/env bash
# A week of a shop, through the names of its controls: sales, refunds, change, float, pay-outs and
# charges by hand; in the evening the cash office: closes by levels and by value, boxes emptied, money
# taken by hand, a count that is wrong, reconciled with its entry accepted and declined. What
# procesados and cierres hold at the end is worked out a second time. week.sh [LANGUAGE_FILE] does the
# same under that file.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/bus-lib.sh"

language=${1:+$project/$1}
start_screen
start_bus
[ -z "$language" ] || cp "$language" "$till/RWLang.ini"
start_till_shown --cliente exacto,cambio=2000,ingreso=2000+1000+200+200 --ritmo 2
sed -i 's/^MODO=.*/MODO=AUTO\r\nCOLVENDEDOR=1\r\nCOLTERMINAL=1\r/' "$till/ZVMonitor.ini"
start_monitor_connected
drive week "$monitor_pid" "$simulator_pid" "$simulator_display" "$language"
stop_monitor
check_rows
