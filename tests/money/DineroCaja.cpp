// The cash office among the random operations: its steps, with what each of them may file, and the
// numbers that its closes give.
#include "Dinero.h"
#include "engine/BotonPie.h"

#include <QRegularExpression>

namespace zv::test {

namespace {

constexpr BotonCaja kBotonesDeCaja[] = {BotonCaja::CierreNiveles, BotonCaja::CierreValor,
                                        BotonCaja::Cuadrar, BotonCaja::VaciarMonedas,
                                        BotonCaja::VaciarBilletes};

} // namespace

// The button of the foot, behind which some operations of the cash office are done.
void Dinero::IrACaja() {
    const BotonCaja primero = kBotonesDeCaja[Entre(0, std::size(kBotonesDeCaja) - 1)];
    tienda.aparador.Preparar(FalloDeCaja(primero), simulador::Guion::Exacto);
    tienda.pantallas.alAbrirCaja = [this, primero] { VisitarCaja(primero); };
    tienda.Partes().botones.boton_Click(BotonPie::Caja);
}

// Records of every kind, as the till's other operations leave them.
void Dinero::Movimientos(int cuantos) {
    static const QStringList kTipos{
        u"DAR_CAMBIO"_s,   u"METER_CAMBIO"_s, u"PAGO_CAMBIO"_s,    u"PAGO"_s,
        u"COBRO_MANUAL"_s, u"VACIADO"_s,      u"VACIADOCAJONES"_s, u"CASHBOXCONTROL"_s,
        u"ARQUEOCAJA"_s,   u"V17"_s};
    static const QStringList kEstados{u"OK"_s,      u"OK"_s,     u"OK"_s,    u"ERROR"_s,
                                      u"ERROR_7"_s, u"CANCEL"_s, u"error"_s, u"REENVIADO"_s};
    caja.Comenzar(std::chrono::seconds(30));
    for (int i = 0; i < cuantos; ++i) {
        const QDateTime ahora = tienda.reloj.Ahora();
        caja.Ejecutar(
            u"INSERT INTO procesados (fechaZV,fechaVenta,importeVenta,cobrado,devuelto,estado,id1,"
            "id2,idcaja,terminal,vendedor,formapago,error,idCierre,saldoZV,idcola) "
            "VALUES (?,?,?,?,?,?,?,'',1,?,'Ana','EFECTIVO','',0,0,0)"_s,
            {ahora, ahora, Entre(-9000, 9000), UnoDe(3) ? 0 : Entre(0, 9000),
             UnoDe(3) ? 0 : Entre(0, 9000), kEstados.at(Entre(0, 7)), kTipos.at(Entre(0, 9)),
             UnoDe(2) ? u"ZV"_s : u"TPV1"_s});
    }
    caja.Confirmar();
}

QString Dinero::FalloDeCaja(BotonCaja primero) {
    const QString punto = primero == BotonCaja::Cuadrar ? u"cuadre"_s
                          : primero == BotonCaja::CierreNiveles || primero == BotonCaja::CierreValor
                              ? u"cierre"_s
                              : u"vaciado"_s;
    perdidas = 0;
    fallosEnCaja = true;
    const auto consulta = [this] { return u"niveles#"_s + QString::number(Entre(1, 20)); };
    switch (Entre(1, 16)) {
    case 1:
        return u"cuadre:retirar="_s +
               QStringList{u"monedas"_s, u"billetes"_s, u"todo"_s}.at(Entre(0, 2));
    case 2:
        tienda.aparador.Retirar(UnoDe(2) ? simulador::Cajon::Monedas : simulador::Cajon::Billetes);
        return {};
    case 3:
        cuentaMal = true;
        return u"niveles#1:descuadre="_s + QString::number(Entre(1, 15));
    case 4:
        cuentaMal = true;
        return u"niveles#1:descuadre="_s + QString::number(-Entre(1, 15));
    case 5:
        cuentaMal = true;
        return u"cuadre:retirar=todo,niveles#1:descuadre="_s + QString::number(Entre(-9, 9));
    case 6:
        return consulta() + u":error=12"_s;
    case 7: {
        const QStringList cuando{u"antes"_s, u"durante"_s, u"despues"_s};
        return consulta() + u":cortar="_s + cuando.at(Entre(0, 2)) +
               (UnoDe(2) ? u",conexion:rechazar"_s : QString());
    }
    case 8:
    case 9:
    case 10:
        return Fallo(punto);
    case 11:
        return punto + u":error=12"_s;
    case 12: // the link is gone for good
        return punto + u"#1:cortar="_s + (UnoDe(2) ? u"antes"_s : u"durante"_s) +
               u",conexion:rechazar"_s;
    default:
        fallosEnCaja = false;
        return {};
    }
}

// The screen is up: some of its operations, one after the other.
void Dinero::VisitarCaja(BotonCaja primero) {
    Entorno& e = tienda.Partes().entorno;
    periodos = LeerPeriodos();
    Caja pantalla(e);
    OperacionesCaja operaciones(pantalla);
    TomarContestaciones();
    pantalla.AlMostrar();
    Contestaciones r = TomarContestaciones();
    r.conectado = e.supervision.Conectado();
    if (!fallida) {
        TomarVista(r);
        vista.Comprobar(pantalla);
    }
    BotonCaja boton = primero;
    for (int quedan = Entre(1, 3); quedan > 0; --quedan) {
        ObrarEnCaja(pantalla, operaciones, boton);
        boton = kBotonesDeCaja[Entre(0, std::size(kBotonesDeCaja) - 1)];
    }
}

EfectoCaja Dinero::Efecto(Contestaciones& r, BotonCaja boton) const {
    switch (boton) {
    case BotonCaja::CierreNiveles:
        return EfectoCierre(r, vista, false, tienda.operador.acepta);
    case BotonCaja::CierreValor:
        return EfectoCierre(r, vista, true, !tienda.operador.cancela);
    case BotonCaja::Cuadrar:
        return EfectoCuadre(r, vista, tienda.operador.acepta);
    default:
        return EfectoVaciado(r, boton == BotonCaja::VaciarBilletes);
    }
}

void Dinero::ObrarEnCaja(Caja& pantalla, OperacionesCaja& operaciones, BotonCaja boton) {
    Entorno& e = tienda.Partes().entorno;
    const bool habilitado = pantalla.Estado().boton[boton];
    const bool conectado = e.supervision.Conectado();
    const qint32 ultimo =
        caja.Consultar(u"SELECT coalesce(max(idZV),0) FROM procesados"_s).front().LeerLong(0);
    tienda.operador.acepta = !UnoDe(6);
    tienda.operador.cancela = UnoDe(6);
    // Also nothing, and more than there is.
    tienda.operador.importe = UnoDe(5) ? 0 : UnoDe(5) ? 9'000'000 : Entre(1, 20000);
    TomarContestaciones();
    operaciones.boton_Click(boton);
    for (const Contestacion& c : tienda.espia->contestaciones) {
        const bool cuadre = c.que == Contestacion::Que::Cajones && c.cual == 0;
        cuentaMal = cuentaMal && !(cuadre && c.bien);
    }
    Contestaciones r = TomarContestaciones();
    if (fallida) {
        return;
    }
    EfectoCaja efecto;
    if (habilitado && conectado) {
        efecto = Efecto(r, boton);
    }
    ComprobarEfecto(efecto, ultimo);
    r.conectado = e.supervision.Conectado();
    if (efecto.refresca) {
        TomarVista(r);
        vista.Comprobar(pantalla);
    }
    if (boton == BotonCaja::VaciarMonedas || boton == BotonCaja::VaciarBilletes) {
        if (!efecto.filas.empty()) {
            r.Todo(); // the exit balance
        }
    }
    EXPECT_TRUE(r.Acabadas());
    if (efecto.cierre) {
        EXPECT_EQ(vista.totales, TotalesLibro());
        EXPECT_EQ(pantalla.grdZV().FilasDatos(), 0);
    }
    ++finales[u"boton "_s + QString::number(static_cast<int>(boton)) +
              (efecto.cierre          ? u": a close"_s
               : efecto.filas.empty() ? u": nothing filed"_s
                                      : u": filed"_s)];
}

void Dinero::ComprobarEfecto(const EfectoCaja& efecto, qint32 ultimo) {
    const auto filas =
        caja.Consultar(u"SELECT * FROM procesados WHERE idZV > ? ORDER BY idZV"_s, {ultimo});
    ASSERT_EQ(filas.size(), efecto.filas.size());
    for (std::size_t i = 0; i < filas.size(); ++i) {
        ComprobarFila(filas[i], efecto.filas[i]);
    }
    netoCaja += efecto.Neto();
    ComprobarNumeros(efecto);
    if (efecto.cierre) {
        ComprobarCierre(
            caja.Consultar(u"SELECT * FROM cierres ORDER BY idCierre DESC LIMIT 1"_s).front(),
            *efecto.cierre);
    }
    if (efecto.saldoInicial) {
        EXPECT_EQ(EnRegistro(registry_name::kSaldoInicial), *efecto.saldoInicial);
        if (!fallosEnCaja && !cuentaMal) {
            EXPECT_EQ(*efecto.saldoInicial, tienda.aparador.Saldo());
        }
    }
}

// Every record of the period has its number and none of another period; without a close nothing has
// got one.
void Dinero::ComprobarNumeros(const EfectoCaja& efecto) {
    const Periodos ahora = LeerPeriodos();
    const auto nuevas = static_cast<qint64>(efecto.filas.size());
    if (efecto.cierre) {
        EXPECT_EQ(ahora.cierres, periodos.cierres + 1);
        EXPECT_GT(ahora.ultimoCierre, periodos.ultimoCierre);
        EXPECT_EQ(ahora.abiertas, 0);
        EXPECT_EQ(ahora.enUltimo, periodos.abiertas + nuevas);
    } else {
        EXPECT_EQ(ahora.cierres, periodos.cierres);
        EXPECT_EQ(ahora.abiertas, periodos.abiertas + nuevas);
        EXPECT_EQ(ahora.enUltimo, periodos.enUltimo);
        EXPECT_EQ(ahora.suma, periodos.suma);
    }
    periodos = ahora;
}

// A close that the log calls committed stands, and no other; no record has a number without one.
void Dinero::ComprobarCierres(const QStringList& lineas) {
    static const QRegularExpression forma(u"^CIERRE_[A-Z]+_(\\d+)_COMMIT$"_s);
    for (const QString& linea : lineas) {
        if (const auto m = forma.match(linea); m.hasMatch()) {
            ++cierres;
            EXPECT_EQ(
                Suma(u"SELECT Count(*) AS n FROM cierres WHERE idCierre = "_s + m.captured(1)), 1);
        }
    }
    EXPECT_EQ(Suma(u"SELECT Count(*) AS n FROM cierres"_s), cierres);
    EXPECT_EQ(Suma(u"SELECT Count(*) AS n FROM procesados WHERE idCierre <> 0 AND idCierre NOT IN "
                   "(SELECT idCierre FROM cierres)"_s),
              0);
}

} // namespace zv::test
