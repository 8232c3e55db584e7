// Both closes of a cash period, with no window.
#include "BancoCierre.h"
#include "support/IdiomaIngles.h"

#include <QThread>

#include <atomic>
#include <limits>

namespace zv::test {

namespace {

// What stays in the device after the closes of these tests: 10,00 + 20,00 in the recycler.
constexpr Dinero kQueda{1000, 2000, 0, 0};
constexpr qint32 kMonedasCajon = 700;
constexpr qint32 kBilletesCajon = 2500;
constexpr qint32 kMovido = kMonedasCajon + kBilletesCajon;

const QString kTextoRechazo =
    u"Se ha producido un error al enviar el cierre al Zorvex. Por favor, consulte con su "
    "técnico"_s;

struct CasoCierre {
    VarianteCierre variante;
    BotonCaja boton;
    qint32 entra; // remainingChange as it goes in
};

TextoEsperado Empieza(const QString& inicio) {
    return testing::Truly([inicio](const QString& texto) { return texto.startsWith(inicio); });
}

std::vector<CasoCierre> Casos() {
    return {{kCierreNiveles, BotonCaja::CierreNiveles, 0},
            {kCierreValor, BotonCaja::CierreValor, 2500}};
}

} // namespace

class CierreCajaTest : public BancoCierre {
  protected:
    void EsperaPregunta(const CasoCierre& caso) {
        if (caso.variante.pideImporte) {
            dialogos.EsperaImporte(u"Cierre"_s, u"Importe:"_s, caso.entra, false,
                                   Visto(u"Cierre"_s));
            return;
        }
        dialogos.EsperaMensaje(u"Cierre de caja"_s,
                               u"Se va a proceder ha realizar un cierre de caja por niveles. "
                               "Quiere continuar?"_s,
                               Respuesta::Aceptar, EstiloMensaje::AceptarCancelar,
                               Visto(u"Cierre de caja"_s));
    }
    void EsperaDispositivo(const CasoCierre& caso, const FinGuion& fin = {}) {
        cliente.EsperaCashBoxControl(caso.variante.modo, caso.entra, kMonedasCajon, kBilletesCajon,
                                     3000, fin);
    }
    // 32,00 - 10,00 = 22,00 of coins, 65,00 - 20,00 = 45,00 of notes.
    void EsperaRecordatorio(const QString& monedas = u"22,00 €"_s,
                            const QString& billetes = u"45,00 €"_s) {
        EsperaAviso(u"Zorvex"_s, u"Recuerde vaciar los cajones de recaudación:\r\nMonedas:"_s +
                                     monedas + u"\r\nBilletes:"_s + billetes);
    }
    void EsperaCierre(const CasoCierre& caso) {
        EsperaPregunta(caso);
        EsperaDispositivo(caso, Deja(kQueda));
        EsperaRecordatorio();
    }
    void Cerrar(const CasoCierre& caso) { CierreCaja(caja).Cerrar(caso.variante); }
    static QString Tag(const CasoCierre& caso) { return u"CIERRE_"_s + caso.variante.nombre; }
    static QString Diario(const CasoCierre& caso, const QString& estado) {
        return u"ZVCASHBOXCONTROL_"_s + Tag(caso) + u'_' + estado +
               u": COINSVALUEINCB=700 NOTESVALUEINCB=2500 REMAININGCHANGE=3000"_s;
    }
    static QString Llamada(const CasoCierre& caso) {
        return u"@CashBoxControl(%1, %2)"_s.arg(caso.variante.modo).arg(caso.entra);
    }
    void EsperaFallo(int numero, const QString& descripcion, DialogosGuion::Accion mientras = {}) {
        dialogos.EsperaMensaje(u"Error al realizar el cierre"_s,
                               u"Error nº "_s + QString::number(numero) + u":\r\n"_s + descripcion,
                               Respuesta::Aceptar, EstiloMensaje::Critico, std::move(mientras));
    }
    // What stays as it was, because the close has ended on the way.
    void ComprobarSinRematar() {
        EXPECT_EQ(SaldoExit(), u"9700"_s);
        EXPECT_EQ(SaldoInicial(), u"4321"_s);
        EXPECT_EQ(UltimoCierre(), u"-"_s);
        EXPECT_EQ(caja.Estado().lbSaldoCierre, QString());
        EXPECT_TRUE(Boton(BotonCaja::CierreNiveles));
        EXPECT_TRUE(Boton(BotonCaja::VaciarMonedas));
        EXPECT_EQ(caja.Estado().foco, std::nullopt);
    }
};

TEST_F(CierreCajaTest, EverythingComesInItsOrder) {
    for (const CasoCierre& caso : Casos()) {
        log.Toma();
        PonerDinero(DeLaCaja());
        EsperaCierre(caso);
        Cerrar(caso);
        const std::vector<Row> cierres = Cierres();
        const QString id = cierres.back().LeerTexto(u"idCierre"_s);
        EXPECT_EQ(log.lineas,
                  (QStringList{caso.variante.pideImporte ? u"#Cierre"_s : u"#Cierre de caja"_s,
                               u"CIERRE_LLAMADA_"_s + caso.variante.nombre, Llamada(caso),
                               Diario(caso, u"OK"_s), u"ADDPROC_OK_"_s + id + u"_ARQUEOCAJA"_s,
                               Tag(caso) + u"_BEGINTRANS"_s, Tag(caso) + u'_' + id + u"_COMMIT"_s,
                               u"#Zorvex"_s}));
        ComprobarReposo();
    }
    ComprobarMovimientos({{tipo::kArqueoCaja, -kMovido, 0, kMovido, kQueda.Suma(), 1},
                          {tipo::kArqueoCaja, -kMovido, 0, kMovido, kQueda.Suma(), 2}});
}

TEST_F(CierreCajaTest, TheExitBalanceIsStoredBeforeTheButtonsGoOff) {
    EsperaCierre(Casos()[0]);
    QStringList alApagar;
    caja.AlCambiar([&] {
        if (!Boton(BotonCaja::CierreNiveles) && alApagar.isEmpty()) {
            alApagar << SaldoExit();
        }
    });
    Cerrar(Casos()[0]);
    EXPECT_EQ(alApagar, QStringList{QString::number(kQueda.Suma())});
}

TEST_F(CierreCajaTest, TheHistoryNeverShowsACloseThatHasFailed) {
    motor.Comenzar();
    motor.Ejecutar(u"INSERT INTO cierres (cobros) VALUES (1)"_s);
    pantallas.EsperaAbrir(Pantalla::Historial, [this] {
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_TRUE(Cierres().empty());
    });
    caja.AbrirHistorial();
    EXPECT_EQ(pantallas.Pendientes(), 0U);
}

// Seen by the line of a settings file that cannot be written.
TEST_F(CierreCajaTest, TheMarkGoesDownBeforeTheTimeOfTheCloseIsWritten) {
    QFile::remove(entorno.rutaIni);
    ASSERT_TRUE(QDir().mkpath(entorno.rutaIni + u"/dentro"_s));
    EsperaCierre(Casos()[0]);
    QStringList marcas;
    log.alEscribir = [&](const QString& linea) {
        if (linea.startsWith(u"GRABARINI"_s)) {
            marcas << Activo();
        }
    };
    Cerrar(Casos()[0]);
    EXPECT_EQ(marcas, QStringList{u"0"_s});
    EXPECT_EQ(Cierres().size(), 1U);
    ComprobarReposo();
}

// Kinds are told apart by what each single question answers.
TEST_F(CierreCajaTest, TheBalancesAreReadInTheirOrder) {
    const auto niveles = [this](qint32 tipo, int monedas, int billetes) {
        cliente.EsperaGetLevels(tipo, u"1,500"_s,
                                QString::number(monedas) + u',' + QString::number(billetes));
    };
    dialogos.EsperaMensaje(testing::_, testing::_);
    niveles(2, 10, 99); // before: coins of the recycler
    niveles(3, 20, 99); // coins of the boxes
    niveles(2, 99, 4);  // notes of the recycler
    niveles(3, 99, 6);  // notes of the boxes
    cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
    niveles(2, 88, 2); // after: notes of the recycler
    niveles(2, 7, 88); // coins of the recycler
    niveles(3, 88, 3); // notes of the boxes
    niveles(3, 5, 88); // coins of the boxes
    niveles(3, 5, 3);  // the start of the next period: all of it
    niveles(2, 7, 2);
    dialogos.EsperaMensaje(u"Zorvex"_s, testing::_);
    Cerrar(Casos()[0]);
    const Row fila = Cierres().at(0);
    EXPECT_EQ(fila.LeerCurrency(u"cambioMonedas"_s), Currency(7));
    EXPECT_EQ(fila.LeerCurrency(u"cambioBilletes"_s), Currency(1000));
    EXPECT_EQ(fila.LeerCurrency(u"cajonMonedas"_s), Currency(10 + 20 - 7 - 5));
    EXPECT_EQ(fila.LeerCurrency(u"cajonBilletes"_s), Currency(2000 + 3000 - 1000 - 1500));
    EXPECT_EQ(fila.LeerCurrency(u"importeCierre"_s), Currency(7 + 5 + 1000 + 1500));
    EXPECT_EQ(SaldoInicial(), u"2512"_s);
    ComprobarReposo();
}

TEST_F(CierreCajaTest, TheRowHoldsWhatTheLastRefreshAndTheDeviceSay) {
    for (const CasoCierre& caso : Casos()) {
        PonerDinero(DeLaCaja());
        EsperaCierre(caso);
        caja.totales.cobros = 11;
        caja.totales.abonos = 12;
        caja.totales.pagos = 13;
        caja.totales.ingresos = 14;
        caja.totales.saldoFinal = 15;
        caja.saldos.contenido = 16;
        registry.GuardarValor(registry_name::kSaldoInicial, u"4321"_s);
        entorno.supervision.LeerSaldoInicial();
        Cerrar(caso);
        const Row fila = Cierres().back();
        EXPECT_EQ(fila.LeerFecha(u"fecha"_s), reloj.Ahora());
        EXPECT_EQ(fila.LeerCurrency(u"saldoInicial"_s), Currency(4321));
        EXPECT_EQ(fila.LeerCurrency(u"cobros"_s), Currency(11));
        EXPECT_EQ(fila.LeerCurrency(u"abonos"_s), Currency(12));
        EXPECT_EQ(fila.LeerCurrency(u"pagos"_s), Currency(13));
        EXPECT_EQ(fila.LeerCurrency(u"ingresos"_s), Currency(14));
        EXPECT_EQ(fila.LeerCurrency(u"saldoZV"_s), Currency(16));
        EXPECT_EQ(fila.LeerCurrency(u"importeCierre"_s), Currency(3000));
        EXPECT_EQ(fila.LeerCurrency(u"cambioBilletes"_s), Currency(2000));
        EXPECT_EQ(fila.LeerCurrency(u"cambioMonedas"_s), Currency(1000));
        EXPECT_EQ(fila.LeerCurrency(u"cajonBilletes"_s), Currency(4500));
        EXPECT_EQ(fila.LeerCurrency(u"cajonMonedas"_s), Currency(2200));
    }
    EXPECT_EQ(Cierres().size(), 2U);
}

// What the device holds is that of the last refresh, whatever has changed since.
TEST_F(CierreCajaTest, TheContentIsNotReadAgain) {
    PonerDinero({1, 0, 0, 0});
    EsperaPregunta(Casos()[0]);
    cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
    Cerrar(Casos()[0]);
    EXPECT_EQ(Cierres().at(0).LeerCurrency(u"saldoZV"_s), Currency(DeLaCaja().Suma()));
}

TEST_F(CierreCajaTest, TheWholePeriodGetsTheNumberOfTheClose) {
    const qint32 venta = PonerVenta(500);
    const qint32 error = PonerVenta(300, 0, u"ERROR_7"_s);
    const qint32 cancelada = PonerVenta(0, 0, estado::kCancel);
    const qint32 retirada = PonerVenta(100, -1, estado::kError);
    const qint32 anterior = PonerVenta(200, 77);
    caja.RefrescarCaja();
    EsperaCierre(Casos()[0]);
    Cerrar(Casos()[0]);
    const auto numero = [this](qint32 id) {
        return motor
            .Consultar(u"SELECT idCierre FROM procesados WHERE idZV="_s + QString::number(id))
            .front()
            .LeerLong(0);
    };
    EXPECT_EQ(numero(venta), 1);
    EXPECT_EQ(numero(error), 1);
    EXPECT_EQ(numero(cancelada), 1);
    EXPECT_EQ(numero(retirada), -1);
    EXPECT_EQ(numero(anterior), 77);
    EXPECT_EQ(caja.totales, TotalesPeriodo());
    EXPECT_EQ(caja.grdZV().FilasDatos(), 0);
}

TEST_F(CierreCajaTest, TheStatementThatClosesThePeriodIsTheToldOne) {
    EsperaCierre(Casos()[0]);
    QStringList escritas;
    motor.PonerGancho([&](const Statement& s) {
        if (s.sql.startsWith(u"UPDATE procesados"_s)) {
            escritas << s.sql;
            EXPECT_EQ(motor.Nivel(), 1);
            EXPECT_EQ(Activo(), u"1"_s);
        }
    });
    Cerrar(Casos()[0]);
    motor.PonerGancho({});
    EXPECT_EQ(escritas, QStringList{u"UPDATE procesados SET idcierre=1 WHERE Idcierre=0"_s});
    EXPECT_EQ(Activo(), u"0"_s);
}

TEST_F(CierreCajaTest, WhenTheDeviceMovesNothingThereIsNoMovementButAClose) {
    PonerVenta(500);
    EsperaPregunta(Casos()[0]);
    cliente.EsperaCashBoxControl(7, 0, 0, 0, 8000);
    Cerrar(Casos()[0]);
    EXPECT_EQ(log.lineas,
              (QStringList{u"#Cierre de caja"_s, u"CIERRE_LLAMADA_INICIALES"_s,
                           u"@CashBoxControl(7, 0)"_s,
                           u"ZVCASHBOXCONTROL_CIERRE_INICIALES_OK: COINSVALUEINCB=0 "
                           "NOTESVALUEINCB=0 REMAININGCHANGE=8000"_s,
                           u"CIERRE_INICIALES_BEGINTRANS"_s, u"CIERRE_INICIALES_1_COMMIT"_s}));
    ComprobarMovimientos({});
    EXPECT_EQ(Procesados().at(0).LeerLong(u"idCierre"_s), 1);
    EXPECT_EQ(Cierres().at(0).LeerCurrency(u"cajonMonedas"_s), Currency(0));
    ComprobarReposo();
}

// Coins one way and notes the other: their sum is what counts.
TEST_F(CierreCajaTest, AmountsThatCancelEachOtherAreNoMovement) {
    EsperaPregunta(Casos()[0]);
    cliente.EsperaCashBoxControl(7, 0, 500, -500, 0);
    Cerrar(Casos()[0]);
    ComprobarMovimientos({});
    EXPECT_EQ(Cierres().size(), 1U);
}

TEST_F(CierreCajaTest, APeriodWithoutMovementsClosesWithZeroTotals) {
    EsperaPregunta(Casos()[0]);
    cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
    Cerrar(Casos()[0]);
    const Row fila = Cierres().at(0);
    for (const QString& total : {u"cobros"_s, u"abonos"_s, u"ingresos"_s, u"pagos"_s}) {
        EXPECT_FALSE(fila.EsNulo(total));
        EXPECT_TRUE(fila.LeerCurrency(total).EsCero());
    }
    EXPECT_EQ(fila.LeerCurrency(u"saldoInicial"_s), Currency(4321));
}

// The movement of the close was not there at the last refresh, and is of no later period.
TEST_F(CierreCajaTest, ThePaymentsOfTheCloseDoNotHoldItsOwnMovement) {
    entorno.registros.AñadirProcesado(u"PAGO"_s, [this] {
        RegistroProcesado pago;
        pago.fechaVenta = reloj.Ahora();
        pago.devuelto = 150;
        pago.estado = estado::kOk;
        pago.venta.id1 = tipo::kPago;
        pago.venta.terminal = u"ZV"_s;
        return pago;
    }());
    caja.RefrescarCaja();
    ASSERT_EQ(caja.totales.pagos, Currency(150));
    EsperaCierre(Casos()[0]);
    Cerrar(Casos()[0]);
    EXPECT_EQ(Cierres().at(0).LeerCurrency(u"pagos"_s), Currency(150));
    EXPECT_EQ(Procesados().back().LeerLong(u"idCierre"_s), 1);
    EXPECT_TRUE(caja.totales.pagos.EsCero());

    EsperaPregunta(Casos()[0]);
    cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
    Cerrar(Casos()[0]);
    EXPECT_TRUE(Cierres().at(1).LeerCurrency(u"pagos"_s).EsCero());
}

TEST_F(CierreCajaTest, AfterTheCloseTheScreenShowsWhatIsThere) {
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], Deja({1000, 2000, 100, 500}));
    QStringList pintado;
    caja.AlPintar([&] {
        const EstadoCaja& e = caja.Estado();
        pintado << e.lbSaldoCierre + u'|' + e.lbCambioMonedas + u'|' + e.lbCambioBilletes + u'|' +
                       e.lbCBMonedas + u'|' + e.lbCBBilletes;
    });
    dialogos.EsperaMensaje(u"Zorvex"_s,
                           u"Recuerde vaciar los cajones de recaudación:\r\n"
                           "Monedas:21,00 €\r\nBilletes:40,00 €"_s,
                           Respuesta::Aceptar, EstiloMensaje::Aceptar, [&] {
                               EXPECT_EQ(pintado.last(),
                                         u"36,00 €|10,00 €|20,00 €|21,00 €|40,00 €"_s);
                               EXPECT_EQ(SaldoInicial(), u"3600"_s);
                               EXPECT_EQ(SaldoExit(), u"9700"_s); // comes later
                               EXPECT_TRUE(Boton(BotonCaja::CierreValor));
                           });
    Cerrar(Casos()[0]);
    // Later ones are the refresh's.
    EXPECT_EQ(pintado.mid(0, 2), (QStringList{u"36,00 €|10,00 €|20,00 €|21,00 €|15,00 €"_s,
                                              u"36,00 €|10,00 €|20,00 €|21,00 €|40,00 €"_s}));
    const EstadoCaja& e = caja.Estado();
    EXPECT_EQ(e.lbSaldoCierre, u"36,00 €"_s); // the refresh leaves it
    EXPECT_EQ(e.lbContenido, u"36,00 €"_s);
    EXPECT_EQ(e.lbCambioMonedas, u"10,00 €"_s);
    EXPECT_EQ(e.lbCambioBilletes, u"20,00 €"_s);
    EXPECT_EQ(e.lbCBMonedas, u"1,00 €"_s);
    EXPECT_EQ(e.lbCBBilletes, u"5,00 €"_s);
    EXPECT_EQ(SaldoExit(), u"3600"_s);
    EXPECT_EQ(entorno.supervision.SaldoExit(), Currency(3600));
    EXPECT_EQ(entorno.supervision.SaldoInicial(), 3600);
    // One close per opening; the boxes can be emptied, because their captions have changed.
    EXPECT_FALSE(Boton(BotonCaja::CierreNiveles));
    EXPECT_FALSE(Boton(BotonCaja::CierreValor));
    EXPECT_TRUE(Boton(BotonCaja::VaciarMonedas));
    EXPECT_TRUE(Boton(BotonCaja::VaciarBilletes));
    EXPECT_TRUE(Boton(BotonCaja::Cuadrar));
}

