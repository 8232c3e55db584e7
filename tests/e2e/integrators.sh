#!/usr/bin/env bash
# The examples of docs/integrators.md, as they stand there: each ```sh block is run in one shell
# after the other, and prints what the ```text block behind it says.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/fast-lib.sh"

driver=$(find /usr/lib /usr/local/lib -name 'libsqlite3odbc.so' -print -quit 2>/dev/null)
[ -n "$driver" ] || fail "the ODBC driver of SQLite is not installed"
export ODBCSYSINI=$till/odbc ODBCINI=$till/odbc/odbc.ini
mkdir "$ODBCSYSINI"
printf '[SQLite3]\nDriver=%s\n' "$driver" >"$ODBCSYSINI/odbcinst.ini"
: >"$ODBCINI"

# Into $till/examples: NN.sh, and NN.text where an output is told.
mkdir "$till/examples"
awk -v dir="$till/examples" '
  /^```/ {
    if (out != "") { close(out); out = ""; next }
    language = substr($0, 4)
    if (language == "sh") { ++n; base = sprintf("%s/%02d", dir, n); out = base ".sh" }
    else if (language == "text" && base != "") { out = base ".text"; base = "" }
    else { out = "/dev/null"; base = "" }
    printf "" > out
    next
  }
  out != "" { print > out }
  out == "" && NF { base = "" }
' "$project/docs/integrators.md"
examples=$(find "$till/examples" -name '*.sh' | wc -l)
[ "$examples" -ge 10 ] || fail "only $examples examples were found"
equals "the examples with an output" 9 "$(find "$till/examples" -name '*.text' | wc -l)"

# The seventh charge of the examples is the one that its customer walks away from.
start_till_fast --cliente redondeo --fallo 'cobro#7:cancelar'
start_monitor_fast

run_examples() (
  PATH=$bin:$PATH
  port=$fast_port
  set +euo pipefail
  for example in "$till"/examples/*.sh; do
    . "$example" >"${example%.sh}.out" 2>&1
    echo $? >"${example%.sh}.code"
  done
)
run_examples &
shell=$!
pids+=("$shell")
wait_for 120 "the end of the examples" ended "$shell"

for example in "$till"/examples/*.sh; do
  base=${example%.sh}
  if ! diff -uZ "$([ -f "$base.text" ] && echo "$base.text" || echo /dev/null)" "$base.out"; then
    cat "$example"
    fail "an example of docs/integrators.md prints something else"
  fi
  equals "the exit code of $(cat "$example")" 0 "$(cat "$base.code")"
done
equals "the charges of the device" 7 "$(charges)"
equals "the rows of cola" T0008 "$(sql 'SELECT id1 FROM cola')"
equals "the name with an accent" Begoña "$(sql "SELECT vendedor FROM procesados WHERE id1='T0006'")"
check_books
stop_monitor
