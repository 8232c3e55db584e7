#!/usr/bin/env bash
# A database of the format of former years stands at the path: the program says so, ends, and does
# not touch the file.
. "$(dirname "$0")/lib.sh"

start_screen
start_till
{
  printf '\0\1\0\0Standard Jet DB\0\1\0\0\0'
  head -c 65512 /dev/zero | tr '\0' '\125'
} >"$till/ZVMonito2.mdb"
before=$(sha256sum "$till/ZVMonito2.mdb")
start_monitor
answer right "the file cannot be opened to look for what is missing"
answer right "the file cannot be opened to work with it"
answer right "the log is to be looked at"
exit_of "$monitor_pid" 20
equals "the exit code" 1 "$code"
equals "the file" "$before" "$(sha256sum "$till/ZVMonito2.mdb")"
equals "the files beside it" "$till/ZVMonito2.mdb" "$(ls "$till"/ZVMonito2*)"
log_lines | grep -q '^>>> Error CrearBaseDatos 26 - .*Access' || fail "the log does not tell the cause"
! has_line "ZVCONNECT_CONECTARZORV_CONNECT_OK" || fail "the device was connected all the same"
