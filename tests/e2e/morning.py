"""A morning's work at the till, through the names of its controls: what morning.sh sees and does, and
the books that it keeps beside the program's own. Arguments as for cashier.py; under a language file a
part of it is done."""

import sys
import time

from bus import check, check_names, wait
from cashier import *  # noqa: F403
from till import Books, log, put_sale, sql, wait_rows

# The password of each user, and the number of his role.
USERS = {"ANA": ("1234", 0), "BEA": ("5678", 1), "LUZ": ("9012", 2)}

whole = not sys.argv[4]
books = Books()


# ---- users

def comes_in(user, place, listed=False):
    """This user identifies, and may."""
    monitor.gone(login(user, USERS[user][0], listed))
    books.user = user
    books.entered(place)


def leaves_login():
    window = monitor.window(T("identificacion", "Identificación"))
    window.button(caption("frmLogin", "teci_11", "Cancelar")).press()
    monitor.gone(window)
    books.user = ""


def users_are(*users):
    wait_rows("Usuarios", "SELECT nombre, password, Rol FROM Usuarios ORDER BY nombre",
              [f"{user}|{USERS[user][0]}|{USERS[user][1]}" for user in users])


def users_made():
    screen = UserScreen()
    if whole:
        screen.fill("ANA", "1234", 2)
        screen.save(CREATE, T("crearUsuario1", "El primer usuario a crear debe ser un Administrador"))
        screen.fill("zvFast ", "1234", 0)
        screen.save(CREATE, T("crearUsuario2", "Debes introducir una nombre valido"))
        screen.fill("ANA", "123", 0)
        screen.save(CREATE, T("crearUsuario3", "Debes introducir una contraseña de mas de 4 digitos"))
    screen.fill("ANA", *USERS["ANA"])
    screen.saved()
    for user in ("LUZ", "BEA"):
        screen = UserScreen()
        screen.fill(user, *USERS[user])
        screen.saved()
    users_are("ANA", "BEA", "LUZ")
    if not whole:
        return
    # The last administrator stays one, and somebody else goes.
    screen = UserScreen()
    screen.fill("ANA", "4321", 1)
    screen.save(T("errorGuardarUsuario0", "Error guardado"),
                T("errorGuardarUsuario1", "No puedes canviar el rol al unico usuario administrador"))
    screen.ends()
    screen = UserScreen()
    screen.fill("ANA", "1234", 0)
    screen.press("btnEliminar", "Eliminar")
    message(T("errorBorrarUsuario0", "Error borrar"),
            T("errorBorrarUsuario1",
              "No puedes eliminar el usuario administrador mientras existan otros usuarios"),
            program=screen.program)
    screen.ends()
    users_are("ANA", "BEA", "LUZ")


def password_changed():
    """LUZ changes her own, after two that do not do."""
    footer(PASSWORD)
    window = monitor.window(T("modificarContraseña", "Modificar contraseña"))
    check_names(window)
    window.choice("LUZ").press()
    fields = [window.field(caption("frmLogin", *each)) for each in (
        ("lblPassword", "Contraseña"), ("lblNewPassword", "Nueva contraseña"),
        ("lblRepeatPassword", "Repetir contraseña"))]

    keys = window.buttons()

    def enter(*passwords):
        for field, password in zip(fields, passwords):
            field.press()
            field.key("ctrl+a", "Delete")
            wait("an empty field", lambda: field.length() == 0)
            for digit in password:
                keys[digit].press()
            wait("the password", lambda: field.length() == len(password))
        window.button(caption("frmLogin", "teci_10", "Entrar")).press()

    enter("9012", "345", "345")
    message(CREATE, T("crearUsuario3", "Debes introducir una contraseña de mas de 4 digitos"))
    enter("9012", "3456", "3465")
    message(T("contraseñaIncorrecta0", "Contraseña incorrecta"),
            T("contraseñaIncorrecta2", "Las contraseñas introducidas no coinciden"))
    enter("9012", "3456", "3456")
    monitor.gone(window)
    USERS["LUZ"] = ("3456", 2)
    users_are("ANA", "BEA", "LUZ")
    books.agree()


# ---- change, float, pay-out, charge by hand

def journal(call, tag, result, *values):
    books.wrote(f"ZV{call}_{tag}_{result}: " + " ".join(values))


def change_line(result, taken, given):
    journal("CHANGE", "DARCAMBIO", result, f"PAIDINVALUE={taken}", f"PAIDOUTVALUE={given}")


