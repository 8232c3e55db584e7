# What the scenarios of the fast link share. Sourced after lib.sh.

# A port of this scenario's own: scenarios run side by side.
fast_port=$((20000 + $$ % 10000))

# start_till_fast ARGS...: a till whose monitor listens there.
start_till_fast() {
  start_till "$@"
  sed -i '/^ZVFast/d' "$till/ZVMonitor.ini"
  grep -q '^\[CONECTOR\]' "$till/ZVMonitor.ini" || printf '[CONECTOR]\r\n' >>"$till/ZVMonitor.ini"
  sed -i "s/^\[CONECTOR\].*/&\nZVFastActive=1\r\nZVFastPort=$fast_port\r/" "$till/ZVMonitor.ini"
}
start_monitor_fast() {
  start_monitor_connected --fast-direccion 127.0.0.1 "$@"
  wait_for 20 "the fast link" nc -z 127.0.0.1 "$fast_port"
}

# The lines of the fast link's log without their times, in UTF-8.
fast_lines() {
  cat "$till"/Debug/[0-9]*_Fast.log 2>/dev/null | iconv -f WINDOWS-1252 -t UTF-8 |
    sed 's/\r$//; s/^[0-9:]*-[0-9]* //'
}