// A caption that the refresh does not change leaves the button as the close has put it.
TEST_F(CierreCajaTest, TheButtonsOfTheBoxesFollowACaptionThatChanges) {
    EsperaPregunta(Casos()[0]);
    // Left the device: 2,00 of coins and 15,00 of notes, as much as is in the boxes afterwards.
    EsperaDispositivo(Casos()[0], Deja({2800, 3500, 200, 1500}));
    EsperaRecordatorio(u"2,00 €"_s, u"15,00 €"_s);
    Cerrar(Casos()[0]);
    EXPECT_EQ(caja.Estado().lbCBMonedas, u"2,00 €"_s);
    EXPECT_FALSE(Boton(BotonCaja::VaciarMonedas));
    EXPECT_FALSE(Boton(BotonCaja::VaciarBilletes));
}

TEST_F(CierreCajaTest, TheReminderComesForCoinsAloneAndForNotesAloneAndForLess) {
    struct Caso {
        Dinero queda;
        QString monedas;
        QString billetes;
    };
    for (const Caso& caso : {Caso{{3000, 5000, 0, 1500}, u"2,00 €"_s, u"0,00 €"_s},
                             Caso{{3000, 5000, 200, 1000}, u"0,00 €"_s, u"5,00 €"_s},
                             Caso{{3001, 5000, 200, 1500}, u"-0,01 €"_s, u"0,00 €"_s},
                             Caso{{2800, 5500, 200, 1500}, u"2,00 €"_s, u"-5,00 €"_s}}) {
        PonerDinero(DeLaCaja());
        EsperaPregunta(Casos()[0]);
        EsperaDispositivo(Casos()[0], Deja(caso.queda));
        EsperaRecordatorio(caso.monedas, caso.billetes);
        Cerrar(Casos()[0]);
        ComprobarReposo();
    }
}

