#!/usr/bin/env bash
# What the cash office prints, through a real print server of the test's own: print.sh STATE. The
# pages come back as a PDF file. States of the printer: good, english, long, wide, none, stopped,
# rejecting, full-spool, full-disk, gone.
. "$(dirname "$0")/lib.sh"

state=$1
. "$(dirname "$0")/cups-lib.sh"
[ -x "$bin/zv_print" ] || fail "no zv_print in $bin"

# print_out WHAT ROWS [TEXT]: it must end well and tell the operator nothing.
print_out() {
  local told
  told=$("$bin/zv_print" "$till" "$@" 2>>"$till/monitor.out") || fail "zv_print ended badly"
  equals "what the operator is told" "" "$told"
}
# Amounts as the region writes them, worked out here.
amount() {
  local whole=$(($1 / 100)) cents=$(($1 % 100))
  printf '%s,%02d €' "$(printf %d "$whole" | sed ':a;s/\B[0-9]\{3\}\>/.&/;ta')" "$cents"
}
rows() { # FROM TO
  local n
  for ((n = $1; n <= $2; ++n)); do
    printf '14/03/2026 %02d:%02d:00 Cobro Venta TPV1 Íñigo %s\n' $((n / 60)) $((n % 60)) "$(amount $((100 * n + 50)))"
  done
}
head_line="Fecha Concepto Vendedor Terminal Venta"
dashes=$(printf -- '-%.0s' {1..50})
totals="Cobros por ventas: 1.234,50 €
Abonos por ventas: 20,00 €
Pagos: 50,00 €
Ingresos: 100,00 €
SALDO FINAL: 1.264,50 €
$dashes"

# Lines of the log that tell of the failed print; nothing came out.
failed_with() {
  wait_line ">>> Error nº 482 al imprimir - Error de impresora ($1)" 5
  equals "the lines of the log" 1 "$(log_lines | wc -l)"
}

check_good() {
  print_out todo 8
  pages_back
  # The two moments are those of the print.
  equals "the page" "MOVIMIENTOS DE CAJA HASTA NOW
$head_line
$(rows 1 8)
$totals
CIERRE DE CAJA (NOW)
Cambio: 392,10 €
Monedas:42,10 €
Billetes:350,00 €
Cajones: 872,00 €
Monedas:12,00 €
Billetes:860,00 €
SALDO CIERRE: 392,10 €" "$(text | sed -E '/(HASTA|CIERRE DE CAJA)/s#[0-9]{2}/[0-9]{2}/[0-9]{4} [0-9:]{8}#NOW#')"
  equals "the pages" 1 "$(pages)"
  pdfinfo "$paper" | grep -q '^Page size: *595.*x 842' || fail "the page is not upright A4"
  [ "$(pdffonts "$paper" | grep -c "LiberationSans\(-Bold\)\? ")" = 2 ] || fail "Arial has no letters as wide as its own"
  check_places
  equals "the log" "" "$(log_lines)"

  rm "$paper"
  print_out resumen 8
  pages_back
  equals "the first line of the summary" "CIERRE DE CAJA (" "$(text | head -n 1 | cut -c-16)"
  equals "the lines of the summary" 8 "$(text | wc -l)"

  rm "$paper"
  "$bin/zv_print" "$till" historial 3 >"$till/told" 2>>"$till/monitor.out"
  pages_back
  equals "what is asked" "Cierre de Caja: ¿Desea imprimir el listado de ventas?" "$(cat "$till/told")"
  equals "the page of the history" "MOVIMIENTOS DE CAJA DEL 14/03/2026 00:01:00AL 14/03/2026 00:03:00
$head_line
$(rows 1 3)
Cobros por ventas: 3,00 €
Abonos por ventas: 4,00 €
Pagos: 6,00 €
Ingresos: 5,00 €
SALDO FINAL: 7,00 €
$dashes" "$(text)"
}

