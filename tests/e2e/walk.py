"""The tree of screens: what walk.sh sees and does. Arguments: the monitor's process, and a language
file or the folder of the project for none. A new screen is found by the button that opens it; only
what it needs to be worth a look stands here: rows of the tables (seed) and what Escape must not do
(STAYS)."""

import glob
import json
import os
import re
import subprocess
import sys
import time

from bus import (BUTTON, CHOICE, FIELD, Atspi, Control, Failed, GLib, Program, Table, check, nameless,
                 wait)
from till import FOLDER, Texts, log, put_sale, sql

monitor = Program(sys.argv[1])
language = sys.argv[2] if os.path.isfile(sys.argv[2]) else None
texts = Texts(language)
SPANISH = f"{FOLDER}/walk-es.json"


def caption(screen, key, spanish):
    return texts.caption(screen, key, spanish)


CANCEL = caption("frmOperacion", "btnCancelar", "Cancelar")
BACK = {caption(screen, key, "Retroceso") for screen, key in (("frmCash", "teci_13"),
                                                               ("frmLogin", "teci_12"))}
# Money has gone in, or may have: these stay until the device has ended.
STAYS = {caption("frmOperacion", key, spanish) for key, spanish in (
    ("TituloCobro", "Cobro"), ("TituloCambio", "Dar cambio"), ("TituloMeterCambio", "Añadir cambio"),
    ("TituloPago", "Pago"))}
OPERATION = tuple(caption("frmOperacion", *each) for each in (
    ("lbEntrado", "Introducido"), ("lbPagado", "Entregado")))
MAIN = texts.text("FrmCaption", "Zorvex ®", "GEN")
# Minimised there is nothing to press; the picture in the header is a handle that windows are drawn by.
NOT_PRESSED = {caption("frmZVMonitor", "btnW_0", "Minimizar"), "ZVMonitor"}
# What goes on with something comes behind what gives it up: it may not come up again.
LAST = {caption(*each) for each in (
    ("frmMensaje", "boton_0", "Aceptar"), ("frmTexto", "boton_0", "Aceptar"), ("frmCash", "teci_11", "Entrar"),
    ("frmLogin", "teci_10", "Entrar"), ("frmUsuarios", "btnGuardar", "Guardar"),
    ("frmZVMonitor", "boton_6", "Desconectar"))}
# Begins something that its second press ends.
TWICE = {caption("frmZVMonitor", "boton_9", "Agrupar¬cobros")}
# Ends the program: the closing, and the clearing of the history, whose statement fails.
ENDS = {(f"Monitor - {texts.text(*each)}", caption("frmMensaje", "boton_0", "Aceptar"))
        for each in (("cerrar0", "Cerrar aplicativo"), ("limpiarHistorial", "Limpiar historial"))}
LOSE = caption("frmMensaje", "boton_0", "Aceptar")
EFFECT = 6  # s for what a button does

main = monitor.window(MAIN, holding=caption("frmZVMonitor", "boton_2", "Dar Cambio"))
visited, read = [], {}


def say(line):
    print(line, flush=True)


def seed():
    """Something to see in every grid."""
    for n, (sale, taken, given, state, terminal, close) in enumerate((
            (1200, 1200, 0, "OK", "TPV1", 0), (900, 300, 0, "ERROR", "TPV1", 0),
            (-500, 0, 500, "OK", "TPV1", 0), (700, 1000, 300, "OK", "TPV1", 1))):
        sql(f"""INSERT INTO procesados (fechaZV, fechaVenta, importeVenta, cobrado, devuelto, estado, id1,
                id2, idcaja, terminal, vendedor, formapago, error, idCierre, saldoZV, idcola)
                VALUES ('2026-03-14 1{n}:00:00', '2026-03-14 1{n}:00:00', {sale}, {taken}, {given},
                '{state}', '{n}', '', 1, '{terminal}', '7', '', '', {close}, 0, 0)""")
    sql("""INSERT INTO cierres (idCierre, fecha, saldoInicial, cobros, abonos, ingresos, pagos, saldoZV,
           importeCierre, cambioBilletes, cambioMonedas, cajonBilletes, cajonMonedas)
           VALUES (1, '2026-03-14 21:00:00', 0, 700, 0, 0, 0, 700, 700, 0, 700, 0, 0)""")
    sql("INSERT INTO Accesos (fecha, usuario, lugar) VALUES ('2026-03-14 09:00:00', '7', 'authCaja')")
    for n in range(1, 4):
        put_sale(n * 100, str(n), terminal="1")


