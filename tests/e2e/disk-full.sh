#!/usr/bin/env bash
# The disk of the database is full when a sale is to be committed: an error, the row stays, and
# once there is room again the operator sends it with the button of the mode.
. "$(dirname "$0")/lib.sh"

[ "$(id -u)" = 0 ] || skip "only root can mount a small disk"
mkdir "$till/disk"
mount -t tmpfs -o size=1m tmpfs "$till/disk" 2>/dev/null || skip "a small disk cannot be mounted here"
undo+=("umount '$till/disk'")

start_screen
start_till --cliente redondeo --ritmo 200
base=$till
mkdir "$base/Debug"
# Only the database shares the small disk.
ln -s "$base/Debug" "$base/simulador" "$base/simulador.log" "$base/Registro" "$base/disk"
cp "$base/ZVMonitor.ini" "$base/disk"
till=$base/disk
undo+=("till='$base'")
start_monitor_connected --registro "$base/Registro"
put_sale 1250 T0001
hold_charge
dd if=/dev/zero of="$till/filler" bs=4k 2>/dev/null && fail "the disk is not full"
release_charge
wait_line ">>> Error nº 13 al procesar operación nº 1 - database or disk is full"
rm "$till/filler"
equals "the row" 1 "$(queued T0001)"
equals "the records" 0 "$(sql 'SELECT count(*) FROM procesados')"
equals "the database" ok "$(sql 'PRAGMA integrity_check')"

click_automatic
charged_again
stop_monitor