def float_line(result, taken):
    journal("ADDCHANGE", "AÑADIRCAMBIO", result, f"PAIDINVALUE={taken}")


def pay_line(tag, result, cents, given):
    journal("PAY", tag, result, f"VALUEINCENTS={cents}", f"PAIDOUTVALUE={given}")


def charge_line(tag, result, cents, taken, given):
    journal("CHARGE", tag, result, f"VALUEINCENTS={cents}", f"PAIDINVALUE={taken}",
            f"PAIDOUTVALUE={given}")


def give_change():
    # A note of 20 is changed; the cashier says when it is all.
    work = change()
    work.window.says(caption("frmOperacion", "Cambio", "Introduzca el dinero que quiere cambiar"))
    work.window.says(caption("frmOperacion", "PulseTerminar", "Pulse Terminar cuando acabe"))
    work.puts(2000).finish()
    books.wrote("DARCAMBIO_BEGINTRANS")
    change_line("OK", 2000, 2000)
    books.record("DARCAMBIO", 2000, 2000, 2000, "OK", "DAR_CAMBIO")
    books.wrote("DARCAMBIO_COMMIT")
    books.agree()
    # Nothing was put in: nothing is written.
    change().finish()
    books.wrote("DARCAMBIO_BEGINTRANS", "DARCAMBIO_COMMIT")
    books.agree()


def give_change_badly():
    # Cancelled with money in.
    change().puts(1000).cancel()
    books.wrote("DARCAMBIO_BEGINTRANS")
    change_line("CANCEL", 1000, 1000)
    books.record("DARCAMBIO_CANCEL", 1000, 1000, 1000, "CANCEL", "DAR_CAMBIO", "Cambio cancelado")
    books.wrote("DARCAMBIO_COMMIT")
    books.agree()
    # The device fails (rule cambio#4).
    footer(DAR_CAMBIO)
    code, words = device_says(T("darCambioAnulado", "Dar cambio anulado")).split(": ", 1)
    check("the device's error", "12", code)
    books.wrote("DARCAMBIO_BEGINTRANS")
    change_line("ERRORZV12", 0, 0)
    books.record("DARCAMBIO_ERRORZV", 0, 0, 0, "ERROR", "DAR_CAMBIO",
                 f"Error al dar cambio ZV: 12 - {words}")
    books.wrote("DARCAMBIO_COMMIT")
    books.agree()


def float_added():
    work = float_in()
    work.window.says(caption("frmOperacion", "MeterCambio", "Introduzca el cambio en Zorvex"))
    work.puts(1000, 2000).finish()
    books.moved(3000)
    books.wrote("AÑADIRCAMBIO_BEGINTRANS")
    comes_in("LUZ", "authCambio", listed=True)
    float_line("OK", 3000)
    books.record("AÑADIRCAMBIO_OK", 3000, 3000, 0, "OK", "METER_CAMBIO")
    books.wrote("AÑADIRCAMBIO_COMMIT")
    books.agree()


def float_refused():
    # Nobody authorises it: the money comes back, after a question that may be taken back.
    float_in().puts(500).finish()
    window = monitor.window(T("identificacion", "Identificación"))
    cancel = caption("frmLogin", "teci_11", "Cancelar")
    title = T("añadirCambioAnulado", "Añadir cambio anulado")
    text = T("añadirCambioCancelado", "Se va a devolver el dinero introducido")
    window.button(cancel).press()
    message(title, text, NO)
    window.button(cancel).press()
    message(title, text, YES)
    monitor.gone(window)
    books.user = ""
    books.wrote("AÑADIRCAMBIO_BEGINTRANS")
    pay_line("AÑADIRCAMBIO_NOAUTH", "OK", 500, 500)
    books.record("AÑADIRCAMBIO_AUTH", -500, 0, 500, "OK", "PAGO_CAMBIO",
                 "Añadir Cambio Devuelto por no autorización")
    books.wrote("AÑADIRCAMBIO_COMMIT")
    books.agree()


