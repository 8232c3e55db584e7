#!/usr/bin/env bash
# A scanner is a keyboard: codes typed into the real window, with the settings of the example in
# docs/integrators.md. Accepted ones become sales, the others a box and nothing else.
. "$(dirname "$0")/lib.sh"

start_screen
start_till --cliente redondeo
sed -i 's/^MODO=.*/MODO=MANUAL\r/' "$till/ZVMonitor.ini"
sed -n '/^\[BARCODE\]/,/^```/{/^```/d;s/$/\r/;p}' "$project/docs/integrators.md" >>"$till/ZVMonitor.ini"
equals "the keys of the example" 7 "$(grep -c '^BC' "$till/ZVMonitor.ini")"
start_monitor_connected
wait_for 20 "the main window" find_main
xdotool mousemove 512 400

scan() {
  xdotool type --delay 2 "$1"
  xdotool key Return
}
# For a second after an accepted code the window takes no other.
pause() { sleep 1.3; }
is_queued() { [ "$(queued "$1")" = 1 ]; }
rows() { sql 'SELECT count(*) FROM cola'; }
refused() { # CODE WHAT: leaves a picture of the box in $picture
  local before
  before=$(rows)
  scan "$1"
  wait_for 20 "the box: $2" find_box
  find_box
  sleep 0.3 # painted
  picture=$(import -window "$window" rgb:- | sha256sum)
  close_box "$2"
  equals "the rows after $2" "$before" "$(rows)"
}

# ---- a ticket becomes a row; in MANUAL it waits there
scan 2012345012508
wait_for 20 "the row of the ticket" is_queued 12345
equals "the row" "1250|12345||0||||0|0" "$(sql "SELECT importe, id1, id2, idcaja, terminal, vendedor,
  formapago, creditoError, manual FROM cola")"
pause
# The same ticket again says nothing and adds nothing.
scan 2012345012508
pause
equals "the rows of a ticket scanned twice" 1 "$(rows)"
! find_box || fail "a box for a ticket scanned twice"

# ---- what is no code
refused 201234501250 "a code that is too short"
short=$picture
refused 20123450125089 "a code that is too long"
equals "the box of a long code, which is that of a short one" "$short" "$picture"
refused 2012345A12508 "an amount that is no number"
[ "$picture" != "$short" ] || fail "a wrong amount is told as a wrong length"

# ---- the field is empty after each of them
scan 2067890000508
wait_for 20 "the row of the second ticket" is_queued 67890
pause
equals "the amount of the second ticket" 50 "$(sql "SELECT importe FROM cola WHERE id1='67890'")"

# ---- and they are charged as any other sale
sed -i 's/^MODO=.*/MODO=AUTO\r/' "$till/ZVMonitor.ini"
click_automatic
wait_sold 12345
wait_sold 67890
equals "the records" "1250|2000|750 50|500|450" "$(sql "SELECT group_concat(r, ' ') FROM
  (SELECT importeVenta || '|' || cobrado || '|' || devuelto AS r FROM procesados ORDER BY idZV)")"
equals "the rows left" 0 "$(rows)"
check_books
stop_monitor
