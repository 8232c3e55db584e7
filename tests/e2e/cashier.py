"""What a cashier and a customer do, through the names of the controls: both windows are found and
driven by this. Imported with the arguments of the script: the monitor's process, the recycler's, the
screen of the recycler's window, and a language file or nothing."""

import atexit
import subprocess
import sys
import time

from bus import Program, check, check_names, wait
from till import BIN, FOLDER, Texts

monitor = Program(sys.argv[1])
recycler = Program(sys.argv[2], sys.argv[3])
texts = Texts(sys.argv[4] or None)


def T(key, spanish):
    """A text that the program's code asks for."""
    return texts.text(key, spanish)


def caption(screen, key, spanish):
    return texts.caption(screen, key, spanish)


def euros(cents):
    return f"{cents // 100:,}".replace(",", ".") + f",{cents % 100:02d} €"


main = monitor.window(texts.text("FrmCaption", "Zorvex ®", "GEN"), holding="ZVMonitor")
# Looked for once: both windows hold lists that grow, and these stay.
footer_buttons = main.buttons()
pieces = recycler.window("ZVSimulador").buttons()

ACCEPT = T("boton_0", "Aceptar")
YES = caption("frmMensaje", "boton_0", "Aceptar")
NO = caption("frmMensaje", "boton_1", "Cancelar")
DAR_CAMBIO = caption("frmZVMonitor", "boton_2", "Dar Cambio")
METER_CAMBIO = caption("frmZVMonitor", "boton_3", "Añadir Cambio")
PAGO = caption("frmZVMonitor", "boton_4", "Pago")
DESCONECTAR = caption("frmZVMonitor", "boton_6", "Desconectar")
CONECTAR = caption("frmZVMonitor", "boton_7", "Conectar")
COBRO_MANUAL = caption("frmZVMonitor", "boton_8", "Cobro¬Manual")
AGRUPAR = caption("frmZVMonitor", "boton_9", "Agrupar¬cobros")
PASSWORD = caption("frmZVMonitor", "boton_10", "Contraseña")


def message(title, text, button=None, limit=20, program=None):
    (program or monitor).answer(f"Monitor - {title}", button or ACCEPT, text, limit)


def device_says(title):
    """The message of a failed operation: number and words of the device, which are answered."""
    window = monitor.window(f"Monitor - {title}", limit=40)
    said = window.texts()[1]
    message(title, said)
    return said


def footer(name):
    footer_buttons[name].press()


def insert(cents):
    """One piece, at the recycler."""
    pieces[f"Moneda de {cents} c" if cents < 100 else
           f"{'Moneda' if cents <= 200 else 'Billete'} de {cents // 100} €"].press()


def choose(window, user):
    """From the list instead of the tiles."""
    users = window.find("combo box", caption("frmLogin", "lblUsuario", "Usuario"))
    users.press()
    users.find("list item", user).press()
    wait("the user", lambda: window.choice(user).checked)


def login(user, password, listed=False):
    """Touches name and digits; answers the window, which may stay. listed: the name in the list."""
    window = monitor.window(T("identificacion", "Identificación"))
    check_names(window)
    if listed:
        choose(window, user)
    else:
        window.choice(user).press()
    keys = window.buttons()
    for digit in password:
        keys[digit].press()
    field = window.field(caption("frmLogin", "lblPassword", "Contraseña"))
    wait("the password", lambda: field.length() == len(password))
    window.button(caption("frmLogin", "teci_10", "Entrar")).press()
    return window


def concept(title, prompt, text):
    window = monitor.window(title, holding=caption("frmTexto", "boton_2", "Teclado en pantalla"))
    check_names(window)
    if text:
        window.field(prompt).type(text)
    window.button(caption("frmTexto", "boton_0", "Aceptar")).press()
    monitor.gone(window)


def amount(title, prompt, typed, key=("teci_11", "Entrar")):
    """The amount by the keypad."""
    window = monitor.window(title, holding=caption("frmCash", "teci_13", "Retroceso"))
    check_names(window)
    field = window.field(prompt)
    check("the amount at first", euros(0), field.value())
    keys = window.buttons()
    for mark in typed:
        keys[mark].press()
    if typed:
        field.reads(typed)
    window.button(caption("frmCash", *key)).press()
    monitor.gone(window)


