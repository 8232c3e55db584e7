"""What first-use.sh does on the screen: arguments are the monitor's process, the recycler's, the screen
of the recycler's window, a language file or nothing, the recycler's address, and that of the fast
link."""

import socket
import sys

from bus import Program, check, check_names, wait
from till import FOLDER, Texts, put_sale, wait_rows

monitor = Program(sys.argv[1])
recycler = Program(sys.argv[2], sys.argv[3])
texts = Texts(sys.argv[4] or None)
address, fast = sys.argv[5:7]
T = texts.text

ACCEPT = T("boton_0", "Aceptar")
YES = texts.caption("frmMensaje", "boton_0", "Aceptar")
NO = texts.caption("frmMensaje", "boton_1", "Cancelar")
ATTENTION = T("atencion", "¡Atención!")
SAVE = T("deseaGuardar", "¿Desea guardar los cambios?")
LEAVE = T("deseaSalir", "¿Desea salir sin guardar los cambios?")


def caption(key, spanish):
    return texts.caption("frmCfgMonitor", key, spanish)


def message(title, text, button):
    monitor.answer(f"Monitor - {title}", button, text)


def settings_window():
    window = monitor.window(caption("lbTitulo", "Monitor - Configuración"))
    check_names(window)
    return window


SAVE_BUTTON = caption("boton_1", "Guardar")
MODES = [caption("btnModo_0", "AUTO"), caption("btnModo_1", "MANUAL"), caption("btnModo_2", "SEMIAUTO")]
PORT = caption("lblPuerto", "Puerto ZVFast:")

# ---- an empty folder: the program says so and opens its settings
message(T("iniciando", "Iniciando..."), T("primerUso", "Configura la aplicación para su primer uso"), ACCEPT)
settings = settings_window()
check("modes", [True, False, False], [settings.choice(mode).checked for mode in MODES])
check("what the modes are", "radio button", settings.choice(MODES[0]).role)
check("the save button", False, settings.button(SAVE_BUTTON).enabled)
check("doors without a database", [False, False],
      [settings.button(caption(*each)).enabled for each in
       (("btnUsuarios", "Gestión de usuarios"), ("btnAccesos", "Registro de accesos"))])

# ---- the address is tested: wrong, then right
TEST = caption("btnTestZV", "Test")
ip = settings.field(caption("lblIP", "IP Zorvex:"))
check("the test without an address", False, settings.button(TEST).enabled)
ip.type("127.0.0.1:1")
settings.button(TEST).press()
message("Zorvex", T("NoSePuedeConectar", "No se puede conectar con Zorvex"), ACCEPT)
ip.type(address)
settings.button(TEST).press()
message("Zorvex", T("conexionEstablecida", "Conexión establecida"), ACCEPT)
settings.says(T("conexionEstablecida", "Conexión establecida"))

# ---- toggles tell their state
terminal = settings.choice(caption("btnCol_3", "Terminal"))
check("what a toggle is", "check box", terminal.role)
terminal.press()
wait("the toggle", lambda: terminal.checked)
settings.button(SAVE_BUTTON).press()
message(ATTENTION, SAVE, YES)
monitor.gone(settings)

# ---- the till comes up, and sells
title = T("inicializacion", "Inicialización")
start = monitor.window(f"Monitor - {title}", limit=40)
start.button(ACCEPT).press()
monitor.gone(start)
main = monitor.window(T("FrmCaption", "Zorvex ®", "GEN"))
put_sale(700, "T1", terminal="TPV9")
charge = monitor.window(texts.caption("frmOperacion", "TituloCobro", "Cobro"))
coins = recycler.window("ZVSimulador")
coins.button("Billete de 5 €").press()
coins.button("Billete de 5 €").press()
monitor.gone(charge)
wait_rows("the first sale", "SELECT estado, importeVenta, cobrado, devuelto FROM procesados WHERE id1='T1'",
          ["OK|700|1000|300"])


# ---- settings of a till that runs: what is saved holds at once
def open_settings():
    main.button(texts.caption("frmZVMonitor", "boton_12", "Configurar")).press()
    return settings_window()


def grid_titles():
    return main.table(texts.caption("frmZVMonitor", "grdZV", "Operaciones pendientes")).titles()


def answers(port):
    try:
        with socket.create_connection((fast, port), 1) as link:
            link.sendall(b"S|T1")
            return link.recv(100)
    except OSError:
        return None


wait("the fast link", lambda: answers(16501) == b"OK|OK")
check("a chosen column", True, T("terminal", "Terminal") in grid_titles())
settings = open_settings()
check("what was saved", [address, True], [settings.field(caption("lblIP", "IP Zorvex:")).value(),
                                          settings.choice(caption("btnCol_3", "Terminal")).checked])
check("the save button", False, settings.button(SAVE_BUTTON).enabled)
settings.choice(caption("btnCol_3", "Terminal")).press()
settings.choice(caption("btnCol_4", "Vendedor")).press()
settings.choice(caption("btnCfg_3", "No permitir pagos")).press()
settings.choice(MODES[1]).press()
settings.field(PORT).type("65536")
settings.says(T("puertoFueraDeRango", "Un puerto va de 1 a 65535"))
settings.field(PORT).type("16502")
settings.button(caption("boton_0", "Salir")).press()
message(ATTENTION, LEAVE, NO)
settings.button(SAVE_BUTTON).press()
message(ATTENTION, SAVE, YES)
monitor.gone(settings)
wait("the other port", lambda: answers(16502) == b"OK|OK")
check("the old port", None, answers(16501))
titles = grid_titles()
check("the columns", [False, True], [T("terminal", "Terminal") in titles, T("vendedor", "Vendedor") in titles])
check("paying out", False, main.button(texts.caption("frmZVMonitor", "boton_4", "Pago")).enabled)
check("the mode", True, main.choice(texts.caption("frmZVMonitor", "btnModo_1", "Manual")).checked)
with open(f"{FOLDER}/ZVMonitor.ini", encoding="cp1252", newline="") as file:
    lines = file.read().split("\r\n")
for line in ("MODO=MANUAL", "ZVFastPort=16502", "COLTERMINAL=0", "COLVENDEDOR=1", "BLOQUEARPAGOS=1"):
    check(line, True, line in lines)

# ---- Escape leaves where nothing is lost
settings = open_settings()
settings.key("Escape")
monitor.gone(settings)
main.button(texts.caption("frmZVMonitor", "btnW_1", "Cerrar")).press()
message(T("cerrar0", "Cerrar aplicativo"), T("cerrar1", "¿Desea cerrar ZVMonitor?"), YES)
