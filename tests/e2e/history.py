"""What history.sh does and compares: arguments are the monitor's process, the recycler's, the screen
of the recycler's window, and a language file or nothing."""

import glob
import os
import re

from bus import check, wait
from cashier import T, caption, euros, footer, message, monitor
from paper import printed
from till import FOLDER, sql

DASHES = "-" * 50
# fecha as the table has it, and the eleven amounts in the order of its columns.
CLOSES = [("2026-03-07 22:00:05", 100000, 250000, 1000, 5000, 2000, 352000, 300000, 200000, 100000, 40000, 12000),
          ("2026-03-14 21:30:00", 300000, 1235, 450, 10000, 3000, 307785, 307785, 250000, 57785, 0, 0),
          ("2026-03-15 22:10:10", 307785, 0, 0, 0, 0, 307785, 307785, 250000, 57785, 0, 0)]
# Of the second close: fecha, terminal, vendedor, id1, what stands behind the concept, amount, taken,
# given, and the concept.
MOVEMENTS = [
    ("2026-03-14 09:05:03", "TPV1", "Íñigo", "T1", "", 1235, 1500, 265, T("cobroVenta", "Cobro venta")),
    ("2026-03-14 10:00:00", "TPV2", "Ana", "T2", "", -450, 0, 450, T("abonoVenta", "Abono venta")),
    ("2026-03-14 11:00:00", "ZV", "", "METER_CAMBIO", "", 10000, 10000, 0, T("cambiAñadido", "Cambio añadido")),
    ("2026-03-14 12:00:00", "ZV", "", "PAGO", "taxi", -3000, 0, 3000, T("pago", "Pago") + "taxi")]


def file_them():
    for close in CLOSES:
        sql("INSERT INTO cierres (fecha, saldoInicial, cobros, abonos, ingresos, pagos, saldoZV, importeCierre,"
            "cambioBilletes, cambioMonedas, cajonBilletes, cajonMonedas) VALUES "
            f"('{close[0]}', {', '.join(str(each) for each in close[1:])})")
    columns = ("INSERT INTO procesados (fechaZV, terminal, vendedor, id1, error, importeVenta, cobrado,"
               "devuelto, estado, idCierre) VALUES ")
    for row in MOVEMENTS:
        moment, terminal, seller, id1, error, amount, taken, given, _ = row
        sql(f"{columns}('{moment}', '{terminal}', '{seller}', '{id1}', '{error}', {amount}, {taken}, {given}, 'OK', 2)")
    sql(f"{columns}('2026-03-14 13:00:00', 'TPV1', 'Ana', 'T3', '7', 700, 700, 0, 'ERROR', 2)")
    sql(f"{columns}('2026-03-15 13:00:00', 'TPV1', 'Ana', 'T4', '', 800, 800, 0, 'OK', 0)")


def signed(cents):
    return ("-" if cents < 0 else "") + euros(abs(cents))


def of_close(moment):
    """As the grid of closes has it."""
    year, month, day, rest = re.match(r"\d\d(\d+)-(\d+)-(\d+) (.*)", moment).groups()
    return f"{day}/{month}/{year} {rest}"


def of_movement(moment):
    """A date and time as the region has it: no zero before the hour."""
    year, month, day, hour, rest = re.match(r"(\d+)-(\d+)-(\d+) (\d+)(.*)", moment).groups()
    return f"{day}/{month}/{year} {int(hour)}{rest}"


def of_paper(moment):
    year, month, day, rest = re.match(r"(\d+)-(\d+)-(\d+) (.*)", moment).groups()
    return f"{day}/{month}/{year} {rest}"


def of_file(lines):
    return "".join(";".join(line).replace("€", "") + "\r\n" for line in lines).encode("cp1252")


def label(key, spanish):
    return caption("frmHistorial", key, spanish)


def button(key, spanish):
    return label(key, spanish).replace("¬", " ")


file_them()
footer(caption("frmZVMonitor", "boton_1", "Caja"))
cash = monitor.window(caption("frmCaja", "lbTitulo", "Cierre de Caja"))
cash.button(caption("frmCaja", "boton_8", "Histórico")).press()
history = monitor.window(label("lbTitulo", "Histórico de Cierres"))
closes = history.table(label("grdCierres", "Cierres"))
movements = history.table(label("grdHis", "Listado de movimientos"))
buttons = history.buttons()
DATE = T("fecha2", "Fecha")
SUM = T("cierre2", "CIERRE")


def chosen(close):
    history.says(f"{DATE} {of_close(close[0])} {SUM} {euros(close[7])}")


