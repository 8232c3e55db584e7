"""What barcode.sh sees and does: arguments as for cashier.py."""

from bus import check, check_names, wait
from cashier import ACCEPT, T, YES, caption, euros, footer, main, message, monitor
from till import FOLDER, sql, wait_rows

# A label of a scale: a digit of its own, the ticket, the amount in cents, a check digit.
SCAN, TICKET, CENTS = "2001234012509", "001234", 1250


def label(key, spanish):
    return caption("Balanza", key, spanish)


def field(key, spanish, group=None):
    """A field is called by its label, and by what it belongs to."""
    return label(key, spanish) if group is None else f"{group} {label(key, spanish)}"


LENGTH = field("TBal_0_Lit", "Longitud código EAN (base 1)")
WITH_TICKET = label("Check1_Lit", "Incluir codigo del tícket")
VALUE = label("lblValor_Lit", "Incluir valor del ticket")
TICKET_FROM, TICKET_TO = (field(*each, WITH_TICKET) for each in (("TBal_1_Lit", "De:"), ("TBal_2_Lit", "a:")))
VALUE_FROM, VALUE_TO = (field(*each, VALUE) for each in (("TBal_3_Lit", "De:"), ("TBal_4_Lit", "a:")))
DECIMALS = field("TBal_5_Lit", "Numero de decimales en el importe")
TRIAL = label("tbPrueba_Lit", "Escanee un ticket")


def box(text):
    """The plain box, answered."""
    window = monitor.window("ZVMonitor")
    window.says(text)
    window.button(ACCEPT).press()
    monitor.gone(window)


def settings():
    footer(caption("frmZVMonitor", "boton_12", "Configurar"))
    return monitor.window(caption("frmCfgMonitor", "lbTitulo", "Monitor - Configuración"))


def open_layout(screen):
    screen.button(caption("frmCfgMonitor", "boton_13", "Conf. Código de Barras")).press()
    return monitor.window(label("lbTitulo_Lit", "Configuración - Codigo de barras"))


def cells(letters):
    strip = layout.find("label", label("tira_Lit", "Celdas del código"))
    wait(f"the cells {letters}", lambda: strip.node.get_description() == letters)


def enter(name, text, then=None):
    """Typed and ended by Enter; then: the field that has the keyboard afterwards."""
    layout.field(name).type(text)
    layout.key("Return")
    if then is not None:
        wait(f"the keyboard in {then}", lambda: "focused" in layout.field(then).states)


screen = settings()
layout = open_layout(screen)
check_names(layout)
check("the fields", ["0"] * 6, [layout.field(name).value() for name in (
    LENGTH, TICKET_FROM, TICKET_TO, VALUE_FROM, VALUE_TO, DECIMALS)])
check("the ticket's switch", False, layout.choice(WITH_TICKET).checked)

# ---- the strip counts what is scanned, and takes its colours from what is typed
layout.field(TRIAL).type(SCAN)
cells("." * 13)
enter(LENGTH, "13", TICKET_FROM)
layout.choice(WITH_TICKET).press()
wait("the switch", lambda: layout.choice(WITH_TICKET).checked)
enter(TICKET_FROM, "2", TICKET_TO)
enter(TICKET_TO, "7", VALUE_FROM)
cells(".TTTTTT......")
layout.field(VALUE_FROM).type("7")
layout.key("Return")
layout.field(VALUE_FROM).reads("0")  # within the ticket: refused
enter(VALUE_FROM, "8", VALUE_TO)
enter(VALUE_TO, "12", VALUE_TO)
cells(".TTTTTTIIIII.")
layout.says(f"{label('lblTicket_Lit', 'Código')} {TICKET}")
layout.says(f"{label('lblImporte_Lit', 'A cobrar')} {euros(CENTS * 100)}")

# ---- the decimals are at most those of the device
layout.field(DECIMALS).type("3")
layout.button(label("boton_1_Lit", "Aceptar")).press()
box(f"{T('errorDecimalesCodigoBarras', 'El numero de decimales tiene que ser inferior a')} 2")
layout.field(DECIMALS).reads("0")
layout.field(DECIMALS).type("2")
layout.says(f"{label('lblImporte_Lit', 'A cobrar')} {euros(CENTS)}")
layout.button(label("boton_1_Lit", "Aceptar")).press()
monitor.gone(layout)

# ---- nothing is the till's before it is saved
check("the queue", ["0"], sql("SELECT count(*) FROM cola"))
screen.button(caption("frmCfgMonitor", "boton_1", "Guardar")).press()
message(T("atencion", "¡Atención!"), T("deseaGuardar", "¿Desea guardar los cambios?"), YES)
monitor.gone(screen)
with open(f"{FOLDER}/ZVMonitor.ini", encoding="cp1252", newline="") as file:
    written = [line for line in file.read().splitlines() if line.startswith("BC")]
check("the settings", ["BCEAN=13", "BCTPRE=1", "BCTINI=2", "BCTFIN=7", "BCIINI=8", "BCIFIN=12", "BCDEC=2"],
      written)


# ---- a scan is sold
def scan(code):
    scanner = main.field(caption("frmZVMonitor", "TextIni", "Código de barras"))
    # For a second behind a scan what comes is dropped, and the box emptied.
    wait("the keyboard in the empty box of the scanner",
         lambda: "focused" in scanner.states and not scanner.value())
    main.x("type", "--delay", "5", code)
    main.key("Return")


scan(SCAN)
wait_rows("the sale", "SELECT id1, importeVenta, estado FROM procesados", [f"{TICKET}|{CENTS}|OK"])
scan(SCAN[:-1])
box(T("errorLongitudCodigoBarras",
      "El mensaje tiene que tener la misma lungitud que la de la configuración"))
check("the sales", ["1"], sql("SELECT count(*) FROM procesados"))

# ---- a length of 0 switches the scanner off
screen = settings()
layout = open_layout(screen)
cells(".TTTTTTIIIII.")
enter(LENGTH, "0", TICKET_FROM)
check("the fields behind it", ["0"] * 5, [layout.field(name).value() for name in (
    TICKET_FROM, TICKET_TO, VALUE_FROM, VALUE_TO, DECIMALS)])
layout.button(label("boton_1_Lit", "Aceptar")).press()
monitor.gone(layout)
screen.button(caption("frmCfgMonitor", "boton_1", "Guardar")).press()
message(T("atencion", "¡Atención!"), T("deseaGuardar", "¿Desea guardar los cambios?"), YES)
monitor.gone(screen)
scanner = main.field(caption("frmZVMonitor", "TextIni", "Código de barras"))
scan("77")
wait("what stays in the box", lambda: scanner.value() == "77")
check("the sales", ["1"], sql("SELECT count(*) FROM procesados"))
