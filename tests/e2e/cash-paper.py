"""What cash-paper.sh does and compares: arguments are the monitor's process, the recycler's, the screen
of the recycler's window, and a language file or nothing."""

import glob
import os
import re
import subprocess

import paper
from bus import check, wait
from cashier import T, caption, euros, footer, message, monitor
from till import FOLDER, log, sql

DASHES = "-" * 50


def movements():
    """Those that the books are given: fecha, concept, terminal, vendedor, amount, taken, given."""
    return [("2026-03-14 09:05:03", T("cobroVenta", "Cobro Venta"), "TPV1", "Íñigo", 123456, 123500, 44),
            ("2026-03-14 10:00:00", T("abonoVenta", "Abono Venta"), "TPV2", "Ana;B", -450, 0, 450),
            ("2026-03-14 23:59:59", T("cobroVenta", "Cobro Venta"), "TPV€", "Ñandú", 700, 1000, 300)]


def file_them():
    for moment, _, terminal, seller, amount, taken, given in movements():
        sql(f"""INSERT INTO procesados (fechaZV, importeVenta, cobrado, devuelto, estado, id1, terminal,
                vendedor, idCierre) VALUES ('{moment}', {amount}, {taken}, {given}, 'OK', 'T1',
                '{terminal}', '{seller}', 0)""")


def shown(moment):
    """A date and time as the region has it: no zero before the hour."""
    year, month, day, hour, rest = re.match(r"(\d+)-(\d+)-(\d+) (\d+)(.*)", moment).groups()
    return f"{day}/{month}/{year} {int(hour)}{rest}"


def balances():
    total = 0
    for movement in movements():
        total += movement[5] - movement[6]
        yield total


def exported():
    """The file as the table asks for it."""
    lines = [[T("fecha2", "Fecha"), T("concepto2", "Concepto"), T("vendedor", "Vendedor"),
              T("terminal2", "Terminal"), T("venta2", "Venta"), T("saldoZV2", "Saldo ZV")]]
    for (moment, concept, terminal, seller, amount, *_), balance in zip(movements(), balances()):
        lines.append([shown(moment), concept, terminal, seller,
                      ("-" if amount < 0 else "") + euros(abs(amount)), euros(balance)])
    return "".join(";".join(line).replace("€", "") + "\r\n" for line in lines).encode("cp1252")


def printed():
    """The lines on paper; the moment of the print stands behind the title."""
    return [re.sub(f"^({UNTIL}) .{{19}}$", r"\1 NOW", line) for line in paper.printed()]


UNTIL = T("movimientosDeCajaHasta", "MOVIMIENTOS DE CAJA HASTA")


def label(key, spanish):
    return caption("frmCaja", key, spanish)


file_them()
footer(caption("frmZVMonitor", "boton_1", "Caja"))
cash = monitor.window(label("lbTitulo", "Cierre de Caja"))
grid = cash.table(label("grdZV", "Listado de movimientos"))
wait("the movements", lambda: grid.count() == len(movements()))
buttons = cash.buttons()
PRINT, EXPORT = label("boton_1", "Imprimir"), label("boton_9", "Export¬CSV").replace("¬", " ")

# ---- the file
buttons[EXPORT].press()
message(T("exportar0", "Exportar datos"),
        T("exportar1", "Se han exportado los datos correctamente"))
files = glob.glob(f"{FOLDER}/exports/*")
check("the files", 1, len(files))
if not re.fullmatch(r"Caja_\d{8}_\d{6}\.csv", os.path.basename(files[0])):
    raise AssertionError(files[0])
with open(files[0], "rb") as file:
    check("the file", exported(), file.read())

# ---- the paper


def printout(key, spanish):
    buttons[PRINT].press()
    choice = monitor.window(caption("frmImpresio", "lbTitulo", "Imprimir"),
                            holding=caption("frmImpresio", "lbTexto", "¿Que desea imprimir?"))
    choice.button(caption("frmImpresio", key, spanish)).press()
    monitor.gone(choice)


def says(key, spanish, amount):
    return f"{label(key, spanish)}: {amount}"


rows = movements()
taken = sum(row[5] - row[6] for row in rows if row[4] > 0)
given = sum(row[6] for row in rows if row[4] <= 0)
the_list = [
    f"{UNTIL} NOW",
    " ".join([T("fecha2", "Fecha"), T("concepto2", "Concepto"), T("terminal2", "Terminal"),
              T("venta2", "Venta")]),
    *(f"{shown(row[0])} {row[1]} {row[3]} {'-' if row[4] < 0 else ''}{euros(abs(row[4]))}" for row in rows),
    says("lblCobros", "Cobros por ventas", euros(taken)),
    says("lblAbonos", "Abonos por ventas", euros(given)),
    says("lblPagos", "Pagos", euros(0)), says("lblIngresos", "Ingresos", euros(0)),
    says("lblSaldoFinal", "SALDO FINAL", euros(taken - given)), DASHES]
printout("boton_1", "Listado Movimientos")
check("the printed list", the_list, printed())

printout("boton_0", "Resumen Caja")
summary = printed()
cents = [int(re.sub(r"\D", "", line.split(":")[1])) for line in summary]
check("what the sum is of", cents[0], cents[1] + cents[2])
check("the captions of the summary",
      [label("lblCambio", "Cambio"), T("monedas", "Monedas:").strip(": \u00a0"),
       T("billetes", "Billetes:").strip(": \u00a0")], [line.split(":")[0] for line in summary[:3]])

printout("boton_2", "Todo")
check("both", the_list + summary, printed())

# ---- nothing to print on
told = len(log())
subprocess.run(["lpadmin", "-x", "papel"], check=True)
printout("boton_2", "Todo")
wait("the line of the failed print", lambda: log()[told:] == [
    ">>> Error nº 482 al imprimir - Error de impresora (no hay ninguna)"])
check("the windows", 1, sum(each.name == cash.name for each in monitor.windows()))
buttons[label("boton_0", "Salir")].press()
monitor.gone(cash)