// From the recycler to its box, coins for coins: nothing has left the device.
TEST_F(CierreCajaTest, NothingToRemindOfWhenEverythingIsStillThere) {
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], Deja({2300, 2500, 900, 4000}));
    Cerrar(Casos()[0]);
    ComprobarMovimientos({{tipo::kArqueoCaja, -kMovido, 0, kMovido, 9700, 1}});
    ComprobarReposo();
}

TEST_F(CierreCajaTest, TheFocusGoesToThePrinterOrToTheHistory) {
    const auto cerrar = [this] {
        EsperaPregunta(Casos()[0]);
        cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
        Cerrar(Casos()[0]);
        return caja.Estado().foco;
    };
    EXPECT_EQ(cerrar(), BotonCaja::Imprimir);
    entorno.configuracio->SINIMPRESORA = 1;
    EXPECT_EQ(cerrar(), BotonCaja::Historico);
    entorno.configuracio->SINIMPRESORA = 2;
    EXPECT_EQ(cerrar(), BotonCaja::Imprimir);
}

TEST_F(CierreCajaTest, TheTimeIsDroppedOnlyWhenTheSettingIsExactlyOne) {
    const auto cerrar = [this](quint8 sinHora) {
        entorno.configuracio->SINHORA = sinHora;
        EsperaPregunta(Casos()[0]);
        cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
        Cerrar(Casos()[0]);
        return Cierres().back().LeerFecha(u"fecha"_s);
    };
    EXPECT_EQ(cerrar(0), QDateTime(QDate(2026, 3, 14), QTime(18, 4, 11)));
    EXPECT_EQ(UltimoCierre(), u"14/03/26 18:04:11"_s);
    reloj.Avanzar(20000);
    const QDateTime dia(QDate(2026, 3, 14), QTime(0, 0));
    EXPECT_EQ(cerrar(1), dia);
    EXPECT_EQ(UltimoCierre(), u"14/03/26"_s);
    reloj.Avanzar(20000); // a second close within the minute
    EXPECT_EQ(cerrar(1), dia);
    EXPECT_EQ(UltimoCierre(), u"14/03/26"_s);
    EXPECT_EQ(Cierres().size(), 3U);
    EXPECT_EQ(cerrar(2), QDateTime(QDate(2026, 3, 14), QTime(18, 4, 51)));
    EXPECT_EQ(UltimoCierre(), u"14/03/26 18:04:51"_s);
    // A time of one digit has its zero.
    reloj.Fijar(QDateTime(QDate(2026, 11, 2), QTime(7, 5, 9)));
    cerrar(0);
    EXPECT_EQ(UltimoCierre(), u"02/11/26 07:05:09"_s);
}

