# Screens driven by the names of their controls: an accessibility bus of the scenario's own, and the
# recycler's window on a virtual screen of its own, since the monitor's covers a whole one. Sourced
# after lib.sh. The other half, which finds and presses controls, is bus.py.

# The bus's module belongs to Debian's own interpreter.
python=/usr/bin/python3

# The daemon of the accessibility bus is started by the first who asks for it, and ends with this one.
start_bus() {
  mkdir -m 700 "$till/run"
  export XDG_RUNTIME_DIR=$till/run GSETTINGS_BACKEND=memory QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
  dbus-daemon --session --nofork --print-address=3 3>"$till/bus" >/dev/null 2>&1 &
  pids+=($!)
  wait_for 20 "the bus" test -s "$till/bus"
  DBUS_SESSION_BUS_ADDRESS=$(head -n 1 "$till/bus")
  export DBUS_SESSION_BUS_ADDRESS
}

# start_till_shown ARGS...: a till whose recycler has a window; sets simulator_display.
start_till_shown() {
  local till_display=$DISPLAY
  start_display 1024x768
  simulator_display=$DISPLAY
  start_simulator "$@"
  pids+=("$simulator_pid")
  DISPLAY=$till_display
  prepare_till
  start_money=$(money)
}

# drive SCRIPT ARGS...: the part of a scenario that looks at windows.
drive() {
  local script=$1
  shift
  ZV_TILL=$till ZV_BIN=$bin PYTHONDONTWRITEBYTECODE=1 \
    "$python" "$project/tests/e2e/$script.py" "$@" || fail "see above"
}
