"""The registers, driven by the names of their controls; see incidents.sh."""

import glob
import subprocess

from bus import Program, check, check_names, wait
from cashier import (BIN, FOLDER, NO, YES, T, caption, charging, euros, footer, message,
                     monitor)
from till import money, sql, wait_rows

GRID = caption("frmListado", "grdZV", "Listado")
LEAVE = caption("frmListado", "boton_1", "Salir")
ALL = caption("frmListado", "boton_2", "Todas")
EXPORT = caption("frmListado", "boton_3", "Export¬CSV")
SALE, STATE, USER, DISCARD, RESEND = (T(*each) for each in (
    ("idVenta", "Id.Venta"), ("estado", "Estado"), ("usuario", "Usuario"),
    ("descartar", "Descartar"), ("reenviar", "Reenviar")))
ASK_RESEND = T("deseaReenviarOperacion", "¿Desea reenviar esta operación a Zorvex?")
ASK_DISCARD = T("deseaEliminarIncidencia", "¿Desea eliminar y descartar esta incidencia?")


class Register:
    """A register that has been opened."""

    def __init__(self, title, program=monitor, rows=None, names=True):
        self.program = program
        self.window = program.window(title)
        self.grid = self.window.table(GRID)
        if rows is not None:
            wait(f"{rows} rows of {title!r}", lambda: self.grid.count() == rows)
        if names:
            check_names(self.window)

    def press(self, name):
        self.window.button(name).press()

    def touch(self, sale, column):
        self.grid.cell(self.grid.row_of(SALE, sale), column).press()

    def told(self, text, button=None):
        self.program.answer("Monitor", button or YES, text)

    def leave(self):
        self.press(LEAVE)
        self.program.gone(self.window)


def incidents(rows):
    footer(caption("frmZVMonitor", "boton_5", "Incidencias"))
    return Register(T("registroIncidencias", "Registro de Incidencias"), rows=rows)


def put(id1, amount, state="ERROR", user="14/03/2026"):
    sql("INSERT INTO procesados (fechaZV, importeVenta, cobrado, devuelto, estado, id1, terminal, "
        f"vendedor, formapago, error, idCierre, usuario) VALUES ('2026-03-14 10:20:30', {amount}, 0, "
        f"0, '{state}', '{id1}', 'TPV1', 'Ana', 'EFECTIVO', '5 - Atasco', 0, '{user}')")


# ---- an incident is resent and sold

put("77", 500)
put("78", 300)
put("79", 0)
balance = money()
register = incidents(3)
check("the states", ["ERROR"] * 3, [row[STATE] for row in register.grid.rows()])
register.touch("79", RESEND)
register.told(T("operacionNoReenviada", "No se puede reenviar una operación con importe 0"),
              T("boton_0", "Aceptar"))
register.touch("77", RESEND)
register.told(ASK_RESEND, NO)
check("the queue", ["0"], sql("SELECT count(*) FROM cola"))
register.touch("77", RESEND)
register.told(ASK_RESEND)
monitor.gone(register.window)
charging(500).puts(500, last=True).ends()
wait_rows("the sale", "SELECT estado, CAST(cobrado AS INTEGER), terminal FROM procesados "
          "WHERE id1='77' ORDER BY idZV", ["REENVIADO|0|TPV1", "OK|500|TPV1"])
check("the money of the recycler", balance + 500, money())
wait_rows("the queue", "SELECT count(*) FROM cola", ["0"])

# ---- one already resent, one discarded, all of them

register = incidents(3)
register.touch("77", RESEND)
register.told(T("operacionYaReenviada", "Esta operación ya ha sido reenviada"),
              T("boton_0", "Aceptar"))
register.touch("78", DISCARD)
register.told(ASK_DISCARD)
wait("the incident that goes", lambda: register.grid.count() == 2)
check("what is left", ["77", "79"], [row[SALE] for row in register.grid.rows()])
wait_rows("the discarded one", "SELECT estado, idCierre FROM procesados WHERE id1='78'", ["ERROR|-1"])
register.press(ALL)
message(T("descartarIncidencias", "Descartar incidencias"),
        T("descartarIncidencias2", "¿Desea archivar todas las incidencias mostradas?"), YES)
wait("the empty register", lambda: register.grid.count() == 0)
register.leave()
wait_rows("all of them", "SELECT DISTINCT idCierre FROM procesados WHERE estado<>'OK'", ["-1"])

# ---- the charges, and their file

footer(caption("frmZVMonitor", "boton_0", "Registro"))
register = Register(T("registroCobros", "Registro de Cobros"), rows=1,
                    names=False)  # a column of it has no title, and a sale need have no concept
register.window.says(f"{caption('frmListado', 'lblCobros', 'Total Cobros:')} {euros(500)}")
register.press(EXPORT)
message(T("exportar0", "Exportar datos"),
        T("exportar1", "Se han exportado los datos correctamente"))
check("the exported file", 1,
      len(glob.glob(f"{FOLDER}/exports/{T('registroCobros', 'Registro de Cobros')}_*.csv")))
register.window.key("Escape")
monitor.gone(register.window)

# ---- 5,000 accesses

sql("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<5000) INSERT INTO Accesos "
    "(Fecha, usuario, lugar) SELECT '2026-03-14 18:04:11', 'U' || i, 'authCaja' FROM n")
screen = subprocess.Popen([f"{BIN}/zv_users_screen", FOLDER, "accesos"])
try:
    program = Program(screen.pid)
    register = Register(T("registroAccesos", "Registro de Accesos"), program, rows=5000,
                        names=False)  # each of 25,000 cells would be asked for its name
    PLACE = T("authCaja", "authCaja")
    last = register.window.button(caption("frmListado", "btnBottom", "Última fila"))
    last.press()
    wait("the last row", lambda: not last.enabled)
    check("the last one", "U5000", register.grid.cell(4999, USER).name)
    check("its place", PLACE, register.grid.cell(4999, T("lugar", "Lugar")).name)
    register.press(ALL)
    program.answer(f"Monitor - {T('eliminarAccesos', 'Eliminar Accesos')}", YES,
                   T("eliminarAccesos1", "¿Desea eliminar todo el historial de accesos?"))
    wait("the empty register", lambda: register.grid.count() == 0)
    check("the accesses", ["0"], sql("SELECT count(*) FROM Accesos"))
    register.leave()
    check("the end of the screen", 0, screen.wait(20))
finally:
    screen.kill()

# ---- a user's name is no date

put("80", 400, user="ANA")
register = incidents(1)
register.touch("80", RESEND)
register.told(ASK_RESEND)
box = wait("the plain box", lambda: [each for each in monitor.windows()
                                     if any("13" in text for text in each.texts())])[0]
hint = T("reenvioSinFecha", "La operación no se ha reenviado: el usuario de su fila no es una fecha. "
         "Abra de nuevo el programa y cóbrela con Cobro Manual")
check("what the box says of it", True, any(hint in " ".join(text.split()) for text in box.texts()))
for button in box.buttons().values():
    button.press()
    break