def float_badly():
    # Nothing put in.
    float_in().finish()
    books.wrote("AÑADIRCAMBIO_BEGINTRANS", "AÑADIRCAMBIO_COMMIT")
    books.agree()
    # Cancelled with money in: in and out again.
    float_in().puts(1000).cancel()
    books.wrote("AÑADIRCAMBIO_BEGINTRANS")
    float_line("CANCEL", 1000)
    books.record("AÑADIRCAMBIO_CANCEL", 1000, 1000, 0, "OK", "METER_CAMBIO",
                 balance=books.balance + 1000)
    books.record("AÑADIRCAMBIO_CANCEL", -1000, 0, 1000, "OK", "PAGO_CAMBIO", "Cambio cancelado")
    books.wrote("AÑADIRCAMBIO_COMMIT")
    books.agree()
    # Cancelled with nothing in: one record of nothing.
    float_in().cancel()
    books.wrote("AÑADIRCAMBIO_BEGINTRANS")
    float_line("CANCEL", 0)
    books.record("AÑADIRCAMBIO_CANCEL", 0, 0, 0, "OK", "METER_CAMBIO")
    books.wrote("AÑADIRCAMBIO_COMMIT")
    books.agree()
    # The device fails (rule ingreso#8).
    footer(METER_CAMBIO)
    code, words = device_says(T("añadirCambioAnulado", "Añadir cambio anulado")).split(": ", 1)
    check("the device's error", "31", code)
    books.wrote("AÑADIRCAMBIO_BEGINTRANS")
    float_line("ERRORZV31", 0)
    books.record("AÑADIRCAMBIO_ERRORZV", 0, 0, 0, "ERROR", "METER_CAMBIO",
                 f"Error al añadir cambio: 31 - {words}")
    books.wrote("AÑADIRCAMBIO_COMMIT")
    books.agree()


# ---- a link that is lost for so long that the client gives up (rules with a time behind the cut)

AWAY = 9  # s: as long as the shorter rules have the device refuse connections
LONG_AWAY = 14
LOST = T("pasarelaEnlacePerdido", "Se ha perdido la comunicación con Zorvex")


def gives_up():
    """The balance cannot be read any more, and the operator is told."""
    return monitor.window(f"Monitor - {T('operacionAnulada', 'Operación anulada')}", limit=30)


def message_gone(window):
    check_names(window)
    window.button(ACCEPT).press()
    monitor.gone(window)


def other_balance():
    """What every connection says whose balance is another than the last one."""
    message(T("inicializacion", "Inicialización"), "\n".join((
        T("inicializacion2",
          "El saldo de Zorvex ha variado desde la última vez que se ejecutó la aplicación: "),
        T("ultimoSaldoRegistrado", "Último Saldo Registrado: ") + euros(0),
        T("saldoActual", "Saldo Actual: ") + euros(books.balance))))


def found_again(since):
    """The device is back before the operator answers: the operation begins anew."""
    told = gives_up()
    wait("the device's return", lambda: time.monotonic() > since + AWAY + 0.5)
    message_gone(told)
    other_balance()
    books.wrote("ZVCONNECT_DESCONECTARZORV_DISCONNECT_OK", "ZVCONNECT_CONECTARZORV_CONNECT_OK")


def not_found():
    """It is not: the operation ends with its error."""
    message_gone(gives_up())
    window = monitor.window(f"Monitor - {T('errorDeZorvex', 'Error de Zorvex')}")
    said = window.texts()[1].replace("\r\n", "\n").split("\n")
    check("what is said", [T("problemaComunicacion", "Existe un problema de comunicación con Zorvex."),
                           T("consulteConSuTecnico", "Consulte con su técnico el siguiente error: ")],
          said[:2])
    message_gone(window)
    books.wrote("ZVCONNECT_DESCONECTARZORV_DISCONNECT_OK",
                f"ZVCONNECT_CONECTARZORV_CONNECT_ERRORZV{said[2].split(':')[0]}")


def connect_again(since, away):
    wait("the device's return", lambda: time.monotonic() > since + away + 0.5, away + 1)
    footer(CONECTAR)
    other_balance()
    books.wrote("ZVCONNECT_CONECTARZORV_CONNECT_OK")
    wait("the buttons of the connected till", lambda: footer_buttons[DAR_CAMBIO].enabled)


def change_lost():
    work = change()
    insert(1000)
    since = work.loses_link()
    books.wrote("DARCAMBIO_BEGINTRANS")
    found_again(since)
    Operation(CHANGE).puts(500).finish()
    books.wrote("DARCAMBIO_BEGINTRANS")
    change_line("OK", 500, 500)
    books.record("DARCAMBIO", 500, 500, 500, "OK", "DAR_CAMBIO")
    books.wrote("DARCAMBIO_COMMIT")
    books.agree()


