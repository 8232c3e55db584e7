# What the end-to-end scenarios share: the real programs on a temporary folder, a virtual screen
# where somebody has to press buttons, and the comparisons. Sourced by each scenario first.
# Exit codes of a scenario: 0 passed, 1 failed, 77 skipped.
set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
. "$project/scripts/till.sh"
bin=${ZV_BIN:-$project/build/release/bin}
[ -x "$bin/ZVMonitor" ] && [ -x "$bin/ZVSimulador" ] || fail "no programs in $bin"

till=$(mktemp -d "${TMPDIR:-/tmp}/zv-e2e.XXXXXX")
pids=()
undo=() # commands for the end, the last one first
monitor_pid=
simulator_pid=
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
unset WAYLAND_DISPLAY

cleanup() {
  local status=$? i
  trap - EXIT
  if [ "$status" -ne 0 ] && [ "$status" -ne 77 ]; then
    tell
  fi
  exec 2>/dev/null # the shell would tell of each process that it has ended
  for i in "${pids[@]}"; do
    kill -KILL "$i" || true
  done
  wait || true
  for ((i = ${#undo[@]} - 1; i >= 0; --i)); do
    eval "${undo[i]}" || true
  done
  rm -rf "$till"
  exit "$status"
}
trap cleanup EXIT

# What a failure looked like: both logs, the books, the windows.
tell() {
  {
    echo "--- monitor"
    tail -n 5 "$till/monitor.out" || true
    log_lines | tail -n 40 || true
    echo "--- recycler"
    tail -n 30 "$till/simulador.log" || true
    echo "--- cola, procesados"
    sql "SELECT * FROM cola LIMIT 20; SELECT '-'; SELECT * FROM procesados ORDER BY idZV DESC LIMIT 20" || true
    if [ -n "${DISPLAY:-}" ]; then
      echo "--- windows"
      windows | while read -r id; do xdotool getwindowname "$id"; done || true
    fi
  } >&2 2>/dev/null
}

skip() {
  echo "SKIPPED: $*" >&2
  exit 77
}

equals() { # WHAT EXPECTED ACTUAL
  [ "$2" = "$3" ] || fail "$1 is \"$3\", not \"$2\""
}

# ---- programs

# A loopback address of this scenario's own for the fast link: scenarios side by side share no port.
fast_address=127.3.$(($$ / 256 % 256)).$(($$ % 254 + 1))

# start_monitor ARGS...: sets monitor_pid.
start_monitor() {
  "$bin/ZVMonitor" --carpeta "$till" --region es_ES --fast-direccion "$fast_address" "$@" >>"$till/monitor.out" 2>&1 &
  monitor_pid=$!
  pids+=("$monitor_pid")
}

connections() { log_lines | grep -c '^ZVCONNECT_CONECTARZORV_CONNECT_OK$' || true; }

start_monitor_connected() {
  local before
  before=$(connections)
  start_monitor "$@"
  wait_for 30 "the connection of the monitor" more_connections_than "$before"
}
more_connections_than() { [ "$(connections)" -gt "$1" ]; }

# exit_of PID LIMIT: waits for the end of a process of this script; its exit code is in $code.
exit_of() {
  wait_for "$2" "the end of process $1" ended "$1"
  code=0
  wait "$1" 2>/dev/null || code=$?
}
ended() { ! kill -0 "$1" 2>/dev/null || [ "$(cut -d' ' -f3 "/proc/$1/stat" 2>/dev/null)" = Z ]; }

# A power cut for one process; the shell does not comment on it.
cut_off() {
  { kill -KILL "$1" && wait "$1" || true; } 2>/dev/null
}

stop_monitor() {
  kill -TERM "$monitor_pid"
  exit_of "$monitor_pid" 15
  equals "the exit code of the monitor" 0 "$code"
}

# A recycler, and the settings of a till that uses it; the balance agrees.
start_till() {
  start_simulator --sin-ventana "$@"
  pids+=("$simulator_pid")
  prepare_till
  start_money=$(money)
}

# The simulator again, on the same port and money.
restart_simulator() {
  "$bin/ZVSimulador" --puerto "$port" --carpeta "$till/simulador" --sin-ventana "$@" \
    >>"$till/simulador.log" 2>&1 &
  simulator_pid=$!
  pids+=("$simulator_pid")
}

# The device stands still while the scenario does something in the middle of a charge; for less than
# the five seconds after which it would count as lost.
hold_charge() {
  wait_for 20 "the charge" trace_has '^inicio charge.start'
  kill -STOP "$simulator_pid"
  ! trace_has '^fin' || fail "the charge has ended before it could be held"
}
release_charge() { kill -CONT "$simulator_pid"; }

money() { "$bin/ZVSimulador" --carpeta "$till/simulador" --saldo; }
trace_has() { grep -q -- "$1" "$till/simulador.log"; }
# How many charges the device has taken on.
charges() { grep -c '^inicio charge.start' "$till/simulador.log" || true; }

# ---- books

put_sale() { # IMPORTE ID1
  sql "INSERT INTO cola (fecha, importe, id1, id2, idcaja, terminal, vendedor, formapago)
       VALUES ('2026-03-14 10:20:30', $1, '$2', 'A-17', 3, 'TPV1', 'Ana', 'EFECTIVO')"
}
queued() { sql "SELECT count(*) FROM cola WHERE id1='$1'"; }
sold() { sql "SELECT count(*) FROM procesados WHERE id1='$1' AND estado='OK'"; }
is_sold() { [ "$(sold "$1")" = 1 ]; }
wait_sold() { wait_for "${2:-30}" "the filing of $1" is_sold "$1"; }
kept() { sql "SELECT CAST(coalesce(sum(cobrado - devuelto), 0) AS INTEGER) FROM procesados"; }

# Device and books tell the same; nothing has been sold twice; the file is sound.
check_books() {
  equals "the money of the device" "$((start_money + $(kept)))" "$(money)"
  check_rows
}
check_rows() {
  equals "the sales filed twice" "" "$(sql "SELECT idcola FROM procesados
    WHERE estado='OK' AND idcola<>0 GROUP BY idcola HAVING count(*)>1")"
  equals "the sales both queued and filed" "" "$(sql "SELECT idZV FROM cola
    WHERE idZV IN (SELECT idcola FROM procesados WHERE estado='OK')")"
  equals "the database" ok "$(sql 'PRAGMA integrity_check')"
}

# After the sale T0001 of 1250, whose first charge could not be filed: it is charged again, and the
# money of the first stays in the device.
charged_again() {
  wait_sold T0001
  wait_exit_balance $((start_money + 2500))
  equals "the charges of the device" 2 "$(charges)"
  equals "the money in the books" 1250 "$(kept)"
  check_rows
}

registry_file() { printf '%s' "$till/Registro/HKLM/Software/Zorvex/ZVMonitor/$1"; }
registry_is() { [ "$(cat "$(registry_file "$1")" 2>/dev/null)" = "$2" ]; }
wait_exit_balance() { wait_for 15 "Saldo_Exit $1" registry_is Saldo_Exit "$1"; }

# ---- log

# The lines of the log without version and time, in UTF-8.
log_lines() {
  cat "$till"/Debug/ZVMonitor*.log 2>/dev/null | iconv -f WINDOWS-1252 -t UTF-8 |
    sed 's/\r$//; s/^v[0-9.]* - [0-9:]* - //'
}
has_line() { log_lines | grep -qxF -- "$1"; }
wait_line() { wait_for "${2:-30}" "the log line $1" has_line "$1"; }
count_lines() { log_lines | grep -cxF -- "$1" || true; }

# lines_in_order LINE...: they stand in the log one after the other, with others between them.
lines_in_order() {
  local line n=0
  while IFS= read -r line; do
    [ "$line" != "$1" ] || { shift && n=$((n + 1)); }
    [ $# -gt 0 ] || return 0
  done < <(log_lines)
  fail "the log has no line \"$1\" (the ${n} before it stand)"
}

# ---- screen

start_screen() {
  start_display 1024x768
  export QT_QPA_PLATFORM=xcb
}

windows() { xdotool search --onlyvisible --class ZVMonitor 2>/dev/null || true; }
shown() { windows | grep -qx "$1"; }

# Dialogs have no titles of their own. The main window and that of a running operation are higher
# than any of them; the plain box has the program's name.
find_dialog() { find_small no; }
find_box() { find_small yes; }
find_small() { # BOX: leaves the window in $window
  local WINDOW X Y WIDTH HEIGHT SCREEN box
  for window in $(windows); do
    HEIGHT=768
    eval "$(xdotool getwindowgeometry --shell "$window" 2>/dev/null || true)"
    [ "$(xdotool getwindowname "$window" 2>/dev/null)" = ZVMonitor ] && box=yes || box=no
    if [ "$HEIGHT" -lt 400 ] && [ "$box" = "$1" ]; then
      return 0
    fi
  done
  return 1
}
find_main() { xdotool search --onlyvisible --name '^Zorvex' 2>/dev/null | grep -q .; }

# answer left|right WHAT: waits for the message dialog, clicks its button and sees it go.
answer() {
  wait_for 30 "the dialog: $2" find_dialog
  find_dialog
  wait_for 20 "the end of the dialog: $2" click_button "$window" "$1"
}
click_button() {
  local WINDOW X Y WIDTH HEIGHT SCREEN
  shown "$1" || return 0
  eval "$(xdotool getwindowgeometry --shell "$1")" || return 1
  local x=$((X + WIDTH / 4))
  [ "$2" = left ] || x=$((X + WIDTH * 3 / 4))
  # Buttons stand 18 pixels above the lower edge.
  click "$x" $((Y + HEIGHT - 40))
  sleep 0.1
  ! shown "$1"
}
# close_box WHAT: the same for the plain box, by the keyboard.
close_box() {
  wait_for 30 "the box: $1" find_box
  find_box
  wait_for 20 "the end of the box: $1" press_return "$window"
}
press_return() {
  shown "$1" || return 0
  xdotool windowfocus "$1" key Return || return 1
  sleep 0.1
  ! shown "$1"
}

# click X Y: on the screen, in pixels.
click() { xdotool mousemove "$1" "$2" click 1; }
# Buttons of the main window at 1024x768.
click_automatic() { click 366 28; }
click_connect() { click 638 710; }
