// Money adds up: random sequences of all that a till does, with all that can go wrong in between.
// After each operation what the device holds has changed by what the books say, but for the cases
// that EnLibros names one by one; what the log calls committed is in the file; nothing is left
// open. What the cash office shows and writes is compared with LibroCaja at each of its steps. The
// seed is printed; ZV_SEED repeats a run, ZV_PASOS makes it longer.
#include "Dinero.h"

#include "engine/BotonPie.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <set>

namespace zv::test {

namespace {

using simulador::Guion;

// How one operation at the device ended, as the monitor was told.
struct FinVisto {
    QString metodo;
    QString opId;
    bool ok = false;
    int codigo = 0;
    qint64 entra = 0;
    qint64 sale = 0;
    qint64 Neto() const { return entra - sale; }
};

// The client's own lines: an operation that a former session had left at the device is no answer
// to anybody and has another word.
std::vector<FinVisto> FinesVistos(const QStringList& lineas) {
    static const QRegularExpression forma(
        u"^>>> Operación (?!pendiente)\\S+ en Zorvex: (\\S+) (\\S+) (\\S+) PAIDINVALUE=(-?\\d+) "
        "PAIDOUTVALUE=(-?\\d+).*ERRORCODE=(-?\\d+)"_s);
    std::vector<FinVisto> fines;
    for (const QString& linea : lineas) {
        const QRegularExpressionMatch m = forma.match(linea);
        if (m.hasMatch()) {
            fines.push_back({m.captured(1), m.captured(2), m.captured(3) == u"OK"_s,
                             m.captured(6).toInt(), m.captured(4).toLongLong(),
                             m.captured(5).toLongLong()});
        }
    }
    return fines;
}
// What the books say of one end, by the rules of its operation. ultimo: it was not tried again
// after a lost link.
qint64 EnLibros(const Paso& paso, const FinVisto& fin, bool ultimo) {
    const bool error = !fin.ok && fin.codigo > 0;
    switch (paso.clase) {
    case Clase::Cola:
    case Clase::Enviar:
        // Each attempt is filed with what was known of it.
        return fin.Neto();
    case Clase::Grupo:
        return fin.Neto();
    case Clase::Cambio:
        // Exception: an attempt whose link was lost and that was made again has no record.
        return ultimo ? fin.Neto() : 0;
    case Clase::Ingreso:
        if (fin.metodo == u"pay.start"_s) {
            return -fin.sale;
        }
        if (!ultimo) {
            return 0; // exception: as above
        }
        if (fin.ok) {
            // Exception: what went in and was given back, because nobody authorised it, is in the
            // books only as given back.
            return paso.autoriza ? fin.entra : 0;
        }
        // Exceptions: of a float that failed, what came out again is not in the books. Of one that
        // was cancelled, both ways are told in full, whatever came back.
        return error ? fin.entra : 0;
    case Clase::Pago:
        // Exceptions: tried again, as above; code 4 leaves no record.
        return !ultimo || (error && fin.codigo == 4) ? 0 : -fin.sale;
    case Clase::Manual:
        if (fin.ok) {
            return fin.Neto();
        }
        // Exception: a manual charge that fails leaves a record only with code 27, and only when
        // not just the amount came in; a cancelled one leaves none.
        return fin.codigo == 27 && fin.entra != paso.importe ? fin.Neto() : 0;
    case Clase::ManualCero:
        if (fin.ok) {
            return fin.entra;
        }
        return fin.codigo == 27 && fin.entra != 0 ? fin.entra : 0;
    case Clase::Anular:
    case Clase::Caja: // LibroCaja tells
        break;
    }
    return 0;
}

} // namespace

Paso Dinero::Elegir() {
    static constexpr Clase kClases[] = {
        Clase::Cola,   Clase::Cola,    Clase::Cola, Clase::Enviar, Clase::Enviar,
        Clase::Cambio, Clase::Ingreso, Clase::Pago, Clase::Manual, Clase::ManualCero,
        Clase::Grupo,  Clase::Anular,  Clase::Caja, Clase::Caja};
    Paso paso;
    paso.clase = kClases[Entre(0, std::size(kClases) - 1)];
    paso.autoriza = !UnoDe(4);
    paso.importe = paso.clase == Clase::ManualCero ? 0 : Importe();
    return paso;
}

void Dinero::Agrupar() {
    const std::vector<qint32> ids = Cola();
    tienda.Partes().botones.boton_Click(BotonPie::AgruparCobros);
    for (const qint32 id : ids) {
        if (!UnoDe(3)) {
            Tocar(id, 3);
        }
        if (UnoDe(10)) {
            Tocar(id, 3); // off again, or on
        }
    }
    if (UnoDe(15) && !ids.empty()) {
        caja.Comenzar(std::chrono::seconds(30));
        caja.Ejecutar(u"DELETE FROM cola WHERE idZV = ?"_s, {ids.front()});
        caja.Confirmar();
    }
    tienda.Partes().botones.boton_Click(BotonPie::AgruparCobros);
}

void Dinero::Obrar(const Paso& paso) {
    const PartesMonitor& p = tienda.Partes();
    const QString puntos[] = {u"cobro"_s, u"cobro"_s,   u"cambio"_s, u"ingreso"_s, u"pago"_s,
                              u"cobro"_s, u"ingreso"_s, u"cobro"_s,  u"todo"_s,    u"todo"_s};
    tienda.operador.acepta = !UnoDe(8);
    tienda.operador.cancela = paso.clase == Clase::ManualCero ? false : UnoDe(12);
    tienda.operador.importe = paso.importe;
    tienda.operador.concepto = UnoDe(8) ? QString() : u"concepto"_s;
    tienda.pantallas.autoriza = paso.autoriza;
    QString punto = puntos[static_cast<std::size_t>(paso.clase)];
    const bool abono = paso.clase == Clase::Cola && UnoDe(5);
    if (abono) {
        punto = u"abono"_s;
    }
    tienda.aparador.Preparar(Fallo(punto), UnoDe(2) ? Guion::Exacto : Guion::Redondeo);
    switch (paso.clase) {
    case Clase::Cola:
        Vender(abono ? -Importe() : UnoDe(20) ? 0 : Importe());
        p.entorno.configuracio->Modo = u"AUTO"_s;
        p.entorno.ResultadoEnvio = 0;
        Tick();
        p.entorno.configuracio->Modo = u"MANUAL"_s;
        break;
    case Clase::Enviar:
        if (const std::vector<qint32> ids = Cola(); !ids.empty()) {
            Tocar(ids[static_cast<std::size_t>(Entre(0, static_cast<int>(ids.size()) - 1))],
                  ColumnaCola::Enviar);
        }
        break;
    case Clase::Cambio:
        p.botones.boton_Click(BotonPie::DarCambio);
        break;
    case Clase::Ingreso:
        p.botones.boton_Click(BotonPie::AnadirCambio);
        break;
    case Clase::Pago:
        p.botones.boton_Click(BotonPie::Pago);
        break;
    case Clase::Manual:
    case Clase::ManualCero:
        p.botones.boton_Click(BotonPie::CobroManual);
        break;
    case Clase::Grupo:
        while (Cola().size() < 4) {
            Vender(Importe());
        }
        Tick();
        Agrupar();
        break;
    case Clase::Anular:
        if (const std::vector<qint32> ids = Cola(); !ids.empty()) {
            Tocar(ids.front(), ColumnaCola::Anular);
        }
        break;
    case Clase::Caja:
        IrACaja();
        break;
    }
}
// The link stands again, what runs at the device has ended, and one tick has passed.
void Dinero::DejarEnReposo() {
    perdidas = 0;
    tienda.aparador.SinFallos();
    tienda.operador.acepta = true;
    tienda.operador.cancela = false;
    const PartesMonitor& p = tienda.Partes();
    if (!p.entorno.supervision.Conectado() || tienda.aparador.EnMarcha()) {
        p.entorno.supervision.IntentarReconnectar();
    }
    ASSERT_TRUE(p.entorno.supervision.Conectado());
    p.estado.PonerAgrupando(false);
    p.pulso.ArrancaTimer();
    p.entorno.ResultadoEnvio = 1; // nothing is sent by the tick
    Tick();
    p.entorno.ResultadoEnvio = 0;
}

// What the log calls committed is in the file, and what it calls rolled back is not.
void Dinero::ComprobarRegistros(const QStringList& lineas) {
    static const QRegularExpression registro(u"^ADDPROC_OK_(\\d+)"_s);
    qint32 ultimo = 0;
    std::set<qint32> abiertos;
    std::set<qint32> firmes;
    std::set<qint32> deshechos;
    for (const QString& linea : lineas) {
        if (const auto m = registro.match(linea); m.hasMatch()) {
            // 0: stored, but told as 0, because a statement before had to be repeated.
            if (const int id = m.captured(1).toInt(); id != 0) {
                abiertos.insert(id);
            }
            ultimo = m.captured(1).toInt();
        } else if (linea.startsWith(u"ADDPROC_ERROR_"_s) && linea.endsWith(u"[ARQUEOCAJA]"_s)) {
            // Durable on its own, or not at all: its own commit has failed.
            abiertos.erase(ultimo);
        } else if (linea.endsWith(u"_COMMIT"_s)) {
            firmes.merge(abiertos);
            abiertos.clear();
        } else if (linea.contains(u"ROLLBACK"_s)) {
            deshechos.merge(abiertos);
            abiertos.clear();
        }
    }
    for (const qint32 id : firmes) {
        EXPECT_EQ(
            Suma(u"SELECT Count(*) AS n FROM procesados WHERE idZV = "_s + QString::number(id)), 1)
            << "committed: " << id;
    }
    for (const qint32 id : deshechos) {
        if (!firmes.contains(id)) { // the number may have been used again
            EXPECT_EQ(
                Suma(u"SELECT Count(*) AS n FROM procesados WHERE idZV = "_s + QString::number(id)),
                0)
                << "rolled back: " << id;
        }
    }
}

void Dinero::ComprobarFinal() {
    const PartesMonitor& p = tienda.Partes();
    EXPECT_EQ(tienda.Database().Nivel(), 0);
    EXPECT_EQ(p.entorno.registry.LeerValor(registry_name::kActivo, u"0"_s), u"0"_s);
    // Stopped, and told so, only behind a touch without a device.
    EXPECT_TRUE(p.pulso.Armado() || (p.estado.Parada() && !p.entorno.supervision.Conectado()));
    EXPECT_FALSE(p.estado.Agrupando());
    // Whom the log has let in stands in the file.
    const int entradas = Accesos();
    EXPECT_EQ(entradas - accesos, tienda.log.lineas.filter(u"APUNTA_ACCESS_ANA-auth"_s).size());
    paradas += p.pulso.Armado() ? 0 : 1;
}

void Dinero::Comprobar(const Paso& paso, const QStringList& lineas) {
    ComprobarRegistros(lineas);
    ComprobarCierres(lineas);

    // The device: all of its ends, also those that nobody was told.
    const std::vector<simulador::Operacion> ciertos = tienda.aparador.TomarFines();
    std::map<QString, simulador::Operacion> porId;
    qint64 movido = 0;
    for (const simulador::Operacion& op : ciertos) {
        movido += op.entrado - op.salido - op.vaciado;
        if (op.metodo == simulador::Metodo::Cajones && op.valor == 0) {
            movido -= op.monedasCajon + op.billetesCajon; // gone before, found out now
        }
        porId[op.opId] = op;
    }
    const qint64 ahora = tienda.aparador.Saldo();
    EXPECT_EQ(ahora - dinero, movido);
    dinero = ahora;

    const std::vector<FinVisto> vistos = FinesVistos(lineas);
    qint64 esperado = netoCaja;
    for (std::size_t i = 0; i < vistos.size(); ++i) {
        const FinVisto& fin = vistos[i];
        if (fin.codigo != 1 && porId.contains(fin.opId)) {
            EXPECT_EQ(fin.entra, porId[fin.opId].entrado) << fin.opId.toStdString();
            EXPECT_EQ(fin.sale, porId[fin.opId].salido) << fin.opId.toStdString();
        } else if (fin.codigo != 1) {
            EXPECT_EQ(fin.Neto(), 0) << "never started: " << fin.opId.toStdString();
        }
        const bool ultimo = i + 1 == vistos.size() || vistos[i + 1].metodo != fin.metodo;
        const qint64 enLibros = EnLibros(paso, fin, ultimo);
        esperado += enLibros;
        const qint64 cierto =
            porId.contains(fin.opId) ? porId[fin.opId].entrado - porId[fin.opId].salido : 0;
        excepciones += enLibros != cierto ? 1 : 0;
        ++finales[fin.metodo + (fin.ok ? u" OK"_s : u' ' + QString::number(fin.codigo))];
    }
    const qint64 ahoraLibros = Libros();
    if (!fallida) {
        EXPECT_EQ(ahoraLibros - libros, esperado);
    }
    libros = ahoraLibros;
}

void Dinero::DarUnPaso(bool conFallosDeBase) {
    const Paso paso = Elegir();
    ++cuantas[paso.clase];
    tienda.log.lineas.clear();
    fallida = false;
    netoCaja = 0;
    if (conFallosDeBase && UnoDe(6)) {
        // The n-th statement fails, once or again and again.
        const int cual = Entre(1, 30);
        const int veces = UnoDe(2) ? 1 : 12;
        tienda.Database().PonerGancho([this, n = 0, cual, veces](const Statement& s) mutable {
            if (s.kind != Statement::Kind::Deshacer && ++n >= cual && n < cual + veces) {
                fallida = true;
                throw ErrorEjecucion(5, u"database is locked"_s);
            }
        });
    }
    try {
        Obrar(paso);
        tienda.Database().PonerGancho({});
        if (!fallida) {
            ComprobarFinal();
        }
    } catch (const ErrorEjecucion& e) {
        // Nobody is told to catch it: the program ends here and is started again.
        ASSERT_TRUE(fallida) << e.Numero() << ' ' << e.Descripcion().toStdString();
        tienda.Database().PonerGancho({});
        ++reinicios;
        tienda.aparador.SinFallos();
        tienda.Empezar();
    }
    fallidas += fallida ? 1 : 0;
    if (fallida && paso.clase == Clase::Caja) {
        // A failed close leaves the mark up; the next operation puts it down.
        tienda.Partes().entorno.marca.MarcarActivo(false);
    }
    for (const QString& hecho :
         {u"AGR_MAN_COMMIT"_s, u"ANULARCOBRO_COMMIT"_s, u"AÑADIRCAMBIO_AUTH"_s,
          u"COBROMAN_ROLLBACK"_s, u">>> Transacción abandonada"_s}) {
        finales[hecho] += static_cast<int>(tienda.log.lineas.filter(hecho).size());
    }
    DejarEnReposo();
    finales[u"APUNTA_ACCESS"_s] += Accesos() - accesos;
    accesos = Accesos();
    Comprobar(paso, tienda.log.lineas);
}

void Dinero::Correr(int pasos) {
    bool bien = false;
    const int pedidos = qEnvironmentVariableIntValue("ZV_PASOS", &bien);
    pasos = bien ? pedidos : pasos;
    dinero = tienda.aparador.Saldo();
    libros = Libros();
    for (int i = 0; i < pasos && !HasFailure(); ++i) {
        SCOPED_TRACE("step " + std::to_string(i) + " of seed " + std::to_string(semilla));
        DarUnPaso(true);
        if (HasFailure()) {
            ADD_FAILURE() << tienda.log.lineas.join(u'\n').toStdString();
        }
    }
    for (const auto& [que, n] : finales) {
        std::printf("%6d  %s\n", n, que.toUtf8().constData());
    }
    std::printf("%d ends told otherwise, %d steps with a failed statement, %d new starts\n",
                excepciones, fallidas, reinicios);
}

TEST_F(Dinero, AddsUpOverRandomOperations) {
    Correr(2000);
    if (HasFailure() || qEnvironmentVariableIsSet("ZV_PASOS")) {
        return;
    }
    // The run has seen what it is meant to see.
    for (const char* que : {"charge.start OK",        "charge.start 0",
                            "charge.start 1",         "charge.start 12",
                            "charge.start 27",        "change.start OK",
                            "addChange.start OK",     "addChange.start 0",
                            "pay.start OK",           "pay.start 4",
                            "AGR_MAN_COMMIT",         "ANULARCOBRO_COMMIT",
                            "AÑADIRCAMBIO_AUTH",      "COBROMAN_ROLLBACK",
                            "APUNTA_ACCESS",          "cashBox.control OK",
                            "cashBox.control 1",      "cashBox.control 12",
                            "box.empty OK",           "boton 2: a close",
                            "boton 2: nothing filed", "boton 3: a close",
                            "boton 3: nothing filed", "boton 4: a close",
                            "boton 4: nothing filed", "boton 5: filed",
                            "boton 6: filed"}) {
        EXPECT_GT(finales[QString::fromUtf8(que)], 0) << que;
    }
    EXPECT_GT(excepciones, 0);
    EXPECT_GT(fallidas, 0);
    EXPECT_GT(paradas, 0);
    EXPECT_EQ(cuantas.size(), 10U);
}

// Days of 300 movements of every kind, each with the cash office at its end.
TEST_F(Dinero, AddsUpOverThreeMonthsOfDays) {
    const int dias = 90;
    for (int dia = 0; dia < dias && !HasFailure(); ++dia) {
        SCOPED_TRACE("day " + std::to_string(dia) + " of seed " + std::to_string(semilla));
        tienda.reloj.Avanzar(86'400'000);
        Movimientos(300);
        dinero = tienda.aparador.Saldo();
        libros = Libros();
        tienda.log.lineas.clear();
        netoCaja = 0;
        Paso noche;
        noche.clase = Clase::Caja;
        Obrar(noche);
        DejarEnReposo();
        Comprobar(noche, tienda.log.lineas);
        if (HasFailure()) {
            ADD_FAILURE() << tienda.log.lineas.join(u'\n').toStdString();
        }
    }
    // Two closes in one night: the second one's period may be empty.
    const qint64 conRegistros =
        Suma(u"SELECT Count(DISTINCT idCierre) FROM procesados WHERE idCierre > 0"_s);
    EXPECT_GT(conRegistros, dias / 4);
    EXPECT_LE(conRegistros, cierres);
}

TEST_F(Dinero, AddsUpWhileAnotherProgramReadsAndWritesTheQueue) {
    const QString sqlite = QStandardPaths::findExecutable(u"sqlite3"_s);
    ASSERT_FALSE(sqlite.isEmpty());
    QProcess otro;
    otro.setProcessChannelMode(QProcess::MergedChannels);
    otro.start(u"sh"_s, {u"-c"_s,
                         u"while kill -0 \"$3\"; do \"$1\" \"$2\" '.timeout 5000' "
                         "\"INSERT INTO cola (fecha,importe,id1,id2,idcaja,terminal,vendedor,"
                         "formapago,creditoError,manual) VALUES ('2026-03-14 10:20:30',1.5,'OTRO',"
                         "'',1,'T','V','F',0,1); SELECT count(*) FROM cola; "
                         "DELETE FROM cola WHERE id1='OTRO'; SELECT count(*) FROM procesados\"; "
                         "done"_s,
                         u"sh"_s, sqlite, tienda.carpeta.filePath(u"ZVMonito2.mdb"_s),
                         QString::number(QCoreApplication::applicationPid())});
    ASSERT_TRUE(otro.waitForStarted());
    Correr(600);
    EXPECT_EQ(otro.state(), QProcess::Running);
    otro.kill();
    otro.waitForFinished();
}

} // namespace zv::test