def float_lost():
    work = float_in()
    insert(1000)
    since = work.loses_link()
    books.wrote("AÑADIRCAMBIO_BEGINTRANS")
    not_found()
    check("what the device says", f"1: {LOST}",
          device_says(T("añadirCambioAnulado", "Añadir cambio anulado")))
    float_line("ERRORZV1", 0)
    books.record("AÑADIRCAMBIO_ERRORZV", 0, 0, 0, "ERROR", "METER_CAMBIO",
                 f"Error al añadir cambio: 1 - {LOST}", balance=0)
    books.wrote("AÑADIRCAMBIO_COMMIT")
    connect_again(since, LONG_AWAY)
    books.agree()


def pay_out_lost():
    pay_out("Taxi", "7")
    since = Operation(PAY).loses_link()
    books.wrote("PAGO_BEGINTRANS (700)")
    found_again(since)
    # All is asked again.
    comes_in("BEA", "authPago")
    concept(PAY_TITLE, PAY_PROMPT, "Taxi dos")
    amount("Pago", "Importe a pagar", "3,20")
    books.moved(-320)
    books.wrote("PAGO_BEGINTRANS (320)")
    pay_line("PAGO", "OK", 320, 320)
    books.record("PAGO", -320, 0, 320, "OK", "PAGO", "Taxi dos")
    books.wrote("PAGO_COMMIT")
    books.agree()


def charge_by_hand_lost():
    by_hand("Cesta", "6")
    work = charging(600)
    insert(500)
    since = work.loses_link()
    books.wrote("COBROMAN_BEGINTRANS")
    found_again(since)
    books.wrote("COBROMAN_ROLLBACK", "COBROMAN_BEGINTRANS")
    # The concept stands already.
    amount(MANUAL_TITLE, MANUAL_AMOUNT, "6,50")
    charging(650).puts(500, 100, 50).ends()
    books.moved(650)
    charge_line("COBROMAN", "OK", 650, 650, 0)
    books.record("COBROMAN_OK", 650, 650, 0, "OK", "COBRO_MANUAL", "Cesta")
    books.wrote("COBROMAN_COMMIT")
    books.agree()


PAY_TITLE = T("pago11", "Pago")
PAY_PROMPT = T("pago12", "Introduzca el concepto del pago")


def pay_out(why, typed):
    """As far as the device."""
    footer(PAGO)
    comes_in("BEA", "authPago")
    concept(PAY_TITLE, PAY_PROMPT, why)
    if why:
        amount("Pago", "Importe a pagar", typed)


def paid_out():
    pay_out("Reparto", "12,50")
    books.moved(-1250)
    books.wrote("PAGO_BEGINTRANS (1250)")
    pay_line("PAGO", "OK", 1250, 1250)
    books.record("PAGO", -1250, 0, 1250, "OK", "PAGO", "Reparto")
    books.wrote("PAGO_COMMIT")
    books.agree()


def pay_out_not_at_all():
    # Whose rank does not do is told so; who goes away is not.
    footer(PAGO)
    monitor.gone(login("LUZ", USERS["LUZ"][0]))
    books.user = "LUZ"
    message(T("usuarios", "Usuarios"), T("usuarioNoAutorizado", "Usuario no autorizado"))
    books.agree()
    footer(PAGO)
    leaves_login()
    books.agree()
    # A wrong password can be mended.
    footer(PAGO)
    window = login("BEA", "9999")
    message(T("contraseñaIncorrecta0", "Contraseña incorrecta"),
            T("contraseñaIncorrecta1", "La contraseña introducida es incorrecta"))
    monitor.gone(login("BEA", USERS["BEA"][0]))
    monitor.gone(window)
    books.user = "BEA"
    books.entered("authPago")
    # Without a concept there is no payment, and none of nothing.
    concept(PAY_TITLE, PAY_PROMPT, "")
    message(T("pagoAnulado", "Pago anulado"),
            T("pagoAnulado2", "No se puede realizar un pago sin indicar el concepto"))
    books.agree()
    pay_out("Nada", "0")
    books.agree()


