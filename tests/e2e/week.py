"""A week of a shop: what week.sh sees and does, beside the books of office.py. Arguments as for
cashier.py."""

from bus import check, check_names, nameless, wait
from cashier import *  # noqa: F403
from office import CLOSE, ROW, Books, concept as concept_of, parts
from till import log, money, put_sale, registry, sql, wait_rows

books = Books(opening=int(registry("Saldo_Inicial") or 0))
sales = 0


def agree():
    wait_rows("procesados", ROW, books.rows())
    wait_rows("cierres", CLOSE, books.closes)
    check("the money of the device", parts().total(), money())
    wait("the busy mark", lambda: registry("Activo") in (None, "0"))


def able():
    """The operation has ended."""
    wait("the buttons of the till", lambda: footer_buttons[DAR_CAMBIO].enabled)


# ---- by day

def sell(cents, terminal="TPV1", seller="Ana"):
    global sales
    sales += 1
    id1 = f"V{sales}"
    put_sale(cents, id1, terminal=terminal, vendedor=seller, formapago="EFECTIVO")
    if cents < 0:
        title = f"Monitor - {T('abonoPendiente', 'Abono pendiente')}"
        window = monitor.window(title)
        window.button(YES).press()
        monitor.gone(window)
    wait("the sale", lambda: sql(f"SELECT 1 FROM procesados WHERE id1 = '{id1}'"))
    books.file(cents, max(cents, 0), max(-cents, 0), money(), id1, terminal, seller, "EFECTIVO")
    able()
    agree()


def change():
    footer(DAR_CAMBIO)
    wait("the change", lambda: len(sql(ROW)) == len(books.movements) + 1)
    books.file(2000, 2000, 2000, money(), "DAR_CAMBIO")
    able()
    agree()


def float_in():
    footer(METER_CAMBIO)
    wait("the float", lambda: len(sql(ROW)) == len(books.movements) + 1)
    books.file(3400, 3400, 0, money(), "METER_CAMBIO")
    able()
    agree()


def pay_out(why, cents):
    footer(PAGO)
    concept(T("pago11", "Pago"), T("pago12", "Introduzca el concepto del pago"), why)
    amount("Pago", "Importe a pagar", f"{cents // 100},{cents % 100:02d}")
    wait("the payment", lambda: len(sql(ROW)) == len(books.movements) + 1)
    books.file(-cents, 0, cents, money(), "PAGO", error=why)
    able()
    agree()


def charge_by_hand(why, cents):
    footer(COBRO_MANUAL)
    title = T("cobroManual2", "Cobro manual")
    concept(title, T("conceptoCobroManual", "Introduzca el concepto del cobro manual"), why)
    amount(title, T("introduzcaImporte", "Introduzca el importe"), f"{cents // 100},{cents % 100:02d}")
    wait("the charge", lambda: len(sql(ROW)) == len(books.movements) + 1)
    books.file(cents, cents, 0, money(), "COBRO_MANUAL", error=why)
    able()
    agree()


def by_hand_at_the_device(button):
    """Of the recycler's own window."""
    recycler.window("ZVSimulador").button(button).press()


def count_goes_wrong():
    """From the next question on the device counts seven cents too few."""
    by_hand_at_the_device("Fallos…")
    faults = recycler.window("Fallos a demanda")
    faults.button("Descuadre de -7 c").press()
    recycler.gone(faults)
    return -7


# ---- in the evening

def label(key, spanish):
    return caption("frmCaja", key, spanish)


CONTROLS = {
    "leave": ("boton_0", "Salir"), "print": ("boton_1", "Imprimir"),
    "levels": ("boton_2", "Cierre¬Niveles Óptimos"), "value": ("boton_3", "Cierre¬por valor"),
    "reconcile": ("boton_4", "Cuadrar¬con Zorvex"), "coins": ("boton_5", "Vaciado¬Cajón Monedas"),
    "notes": ("boton_6", "Vaciado¬Cajón Billetes"), "export": ("boton_9", "Export¬CSV")}


