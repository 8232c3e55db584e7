"""What office-faults.sh sees and does: arguments as for cashier.py."""

import subprocess
import time

from bus import Failed, check, wait
from cashier import (ACCEPT, CONECTAR, DESCONECTAR, NO, T, YES, caption, euros, footer, footer_buttons,
                     message, monitor)
from till import FOLDER, log, money, registry, sql, wait_rows

CAJA = caption("frmZVMonitor", "boton_1", "Caja")


def label(key, spanish):
    return caption("frmCaja", key, spanish)


CONTROLS = {
    "leave": ("boton_0", "Salir"), "levels": ("boton_2", "Cierre¬Niveles Óptimos"),
    "value": ("boton_3", "Cierre¬por valor"), "reconcile": ("boton_4", "Cuadrar¬con Zorvex"),
    "coins": ("boton_5", "Vaciado¬Cajón Monedas"), "notes": ("boton_6", "Vaciado¬Cajón Billetes"),
    "settings": ("boton_7", "Configuración¬de Zorvex")}
ALL = ("leave", "levels", "value", "reconcile", "coins", "notes", "settings")
NO_LINK_HERE = "No hay conexión con Zorvex"  # in every language
OPEN = "SELECT count(*) FROM procesados WHERE idCierre = 0"


class Office:
    """The cash office, opened."""

    def __init__(self):
        footer(CAJA)
        self.window = monitor.window(label("lbTitulo", "Cierre de Caja"))
        buttons = self.window.buttons()
        self.buttons = {what: buttons[label(*key)] for what, key in CONTROLS.items()}

    def able(self, *expected):
        wait(f"the buttons {expected}",
             lambda: tuple(what for what in ALL if self.buttons[what].enabled) == expected)

    def movements(self, count):
        grid = self.window.table(label("grdZV", "Listado de movimientos"))
        wait("the movements", lambda: grid.count() == count)

    def press(self, what):
        self.buttons[what].press()

    def close_levels(self):
        self.press("levels")
        message(T("cierreCaja0", "Cierre de caja"),
                T("cierreCaja1", "Se va a proceder ha realizar un cierre de caja por niveles. Quiere"
                  " continuar?"), YES)

    def close_value(self, typed):
        self.press("value")
        window = monitor.window("Cierre", holding=caption("frmCash", "teci_13", "Retroceso"))
        keys = window.buttons()
        for mark in typed:
            keys[mark].press()
        window.button(caption("frmCash", "teci_11", "Entrar")).press()
        monitor.gone(window)

    def leave(self):
        self.press("leave")
        monitor.gone(self.window)


def refused(code):
    """What a close says that the device has not done."""
    message(f"{T('errorDeZorvex', 'Error de Zorvex ')}{code}",
            T("errorDeZorvex2", "Se ha producido un error al enviar el cierre al Zorvex. Por favor,"
              " consulte con su técnico"), limit=40)


def not_emptied(code):
    window = monitor.window("Monitor - Zorvex: Error de vaciado", limit=40)
    said = window.texts()[1]
    if not said.startswith(f"Error al marcar como vaciado el cajón de monedas: {code}: "):
        raise Failed(said)
    message("Zorvex: Error de vaciado", said)


def no_device(times):
    """What a balance says that cannot be read."""
    for _ in range(times):
        message(T("operacionAnulada", "Operación anulada"),
                T("pasarelaNoConectado", "Zorvex no está conectado"), limit=40)


def connect():
    """The device can be had again. What was kept as its balance when it could not be read is 0."""
    time.sleep(4)
    footer_buttons[CONECTAR].press()
    title = f"Monitor - {T('inicializacion', 'Inicialización')}"
    window = monitor.window(title, limit=40)
    window.button(ACCEPT).press()
    monitor.gone(window)
    wait("the connection", lambda: not footer_buttons[CONECTAR].enabled, 40)


def period():
    """Three sales since the last close."""
    sql("INSERT INTO procesados (fechaZV, importeVenta, cobrado, devuelto, estado, id1, terminal, idCierre)"
        " VALUES ('2026-03-14 09:00:00', 100, 100, 0, 'OK', 'V', 'TPV1', 0),"
        " ('2026-03-14 09:01:00', 250, 300, 50, 'OK', 'V', 'TPV1', 0),"
        " ('2026-03-14 09:02:00', -50, 0, 50, 'OK', 'V', 'TPV1', 0)")


class Lock:
    """Another program in the middle of a change of the tables."""

    def __enter__(self):
        self.other = subprocess.Popen(["sqlite3", f"{FOLDER}/ZVMonito2.mdb"], stdin=subprocess.PIPE,
                                      stdout=subprocess.PIPE, text=True)
        self.other.stdin.write(".timeout 5000\nBEGIN IMMEDIATE;\nSELECT 'locked';\n")
        self.other.stdin.flush()
        check("the other program", "locked\n", self.other.stdout.readline())
        return self

    def __exit__(self, *_):
        self.other.stdin.write("ROLLBACK;\n.quit\n")
        self.other.stdin.close()
        check("the end of the other program", 0, self.other.wait(10))