# ---- what there is to see

def state(control):
    value = control.value() if control.role in FIELD and control.role != "password text" else ""
    length = control.length() if control.role == "password text" else 0
    return (control.role, control.name, control.enabled, control.checked, control.bounds, value, length)


def outside():
    """What the program has done that no window shows."""
    files = [f"{FOLDER}/ZVMonitor.ini", f"{FOLDER}/opened", f"{FOLDER}/simulador.log"]
    return (len(log()), [os.path.getsize(each) for each in files if os.path.exists(each)],
            sorted(glob.glob(f"{FOLDER}/exports/*")))


def light(control):
    """All that is shown in it, of a table its size and where its first cell stands."""
    if not control.shown:
        return
    yield state(control)
    if control.role == "table":
        grid = Table(control.node, control.display)
        rows = grid.count()
        first = Atspi.Table.get_accessible_at(control.node, 0, 2) if rows else None
        yield rows, first and (first.get_name(), Control(first, control.display).bounds)
        return
    for child in list(control.children()):
        yield from light(child)


def seen():
    """All that is shown now; again when it changes while it is looked at."""
    for _ in range(20):
        try:
            return [each for window in monitor.windows() for each in light(window)], outside()
        except GLib.Error as failure:  # what has gone is asked in vain
            last = failure
            time.sleep(0.05)
    raise last


def same(one, other):
    return one.node == other.node


def new_windows(before):
    return [each for each in monitor.windows() if not any(same(each, old) for old in before)]


def buttons(window):
    """Those that can be pressed, as (name, which of that name)."""
    found, count = [], {}
    for each in window.all(BUTTON):
        n = count[each.name] = count.get(each.name, -1) + 1
        # A mode in force is no button to press.
        if each.enabled and each.name not in NOT_PRESSED and not (each.role in CHOICE and each.checked):
            found.append((each.name, n))
    return sorted(found, key=lambda which: which[0] in LAST)


def button(window, which):
    name, n = which
    return [each for each in window.all(BUTTON, name)][n]


def inspect(window):
    # A record that tells nothing under a title has an empty cell there; a column without a width is
    # not seen.
    check(f"controls of {window!r} without a name", [],
          [each for each in nameless(window) if each.role != "table cell" and
           not (each.role == "table column header" and each.bounds[2] == 0)])
    cut = cut_texts(window)
    check(f"texts of {window!r} that are cut", [], cut)
    for each in window.walk():
        hidden = each.role == "table column header" and each.bounds[2] == 0
        if each.role not in ("table cell", "list item") and each.name.strip() and not hidden:
            read.setdefault(each.name, window.name)


# ---- texts that do not fit: ink at the very edge of their control

def picture():
    raw = subprocess.run(["import", "-window", "root", "-depth", "8", "ppm:-"], check=True, capture_output=True).stdout
    head = re.match(rb"P6\s+(\d+)\s+(\d+)\s+255\s", raw)
    return int(head[1]), int(head[2]), raw[head.end():]


def cut_texts(window):
    width, height, pixels = picture()

    def at(x, y):
        i = 3 * (y * width + x)
        return pixels[i:i + 3]

    def ink(line):
        """How many of these differ much from what most of them are."""
        ground = max(set(line), key=line.count)
        return sum(max(abs(a - b) for a, b in zip(each, ground)) > 96 for each in line)

    cut = []
    for each in window.all(("label", *BUTTON)):
        left, top, wide, high = each.bounds
        right, bottom = left + wide - 1, top + high - 1
        if left < 0 or top < 0 or right >= width or bottom >= height:
            cut.append(each)  # it reaches beyond the screen
            continue
        if each.role != "label" or not each.name.strip() or wide < 8:
            continue
        column = [at(right, y) for y in range(top, bottom + 1)]
        rows = [[at(x, y) for x in range(left, right + 1)] for y in (top, bottom)]
        if ink(column) > 2 or max(map(ink, rows)) > 2:
            cut.append(each)
    return cut


# ---- the walk

def press(window, which):
    """Presses it and waits for what it does; answers the windows that have come up."""
    before, shown = seen(), monitor.windows()
    control = button(window, which)
    say(f"  {window.name} > {which[0]}")
    control.press()
    try:
        wait(f"an effect of {which[0]!r} in {window.name!r}", lambda: seen() != before, EFFECT)
    except Failed as failure:
        raise Failed(f"{failure}: it is enabled and does nothing") from None
    settle()
    return new_windows(shown)


