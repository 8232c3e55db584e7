"""The books of a shop's cash office, worked out a second time: from the operations that were done, the
money that lies in the recycler's file, and the tables of which movement counts as what. Nothing here
looks into the program's own tables."""

import json
from dataclasses import dataclass, field

from till import FOLDER

LARGEST_COIN = 200


@dataclass
class Parts:
    """What the device holds, in cents."""
    coins: int = 0
    notes: int = 0
    coin_box: int = 0
    note_box: int = 0

    def total(self):
        return self.coins + self.notes + self.coin_box + self.note_box

    def all_coins(self):
        return self.coins + self.coin_box

    def all_notes(self):
        return self.notes + self.note_box


def parts(wrong=0):
    """As the device counts them; wrong: how many cents it counts too many."""
    with open(f"{FOLDER}/simulador/dinero.json", encoding="utf-8") as file:
        held = json.load(file)["dinero"]

    def value(where, coins):
        return sum(int(piece) * count for piece, count in held[where].items()
                   if (int(piece) <= LARGEST_COIN) == coins)
    return Parts(value("reciclador", True) + wrong, value("reciclador", False),
                 value("cajones", True), value("cajones", False))


@dataclass
class Movement:
    sale: int
    taken: int
    given: int
    balance: int
    id1: str
    terminal: str = "ZV"
    seller: str = ""
    pay: str = ""
    error: str = ""
    state: str = "OK"
    close: int = 0

    def row(self):
        return "|".join(str(each) for each in (
            self.sale, self.taken, self.given, self.balance, self.state, self.id1, self.terminal,
            self.seller, self.pay, self.error, self.close))


ROW = ("SELECT importeVenta, cobrado, devuelto, saldoZV, estado, id1, terminal, vendedor, formapago,"
       " error, idCierre FROM procesados ORDER BY idZV")
CLOSE = ("SELECT saldoInicial, cobros, abonos, ingresos, pagos, saldoZV, importeCierre, cambioBilletes,"
         " cambioMonedas, cajonBilletes, cajonMonedas FROM cierres ORDER BY idCierre")

# Key and default of the concept of each movement of the till's own. What the record tells stands
# right behind those that end in a blank, which a look-up drops.
CONCEPTS = {
    "CASHBOXCONTROL": ("ajustePorDescuadre", "Ajuste por descuadre"),
    "VACIADOCAJONES": ("vaciadoCajones", "Vaciado de cajones"),
    "ARQUEOCAJA": ("arqueoCaja", "Arqueo de caja"),
    "METER_CAMBIO": ("cambiAñadido", "Cambio añadido"),
    "PAGO_CAMBIO": ("cambioCancelado", "Cambio cancelado/no autorizado"),
    "DAR_CAMBIO": ("cambio", "Cambio"),
}


def concept(movement, translate):
    out = movement.given > 0 and movement.taken == 0
    if movement.terminal != "ZV":
        return translate(*(("cobroVenta", "Cobro Venta") if movement.sale > 0 else
                           ("abonoVenta", "Abono Venta")))
    if movement.id1 == "COBRO_MANUAL":
        key = ("abonoManual", "Abono Manual - ") if out else ("cobroManual", "Cobro Manual - ")
        return translate(*key) + movement.error
    if movement.id1 == "PAGO":
        return translate("pago", "Pago - ") + movement.error
    if movement.id1 == "VACIADO":
        return translate("vaciado", "VACIADO ") + movement.pay
    return translate(*CONCEPTS[movement.id1])


@dataclass
class Totals:
    charges: int = 0
    refunds: int = 0
    paid: int = 0
    income: int = 0
    final: int = 0

    def add(self, movement):
        net = movement.taken - movement.given
        self.final += net
        if movement.terminal != "ZV":
            if movement.sale > 0:
                self.charges += net
            else:
                self.refunds += movement.given
        elif movement.id1 == "COBRO_MANUAL":
            if movement.given > 0 and movement.taken == 0:
                self.refunds += movement.given
            else:
                self.charges += net
        elif movement.id1 == "CASHBOXCONTROL":
            self.income += max(movement.taken, 0)
            self.paid += max(movement.given, 0)
        elif movement.id1 == "METER_CAMBIO":
            self.income += net
        elif movement.id1 != "DAR_CAMBIO":
            self.paid += movement.given


@dataclass
class Books:
    movements: list = field(default_factory=list)
    closes: list = field(default_factory=list)
    opening: int = 0  # balance of the period
    # What the screen showed at its last refresh: a close takes these.
    totals: Totals = None
    content: int = 0

    def file(self, *args, **more):
        self.movements.append(Movement(*args, **more))

    def period(self):
        return [each for each in self.movements if each.close == 0]

    def refresh(self, held):
        self.totals = Totals()
        for each in self.period():
            self.totals.add(each)
        self.content = held.total()

    def close(self, before, after):
        self.closes.append("|".join(str(each) for each in (
            self.opening, self.totals.charges, self.totals.refunds, self.totals.income,
            self.totals.paid, self.content, after.total(), after.notes, after.coins,
            before.all_notes() - after.all_notes(), before.all_coins() - after.all_coins())))
        for each in self.period():
            each.close = len(self.closes)
        self.opening = after.total()

    def rows(self):
        return [each.row() for each in self.movements]