TEST_F(CierreCajaTest, WithoutADeviceItIsToldAndNothingHappens) {
    cliente.EsperaDisconnect();
    entorno.supervision.Cortar();
    for (const CasoCierre& caso : Casos()) {
        log.Toma();
        EsperaSinConexion();
        Cerrar(caso);
        EXPECT_EQ(log.lineas, QStringList{u"#Zorvex"_s});
        ComprobarReposo();
    }
    EXPECT_TRUE(Cierres().empty());
}

TEST_F(CierreCajaTest, ACancelLeavesEverythingUntouched) {
    dialogos.EsperaMensaje(u"Cierre de caja"_s, testing::_, Respuesta::Cancelar);
    Cerrar(Casos()[0]);
    dialogos.EsperaImporte(u"Cierre"_s, u"Importe:"_s, 2500, true);
    Cerrar(Casos()[1]);
    EXPECT_EQ(log.lineas, QStringList());
    EXPECT_TRUE(Cierres().empty());
    EXPECT_NE(Activo(), u"1"_s);
    ComprobarSinRematar();
}

TEST_F(CierreCajaTest, WhatTheRecyclerHoldsIsProposed) {
    dialogos.EsperaImporte(u"Cierre"_s, u"Importe:"_s, 0, true);
    Cerrar(Casos()[1]);
    EXPECT_EQ(dialogos.UltimoImportePorDefecto(), Currency(8000));
    EXPECT_FALSE(dialogos.UltimoSinImporte());
}