def settle():
    """Until nothing changes any more."""
    last, end = None, time.monotonic() + 10
    while time.monotonic() < end:
        now = [(window.name, window.bounds) for window in monitor.windows()]
        if now == last:
            return
        last = now
        time.sleep(0.15)


def there(window):
    return any(same(window, each) for each in monitor.windows())


def is_operation(window):
    return window.name in STAYS and any(each.name.startswith(OPERATION) for each in window.all("label"))


def close(window):
    """By Escape; the window of an operation stays, and its own key ends it."""
    if not there(window):
        return
    before = monitor.windows()
    window.key("Escape")
    if is_operation(window):
        time.sleep(0.3)
        check(f"{window!r} behind Escape", True, there(window))
        window.button(CANCEL).press()
    elif wait(f"an answer of {window!r}", lambda: not there(window) or new_windows(before)) and there(window):
        new_windows(before)[0].button(LOSE).press()  # asks whether what has been changed may go
    monitor.gone(window)
    settle()
    for more in new_windows(before):
        visit_once(more)


def kind(window):
    """Some windows have one title: they differ in what can be pressed."""
    return window.name, tuple(sorted(each.name for each in window.all(BUTTON)))


def visit_once(window, reopen=None):
    if kind(window) in visited:
        close(window)
        return
    visited.append(kind(window))
    visit(window, reopen)


def fill(window):
    for each in window.all(FIELD):
        if each.enabled and each.length() == 0 and "editable" in each.states:
            each.press()
            each.key("1", "2")


class Place:
    """A window that can be brought up once more."""

    def __init__(self, window, reopen):
        self.window = window
        self.reopen = reopen

    def get(self):
        """None when what brings it up has had its effect for good."""
        if not there(self.window):
            self.window = self.reopen and self.reopen()
            if self.window is None:
                return None
            ready(self.window)
        return self.window

    def opened_by(self, which):
        def again():
            parent = self.get()
            if parent is None or not button(parent, which).enabled:
                return None
            return next(iter(press(parent, which)), None)
        return again


def ready(window):
    """Filled in as far as its buttons need it."""
    if is_operation(window):
        return
    fill(window)
    for each in buttons(window):
        if re.fullmatch(r"[1-9]", each[0]):
            press(window, each)
            break


def visit(window, reopen):
    say(f"{window!r}")
    inspect(window)
    place, title = Place(window, reopen), window.name
    names = buttons(window)
    back = next((each for each in names if each[0] in BACK), None)
    keys = [each for each in names if re.fullmatch(r"[0-9]", each[0])] if back else []
    for which in keys:
        press(window, which)
        press(window, back)
    ready(window)
    for which in names:
        if which in keys or which == back or (title, which[0]) in ENDS:
            continue
        window = place.get()
        if window is None:
            return
        if not button(window, which).enabled:
            continue  # another one has switched it off meanwhile
        for more in press(window, which):
            visit_once(more, place.opened_by(which))
    if there(window):
        close(window)


def walk_main():
    inspect(main)
    place, pressed = Place(main, None), set()
    # What one of them switches on comes behind it.
    while left := [each for each in buttons(main) if each not in pressed]:
        which = left[0]
        pressed.add(which)
        for more in press(main, which):
            visit_once(more, place.opened_by(which))
        if which[0] in TWICE:
            press(main, which)
        wait("the main window at rest", lambda: len(monitor.windows()) == 1)


# Asked for in Spanish whatever the language; and the program's own name.
ALIKE = {"Pago", "Importe a pagar", "Cierre", "Importe:", "ZVMonitor"}


def compare():
    """What is read in both languages is neither's: but for numbers, and what the file leaves as it is."""
    if language is None:
        with open(SPANISH, "w", encoding="utf-8") as file:
            json.dump(read, file)
        return
    with open(SPANISH, encoding="utf-8") as file:
        spanish = json.load(file)
    kept = {value.strip() for value in texts.texts.values()}
    both = {text: where for text, where in read.items()
            if text in spanish and text.strip() not in kept and re.search(r"[^\W\d_]{2}", text)
            and text not in ALIKE and not re.match(r"(Monitor v|\d)", text)}
    check("texts of the other language", {}, both)


seed()
wait("the rows of the queue", lambda: main.table(caption("frmZVMonitor", "grdZV",
                                                         "Operaciones pendientes")).count() == 3)
walk_main()
# With somebody who may, the places ask who is there.
sql("INSERT INTO Usuarios (nombre, password, rol) VALUES ('1', '1212', 0)")
say(f"{len(visited)} windows: {', '.join(name for name, _ in visited)}")
compare()
