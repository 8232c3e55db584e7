#!/usr/bin/env bash
# Scans that come at the wrong time: under a dialog they reach neither the scanner's field nor the
# queue and leave the dialog its focus; right behind another scan they are dropped. And codes without
# a ticket number, which are named by date and time.
. "$(dirname "$0")/lib.sh"

set_ini() { # KEY VALUE
  sed -i "s/^$1=.*/$1=$2\r/" "$till/ZVMonitor.ini"
}
scan() {
  type_code "$1"
  xdotool key Return
}
type_code() { xdotool type --delay 2 "$1"; }
# For a second after an accepted code the window takes no other.
pause() { sleep 1.3; }
is_queued() { [ "$(queued "$1")" = 1 ]; }
ids() { sql 'SELECT group_concat(id1) FROM (SELECT id1 FROM cola ORDER BY idZV)'; }
focused() { xdotool getwindowfocus; }

start_screen
start_till --cliente redondeo
set_ini MODO MANUAL
sed -n '/^\[BARCODE\]/,/^```/{/^```/d;s/$/\r/;p}' "$project/docs/integrators.md" >>"$till/ZVMonitor.ini"
start_monitor_connected
wait_for 20 "the main window" find_main
xdotool mousemove 512 400

# ---- under the question whether to close, digits go nowhere
click 992 28
wait_for 20 "the question" find_dialog
find_dialog
dialog_focused() { [ "$(focused)" = "$window" ]; }
wait_for 10 "the focus of the question" dialog_focused
type_code 2012345012508
sleep 0.5 # hundreds of ticks of the queue
dialog_focused || fail "a scan has taken the focus of the question"
shown "$window" || fail "digits have answered the question"
equals "the rows under the question" "" "$(ids)"
# Escape still reaches the question, and refuses.
xdotool key Escape
gone() { ! shown "$window"; }
wait_for 10 "the end of the question" gone
# The field is empty: one digit more in it and this code would be too long.
scan 2067890000508
wait_for 20 "the row of the scan behind the question" is_queued 67890
pause

# ---- under the box of a bad code the next code closes the box at most
scan 12
wait_for 20 "the box of a short code" find_box
find_box
type_code 2012345012508
sleep 0.5
shown "$window" || fail "digits have closed the box"
xdotool key Return
wait_for 10 "the end of the box" gone
sleep 0.5
equals "the rows under the box" 67890 "$(ids)"
scan 2011111001008
wait_for 20 "the row of the scan behind the box" is_queued 11111

# ---- within a second after it: dropped, be it another ticket, a bad code or a half one. One at a
# time: the Enter of the next would close the box of the one before.
dropped() { # WHAT
  sleep 0.3
  ! find_box || fail "a box for $1 right behind a scan"
  pause
}
scan 2022222001008
dropped "another ticket"
scan 2033333001008
wait_for 20 "the row of the scan behind a dropped one" is_queued 33333
scan 12
dropped "a short code"
scan 2044444001008
wait_for 20 "the row of the second scan behind a dropped one" is_queued 44444
type_code 201
dropped "half a code"
equals "the rows after the second" "67890,11111,33333,44444" "$(ids)"
scan 2022222001008
wait_for 20 "the row of the ticket scanned again" is_queued 22222
pause
equals "the rows at the end" "67890,11111,33333,44444,22222" "$(ids)"
stop_monitor

# ---- without a ticket number the row is named by month, day, year and time
sql 'DELETE FROM cola'
set_ini BCTPRE 0
start_monitor_connected
wait_for 20 "the main window" find_main
xdotool mousemove 512 400
any_row() { [ "$(ids)" != "${known:-}" ]; }
scan 2012345012508
wait_for 20 "the row of the code" any_row
stamp=$(ids)
[[ $stamp =~ ^[01][0-9]/[0-3][0-9]/20[0-9][0-9]-[0-2][0-9]:[0-5][0-9]:[0-5][0-9]$ ]] ||
  fail "the name of the row is \"$stamp\""
# Two looks at one clock.
equals "the seconds between name and date of the row, beyond one" 0 "$(sql "SELECT max(0, abs(
  strftime('%s', fecha) - strftime('%s', substr(id1, 7, 4) || '-' || substr(id1, 1, 2) || '-' ||
  substr(id1, 4, 2) || ' ' || substr(id1, 12))) - 1) FROM cola")"
equals "the amount" 1250 "$(sql 'SELECT importe FROM cola')"
pause
# The same code again is another sale.
known=$stamp
scan 2012345012508
wait_for 20 "the row of the same code" any_row
equals "the rows of the same code" 2 "$(sql 'SELECT count(DISTINCT id1) FROM cola')"
pause
set_ini MODO AUTO
click_automatic
nothing_waits() { [ -z "$(ids)" ]; }
wait_for 30 "the sales" nothing_waits
equals "the records" "1250,1250" "$(sql 'SELECT group_concat(importeVenta) FROM procesados')"
check_books
stop_monitor
