#!/usr/bin/env bash
# An exported grid opened by a spreadsheet of a Spanish office: its amounts are numbers, its words
# are whole.
. "$(dirname "$0")/lib.sh"

command -v soffice >/dev/null || skip "no soffice here"
"$bin/zv_print" "$till" csv 2000 >"$till/told" 2>>"$till/monitor.out" || fail "zv_print ended badly"
equals "what the operator is told" "Exportar datos: Se han exportado los datos correctamente" "$(cat "$till/told")"
# Parted by ";" (59), texts in quotes (34), Windows-1252 (1), from line 1, Spanish (3082).
HOME=$till soffice --headless "-env:UserInstallation=file://$till/office" \
  --infilter="CSV:59,34,1,1,,3082,false,false" --convert-to fods --outdir "$till" \
  "$till"/exports/Caja_*.csv >>"$till/monitor.out" 2>&1 || fail "the file cannot be opened"
python3 - "$till"/Caja_*.fods <<'END'
import sys, xml.etree.ElementTree as tree
SPACE = "{urn:oasis:names:tc:opendocument:xmlns:%s:1.0}"
TABLE, OFFICE, TEXT = (SPACE % name for name in ("table", "office", "text"))
rows = []
for row in tree.parse(sys.argv[1]).iter(TABLE + "table-row"):
    cells = []
    for cell in row.iter(TABLE + "table-cell"):
        value = cell.get(OFFICE + "value")
        what = float(value) if value else "".join(cell.itertext()).strip()
        # What is empty up to the edge of the sheet is told as thousands of cells.
        cells += [what] * min(int(cell.get(TABLE + "number-columns-repeated", 1)), 6)
    rows.append(cells[:6])
rows = [row for row in rows if any(row)]
assert rows[0] == ["Fecha", "Concepto", "Vendedor", "Terminal", "Venta", "Saldo ZV"], rows[0]
assert len(rows) == 2001, len(rows)
for n, row in enumerate(rows[1:], 1):
    assert row[1:] == ["Cobro Venta", "TPV1", "Íñigo", n + 0.5, "no se imprime"], row
END