class Evening:
    """The cash office, opened."""

    def __init__(self, wrong=0):
        self.wrong = wrong  # cents that the device counts too many
        footer(caption("frmZVMonitor", "boton_1", "Caja"))
        self.window = monitor.window(label("lbTitulo", "Cierre de Caja"))
        # What stands in the cells is compared; the till's own movements have no seller.
        check("controls without a name", [],
              [each for each in nameless(self.window) if each.role != "table cell"])
        buttons = self.window.buttons()
        self.buttons = {what: buttons[label(*key)] for what, key in CONTROLS.items()}
        self.closed = False
        self.listed = bool(books.period())  # what can be printed is looked at as it comes up
        self.shows()

    def able(self):
        held = parts(self.wrong)
        expected = {"leave": True, "reconcile": True, "levels": not self.closed,
                    "value": not self.closed, "coins": held.coin_box > 0, "notes": held.note_box > 0,
                    "print": self.listed, "export": self.listed}
        wait(f"the buttons {expected}",
             lambda: {what: self.buttons[what].enabled for what in expected} == expected)

    def shows(self):
        """The period and the device, as they ought to be."""
        held = parts(self.wrong)
        books.refresh(held)
        totals = books.totals
        rows, final = [], 0
        for each in books.period():
            final += each.taken - each.given
            rows.append((concept_of(each, T), each.terminal, each.seller, signed(each.sale), signed(final)))
        grid = self.window.table(label("grdZV", "Listado de movimientos"))
        wait("the movements", lambda: grid.count() == len(rows))
        heads = [T(*each) for each in (("concepto2", "Concepto"), ("vendedor", "Vendedor"),
                                       ("terminal2", "Terminal"), ("venta2", "Venta"),
                                       ("saldoZV2", "Saldo ZV"))]
        check("the movements", rows, [tuple(row[head] for head in heads) for row in grid.rows()])
        for key, spanish, cents in (
                ("lblCobros", "Cobros por ventas", totals.charges),
                ("lblAbonos", "Abonos por ventas", totals.refunds),
                ("lblPagos", "Pagos", totals.paid), ("lblIngresos", "Ingresos", totals.income),
                ("lblSaldoFinal", "SALDO FINAL", totals.final),
                ("lblContenido", "CONTENIDO ZV", held.total())):
            self.window.says(f"{label(key, spanish)} {signed(cents)}")
        for row, columns in ((("lblCambio", "Cambio"), (held.coins, held.notes)),
                             (("lblCB", "Cajones"), (held.coin_box, held.note_box))):
            for column, cents in zip((("lblMonedas", "Monedas"), ("lblBilletes", "Billetes")), columns):
                self.window.says(f"{label(*row)} {label(*column)} {euros(cents)}")
        self.able()
        agree()

    def press(self, what):
        self.buttons[what].press()

    def leave(self):
        self.press("leave")
        monitor.gone(self.window)
        able()

    # ---- closes

    def ask_levels(self, answer):
        self.press("levels")
        message(T("cierreCaja0", "Cierre de caja"),
                T("cierreCaja1", "Se va a proceder ha realizar un cierre de caja por niveles. Quiere"
                  " continuar?"), answer)

    def closes(self, start):
        """A close that start() begins."""
        before = parts(self.wrong)
        start()
        number = len(books.closes) + 1
        wait("the close", lambda: len(sql(CLOSE)) == number, 30)
        after = parts(self.wrong)
        moved = after.coin_box + after.note_box - before.coin_box - before.note_box
        if moved:
            books.file(-moved, 0, moved, after.total(), "ARQUEOCAJA")
        books.close(before, after)
        self.closed = True
        self.window.says(f"{label('lblSaldoCierre', 'SALDO CIERRE')} {euros(after.total())}")
        wait("Saldo_Inicial", lambda: registry("Saldo_Inicial") == str(after.total()))
        self.shows()
        return moved

    def close_levels(self):
        return self.closes(lambda: self.ask_levels(YES))

    def ask_value(self, typed, key):
        """What is proposed is all that the recycler holds."""
        self.press("value")
        window = monitor.window("Cierre", holding=caption("frmCash", "teci_13", "Retroceso"))
        check_names(window)
        held = parts(self.wrong)
        value = window.field("Importe:")
        check("what is proposed", euros(held.coins + held.notes), value.value())
        keys = window.buttons()
        for mark in typed:
            keys[mark].press()
        if typed:
            value.reads(typed)
        window.button(caption("frmCash", *key)).press()
        monitor.gone(window)

    def close_value(self, typed):
        return self.closes(lambda: self.ask_value(typed, ("teci_11", "Entrar")))

    # ---- boxes

    def empty(self, what):
        held = parts(self.wrong)
        value = held.coin_box if what == "coins" else held.note_box
        self.press(what)
        wait("the emptied box", lambda: len(sql(ROW)) == len(books.movements) + 1)
        books.file(-value, 0, value, parts(self.wrong).total(), "VACIADO",
                   pay="MONEDAS" if what == "coins" else "BILLETES")
        self.shows()

    def reconcile(self, out=0, entry=None):
        """out: what a hand has taken from the boxes. entry: whether a wrong count gets its entry;
        None where there is none."""
        before, lines = parts(self.wrong), len(books.movements)
        self.press("reconcile")
        right = money() if entry is None else before.total() - self.wrong - out
        difference = before.total() - (right + out)
        if entry is not None:
            question = "".join((
                T("descuadreDetectado2", "Se ha detectado un descuadre entre el último saldo de"
                  " Zorvex y el actual de: "), signed(before.total() - right), "\n\n",
                T("descuadreDetectado3", "¿Desea hacer un apunte de cuadre?")))
            message(T("descuadreDetectado", "Descuadre detectado"), question, YES if entry else NO)
        self.wrong = 0
        if difference and entry:
            if difference > 0:
                books.file(-difference, 0, difference, right, "VACIADOCAJONES")
            else:
                books.file(difference, -difference, 0, right, "CASHBOXCONTROL")
        if out:
            books.file(-out, 0, out, right, "VACIADOCAJONES")
        if before.total() != right:
            number = len(books.closes) + 1
            wait("the close by itself", lambda: len(sql(CLOSE)) == number, 30)
            after = parts()
            books.file(-out, 0, out, after.total(), "ARQUEOCAJA")
            books.close(before, after)
            wait("Saldo_Inicial", lambda: registry("Saldo_Inicial") == str(after.total()))
        else:
            wait("the journal", lambda: sum("ZVCASHBOXCONTROL_CASHBOXCONTROL" in line
                                            for line in log()) > 0)
            check("what was filed", lines, len(books.movements))
        self.shows()