period()
# ---- the table locked: the period is shown all the same
with Lock():
    office = Office()
    office.movements(3)
    office.able("leave", "levels", "value", "reconcile", "settings")
office.leave()

# ---- the device refuses: nothing is filed, and the screen has to be opened again
office = Office()
office.close_levels()
refused(12)
office.able("leave", "reconcile", "settings")
office.movements(3)
wait_rows("the closes", "SELECT count(*) FROM cierres", ["0"])
office.leave()

# ---- the link is lost for good
office = Office()
office.close_value("150")
refused(1)
# The balance is asked for before the link is given up, and once more as it is.
no_device(2)
message("Zorvex", NO_LINK_HERE)
office.able("leave", "settings")
office.window.says(f"{label('lblContenido', 'CONTENIDO ZV')} {euros(0)}")
wait_rows("the closes", "SELECT count(*) FROM cierres", ["0"])
office.leave()
connect()
check("money", 42760, money())

# ---- the device falls silent: it is asked again what has come of the close
office = Office()
office.able("leave", "levels", "value", "reconcile", "settings")
office.close_value("150")
wait_rows("the close", "SELECT importeCierre, cajonMonedas, cajonBilletes FROM cierres", ["42760|0|0"], 40)
wait_rows("the open period", OPEN, ["0"])
office.window.says(f"{label('lblSaldoCierre', 'SALDO CIERRE')} {euros(42760)}")
office.able("leave", "reconcile", "coins", "notes", "settings")

# ---- an emptying that the device refuses, then one without a link
office.press("coins")
not_emptied(31)
office.press("coins")
not_emptied(1)
no_device(1)
# Its count cannot be read either, and what cannot be read is 0.
office.press("notes")
message("Zorvex", "No hay billetes en el cajón de recaudación")
wait_rows("the open period", OPEN, ["0"])
check("money", 42760, money())
office.leave()
footer_buttons[DESCONECTAR].press()
no_device(1)
connect()

# ---- the table locked again: what the device has moved is told by its line in the log alone
period()
office = Office()
with Lock():
    office.press("coins")
    wait("the failed filing",
         lambda: log()[-2:] == ["ADDPROC_ERROR_5 - database is locked [VACIAR_CAJON]",
                                "VACIARCAJON_COMMIT"], 60)
    wait("Saldo_Exit", lambda: registry("Saldo_Exit") == "42500")
    wait_rows("the open period", OPEN, ["3"])
    office.close_levels()
    message(T("errorCierre", "Error al realizar el cierre"), "Error nº 5:\ndatabase is locked", limit=60)
check("the busy mark of the failed close", "1", registry("Activo"))
wait_rows("the open period", OPEN, ["3"])
# Nothing has been disabled: the same close once more, of the same period.
office.able("leave", "levels", "value", "reconcile", "notes", "settings")
office.close_levels()
wait_rows("the closes", "SELECT idCierre, importeCierre FROM cierres ORDER BY idCierre",
          ["1|42760", "2|42500"], 40)
wait_rows("the open period", OPEN, ["0"])
check("the busy mark", "0", registry("Activo"))
office.leave()

# ---- a reconciling that loses its link goes on with balances of nothing
period()
office = Office()
office.press("reconcile")
no_device(1)
message(T("descuadreDetectado", "Descuadre detectado"), "".join((
    T("descuadreDetectado2", "Se ha detectado un descuadre entre el último saldo de Zorvex y el actual"
      " de: "), euros(42500), "\n\n", T("descuadreDetectado3", "¿Desea hacer un apunte de cuadre?"))), NO)
message("Zorvex", NO_LINK_HERE)
wait_rows("the arqueo", "SELECT importeVenta, devuelto, saldoZV FROM procesados ORDER BY idZV DESC LIMIT 1",
          ["0|0|0"])
wait_rows("the close by itself", "SELECT saldoZV, importeCierre FROM cierres ORDER BY idCierre DESC LIMIT 1",
          ["42500|0"])
wait("Saldo_Inicial", lambda: registry("Saldo_Inicial") == "0")
office.able("leave", "settings")

# ---- the device's own settings are asked for also without it
before = len(log())
office.press("settings")
wait("the device's settings", lambda: "ZV_CONFIGURATION" in log()[before:])
office.leave()
connect()
check("money", 42500, money())
office = Office()
before = len(log())
office.press("settings")
wait("the device's settings", lambda: "ZV_CONFIGURATION" in log()[before:])
office.able("leave", "levels", "value", "reconcile", "notes", "settings")
office.leave()