def pay_out_badly():
    # More than the device can give (code 4): told, and no record.
    pay_out("Mucho", "9999")
    code = device_says(T("pagoAnulado", "Pago anulado")).split(": ", 1)[0]
    check("the device's error", "4", code)
    books.wrote("PAGO_BEGINTRANS (999900)")
    pay_line("PAGO", "ERRORZV4", 999900, 0)
    books.wrote("PAGO_COMMIT")
    books.agree()
    # The device fails (rule pago#4), and somebody cancels at it (rule pago#5).
    pay_out("Falla", "6")
    code, words = device_says(T("pagoAnulado", "Pago anulado")).split(": ", 1)
    check("the device's error", "12", code)
    books.wrote("PAGO_BEGINTRANS (600)")
    pay_line("PAGO", "ERRORZV12", 600, 0)
    books.record("PAGO_ERRORZV", -600, 0, 0, "ERROR", "PAGO", f"Error en el pago: 12 - {words}")
    books.wrote("PAGO_COMMIT")
    books.agree()
    pay_out("Dejado", "6")
    books.wrote("PAGO_BEGINTRANS (600)")
    pay_line("PAGO", "CANCEL", 600, 0)
    books.record("PAGO_CANCEL", -600, 0, 0, "CANCEL", "PAGO", "Pago cancelado Dejado")
    books.wrote("PAGO_COMMIT")
    books.agree()


MANUAL_TITLE = T("cobroManual2", "Cobro manual")
MANUAL_CONCEPT = T("conceptoCobroManual", "Introduzca el concepto del cobro manual")
MANUAL_AMOUNT = T("introduzcaImporte", "Introduzca el importe")


def by_hand(why, typed):
    """As far as the amount."""
    footer(COBRO_MANUAL)
    comes_in("LUZ", "authCobro")
    concept(MANUAL_TITLE, MANUAL_CONCEPT, why)
    amount(MANUAL_TITLE, MANUAL_AMOUNT, typed)


def charged_by_hand():
    by_hand("Parking", "7,50")
    work = charging(750)
    work.puts(500)
    work.says(("lbFalta", "Pendiente"), 250)
    work.puts(500).ends()
    books.moved(750)
    books.wrote("COBROMAN_BEGINTRANS")
    charge_line("COBROMAN", "OK", 750, 1000, 250)
    books.record("COBROMAN_OK", 750, 1000, 250, "OK", "COBRO_MANUAL", "Parking")
    books.wrote("COBROMAN_COMMIT")
    books.agree()


def charged_without_amount():
    # An accepted 0 takes whatever is put in.
    by_hand("Bote", "0")
    Operation(FLOAT).puts(500, 200).finish()
    books.moved(700)
    books.wrote("COBROMAN_BEGINTRANS")
    charge_line("COBROMAN", "OK", 0, 700, 0)
    books.record("COBROMAN_OK", 700, 700, 0, "OK", "COBRO_MANUAL", "Bote")
    books.wrote("COBROMAN_COMMIT")
    books.agree()


def charged_with_no_amount():
    # The key for it says the same.
    footer(COBRO_MANUAL)
    comes_in("LUZ", "authCobro")
    concept(MANUAL_TITLE, MANUAL_CONCEPT, "Propina")
    amount(MANUAL_TITLE, MANUAL_AMOUNT, "", ("teci_14", "Sin importe"))
    Operation(FLOAT).puts(200).finish()
    books.moved(200)
    books.wrote("COBROMAN_BEGINTRANS")
    charge_line("COBROMAN", "OK", 0, 200, 0)
    books.record("COBROMAN_OK", 200, 200, 0, "OK", "COBRO_MANUAL", "Propina")
    books.wrote("COBROMAN_COMMIT")
    books.agree()


