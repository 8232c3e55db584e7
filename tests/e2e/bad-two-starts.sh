#!/usr/bin/env bash
# Two starts at once on one folder, after a crash that has left its lock file behind: one of them
# runs, the other says so and ends. A third one leaves log, settings, registry and books untouched.
. "$(dirname "$0")/lib.sh"

# Every file of the till but those of the running database engine and of this script.
files() {
  (cd "$till" && find . -type f ! -name '*-shm' ! -name monitor.out ! -name display \
    ! -path './simulador*' -print0 | sort -z | xargs -0 sha256sum)
}

start_screen
start_till --cliente redondeo
start_monitor_connected
put_sale 1250 T0001
wait_sold T0001
wait_exit_balance $((start_money + 1250))
cut_off "$monitor_pid"
[ -e "$till/ZVMonitor.lock" ] || fail "the crash has left no lock file"

starts=$(count_lines INICIADO)
connected=$(connections)
start_monitor
first=$monitor_pid
start_monitor
second=$monitor_pid
answer right "the program runs already"
one_ended() { ended "$first" || ended "$second"; }
wait_for 20 "the end of one of the two" one_ended
if ended "$first"; then
  exit_of "$first" 5
  monitor_pid=$second
else
  exit_of "$second" 5
  monitor_pid=$first
fi
equals "the exit code of the one too many" 1 "$code"
wait_for 30 "the connection of the other" more_connections_than "$connected"
equals "the starts in the log" $((starts + 1)) "$(count_lines INICIADO)"
running=$monitor_pid

# At rest the first one writes nothing.
wait_exit_balance $((start_money + 1250))
sleep 0.5
before=$(files)
for part in Debug/ZVMonitor ZVMonitor.ini ZVMonito2.mdb Saldo_Exit; do
  grep -qF "$part" <<<"$before" || fail "$part is not among the files compared"
done
start_monitor
answer right "the program runs already"
exit_of "$monitor_pid" 20
equals "the exit code of a second start" 1 "$code"
equals "the files of the till" "$before" "$(files)"

monitor_pid=$running
put_sale 500 T0002
wait_sold T0002
wait_exit_balance $((start_money + 1750))
check_books
stop_monitor
