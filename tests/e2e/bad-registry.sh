#!/usr/bin/env bash
# bad-registry.sh missing|folders|read-only: a registry tree that cannot even be made, folders where
# values should be, values that nobody may write. The start tells that the balance has varied, where
# it cannot know the last one; sales go on and the books are right.
. "$(dirname "$0")/lib.sh"

start_screen
start_till --cliente redondeo
tree=$till/Registro
key=$(dirname "$(registry_file Saldo_Exit)")
case $1 in
  missing)
    rm -r "$tree"
    : >"$tree" # a file: no tree can be made in its place
    ;;
  folders)
    rm "$key"/*
    mkdir "$key/Saldo_Exit" "$key/Saldo_Inicial" "$key/Activo" "$key/CLAVE_ADMIN"
    ;;
  read-only)
    printf 0 >"$key/Activo"
    printf 7 >"$key/Saldo_Inicial"
    chmod 444 "$key"/*
    ;;
esac
listing() { find "$tree" -printf '%y %P ' -type f -exec cat {} \; | sort; }
before=$(listing)

start_monitor_connected
if [ "$1" != read-only ]; then
  answer right "the balance has varied"
fi
put_sale 1250 T0001
wait_sold T0001
put_sale 500 T0002
wait_sold T0002
check_books
stop_monitor
equals "the tree" "$before" "$(listing)"
