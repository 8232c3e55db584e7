#!/usr/bin/env bash
# bad-log.sh locked|folder|pipe|read-only|full: a log that another program holds a lock on, that cannot
# be opened, that is a pipe, or whose disk fills up in the middle of a sale. A locked one is written all
# the same; any other ends in a message, and queue and books stay as they were.
. "$(dirname "$0")/lib.sh"

small_disk() { # OPTIONS: for the logs
  [ "$(id -u)" = 0 ] || skip "only root can mount a disk"
  mount -t tmpfs -o "$1" tmpfs "$till/Debug" 2>/dev/null || skip "a disk cannot be mounted here"
  undo+=("umount '$till/Debug'")
}
books() { sql 'SELECT * FROM cola; SELECT * FROM procesados'; }

start_screen
start_till --cliente redondeo --ritmo 200
log=$till/Debug/ZVMonitor$(date +%Y%m%d).log
mkdir "$till/Debug"
case $1 in
  locked)
    : >"$log"
    flock -F -x "$log" sleep 120 &
    pids+=($!)
    wait_for 10 "the lock" sh -c "! flock -n '$log' true"
    start_monitor_connected
    put_sale 1250 T0001
    wait_sold T0001
    wait_line "ENVIARZV1_1_COMMIT"
    wait_exit_balance $((start_money + 1250))
    check_books
    stop_monitor
    exit 0
    ;;
  folder | pipe | read-only)
    # A database with a row that waits.
    start_monitor_connected
    stop_monitor
    put_sale 1250 T0001
    before=$(books)
    rm -r "$till/Debug"
    mkdir "$till/Debug"
    if [ "$1" = folder ]; then
      mkdir "$log"
    elif [ "$1" = pipe ]; then
      mkfifo "$log"
    else
      small_disk ro
    fi
    start_monitor
    close_box "the log cannot be written"
    ;;
  full)
    small_disk size=64k
    start_monitor_connected
    put_sale 1250 T0001
    hold_charge
    before=$(books)
    dd if=/dev/zero of="$till/Debug/filler" bs=1k 2>/dev/null && fail "the disk is not full"
    # The last block of the log still has room.
    yes '' | dd of="$log" oflag=append conv=notrunc 2>/dev/null && fail "the log has room"
    release_charge
    answer right "the disk is full"
    equals "queue and books" "$before" "$(books)"
    rm "$till/Debug/filler"
    click_automatic
    charged_again
    stop_monitor
    exit 0
    ;;
esac
exit_of "$monitor_pid" 20
equals "the exit code" 1 "$code"
equals "queue and books" "$before" "$(books)"
check_rows