def charge_by_hand_badly():
    footer(COBRO_MANUAL)
    comes_in("LUZ", "authCobro")
    concept(MANUAL_TITLE, MANUAL_CONCEPT, "")
    message(T("cobroManualAnulado", "Cobro manual anulado"),
            T("noSePuedeRealizarCobroManual",
              "No se puede realizar un cobro manual sin indicar el concepto"))
    books.agree()
    # The amount is cancelled, which is not a 0.
    footer(COBRO_MANUAL)
    comes_in("LUZ", "authCobro")
    concept(MANUAL_TITLE, MANUAL_CONCEPT, "Nada")
    amount(MANUAL_TITLE, MANUAL_AMOUNT, "", ("teci_12", "Cancelar"))
    books.agree()
    # Code 27 with money in (rule cobro#2) is booked, another code (rule cobro#3) is not.
    by_hand("Corto", "20")
    charging(2000).puts(500, last=True).ends()
    code, words = device_says(T("errorDeZorvex", "Error de Zorvex")).split(" - ", 1)
    check("the device's error", "27", code)
    books.moved(500)
    books.wrote("COBROMAN_BEGINTRANS")
    charge_line("COBROMAN", "ERROR_27", 2000, 500, 0)
    books.record("COBROMAN_ERRORZV", 2000, 500, 0, "ERROR", "COBRO_MANUAL", f"27 - {words}")
    books.wrote("COBROMAN_COMMIT")
    check("the log of the failure", 1, log().count(f">>> Error en Zorvex: 27 - {words}"))
    books.agree()
    by_hand("Falla", "3")
    check("the device's error", "5", device_says(T("errorDeZorvex", "Error de Zorvex")).split(" ")[0])
    books.wrote("COBROMAN_BEGINTRANS")
    charge_line("COBROMAN", "ERROR_5", 300, 0, 0)
    books.wrote("COBROMAN_COMMIT")
    books.agree()
    # Cancelled: no record, and the state line tells it.
    by_hand("Dejado", "5")
    charging(500).puts(200).cancel()
    main.says(T("operacionCancelada", "Última operación cancelada. Cambiado a modo MANUAL"))
    books.wrote("COBROMAN_BEGINTRANS")
    charge_line("COBROMAN", "CANCEL", 500, 200, 200)
    books.wrote("COBROMAN_COMMIT")
    books.agree()


def floating_button():
    # From a program that covers the till: the main window comes back, and the charge over it.
    main.button(caption("frmZVMonitor", "btnW_0", "Minimizar")).press()
    wait("the minimised window", lambda: not main.seen)
    floating = monitor.window(MANUAL_TITLE)
    check("what floats", "push button", floating.role)
    floating.press()
    amount(MANUAL_TITLE, MANUAL_AMOUNT, "2")
    charging(200).puts(200).ends()
    wait("the main window", lambda: main.seen)
    books.moved(200)
    books.wrote("COBROMAN_BEGINTRANS")
    charge_line("COBROMAN", "OK", 200, 200, 0)
    books.record("COBROMAN_OK", 200, 200, 0, "OK", "COBRO_MANUAL", "VENTA")
    books.wrote("COBROMAN_COMMIT")
    books.agree()


# ---- rows of the queue

def queue(*sales):
    """Puts them behind those that wait."""
    waiting = len(sql("SELECT 1 FROM cola"))
    for id1, cents, terminal in sales:
        put_sale(cents, id1, terminal=terminal, vendedor="Ana", formapago="EFECTIVO")
    wait("the rows on the screen", lambda: main.table(QUEUE).count() == waiting + len(sales))


def key_of(id1):
    return int(sql(f"SELECT idZV FROM cola WHERE id1 = '{id1}'")[0])


def queued(*ids):
    wait_rows("the queue", "SELECT id1 FROM cola ORDER BY idZV", list(ids))
    wait("the queue on the screen", lambda: [row[ID] for row in main.table(QUEUE).rows()] == list(ids))


def marked(count, cents):
    main.says(f"{T('marcados', 'Marcados:')} {count}. "
              f"{T('pulseAgrupar', 'Pulse Agrupar cobros para cobrarlos')}")
    main.says(f"{T('sumaMarcados', 'Suma:')} {euros(cents)}")


def mark(*ids):
    footer(AGRUPAR)
    main.says(T("marqueCobros",
                "Toque los cobros que se pagan juntos, o pulse Agrupar cobros para dejarlo"))
    for id1 in ids:
        touch(id1, ID)


def group_of(ids):
    """Ends the marking and identifies; the group's rows and keys."""
    footer(AGRUPAR)
    keys = [key_of(id1) for id1 in ids]
    comes_in("LUZ", "authCobro")
    return keys


def grouped():
    queue(("G1", 1000, "B"), ("G2", 250, "A"), ("G3", 300, "B"), ("G4", 50, "B"))
    mark("G1", "G2", "G3")
    marked(3, 1550)
    touch("G4", ID)
    marked(4, 1600)
    touch("G2", ID)
    marked(3, 1350)
    keys = group_of(["G1", "G3", "G4"])
    charging(1350).puts(2000).ends()
    books.moved(1350)
    charge_line("AGR_MAN", "OK", 1350, 2000, 650)
    books.wrote("AGR_MAN_BEGINTRANS")
    # Of like terminals the first alone is found again.
    books.record("AGR_MAN", 1350, 2000, 650, "OK", "G1 + G3 + G4", "Cobro agrupado", terminal="B")
    for id1, cents, key in zip(("G1", "G3", "G4"), (1000, 300, 50), keys):
        books.record("AGR_MAN_DELCOLA_GRUPO_MANUAL", cents, 0, 0, "CANCEL", id1,
                     "Anulada por cobro agrupado MANUAL", terminal="B", row=key, seller="Ana",
                     pay="EFECTIVO", balance=0)
        books.wrote(f"PROCCOLA_DELCOLA_OK_{key} [AGR_MAN_DELCOLA_GRUPO_MANUAL]")
    books.wrote("AGR_MAN_COMMIT")
    queued("G2")
    books.agree()