# ---- the last one is chosen, last week's is found
wait("the closes", lambda: closes.count() == len(CLOSES))
chosen(CLOSES[2])
check("the movements of the last close", 0, movements.count())
check("a close without movements", False, buttons[button("boton_4", "Export¬Mov.")].enabled)
closes.cell(closes.row_of(DATE, of_close(CLOSES[1][0])), DATE).press()
chosen(CLOSES[1])
wait("its movements", lambda: movements.count() == len(MOVEMENTS))

titles = [DATE, T("concepto2", "Concepto"), T("terminal2", "Terminal"), T("vendedor2", "Vendedor"),
          T("venta2", "Venta"), T("saldoZV2", "Saldo ZV")]
balance = CLOSES[1][1]
cells = []
for moment, terminal, seller, _, _, amount, taken, given, concept in MOVEMENTS:
    balance += taken - given
    cells.append([of_movement(moment), concept, terminal, seller, signed(amount), signed(balance)])
check("the movements", [dict(zip(titles, row)) for row in cells], movements.rows())

# ---- the files


def exported(key, spanish, name):
    buttons[button(key, spanish)].press()
    message(T("exportar0", "Exportar datos"), T("exportar1", "Se han exportado los datos correctamente"))
    files = glob.glob(f"{FOLDER}/exports/{name}_*")
    check("the files", 1, len(files))
    if not re.fullmatch(name + r"_\d{8}_\d{6}\.csv", os.path.basename(files[0])):
        raise AssertionError(files[0])
    with open(files[0], "rb") as file:
        return file.read()


heads = ["", DATE, T("inicial2", "INICIAL"), T("cobros2", "Cobros"), T("abonos2", "Abonos"),
         T("ingresos2", "Ingresos"), T("pagos2", "Pagos"), T("saldo2", "SALDO"), SUM,
         T("billetes2", "Billetes"), T("monedas2", "Monedas"), T("cajon2", "CAJON"),
         T("billetes2", "Billetes"), T("monedas2", "Monedas")]
lines = [heads]
for i, close in enumerate(CLOSES):
    amounts = [*close[1:10], close[10] + close[11], close[10], close[11]]
    lines.append([str(i + 1), of_close(close[0]), *(euros(each) for each in amounts)])
check("the file of the closes", of_file(lines), exported("boton_3", "Export¬Hist.", "Historial"))
check("the file of the movements", of_file([titles, *cells]),
      exported("boton_4", "Export¬Mov.", "HistorialMovements"))

# ---- the paper


def cash_label(key, spanish):
    return caption("frmCaja", key, spanish)


summary = [f"{cash_label(key, spanish)}: {euros(CLOSES[1][column])}" for key, spanish, column in (
    ("lblCobros", "Cobros por ventas", 2), ("lblAbonos", "Abonos por ventas", 3), ("lblPagos", "Pagos", 5),
    ("lblIngresos", "Ingresos", 4), ("lblSaldoFinal", "SALDO FINAL", 6))] + [DASHES]
title = (T("movimientosDeCajaDel", "MOVIMIENTOS DE CAJA DEL") + " " + of_paper(MOVEMENTS[0][0]) + T("al", "AL") +
         " " + of_paper(MOVEMENTS[-1][0]))
the_list = [title.replace("\u00a0", " "), " ".join(titles[:5]), *(" ".join(filter(None, row[:5])).replace("\u00a0", " ") for row in cells)]
YES = caption("frmMensaje", "boton_0", "Aceptar")
NO = caption("frmMensaje", "boton_1", "Cancelar")
QUESTION = T("cierreDeCaja", "Cierre de Caja")

buttons[button("boton_1", "Imprimir")].press()
message(QUESTION, T("cierreDeCaja2", "¿Desea imprimir el listado de ventas?"), YES)
check("the printed list", the_list + summary, [line.replace("\u00a0", " ") for line in printed()])
buttons[button("boton_1", "Imprimir")].press()
message(QUESTION, T("cierreDeCaja2", "¿Desea imprimir el listado de ventas?"), NO)
message(QUESTION, T("cierreDeCaja3", "¿Desea imprimir el resumen de los totales de caja?"), YES)
check("the printed summary", summary, printed())

# ---- left and opened again, then the button that clears nothing
buttons[button("boton_0", "Salir")].press()
monitor.gone(history)
cash.button(caption("frmCaja", "boton_8", "Histórico")).press()
history = monitor.window(label("lbTitulo", "Histórico de Cierres"))
CLEAR = button("boton_2", "Limpiar¬Historial")
ASKED = T("limpiarHistorial", "Limpiar historial")
SURE = T("limiarHistorial", "¿Desea eliminar el historial de los cierres?")
history.button(CLEAR).press()
message(ASKED, SURE, NO)
check("the closes", 3, history.table(label("grdCierres", "Cierres")).count())
history.button(CLEAR).press()
message(ASKED, SURE, YES)