// The device is the one to say what it can leave.
TEST_F(CierreCajaTest, AnyAmountThatIsAcceptedGoesToTheDevice) {
    for (const qint32 importe : {0, 1, 9701, std::numeric_limits<qint32>::max()}) {
        dialogos.EsperaImporte(u"Cierre"_s, u"Importe:"_s, importe);
        cliente.EsperaCashBoxControl(15, importe, 0, 0, 0);
        Cerrar(Casos()[1]);
        ComprobarReposo();
    }
    EXPECT_EQ(Cierres().size(), 4U);
}

TEST_F(CierreCajaTest, AFractionIsRoundedHalvesToEven) {
    dialogos.EsperaImporte(u"Cierre"_s, u"Importe:"_s, Currency::DeDiezmilesimas(125000));
    cliente.EsperaCashBoxControl(15, 12, 0, 0, 0);
    Cerrar(Casos()[1]);
    ComprobarReposo();
}

TEST_F(CierreCajaTest, ARefusalOfTheDeviceIsToldAndThePeriodStaysOpen) {
    for (const CasoCierre& caso : Casos()) {
        log.Toma();
        PonerVenta(500);
        EsperaPregunta(caso);
        // Part of the money has moved.
        EsperaDispositivo(caso, Deja({2900, 5000, 300, 1500}, FinGuion::Error(31, u"Lleno"_s)));
        EsperaAviso(u"Error de Zorvex31"_s, kTextoRechazo);
        Cerrar(caso);
        EXPECT_EQ(log.lineas,
                  (QStringList{caso.variante.pideImporte ? u"#Cierre"_s : u"#Cierre de caja"_s,
                               u"CIERRE_LLAMADA_"_s + caso.variante.nombre, Llamada(caso),
                               Diario(caso, u"ERROR_31"_s), u"#Error de Zorvex31"_s}));
        EXPECT_EQ(Procesados().back().LeerLong(u"idCierre"_s), 0);
        ComprobarMovimientos({});
        EXPECT_EQ(SaldoInicial(), u"4321"_s);
        EXPECT_EQ(UltimoCierre(), u"-"_s);
        EXPECT_EQ(SaldoExit(), u"9700"_s);
        EXPECT_FALSE(Boton(BotonCaja::CierreNiveles));
        EXPECT_FALSE(Boton(BotonCaja::CierreValor));
        EXPECT_EQ(caja.Estado().foco, std::nullopt);
        EXPECT_EQ(caja.Estado().lbCambioMonedas, u"29,00 €"_s); // refreshed
        EXPECT_EQ(caja.Estado().lbSaldoCierre, QString());
        ComprobarReposo();
    }
    EXPECT_TRUE(Cierres().empty());
    EXPECT_EQ(caja.totales.cobros, Currency(1000));
}

TEST_F(CierreCajaTest, ACancelAtTheDeviceIsARefusalWithNumberZero) {
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], FinGuion::Cancelado());
    EsperaAviso(u"Error de Zorvex0"_s, kTextoRechazo);
    Cerrar(Casos()[0]);
    EXPECT_TRUE(log.lineas.contains(Diario(Casos()[0], u"ERROR_0"_s)));
    EXPECT_EQ(caja.Estado().foco, BotonCaja::Imprimir);
    EXPECT_TRUE(Cierres().empty());
    ComprobarReposo();
}

// The link is lost in the close: the session is ended, and the refresh tells that there is none.
TEST_F(CierreCajaTest, ALostLinkDisconnectsBeforeTheRefresh) {
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], FinGuion::EnlacePerdido());
    EsperaAviso(u"Error de Zorvex1"_s, kTextoRechazo);
    cliente.EsperaDisconnect();
    EsperaSinConexion();
    Cerrar(Casos()[0]);
    EXPECT_EQ(log.lineas,
              (QStringList{u"#Cierre de caja"_s, u"CIERRE_LLAMADA_INICIALES"_s,
                           u"@CashBoxControl(7, 0)"_s, Diario(Casos()[0], u"ERROR_1"_s),
                           u"#Error de Zorvex1"_s, u"@Disconnect()"_s,
                           u"ZVCONNECT_DESCONECTARZORV_DISCONNECT_OK"_s, u"#Zorvex"_s}));
    EXPECT_FALSE(entorno.supervision.Conectado());
    for (const BotonCaja boton :
         {BotonCaja::CierreNiveles, BotonCaja::CierreValor, BotonCaja::Cuadrar,
          BotonCaja::VaciarMonedas, BotonCaja::VaciarBilletes}) {
        EXPECT_FALSE(Boton(boton));
    }
    EXPECT_EQ(caja.saldos, SaldosCaja());
    // The device still says what has gone wrong.
    EXPECT_EQ(caja.Estado().foco, std::nullopt);
    EXPECT_TRUE(Cierres().empty());
    ComprobarReposo();
}

// The device has done its part and is gone when its levels are asked for.
TEST_F(CierreCajaTest, ALinkLostAfterTheDeviceHasWorkedStillClosesThePeriod) {
    PonerVenta(500);
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], FinGuion::Ok().Durante([this] {
        cliente.FallarNiveles(2, 1, u"Enlace perdido"_s);
        cliente.FallarNiveles(3, 1, u"Enlace perdido"_s);
    }));
    for (int i = 0; i < 3; ++i) { // notes and coins of the recycler, the start of the next period
        EsperaAviso(u"Operación anulada"_s, u"Enlace perdido"_s);
    }
    EsperaRecordatorio(u"32,00 €"_s, u"65,00 €"_s);
    EsperaAviso(u"Operación anulada"_s, u"Enlace perdido"_s); // the exit balance
    EsperaAviso(u"Operación anulada"_s, u"Enlace perdido"_s); // and again when it is disconnected
    cliente.EsperaDisconnect();
    EsperaSinConexion();
    Cerrar(Casos()[0]);
    ComprobarReposo();
    EXPECT_EQ(Cierres().size(), 1U);
    ComprobarMovimientos({{tipo::kArqueoCaja, -kMovido, 0, kMovido, 0, 1}});
    EXPECT_EQ(Procesados().at(0).LeerLong(u"idCierre"_s), 1);
    EXPECT_EQ(SaldoInicial(), u"0"_s);
    EXPECT_FALSE(entorno.supervision.Conectado());
}