def annulled(id1, cents, terminal):
    key = key_of(id1)
    touch(id1, ANULAR)
    comes_in("BEA", "authRegistro")
    concept(T("anularMovimiento", "Anular movimiento"),
            T("introduzcaCausa", "Introduzca la causa de la anulación"), "Repetido")
    books.wrote("ANULARCOBRO_BEGINTRANS")
    books.record("ZVMONITOR_CLICK", cents, 0, 0, "CANCEL", id1,
                 T("cobroAnulado", "Cobro Anulado: ") + "Repetido", terminal=terminal, row=key,
                 seller="Ana", pay="EFECTIVO", balance=0)
    books.wrote(f"PROCCOLA_DELCOLA_OK_{key} [ZVMONITOR_CLICK]", "ANULARCOBRO_COMMIT")
    books.agree()


def annulled_without_a_device(id1, cents, terminal):
    footer(DESCONECTAR)
    books.wrote("ZVCONNECT_DESCONECTARZORV_DISCONNECT_OK")
    main.says(T("pulseConectar", "Sin conexión: pulse Conectar"))
    annulled(id1, cents, terminal)
    # Now the queue stands still, and the line says so.
    main.says(T("colaParada", "Sin conexión y con la cola parada: minimice y abra la ventana, y "
                              "pulse Conectar"))
    wait("the foot of a stopped till", lambda: not footer_buttons[CONECTAR].enabled)
    # What the line says to do; what floats brings the till back, with a charge that is given up.
    main.button(caption("frmZVMonitor", "btnW_0", "Minimizar")).press()
    wait("the minimised window", lambda: not main.seen)
    monitor.window(MANUAL_TITLE).press()
    amount(MANUAL_TITLE, MANUAL_AMOUNT, "", ("teci_12", "Cancelar"))
    wait("the main window", lambda: main.seen)
    footer(CONECTAR)
    books.wrote("ZVCONNECT_CONECTARZORV_CONNECT_OK")
    wait("the buttons of the connected till", lambda: footer_buttons[DAR_CAMBIO].enabled)
    queued()
    books.agree()


def not_annulled(id1):
    # A rank that does not do, and no cause.
    touch(id1, ANULAR)
    monitor.gone(login("LUZ", USERS["LUZ"][0]))
    books.user = "LUZ"
    message(T("usuarios", "Usuarios"), T("usuarioNoAutorizado", "Usuario no autorizado"))
    touch(id1, ANULAR)
    comes_in("BEA", "authRegistro")
    concept(T("anularMovimiento", "Anular movimiento"),
            T("introduzcaCausa", "Introduzca la causa de la anulación"), "")
    message(T("anulacionCancelada", "Anulación cancelada"),
            T("anulacionCancelada2", "No se puede anular un movimiento sin indicar la causa"))
    books.agree()


def sent(id1, cents, terminal):
    key = key_of(id1)
    touch(id1, ENVIAR)
    comes_in("LUZ", "authCobroManual")
    charging(cents).puts(*exactly(cents)).ends()
    books.moved(cents)
    books.wrote(f"ENVIARZV_INICIO_CHARGE: {cents}")
    charge_line(f"ENVIARZV_{key}", "OK", cents, cents, 0)
    books.wrote(f"ENVIARZV1_{key}_BEGINTRANS")
    books.record("ENVIARCOLA", cents, cents, 0, "OK", id1, terminal=terminal, row=key, seller="Ana",
                 pay="EFECTIVO", user="ZVFast")
    books.wrote(f"PROCCOLA_DELCOLA_OK_{key} [ENVIARCOLA]", f"ENVIARZV1_{key}_COMMIT")
    books.agree()