def signed(cents):
    return ("-" if cents < 0 else "") + euros(abs(cents))


# ---- Monday
able()
sell(4735)
sell(6890, "TPV2", "Íñigo")
sell(-450)
sell(12080)
change()
float_in()
pay_out("Pan", 1250)
evening = Evening()
evening.ask_levels(NO)
evening.shows()
check("a close by levels moves what is too much", True, evening.close_levels() > 0)
evening.empty("notes")
evening.leave()

# ---- Tuesday: two closes, and a reconciling that finds nothing
sell(2365)
charge_by_hand("Parking", 750)
evening = Evening()
evening.ask_value("", ("teci_12", "Cancelar"))
evening.shows()
check("a close by value moves the rest", True, evening.close_value("150") > 0)
evening.empty("coins")
evening.empty("notes")
evening.leave()
evening = Evening()
evening.reconcile()
evening.close_levels()
evening.leave()

# ---- Wednesday: nothing is moved by a close of all that there is
float_in()
sell(1995)
evening = Evening()
check("a close by value of all that there is", 0, evening.close_value(""))
evening.leave()

# ---- Thursday: the boxes go to the bank before the monitor is told
sell(8640)
sell(15010, "TPV2", "Íñigo")
evening = Evening()
evening.close_value("100")
evening.leave()
sell(330)
held = parts()
by_hand_at_the_device("Retirar a mano el cajón de monedas")
by_hand_at_the_device("Retirar a mano el cajón de billetes")
evening = Evening()
evening.reconcile(out=held.coin_box + held.note_box)
evening.leave()

# ---- Friday: the count is wrong, and an entry is made for it
float_in()
sell(1205)
wrong = count_goes_wrong()
evening = Evening(wrong)
evening.reconcile(entry=True)
evening.leave()

# ---- Saturday: wrong again, notes gone, and no entry
sell(6060)
evening = Evening()
evening.close_value("50")
evening.leave()
sell(545)
held = parts()
by_hand_at_the_device("Retirar a mano el cajón de billetes")
wrong = count_goes_wrong()
evening = Evening(wrong)
evening.reconcile(out=held.note_box, entry=False)
evening.leave()

check("the closes of the week", 9, len(books.closes))
agree()