# Places on the page, by the boxes of the words: amounts end on one line, what is below the grid
# begins half a point from the edge, titles are bold and larger.
check_places() {
  pdftotext -bbox "$paper" "$till/boxes"
  python3 - "$till/boxes" <<'END'
import re, sys
words = [(float(a), float(b), float(c), float(d), t) for a, b, c, d, t in re.findall(
    r'<word xMin="(.*?)" yMin="(.*?)" xMax="(.*?)" yMax="(.*?)">(.*?)</word>', open(sys.argv[1]).read())]
def first(text, after=0):
    return next(w for w in words if w[4] == text and w[1] > after)
title, head = first("MOVIMIENTOS"), first("Fecha")
rows = [w for w in words if w[4] == "14/03/2026" and w[0] - head[0] < 0.01 and w[1] > head[1]][:8]
assert len(rows) == 8, rows
left = title[0]
assert abs(head[0] - left) < 0.01, (head, left)
# Rows stand below each other, a line each.
steps = [b[1] - a[1] for a, b in zip([head] + rows, rows)]
assert max(steps) - min(steps) < 0.1 and 10 < steps[0] < 14, steps
# Three blanks stand between the widest text of a column and the next one.
gap = first("Concepto")[0] - max(w[2] for w in words if w[4].endswith(":00") and w[1] > head[1])
assert 8.1 < gap < 8.6, gap
# The title breaks twice, in its own size.
assert 1.18 < (title[3] - title[1]) / (head[3] - head[1]) < 1.22, (title, head)
assert 1.9 < (head[1] - title[1]) / steps[0] < 2.7, (head, title, steps)
signs = [w for w in words if w[4] == "€" and head[1] < w[1] <= rows[-1][1] + 1]
assert len(signs) == 8 and max(w[2] for w in signs) - min(w[2] for w in signs) < 0.2, signs
for text in ("Cobros", "Abonos", "Pagos:", "Ingresos:", "SALDO", "CIERRE", "Cambio:"):
    x = first(text, rows[-1][1] + 1)[0]
    assert abs(x - left - 0.5) < 0.06, (text, x, left)
assert first("Cobros", rows[-1][1] + 1)[1] - rows[-1][1] > 1.9 * steps[0]
assert all(w[0] >= left - 0.01 and w[2] <= 577.1 and w[1] >= 17.9 and w[3] <= 824.1 for w in words)
END
}

check_english() {
  cp "$project/packaging/RWLang.en.ini" "$till/RWLang.ini"
  print_out todo 1
  pages_back
  text | grep -q '^Date Description Cashier Terminal Sale$' || fail "the head is not in English: $(text)"
  text | grep -qx 'FINAL BALANCE: 1.264,50 €' || fail "the totals are not in English: $(text)"
  text | sed 's/\xc2\xa0/ /' | grep -qx 'Coins: 42,10 €' || fail "the summary is not in English: $(text)"
}

# Each page has its head, and each movement stands on one of them.
check_long() {
  print_out listado 300
  pages_back
  equals "the rows" "$(rows 1 300)" "$(text | grep 'Cobro Venta')"
  [ "$(pages)" -gt 3 ] || fail "300 movements on $(pages) pages"
  equals "the heads" "$(pages)" "$(text | grep -cx "$head_line")"
  local page
  for page in $(seq 2 "$(pages)"); do
    equals "the first line of page $page" "$head_line" \
      "$(pdftotext -layout -f "$page" -l "$page" "$paper" - | grep -v '^$' | head -n 1 | sed 's/  */ /g')"
  done
  equals "the end" "$totals" "$(text | tail -n 6)"
}

check_wide() {
  print_out listado 2 "Pago - $(printf 'a%.0s' {1..70})"
  pages_back
  # The document lies; the server turns it to fit on the upright sheet, in its own size.
  pdfinfo "$cups"/spool/d*-001 | grep -Eq '^Page size: *842.* x 595' || fail "the document does not lie"
  pdftotext -bbox "$paper" - | grep -F '>MOVIMIENTOS<' | awk -F'"' '{ exit !($8 - $4 > $6 - $2) }' ||
    fail "the document was not turned"
  text | grep -q '€$' || fail "the amounts are cut off: $(text)"
}

check_none() {
  lpadmin -x papel
  print_out todo 8
  failed_with "no hay ninguna"
}
check_stopped() {
  cupsdisable papel
  print_out todo 8
  failed_with "papel está parada"
  equals "the jobs" 0 "$(jobs)"
  cupsenable papel
  print_out resumen 8
  pages_back
}
check_rejecting() {
  cupsreject papel
  print_out todo 8
  wait_for 5 "the line of the failed print" refused
  equals "the jobs" 0 "$(jobs)"
}
refused() { log_lines | grep -q '^>>> Error nº 482 al imprimir - Error de impresora (.*)$'; }

check_full_spool() {
  dd if=/dev/zero of="$cups/spool/filler" bs=4k 2>/dev/null && fail "the disk is not full"
  print_out todo 200
  wait_for 5 "the line of the failed print" refused
  rm "$cups/spool/filler"
  [ ! -s "$paper" ] || fail "something was printed: $(text)"
  print_out resumen 8
  pages_back
  equals "the lines of the summary" 8 "$(text | wc -l)"
}
# Where a document is put together before it is sent.
check_full_disk() {
  export TMPDIR=$till/tmp
  dd if=/dev/zero of="$TMPDIR/filler" bs=4k 2>/dev/null && fail "the disk is not full"
  print_out todo 8
  failed_with "no queda espacio en el disco"
  equals "the jobs" 0 "$(jobs)"
}
check_gone() {
  cut_off "$server"
  print_out todo 8
  failed_with "no hay ninguna"
}

small_disk() { # FOLDER SIZE
  [ "$(id -u)" = 0 ] || skip "only root can mount a small disk"
  mkdir -p "$1"
  mount -t tmpfs -o "size=$2" tmpfs "$1" 2>/dev/null || skip "a small disk cannot be mounted here"
  undo+=("umount '$1'")
}
case $state in
full-spool) small_disk "$cups/spool" 128k ;;
full-disk) small_disk "$till/tmp" 1m ;;
esac
start_server
"check_${state//-/_}"