// ---- failures

TEST_F(CierreCajaTest, AFailureLeavesEverythingAsItStands) {
    for (const CasoCierre& caso : Casos()) {
        log.Toma();
        PonerDinero(DeLaCaja());
        PonerVenta(500);
        EsperaPregunta(caso);
        EsperaDispositivo(caso, Deja(kQueda));
        EsperaFallo(10, u"disk I/O error"_s, [this] {
            EXPECT_EQ(motor.Nivel(), 1);
            EXPECT_TRUE(motor.NivelEscrito());
            EXPECT_EQ(Activo(), u"1"_s);
        });
        {
            GanchoFallos gancho(motor);
            gancho.Falla(Statement::Kind::Escritura, u"UPDATE procesados"_s, 1,
                         {10, u"disk I/O error"_s});
            Cerrar(caso);
        }
        EXPECT_EQ(log.lineas.last(), Tag(caso) + u"_BEGINTRANS"_s);
        EXPECT_EQ(motor.Nivel(), 1);
        EXPECT_EQ(Activo(), u"1"_s);
        ComprobarSinRematar();
        EXPECT_EQ(caja.Estado().lbContenido, u"97,00 €"_s); // not refreshed
        entorno.transacciones.Saldar();
        EXPECT_EQ(log.lineas.last(), u">>> Transacción abandonada: deshecha"_s);
        EXPECT_TRUE(Cierres().empty());
        EXPECT_EQ(Procesados().back().LeerTexto(u"id1"_s), tipo::kArqueoCaja);
        EXPECT_EQ(Procesados().back().LeerLong(u"idCierre"_s), 0);
        EXPECT_EQ(dialogos.Pendientes(), 0U);
        caja.PonerBoton(BotonCaja::VaciarMonedas, true);
        registry.GuardarValor(registry_name::kActivo, u"0"_s);
    }
}

// Otherwise the second one would stand within what the first has left, and go with it.
TEST_F(CierreCajaTest, ACloseAfterAFailedOneStandsOnItsOwn) {
    PonerVenta(500);
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], Deja(kQueda));
    EsperaFallo(10, u"disk I/O error"_s);
    {
        GanchoFallos gancho(motor);
        gancho.Falla(Statement::Kind::Escritura, u"UPDATE procesados"_s, 1,
                     {10, u"disk I/O error"_s});
        Cerrar(Casos()[0]);
    }
    log.Toma();
    EsperaPregunta(Casos()[1]);
    cliente.EsperaCashBoxControl(15, 2500, 0, 0, 0);
    Cerrar(Casos()[1]);
    EXPECT_EQ(log.lineas.first(), u">>> Transacción abandonada: deshecha"_s);
    EXPECT_EQ(log.lineas.last(), u"CIERRE_PORVALOR_1_COMMIT"_s);
    ComprobarReposo();
    entorno.transacciones.Saldar();
    EXPECT_EQ(Cierres().size(), 1U);
    for (const Row& fila : Procesados()) {
        EXPECT_EQ(fila.LeerLong(u"idCierre"_s), 1);
    }
}

TEST_F(CierreCajaTest, ADiskThatIsFullAtTheCommitLeavesThePeriodOpen) {
    PonerVenta(500);
    EsperaPregunta(Casos()[0]);
    cliente.EsperaCashBoxControl(7, 0, 0, 0, 0, Deja(kQueda));
    EsperaFallo(13, u"database or disk is full"_s, [this] {
        EXPECT_EQ(motor.Nivel(), 0); // the engine ends a level whose commit fails
        EXPECT_EQ(Activo(), u"1"_s);
        ComprobarSinBloqueo();
    });
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Confirmar, u"COMMIT"_s, 1, {13, u"database or disk is full"_s});
    Cerrar(Casos()[0]);
    EXPECT_EQ(log.CuentaInicio(u"CIERRE_INICIALES_1_COMMIT"_s), 0);
    EXPECT_TRUE(Cierres().empty());
    EXPECT_EQ(Procesados().at(0).LeerLong(u"idCierre"_s), 0);
    EXPECT_EQ(Activo(), u"1"_s);
    ComprobarSinRematar();
}

// The movement is durable on its own, so that its own commit may fail too.
TEST_F(CierreCajaTest, TheCommitOfTheMovementIsTriedAgain) {
    EsperaCierre(Casos()[0]);
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Confirmar, u"COMMIT"_s, 3, {13, u"database or disk is full"_s});
    Cerrar(Casos()[0]);
    EXPECT_EQ(log.lineas.filter(u"ADDPROC_ERROR"_s),
              (QStringList{u"ADDPROC_ERROR_13_RESUME_1 [ARQUEOCAJA]"_s,
                           u"ADDPROC_ERROR_13_RESUME_2 [ARQUEOCAJA]"_s,
                           u"ADDPROC_ERROR_13_RESUME_3 [ARQUEOCAJA]"_s}));
    ComprobarMovimientos({{tipo::kArqueoCaja, -kMovido, 0, kMovido, kQueda.Suma(), 1}});
    EXPECT_EQ(Cierres().size(), 1U);
    ComprobarReposo();
}

TEST_F(CierreCajaTest, AMovementThatCannotBeCommittedIsInTheLogAndStopsNothing) {
    EsperaCierre(Casos()[0]);
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Confirmar, u"COMMIT"_s, 4, {13, u"database or disk is full"_s});
    Cerrar(Casos()[0]);
    EXPECT_EQ(log.Cuenta(u"ADDPROC_ERROR_13 - database or disk is full [ARQUEOCAJA]"_s), 1);
    ComprobarMovimientos({});
    EXPECT_EQ(Cierres().size(), 1U);
    ComprobarReposo();
}

