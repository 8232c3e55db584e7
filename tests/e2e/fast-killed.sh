#!/usr/bin/env bash
# The monitor is killed while clients of the fast link queue charges, round after round; in every
# third the customers pay meanwhile. What a client was answered "OK|Added" for stands in the books
# once; what was cut off may be sent again. fast-killed.sh [ROUNDS [SEED]]: a seed gives the moments.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/fast-lib.sh"

rounds=${1:-60}
seed=${2:-$((RANDOM * 32768 + RANDOM))}
echo "seed $seed"

clients() { # ROUND PID LONGEST_MS; the exit code of a monitor that is killed is in $code
  local good=yes
  {
    python3 "${BASH_SOURCE[0]%.sh}.py" 127.0.0.1 "$fast_port" "$2" "$1" "$((seed + $1))" "$3" \
      <"$till/again" >"$till/news" 2>"$till/faults" || good=no
    code=0
    [ "$2" = 0 ] || wait "$2" || code=$?
  } 2>/dev/null # the shell would tell of each process that it has been killed
  [ "$good" = yes ] || fail "round $1 of seed $seed: $(cat "$till/faults")"
  grep -E ' (added|exists)$' "$till/news" | cut -d' ' -f1 >>"$till/answered" || true
  grep ' unanswered$' "$till/news" | cut -d' ' -f1 | sort >"$till/unanswered" || true
}
# Every answered charge has its place, none has two, nothing stands there that nobody has sent.
# Leaves in $till/again what the next round sends first.
check_charges() { # ROUND
  equals "the database after round $1" ok "$(sql 'PRAGMA integrity_check')"
  sql "SELECT id1 FROM cola UNION ALL SELECT id1 FROM procesados WHERE estado='OK'" | sort >"$till/places"
  equals "the charges with two places after round $1" "" "$(uniq -d "$till/places")"
  equals "the answered charges that are lost after round $1" "" \
    "$(sort "$till/answered" | comm -23 - "$till/places")"
  equals "the charges that nobody has sent after round $1" "" \
    "$(sort "$till/answered" "$till/unanswered" | comm -13 - "$till/places")"
  {
    comm -12 "$till/unanswered" "$till/places" | sed 's/$/ queued/'
    comm -23 "$till/unanswered" "$till/places" | sed 's/$/ missing/'
  } >"$till/again"
}
# Without the monitor too the customer pays to the end.
device_rests() { [ "$(charges)" = "$(grep -c '^fin ' "$till/simulador.log" || true)" ]; }
all_sold() { sql "SELECT count(*) FROM procesados WHERE estado='OK'"; }

start_till_fast --cliente exacto --ritmo 0 --cajones 100000
: >"$till/again"
: >"$till/answered"
in_the_middle=0 with_answers=0 stored_unanswered=0 automatic=0 automatic_sold=0
for ((n = 1; n <= rounds; n++)); do
  mode=MANUAL
  longest=400
  if [ $((n % 3)) = 0 ]; then
    mode=AUTO
    longest=900
  fi
  sed -i "s/^MODO=.*/MODO=$mode\r/" "$till/ZVMonitor.ini"
  # Money of a charge that was cut off before its filing is in no record. The balance of the last
  # day is what the device holds, or the start would ask about the difference.
  wait_for 10 "the rest of the device" device_rests
  money | tr -d '\n' >"$(registry_file Saldo_Exit)"
  # In half of the rounds the clients come as soon as the port opens, before the start has ended.
  if [ $((n % 2)) = 0 ]; then
    start_monitor_fast
  else
    start_monitor --fast-direccion 127.0.0.1
  fi
  clients "$n" "$monitor_pid" "$longest"
  equals "the end of the monitor of round $n" 137 "$code"
  check_charges "$n"

  [ "$(sed -n 's/^= //p' "$till/news")" = 0 ] || in_the_middle=$((in_the_middle + 1))
  ! grep -q ' added$' "$till/news" || with_answers=$((with_answers + 1))
  stored_unanswered=$((stored_unanswered + $(grep -c ' queued$' "$till/again" || true)))
  if [ "$mode" = AUTO ]; then
    sold_now=$(all_sold)
    [ "$sold_now" = "${sold:-0}" ] || automatic_sold=$((automatic_sold + 1))
    sold=$sold_now
    automatic=$((automatic + 1))
  fi
done

# Sent once more with nobody killed, what is left is answered too.
sed -i 's/^MODO=.*/MODO=MANUAL\r/' "$till/ZVMonitor.ini"
wait_for 10 "the rest of the device" device_rests
money | tr -d '\n' >"$(registry_file Saldo_Exit)"
start_monitor_fast
clients $((rounds + 1)) 0 0
check_charges $((rounds + 1))
equals "the charges without an answer at the end" "" "$(cat "$till/again")"
check_rows
stop_monitor

echo "$rounds kills, $in_the_middle with answers outstanding; $(wc -l <"$till/places") charges," \
  "$stored_unanswered stored and not answered; $(all_sold) paid in $automatic_sold of $automatic rounds"
[ "$in_the_middle" -ge $((rounds * 8 / 10)) ] || fail "too few kills had answers outstanding"
[ "$with_answers" -ge $((rounds * 7 / 10)) ] || fail "too few rounds had answered charges"
[ "$stored_unanswered" -gt 0 ] || fail "no kill came between the row and its answer"
[ "$automatic_sold" -ge $((automatic / 2)) ] || fail "too few rounds in which customers paid"