# Titles of the window of an operation.
CHARGE = caption("frmOperacion", "TituloCobro", "Cobro")
CHANGE = caption("frmOperacion", "TituloCambio", "Dar cambio")
FLOAT = caption("frmOperacion", "TituloMeterCambio", "Añadir cambio")
PAY = caption("frmOperacion", "TituloPago", "Pago")


class Operation:
    """The window of a running operation, and the pieces that the customer puts in meanwhile."""

    def __init__(self, title, due=None):
        self.due = due  # of a charge, which ends by itself
        self.window = monitor.window(title, holding=caption("frmOperacion", "btnCancelar", "Cancelar"))
        check_names(self.window)
        self.inside = 0
        if due is not None:
            self.says(("lbACobrar", "A cobrar"), due)

    def puts(self, *cents, last=False):
        """last: the operation ends with the last of them."""
        for piece in cents:
            insert(piece)
            self.inside += piece
            if not last and (self.due is None or self.inside < self.due):
                self.says(("lbEntrado", "Introducido"), self.inside)
        return self

    def says(self, label, cents):
        self.window.says(f"{caption('frmOperacion', *label)} {euros(cents)}")

    def ends(self):
        monitor.gone(self.window)

    def loses_link(self):
        """Waits until it has been lost; answers when that was."""
        self.window.says(caption("frmOperacion", "Reconectando", "Recuperando la comunicación con Zorvex…"))
        return time.monotonic()

    def finish(self):
        self.window.button(caption("frmOperacion", "btnTerminar", "Terminar")).press()
        self.ends()

    def cancel(self):
        self.window.button(caption("frmOperacion", "btnCancelar", "Cancelar")).press()
        self.ends()


def charging(cents):
    return Operation(CHARGE, cents)


def change():
    footer(DAR_CAMBIO)
    return Operation(CHANGE)


def float_in():
    footer(METER_CAMBIO)
    return Operation(FLOAT)


# ---- users

ROLES = [caption("frmUsuarios", f"btnAdmin_{i}", spanish)
         for i, spanish in enumerate(("Administrador", "Autorizado", "Usuario"))]
CREATE = T("crearUsuario0", "Crear Usuario")


class UserScreen:
    """The screen of the users, opened for one of them."""

    def __init__(self):
        self.process = subprocess.Popen([f"{BIN}/zv_users_screen", FOLDER])
        atexit.register(self.process.kill)
        self.program = Program(self.process.pid)
        self.window = self.program.window(caption("frmUsuarios", "lbTitulo", "Gestion de usuarios"))
        check_names(self.window)

    def fill(self, user, password, role):
        self.window.field(caption("frmUsuarios", "lblUsuario", "Usuario")).type(user)
        self.window.field(caption("frmUsuarios", "lblPassword", "Contraseña")).type(password)
        self.window.choice(ROLES[role]).press()
        wait("the role", lambda: self.window.choice(ROLES[role]).checked)

    def press(self, key, spanish):
        self.window.button(caption("frmUsuarios", key, spanish)).press()

    def save(self, title, text):
        self.press("btnGuardar", "Guardar")
        message(title, text, program=self.program)

    def saved(self):
        self.save(T("guardarUsuario0", "Usuario guardado"),
                  T("guardarUsuario1", "Usuario guardado correctamente"))
        self.ends()

    def ends(self):
        check("the end of the screen", 0, self.process.wait(20))


# ---- the queue

QUEUE = caption("frmZVMonitor", "grdZV", "Operaciones pendientes")
ANULAR, ENVIAR, ID, IMPORTE = (T(*each) for each in (
    ("anular", "Anular"), ("enviar", "Enviar"), ("idVenta", "Id. Venta"), ("importe2", "Importe")))


def touch(id1, column):
    grid = main.table(QUEUE)
    grid.cell(grid.row_of(ID, id1), column).press()