TEST_F(CierreCajaTest, AMovementThatCannotBeFiledStopsNothing) {
    EsperaCierre(Casos()[0]);
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Escritura, u"INSERT INTO"_s, 4, {10, u"disk I/O error"_s});
    Cerrar(Casos()[0]);
    EXPECT_EQ(log.CuentaInicio(u"ADDPROC_ERROR_10_RESUME_"_s), 3);
    EXPECT_EQ(log.Cuenta(u"ADDPROC_ERROR_10 - disk I/O error [ARQUEOCAJA]"_s), 1);
    ComprobarMovimientos({});
    EXPECT_EQ(Cierres().size(), 1U);
    ComprobarReposo();
}

// Both filings wait: that of the movement and that of the close.
TEST_F(CierreCajaTest, AfterTheDeviceHasWorkedALockIsWaitedForUpToTenSeconds) {
    for (const CasoCierre& caso : Casos()) {
        PonerDinero(DeLaCaja());
        std::vector<qint32> esperas;
        EsperaCierre(caso);
        motor.PonerGancho([&](const Statement& s) {
            if (s.sql == u"BEGIN IMMEDIATE"_s) {
                esperas.push_back(motor.Consultar(u"PRAGMA busy_timeout"_s).front().LeerLong(0));
            }
        });
        Cerrar(caso);
        motor.PonerGancho({});
        EXPECT_EQ(esperas, (std::vector<qint32>{10000, 10000}));
    }
}

// Another program holds the lock and lets it go after a while.
TEST_F(CierreCajaTest, ALockOfAnotherProgramIsWaitedFor) {
    EsperaPregunta(Casos()[0]);
    const QString cadena = CadenaConexion(u"MDB"_s, {}, entorno.conexion.RutaFichero(), {}, {});
    std::atomic_bool tomado = false;
    std::unique_ptr<QThread> otro(QThread::create([&] {
        SqliteEngine motorAjeno;
        DatabaseEngine& ajeno = motorAjeno;
        ajeno.Abrir(cadena);
        ajeno.Comenzar();
        ajeno.Ejecutar(u"INSERT INTO historial (id) VALUES ('ajeno')"_s);
        tomado = true;
        QThread::msleep(1300); // longer than a statement waits by itself
        ajeno.Confirmar();
    }));
    EsperaDispositivo(Casos()[0], FinGuion::Ok().Durante([&] {
        PonerDinero(kQueda);
        otro->start();
        while (!tomado) {
            QThread::msleep(1);
        }
    }));
    dialogos.EsperaMensaje(u"Zorvex"_s, testing::_);
    Cerrar(Casos()[0]);
    otro->wait();
    EXPECT_EQ(log.CuentaInicio(u"ADDPROC_ERROR"_s), 0);
    EXPECT_EQ(Cierres().size(), 1U);
    ComprobarMovimientos({{tipo::kArqueoCaja, -kMovido, 0, kMovido, kQueda.Suma(), 1}});
    ComprobarReposo();
}

TEST_F(CierreCajaTest, ALockThatOutlastsTheWaitIsAFailure) {
    PonerVenta(500);
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], Deja(kQueda));
    EsperaFallo(5, u"database is locked"_s, [this] { ComprobarSinBloqueo(); });
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Comenzar, u"BEGIN IMMEDIATE"_s, 5);
    Cerrar(Casos()[0]);
    EXPECT_EQ(gancho.Pendientes(), 0);
    EXPECT_EQ(log.lineas.mid(4),
              (QStringList{u"ADDPROC_ERROR_5_RESUME_1 [ARQUEOCAJA]"_s,
                           u"ADDPROC_ERROR_5_RESUME_2 [ARQUEOCAJA]"_s,
                           u"ADDPROC_ERROR_5_RESUME_3 [ARQUEOCAJA]"_s,
                           u"ADDPROC_ERROR_5 - database is locked [ARQUEOCAJA]"_s,
                           u"CIERRE_INICIALES_BEGINTRANS"_s}));
    EXPECT_EQ(motor.Nivel(), 1);
    EXPECT_EQ(Activo(), u"1"_s);
    entorno.transacciones.Saldar(); // nothing was written: no line
    EXPECT_EQ(log.lineas.last(), u"CIERRE_INICIALES_BEGINTRANS"_s);
    EXPECT_TRUE(Cierres().empty());
    EXPECT_EQ(Procesados().back().LeerLong(u"idCierre"_s), 0);
}

TEST_F(CierreCajaTest, ASumBeyondThirtyTwoBitsIsAFailure) {
    EsperaPregunta(Casos()[0]);
    cliente.EsperaCashBoxControl(7, 0, std::numeric_limits<qint32>::max(), 1, 0, Deja(kQueda));
    EsperaFallo(6, errores::Desbordamiento().Descripcion());
    Cerrar(Casos()[0]);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_TRUE(Cierres().empty());
    EXPECT_NE(Activo(), u"1"_s); // it had not come so far
    ComprobarSinRematar();
}

TEST_F(CierreCajaTest, TheEndsOfTheRangeAreFiled) {
    constexpr qint32 kMayor = std::numeric_limits<qint32>::max();
    constexpr qint32 kMenor = std::numeric_limits<qint32>::min();
    for (const qint32 extremo : {kMayor, kMenor}) {
        EsperaPregunta(Casos()[0]);
        cliente.EsperaCashBoxControl(7, 0, extremo, 0, 0);
        Cerrar(Casos()[0]);
        const Row fila = Procesados().back();
        EXPECT_EQ(fila.LeerCurrency(u"devuelto"_s), Currency(extremo));
        EXPECT_EQ(fila.LeerCurrency(u"importeVenta"_s), -Currency(extremo));
        // What another program writes there is not the matter of this test.
        motor.Ejecutar(u"DELETE FROM procesados"_s);
    }
    ComprobarReposo();
}

TEST_F(CierreCajaTest, ALogThatCannotBeWrittenIsAFailureToo) {
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], FinGuion::Ok().Durante([this] { log.fallosPendientes = 1; }));
    EsperaFallo(75, u"Error de acceso a la ruta o al archivo"_s);
    Cerrar(Casos()[0]); // the line of the journal is lost
    EXPECT_TRUE(Procesados().empty());
    EXPECT_TRUE(Cierres().empty());
    ComprobarSinRematar();
}