def exactly(cents):
    pieces = []
    for piece in (2000, 1000, 500, 200, 100, 50, 20, 10, 5, 2, 1):
        pieces += [piece] * (cents // piece)
        cents %= piece
    return pieces


def not_sent(id1):
    touch(id1, ENVIAR)
    leaves_login()
    books.agree()


def not_grouped():
    # Nothing marked: nobody is asked. Meanwhile the connection stays.
    mark()
    footer(DESCONECTAR)
    message(T("conflictoOperacion", "Conflicto de operaciones"),
            T("problemaAgrupacion", "Esta agrupando pagos, finalize la operacion primero"))
    footer(AGRUPAR)
    able_again()
    # Refused: the rows stay, and the marking ends.
    mark("H1", "H2")
    footer(AGRUPAR)
    leaves_login()
    able_again()
    books.agree()
    # Cancelled with money in.
    mark("H2", "H1")
    group_of([])
    charging(1000).puts(500).cancel()
    books.wrote("AGR_MAN_BEGINTRANS")
    charge_line("AGR_MAN", "CANCEL", 1000, 500, 500)
    books.wrote([line for line in log() if line.startswith("AGR_MAN_CANCEL_0 - ")][-1])
    books.record("AGR_MAN", 1000, 500, 500, "CANCEL", "H1 + H2", "Cobro agrupado cancelado",
                 terminal="A")
    books.wrote("AGR_MAN_COMMIT")
    main.says(T("operacionCancelada", "Última operación cancelada. Cambiado a modo MANUAL"))
    books.agree()
    # The device fails (rule cobro#10).
    mark("H1", "H2")
    group_of([])
    code, words = device_says(T("errorDeZorvex", "Error de Zorvex")).split(" - ", 1)
    check("the device's error", "12", code)
    books.wrote("AGR_MAN_BEGINTRANS")
    charge_line("AGR_MAN", "ERROR_12", 1000, 0, 0)
    books.wrote(f"AGR_MAN_ERRORZV_12 - {words}")
    books.record("AGR_MAN", 1000, 0, 0, "ERROR", "H1 + H2", f"Error cobro agrupado: 12 - {words}",
                 terminal="A")
    books.wrote("AGR_MAN_COMMIT")
    queued("H1", "H2")
    books.agree()


def group_lost():
    # The link is lost: no second try, and the rows wait.
    mark("H1", "H2")
    group_of([])
    work = charging(1000)
    insert(500)
    since = work.loses_link()
    message_gone(gives_up())
    message_gone(gives_up())
    check("the device's error", "1", device_says(T("errorDeZorvex", "Error de Zorvex")).split(" ")[0])
    books.wrote("AGR_MAN_BEGINTRANS")
    charge_line("AGR_MAN", "ERROR_1", 1000, 0, 0)
    books.wrote(f"AGR_MAN_ERRORZV_1 - {LOST}")
    books.record("AGR_MAN", 1000, 0, 0, "ERROR", "H1 + H2", f"Error cobro agrupado: 1 - {LOST}",
                 terminal="A", balance=0)
    books.wrote("AGR_MAN_COMMIT")
    queued("H1", "H2")
    # What the till still takes for a connection is renewed.
    footer(DESCONECTAR)
    message_gone(gives_up())
    books.wrote("ZVCONNECT_DESCONECTARZORV_DISCONNECT_OK")
    connect_again(since, AWAY)
    books.agree()


def able_again():
    """The marking has ended."""
    wait("the buttons after the marking", lambda: footer_buttons[DAR_CAMBIO].enabled)


# ---- the morning

users_made()
give_change()
float_added()
float_refused()
paid_out()
charged_by_hand()
charged_without_amount()
charged_with_no_amount()
password_changed()
if whole:
    give_change_badly()
    float_badly()
    pay_out_not_at_all()
    pay_out_badly()
    charge_by_hand_badly()
    change_lost()
    float_lost()
    pay_out_lost()
    charge_by_hand_lost()
grouped()
if whole:
    not_annulled("G2")
annulled("G2", 250, "A")
queued()
queue(("S1", 835, "A"))
if whole:
    not_sent("S1")
sent("S1", 835, "A")
if whole:
    queue(("H1", 400, "A"), ("H2", 600, "A"))
    not_grouped()
    group_lost()
    annulled("H2", 600, "A")
    sent("H1", 400, "A")
queued()
floating_button()
queue(("D1", 150, "A"))
annulled_without_a_device("D1", 150, "A")
