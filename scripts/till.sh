# Shell functions that the demonstrations share: a till folder, the simulator, the queue.
# Sourced with the project's folder as the current one.

bin=build/release/bin

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

# wait_for SECONDS WHAT COMMAND...: until the command succeeds.
wait_for() {
  local limit=$1 what=$2 start=$SECONDS
  shift 2
  until "$@" >/dev/null 2>&1; do
    [ $((SECONDS - start)) -lt "$limit" ] || fail "$what: nothing within $limit seconds"
    sleep 0.05
  done
}

# start_simulator ARGS...: sets simulator_pid and port; its trace goes to $till/simulador.log.
start_simulator() {
  rm -f "$till/simulador.log" # a former one would tell a former port
  "$bin/ZVSimulador" --puerto 0 --carpeta "$till/simulador" "$@" >"$till/simulador.log" 2>&1 &
  simulator_pid=$!
  wait_for 15 "the simulator" grep -q '^escuchando en 127.0.0.1:' "$till/simulador.log"
  port=$(sed -n 's/^escuchando en 127.0.0.1://p' "$till/simulador.log" | head -n 1)
}

# The settings of a till that talks to the simulator, with the balance of its last day.
prepare_till() {
  local saldo
  saldo=$("$bin/ZVSimulador" --carpeta "$till/simulador" --saldo)
  [ -f "$till/ZVMonitor.ini" ] || printf '[ZORVEX]\r\nIP=\r\n[ZVMONITOR]\r\nMODO=AUTO\r\n[CONECTOR]\r\nZVFastActive=0\r\n' >"$till/ZVMonitor.ini"
  sed -i "s/^IP=.*/IP=127.0.0.1:$port\r/" "$till/ZVMonitor.ini"
  mkdir -p "$till/Registro/HKLM/Software/Zorvex/ZVMonitor"
  [ -f "$till/Registro/HKLM/Software/Zorvex/ZVMonitor/Saldo_Exit" ] ||
    printf '%s' "$saldo" >"$till/Registro/HKLM/Software/Zorvex/ZVMonitor/Saldo_Exit"
}

sql() {
  sqlite3 -cmd '.timeout 5000' "$till/ZVMonito2.mdb" "$@"
}

log_has() {
  cat "$till"/Debug/ZVMonitor*.log 2>/dev/null | grep -q -- "$1"
}

# start_display WIDTHxHEIGHT: a virtual screen with a window manager; sets DISPLAY, adds to pids.
# Without -noreset the server starts anew when its last client leaves, and takes with it whoever
# connects just then.
start_display() {
  rm -f "$till/display" # one that stands belongs to a former screen
  Xvfb -displayfd 3 -screen 0 "$1x24" -nolisten tcp -noreset 3>"$till/display" >/dev/null 2>&1 &
  pids+=($!)
  wait_for 20 "the virtual screen" test -s "$till/display"
  DISPLAY=:$(cat "$till/display")
  export DISPLAY
  openbox >/dev/null 2>&1 &
  pids+=($!)
  wait_for 20 "the window manager" managed
}
# It brings up a window of its own: some managers tell that they are there before they listen, and
# a window that comes in between would never be seen.
managed() {
  xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id' || return 1
  xmessage -timeout 2 ready &
  local probe=$! found=1 i
  for i in 1 2 3 4 5 6 7 8 9 10; do
    if xdotool search --onlyvisible --class Xmessage; then
      found=0
      break
    fi
    sleep 0.05
  done
  { kill "$probe" && wait "$probe"; } || true
  return "$found"
}
