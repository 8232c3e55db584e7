"""What bus-main.sh sees and does: arguments are the monitor's process, the recycler's, the screen of
the recycler's window, and a language file or nothing."""

import sys

from bus import Failed, Program, check, check_names, wait
from till import Texts, put_sale, sql, wait_rows

FOOTER = ["Registro", "Caja", "Dar Cambio", "Añadir Cambio", "Pago", "Incidencias", "Desconectar",
          "Conectar", "Cobro¬Manual", "Agrupar¬cobros", "Contraseña", None, "Configurar"]

CONNECTED = (2, 3, 4, 6, 8)

monitor = Program(sys.argv[1])
recycler = Program(sys.argv[2], sys.argv[3])
texts = Texts(sys.argv[4] or None)


def caption(key, spanish):
    return texts.caption("frmZVMonitor", key, spanish)


def footer(index):
    return caption(f"boton_{index}", FOOTER[index])


main = monitor.window(texts.text("FrmCaption", "Zorvex ®", "GEN"))
check("what the main window is", "frame", main.role)
check_names(main)

# ---- captions, and the order in which they stand
buttons = sorted((each.bounds[0], each.name) for each in main.all("push button")
                 if each.bounds[1] > 500 and each.bounds[0] < 940)
check("the footer", [footer(i) for i in range(13) if i != 11], [name for _, name in buttons])
modes = [caption("btnModo_0", "Automático"), caption("btnModo_1", "Manual"),
         caption("btnModo_2", "Semiautomático")]
check("the modes", modes, [each.name for each in main.all("check box")])
for key, spanish in (("btnW_0", "Minimizar"), ("btnW_1", "Cerrar"), ("btnW_2", "Manuales"),
                     ("btnArriba", "Página anterior"), ("btnAbajo", "Página siguiente")):
    main.button(caption(key, spanish))
main.field(caption("TextIni", "Código de barras"))
check("the lamp", [caption("ShapeOK", "Niveles normales")], [each.name for each in main.all("image")])


def counter(charges, refunds=0):
    said = f"{charges} {texts.text('cobros', 'cobros')}"
    return said + (f" / {refunds} {texts.text('abonos', 'abonos')}" if refunds else "")


main.says(counter(0))


# ---- what can be pressed says so
def able(*indexes):
    """These of the footer are on and no others, but for those whose screens are still to come."""
    def look():
        return [i for i in (2, 3, 4, 6, 7, 8, 9) if main.button(footer(i)).enabled] == list(indexes)
    wait(f"the footer buttons {indexes}", look)


def mode_is(index):
    wait(f"the mode {modes[index]}",
         lambda: [each.checked for each in main.all("check box")] == [i == index for i in range(3)])


able(*CONNECTED)
mode_is(1)
main.choice(modes[2]).press()
mode_is(2)
main.choice(modes[1]).press()
mode_is(1)
main.button(footer(6)).press()
able(7)
main.says(texts.text("pulseConectar", "Sin conexión: pulse Conectar"))
main.button(footer(7)).press()
able(*CONNECTED)

# ---- the grid is a table, and its cells can be read
put_sale(123456, "T1", terminal="TPV1")
put_sale(-450, "T2")
put_sale(700, "T3")
main.says(counter(2, 1))
able(*CONNECTED, 9)
TITLES = [texts.text(key, spanish) for key, spanish in (
    ("anular", "Anular"), ("fechaVenta", "Fecha Venta"), ("idVenta", "Id. Venta"),
    ("importe2", "Importe"), ("enviar", "Enviar"))]
annul, date, sale, amount, send = TITLES
grid = main.table(caption("grdZV", "Operaciones pendientes"))
check("the titles", TITLES, grid.titles())
check("the queue", [{annul: annul, date: "14/03/26 10:20:30", sale: id1, amount: euros, send: send}
                    for id1, euros in (("T1", "1.234,56 €"), ("T2", "-4,50 €"), ("T3", "7,00 €"))],
      grid.rows())
check_names(main)
sql("DELETE FROM cola WHERE id1 <> 'T3'")
main.says(counter(1))

# ---- a sale: the customer's pieces go in at the recycler, its window tells what is still missing
main.choice(modes[0]).press()
def operation(key, spanish):
    return texts.caption("frmOperacion", key, spanish)


charge = monitor.window(operation("TituloCobro", "Cobro"))
check_names(charge)
charge.says(operation("Cobro", "Introduzca el dinero en Zorvex"))
due, inside, out, missing = (operation(*each) for each in (
    ("lbACobrar", "A cobrar"), ("lbEntrado", "Introducido"), ("lbSalido", "Devuelto"),
    ("lbFalta", "Pendiente")))
charge.says(f"{due} 7,00 €")
charge.says(f"{missing} 7,00 €")
if main.all("push button", footer(7))[0].enabled or main.button(footer(6)).enabled:
    raise Failed("the footer can be pressed while the device works")
coins = recycler.window("ZVSimulador")
check_names(coins)
coins.button("Billete de 5 €").press()
charge.says(f"{inside} 5,00 €")
charge.says(f"{missing} 2,00 €")
coins.button("Billete de 5 €").press()
monitor.gone(charge)
wait_rows("the record", "SELECT estado, importeVenta, cobrado, devuelto FROM procesados",
          ["OK|700|1000|300"])
main.says(counter(0))
check("rows of the queue", 0, grid.count())

# ---- and one that the cashier cancels
put_sale(900, "T4")
charge = monitor.window(operation("TituloCobro", "Cobro"))
coins.button("Moneda de 2 €").press()
charge.says(f"{inside} 2,00 €")
charge.button(operation("btnCancelar", "Cancelar")).press()
monitor.gone(charge)
wait_rows("the record of the cancelled one",
          "SELECT estado, cobrado, devuelto FROM procesados WHERE id1 = 'T4'", ["CANCEL|200|200"])
mode_is(1)
sql("DELETE FROM cola")
main.says(counter(0))

# ---- closing is asked for, by name
title = f"Monitor - {texts.text('cerrar0', 'Cerrar aplicativo')}"
question = texts.text("cerrar1", "¿Desea cerrar ZVMonitor?")
main.button(caption("btnW_1", "Cerrar")).press()
monitor.answer(title, texts.caption("frmMensaje", "boton_1", "Cancelar"), question)
main.says(counter(0))
main.button(caption("btnW_1", "Cerrar")).press()
monitor.answer(title, texts.caption("frmMensaje", "boton_0", "Aceptar"), question)