TEST_F(CierreCajaTest, ADeviceThatRaisesIsAFailure) {
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0],
                      FinGuion::Ok().Durante([] { throw ErrorEjecucion(429, u"x"_s); }));
    EsperaFallo(429, u"x"_s);
    Cerrar(Casos()[0]);
    EXPECT_TRUE(Cierres().empty());
    ComprobarSinRematar();
}

// The refresh of a refused close meets it; that of a good one has put a new value there.
TEST_F(CierreCajaTest, AStartingBalanceThatIsNoNumber) {
    registry.GuardarValor(registry_name::kSaldoInicial, u"mucho"_s);
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], FinGuion::Error(31, u"Lleno"_s));
    dialogos.EsperaMensaje(u"Error de Zorvex31"_s, testing::_);
    EsperaFallo(13, errores::TipoNoCoincide().Descripcion());
    Cerrar(Casos()[0]);
    ComprobarReposo();

    EsperaCierre(Casos()[0]);
    Cerrar(Casos()[0]);
    // The close takes what the last refresh that could read it has read.
    EXPECT_EQ(Cierres().at(0).LeerCurrency(u"saldoInicial"_s), Currency(4321));
    EXPECT_EQ(SaldoInicial(), u"3000"_s);
    ComprobarReposo();
}

TEST_F(CierreCajaTest, AFailureBeforeTheFirstBalanceIsNotTakenOn) {
    log.fallosPendientes = 0;
    dialogos.EsperaImporte(u"Cierre"_s, u"Importe:"_s, Currency::DeEntero(3'000'000'000));
    EXPECT_EQ(NumeroError([this] { Cerrar(Casos()[1]); }), 6);
    EXPECT_EQ(dialogos.Pendientes(), 0U);
}

// Every statement fails, once and for good: the period is open and whole or closed and whole, and
// closed when the log says so.
TEST_F(CierreCajaTest, EveryStatementMayFail) {
    int fallidos = 0;
    int contados = 0;
    for (const bool siempre : {false, true}) {
        bool queda = true;
        for (int n = 1; queda; ++n) {
            SCOPED_TRACE(testing::Message() << "statement " << n << (siempre ? " and on" : ""));
            motor.Ejecutar(u"DELETE FROM procesados"_s);
            motor.Ejecutar(u"DELETE FROM cierres"_s);
            PonerVenta(500);
            PonerVenta(700);
            PonerDinero(DeLaCaja());
            log.Toma();
            EsperaPregunta(Casos()[0]);
            int pasadas = 0;
            // The dialogs look at the database with a connection of their own.
            EsperaDispositivo(Casos()[0], FinGuion::Ok().Durante([&, n, siempre] {
                PonerDinero(kQueda);
                motor.PonerGancho([&pasadas, n, siempre](const Statement&) {
                    ++pasadas;
                    if (pasadas == n || (siempre && pasadas > n)) {
                        throw ErrorEjecucion(10, u"disk I/O error"_s);
                    }
                });
            }));
            bool contado = false;
            bool recordado = false;
            dialogos.EsperaMensaje(testing::_, testing::_, Respuesta::Aceptar, std::nullopt, [&] {
                const QString visto = dialogos.Llamadas().last();
                contado = visto.startsWith(u"Mensaje|Error al realizar"_s);
                recordado = !contado;
            });
            // After the reminder the refresh may still fail.
            dialogos.EsperaMensaje(u"Error al realizar el cierre"_s, testing::_);
            Cerrar(Casos()[0]);
            motor.PonerGancho({});
            queda = pasadas >= n;
            fallidos += queda ? 1 : 0;
            contados += contado ? 1 : 0;
            Olvidar();
            entorno.transacciones.Saldar();
            EXPECT_EQ(motor.Nivel(), 0);
            ComprobarSinBloqueo();
            const bool cerrado = log.CuentaInicio(u"CIERRE_INICIALES_"_s) == 2;
            EXPECT_EQ(cerrado, recordado);
            EXPECT_EQ(Cierres().size(), cerrado ? 1U : 0U);
            const qint32 numero = cerrado ? Cierres().at(0).LeerLong(u"idCierre"_s) : 0;
            EXPECT_GE(Procesados().size(), 2U);
            for (const Row& fila : Procesados()) {
                EXPECT_EQ(fila.LeerLong(u"idCierre"_s), numero);
            }
        }
    }
    EXPECT_GT(fallidos, 12);
    EXPECT_GT(contados, 8);
}

class CierreCajaInglesTest : public CierreCajaTest {
  protected:
    void SetUp() override {
        ingles_.PonerEn(carpeta.path());
        CierreCajaTest::SetUp();
    }
    IdiomaIngles ingles_;
};

TEST_F(CierreCajaInglesTest, WhatIsAskedAndToldIsInEnglish) {
    dialogos.EsperaMensaje(u"Till close"_s,
                           u"The till is about to be closed by levels. Do you want to continue?"_s);
    EsperaDispositivo(Casos()[0], FinGuion::Error(31, u"Full"_s));
    dialogos.EsperaMensaje(u"Zorvex error\u00a031"_s,
                           u"The till close could not be sent to Zorvex. Please call your "
                           "technician"_s);
    Cerrar(Casos()[0]);

    // These two come with the program.
    dialogos.EsperaImporte(u"Cierre"_s, u"Importe:"_s, 2500);
    EsperaDispositivo(Casos()[1], Deja(kQueda));
    dialogos.EsperaMensaje(u"Zorvex"_s, u"Remember to empty the collection boxes:\r\n"
                                        "Coins:\u00a022,00 €\r\nNotes:\u00a045,00 €"_s);
    Cerrar(Casos()[1]);

    dialogos.EsperaMensaje(u"Till close"_s, testing::_);
    cliente.EsperaCashBoxControl(7, 0, std::numeric_limits<qint32>::max(), 1, 0);
    dialogos.EsperaMensaje(u"The till could not be closed"_s, Empieza(u"Error nº 6:"_s));
    Cerrar(Casos()[0]);

    cliente.EsperaDisconnect();
    entorno.supervision.Cortar();
    dialogos.EsperaMensaje(u"Zorvex"_s, u"Not connected to Zorvex"_s);
    Cerrar(Casos()[0]);
    ComprobarReposo();
}

} // namespace zv::test
