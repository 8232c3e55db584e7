#!/usr/bin/env bash
# The whole tree of screens, through the names of its controls, in Spanish and then in English: every
# enabled button of every window is pressed and does something, everything has a name, no text is cut,
# windows go by Escape where nothing is lost, and what is read in one language is not read in the
# other. walk.py finds the screens by itself, from the main one on.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/bus-lib.sh"

# What the desktop would open, and its keyboard: they leave a line instead.
mkdir "$till/bin"
for program in xdg-open onboard; do
  printf '#!/bin/sh\necho "%s $*" >>"%s"\n' "$program" "$till/opened" >"$till/bin/$program"
done
chmod +x "$till"/bin/*
export PATH=$till/bin:$PATH

start_screen
start_bus
for language in "" packaging/RWLang.en.ini; do
  start_till --cliente manual
  [ -z "$language" ] || cp "$project/$language" "$till/RWLang.ini"
  sed -i 's/^MODO=.*/MODO=MANUAL\r\nCOLTERMINAL=1\r/' "$till/ZVMonitor.ini"
  start_monitor_connected
  drive walk "$monitor_pid" "$project/$language"
  stop_monitor
  kill -TERM "$simulator_pid"
  exit_of "$simulator_pid" 10
  rm -rf "$till"/{simulador,Debug,Registro,exports,opened,ZVMonitor.ini,ZVMonito2.mdb*}
done
