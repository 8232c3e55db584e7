#!/usr/bin/env bash
# Settings of 10 MB in UTF-16 that nobody may write, with doubled sections and keys, and a language
# file full of mistakes: the start stays quick, a sale is sold, and both files stay as they are.
. "$(dirname "$0")/lib.sh"

start_screen
start_till --cliente redondeo
ini=$till/ZVMonitor.ini
lines=$(tr -d '\r' <"$ini")
{
  printf '%s\n' "${lines/IP=/IP = }"
  printf 'zvfastactive=1\n[zorvex]\nIP=192.0.2.1\n[ZVMONITOR]\nMODO=MANUAL\nREFRESCO=x\n'
  awk 'BEGIN { for (i = 0; i < 250000; ++i) print "[s" i "]"; while (i-- > 0) print "clave" i "=valor" }'
} | iconv -f UTF-8 -t UTF-16 >"$till/wide.ini"
mv "$till/wide.ini" "$ini"
chmod 444 "$ini"
[ "$(stat -c %s "$ini")" -gt 10000000 ] || fail "the settings are too small for this test"
{
  printf '[GEN\nFrmCaption=never\n[COMMON]\nunknown=nothing\ncobros=%0600d\n' 0
  printf '[nowhere]\nkey=value\n[frmZVMonitor]\nnobody=nothing\n= nothing\n[]\n[COMMON'
} >"$till/RWLang.ini"
before=$(sha256sum "$ini" "$till/RWLang.ini")

seconds=$SECONDS
start_monitor_connected
[ $((SECONDS - seconds)) -le 10 ] || fail "the start has taken $((SECONDS - seconds)) seconds"
wait_for 20 "the main window" find_main
put_sale 1250 T0001
wait_sold T0001
wait_exit_balance $((start_money + 1250))
check_books
stop_monitor
equals "the files" "$before" "$(sha256sum "$ini" "$till/RWLang.ini")"
