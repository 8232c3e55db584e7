#!/usr/bin/env bash
# Somebody takes the connection to the device and never answers: the screen stands painted while the
# start waits, and so it does under "Conectar", whose button is disabled meanwhile. A window that the
# window manager does not put up does not hold the start up.
. "$(dirname "$0")/lib.sh"

picture() { import -window root "$till/$1.png"; }
# Pixels that two pictures do not share.
differing() { compare -metric AE "$till/$1.png" "$till/$2.png" null: 2>&1 || true; }
# Somebody who listens and says nothing; what comes in is in $mute_said.
start_mute() {
  : >"$mute_said"
  nc -d -l "$fast_address" "$mute_port" >"$mute_said" &
  mute_pid=$!
  pids+=("$mute_pid")
}
greeted() { grep -q session.hello "$mute_said"; }

start_screen
start_till --cliente redondeo
mute_said=$till/mute
mute_port=$((20000 + $$ % 20000))
wm_pid=${pids[1]}
real=$(sed -n 's/^IP=\(.*\)\r$/\1/p' "$till/ZVMonitor.ini")
set_address() { sed -i "s/^IP=.*/IP=$1\r/" "$till/ZVMonitor.ini"; }

set_address "$fast_address:$mute_port"
start_mute
start_monitor
wait_for 20 "the greeting of the start" greeted
sleep 0.3
picture start
! find_dialog || fail "the start has not waited"
colours=$(identify -format %k "$till/start.png")
[ "$colours" -gt 50 ] || fail "the start shows nothing ($colours colours)"
answer right "the device does not answer at the start"
wait_line "ZVCONNECT_CONECTARZORV_CONNECT_ERRORZV1"
wait_for 10 "the end of the silent one" ended "$mute_pid"

# The button "Conectar": enabled, and disabled as at the start.
button() { convert "$till/$1.png" -crop 80x100+598+668 +repage "$till/$1-button.png"; }
enabled() { picture rest && button rest && [ "$(differing start-button rest-button)" != 0 ]; }
button start
xdotool mousemove 500 400
wait_for 10 "the enabled button" enabled
start_mute
click_connect
wait_for 20 "the greeting of the button" greeted
sleep 0.3
picture pressed
button pressed
! find_dialog || fail "the button has not waited"
equals "the pixels of the button that are not as of a disabled one" 0 \
  "$(differing start-button pressed-button)"
answer right "the device does not answer the button"
stop_monitor

set_address "$real"
kill -STOP "$wm_pid"
start_monitor_connected
! find_main || fail "the window is there"
kill -CONT "$wm_pid"
wait_for 20 "the main window" find_main
put_sale 1250 T0001
wait_sold T0001
wait_exit_balance $((start_money + 1250))
check_books
stop_monitor
