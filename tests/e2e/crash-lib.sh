# What the kill tests of single operations share: the monitor is killed at every point of one and
# started again. Sourced behind lib.sh. A script tells, with functions,
#   set_up               what a fresh device needs beside its money and its balance
#   fresh_books          the tables before the operation
#   sound WHAT           what holds at every moment
#   filed WHAT           how far the operation has got in the books: one word or number
#   all_told WHAT        whether log and device agree on the money
#   tally FILED          counts a kill
#   the_end_of_the_books whether the whole operation has filed all of it
# and has the operation in $operation, the device's faults in $faults.
[ ! -w /dev/shm ] || export TMPDIR=/dev/shm # a kill, unlike a power cut, asks nothing of a disk
. "$(dirname "$0")/lib.sh"
mkdir -p "$(dirname "$(registry_file x)")"
kills=0

fresh_device() {
  if [ -n "$simulator_pid" ]; then
    cut_off "$simulator_pid"
    rm -rf "$till/simulador" "$till/simulador.log"
  fi
  start_till --cliente redondeo --ritmo 0 ${faults:+--fallo "$faults"}
  printf %s "$start_money" >"$(registry_file Saldo_Exit)"
  set_up
}
acknowledged() {
  [ "$(grep -c '^inicio ' "$till/simulador.log")" = "$(grep -c '^acuse ' "$till/simulador.log")" ]
}
start_again() { "$bin/zv_crash_monitor" "$till" 0 >/dev/null || fail "the start $1"; }

whole_and_sound() { # WHAT
  equals "the database $1" ok "$(sql 'PRAGMA integrity_check')"
  sound "$1"
}

# From the new start behind a kill to a till at rest.
start_after_a_kill() { # WHAT FILED
  start_again "$1"
  if log_lines | grep -q '^ZVCONNECT_CONECTARZORV_CONNECT_ERRORZV1$'; then
    # It was the one that the device was to refuse.
    start_again "once more $1"
  fi
  whole_and_sound "$1 and a new start"
  equals "the books $1 and a new start" "$2" "$(filed "$1 and a new start")"
  wait_for 5 "the acknowledgement $1" acknowledged
  all_told "$1"
  ! registry_is Activo 1 || fail "the mark stands $1"
}

kill_at_every_point() {
  local first n code stood
  fresh_device
  "$bin/zv_crash_monitor" "$till" 0 >"$till/points" || fail "the first start"
  # Those of a start and an end without an operation are not repeated here.
  first=$(cat "$till/points")
  for ((n = first / 2;; n++)); do
    [ "$n" -lt 1000 ] || fail "no end after $n points"
    fresh_device
    rm -rf "$till/Debug"
    fresh_books
    code=0
    { "$bin/zv_crash_monitor" "$till" "$n" "$operation" >"$till/points"; } 2>/dev/null || code=$?
    whole_and_sound "after point $n"
    [ "$code" != 0 ] || break
    equals "the end at point $n" 137 "$code"
    kills=$((kills + 1))
    stood=$(filed "after point $n") || exit 1
    start_after_a_kill "after point $n" "$stood"
    tally "$stood"
  done
  the_end_of_the_books
  # Where no operation asks for the link back, the next start ends what stands at the device.
  acknowledged || start_again "after the whole operation"
  wait_for 5 "the acknowledgement" acknowledged
  all_told "after the whole operation"
}
