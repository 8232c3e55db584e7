# A print server of the scenario's own, which prints on a PDF file, and what stands on it. Sourced
# after lib.sh.
command -v cupsd >/dev/null || PATH=$PATH:/usr/sbin
for program in cupsd lpadmin lpstat pdftotext pdfinfo; do
  command -v "$program" >/dev/null || skip "no $program here"
done
till=$(readlink -f "$till")
cups=$till/cups
paper=$cups/paper.pdf
export CUPS_SERVER=$cups/socket
unset CUPS_USER IPP_PORT

start_server() {
  mkdir -p "$cups"/{spool,cache,state,log,ppd}
  # The server drops its rights for what it runs.
  chmod 755 "$till" "$cups"
  cat >"$cups/cupsd.conf" <<END
Listen $CUPS_SERVER
Browsing No
WebInterface No
DefaultAuthType None
PreserveJobFiles Yes
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
END
  cat >"$cups/cups-files.conf" <<END
ServerRoot $cups
RequestRoot $cups/spool
CacheDir $cups/cache
StateDir $cups/state
AccessLog $cups/log/access
ErrorLog $cups/log/error
PageLog $cups/log/page
FileDevice Yes
Printcap
END
  cupsd -f -c "$cups/cupsd.conf" -s "$cups/cups-files.conf" >"$cups/log/out" 2>&1 &
  server=$!
  pids+=("$server")
  wait_for 20 "the print server" serving
  lpadmin -p papel -E -v "file:$paper" -P "$project/tests/e2e/papel.ppd" 2>/dev/null
  lpadmin -d papel
}
serving() { lpstat -r | grep -q 'is running'; }

printed() {
  local jobs
  jobs=$(lpstat -W not-completed -o) || return 1
  [ -z "$jobs" ] && [ -s "$paper" ] && tail -c 16 "$paper" | grep -q '%%EOF'
}
pages_back() {
  wait_for 30 "the printed pages" printed
}
# What stands on paper, a line for each line, one blank between cells.
text() { pdftotext -layout "$paper" - | tr -d '\f' | sed 's/  */ /g; s/^ //; s/ $//' | grep -v '^$'; }
pages() { pdfinfo "$paper" | sed -n 's/^Pages: *//p'; }
jobs() { lpstat -W all -o | wc -l; }
