// A monitor without windows that kills itself: it counts the points it passes (each statement, each
// line of the log, each call of the device and each step of an operation, each message) and at the
// n-th one is gone as by a power cut. Not killed, it does the operation that it is asked for, by
// its button or by a touch on a row, and works until cola is empty; in the mode "MANUAL", in which
// the pulse sends nothing, for one more tick.
//
//   zv_crash_monitor FOLDER N [OPERATION]    N 0: no kill. OPERATION: cambio, ingreso, rechazado (a
//                                            float that nobody authorises), pago, cobro, cero (a
//                                            manual charge without an amount), grupo (all rows of
//                                            cola are marked and charged), anular, enviar (a touch
//                                            on its first row); in the cash office cierre,
//                                            valor, cuadre, monedas, billetes (both closes,
//                                            reconciling, emptying a box); in the registers
//                                            reenviar, descartar (the first incident), incidencias,
//                                            accesos (all of them).
//   Prints the points passed. Exit codes: 0 cola is empty; 1 it could not start, or the queue did
//   not empty in time.
#include "app/Monitor.h"
#include "cashoffice/OperacionesCaja.h"
#include "config/Modo.h"
#include "device/gateway/GatewayClient.h"
#include "platform/StringLiterals.h"
#include "registers/OperacionesListado.h"
#include "support/FakeProcessList.h"
#include "support/VentanaFalsa.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace zv {
namespace {

constexpr int kLimiteMs = 30000;
constexpr qint32 kImporte = 1250;

// One attempt to have a lost link back.
GatewayOptions UnIntento() {
    GatewayOptions opciones;
    opciones.reanudar = 300;
    opciones.reintento = 1000;
    return opciones;
}

class Puntos {
  public:
    explicit Puntos(int mortal) : mortal_(mortal) {}
    void Pasar() {
        if (++pasados_ == mortal_) {
            std::raise(SIGKILL);
        }
    }
    int Pasados() const { return pasados_; }

  private:
    int mortal_;
    int pasados_ = 0;
};

// The log asks the time before each line, so that the clock stands for it.
class RelojMortal final : public Clock {
  public:
    explicit RelojMortal(Puntos& puntos) : puntos_(puntos) {}
    QDateTime Ahora() const override {
        puntos_.Pasar();
        return reloj_.Ahora();
    }
    qint64 Ticks() const override { return reloj_.Ticks(); }

  private:
    Puntos& puntos_;
    SystemClock reloj_;
};

// What an operation would show: a point at its start, at each coin, at its end.
class OperacionMortal final : public VentanaOperacion {
  public:
    explicit OperacionMortal(Puntos& puntos) : puntos_(puntos) {}
    void Abrir(OperationKind, qint32, std::function<void()>, std::function<void()>) override {
        puntos_.Pasar();
    }
    void Progreso(qint32, qint32) override { puntos_.Pasar(); }
    void Aviso(const QString&) override { puntos_.Pasar(); }
    void SinTerminar() override { puntos_.Pasar(); }
    void Cerrar() override { puntos_.Pasar(); }

  private:
    Puntos& puntos_;
};

// Accepts whatever is asked.
class OperadorMortal final : public Dialogos {
  public:
    OperadorMortal(Puntos& puntos, qint32 importe) : puntos_(puntos), importe_(importe) {}
    Respuesta MostrarMensaje(const QString&, const QString&, EstiloMensaje estilo) override {
        puntos_.Pasar();
        return estilo == EstiloMensaje::ReintentarCancelar ? Respuesta::Reintentar
               : estilo == EstiloMensaje::SiNo             ? Respuesta::Si
                                                           : Respuesta::Aceptar;
    }
    QString PedirTexto(const QString&, const QString&, const QString&) override {
        puntos_.Pasar();
        return u"concepto"_s;
    }
    Currency PedirImporte(const QString&, const QString&, Currency, bool*,
                          bool& cancelado) override {
        puntos_.Pasar();
        cancelado = false;
        return importe_;
    }
    Impresion ElegirImpresion() override { return Impresion::Nada; }
    void CajaSimple(const QString&) override { puntos_.Pasar(); }

  private:
    Puntos& puntos_;
    qint32 importe_;
};

// No other screens but the cash office and the incidents, and somebody who passes every place, or
// none.
class PantallasMortales final : public Pantallas {
  public:
    PantallasMortales(Puntos& puntos, bool pasa) : puntos_(puntos), pasa_(pasa) {}
    bool Existe(Pantalla pantalla) const override {
        return pantalla == Pantalla::Caja || pantalla == Pantalla::Incidencias;
    }
    void Abrir(Pantalla) override { alAbrir(); }
    void AbrirBalanza(Configuracio&) override {}
    bool ValidarUsuari(qint16, const QString&) override {
        puntos_.Pasar();
        return pasa_;
    }

    std::function<void()> alAbrir;

  private:
    Puntos& puntos_;
    bool pasa_;
};

// The gateway client, with a point before and after each call.
class DeviceMortal final : public DeviceClient {
  public:
    DeviceMortal(DeviceClient& cliente, Puntos& puntos) : cliente_(cliente), puntos_(puntos) {}

    qint16 ErrorCode() const override { return cliente_.ErrorCode(); }
    QString ErrorMessage() const override { return cliente_.ErrorMessage(); }
    void Address(const QString& direccion) override { cliente_.Address(direccion); }
    void Connect(bool& result) override {
        Entre([&] { cliente_.Connect(result); });
    }
    void Disconnect() override {
        Entre([&] { cliente_.Disconnect(); });
    }
    void Change(qint32& paidIn, qint32& paidOut, bool& result) override {
        Entre([&] { cliente_.Change(paidIn, paidOut, result); });
    }
    void AddChange(qint32& paidIn, bool& result) override {
        Entre([&] { cliente_.AddChange(paidIn, result); });
    }
    void Pay(qint32 valueInCents, qint32& paidOut, bool& result) override {
        Entre([&] { cliente_.Pay(valueInCents, paidOut, result); });
    }
    void Charge(qint32 valueInCents, qint32& paidIn, qint32& paidOut, bool& result) override {
        Entre([&] { cliente_.Charge(valueInCents, paidIn, paidOut, result); });
    }
    void CashBoxControl(qint32 mode, qint32& coinsValueInCB, qint32& notesValueInCB,
                        qint32& remainingChange, bool& result) override {
        Entre([&] {
            cliente_.CashBoxControl(mode, coinsValueInCB, notesValueInCB, remainingChange, result);
        });
    }
    void Configuration(bool& result) override {
        Entre([&] { cliente_.Configuration(result); });
    }
    void EmptyCB(qint32 device, qint32& value, bool& result) override {
        Entre([&] { cliente_.EmptyCB(device, value, result); });
    }
    void GetLevels(qint32 levelType, QString& noms, QString& levels, bool& result) override {
        Entre([&] { cliente_.GetLevels(levelType, noms, levels, result); });
    }
    void SessionFlag(bool valor) override { cliente_.SessionFlag(valor); }
    quint8 Decimals() const override { return cliente_.Decimals(); }
    quint8 Multiplier() const override { return cliente_.Multiplier(); }

  private:
    template <class F>
    void Entre(F&& llamada) {
        puntos_.Pasar();
        llamada();
        puntos_.Pasar();
    }

    DeviceClient& cliente_;
    Puntos& puntos_;
};

template <BotonPie boton>
void Apretar(const PartesMonitor& partes) {
    partes.botones.boton_Click(boton);
}
template <int columna>
void TocarPrimera(const PartesMonitor& partes) {
    partes.clic.grdZV_MouseUp(1, columna, false);
}
void CobrarTodas(const PartesMonitor& partes) {
    partes.botones.boton_Click(BotonPie::AgruparCobros);
    for (int fila = 1; fila <= partes.grid.FilasDatos(); ++fila) {
        partes.clic.grdZV_MouseUp(fila, ColumnaCola::Importe, false);
    }
    partes.botones.boton_Click(BotonPie::AgruparCobros);
}

struct Operacion {
    const char* nombre;
    void (*hacer)(const PartesMonitor&);
    qint32 importe = kImporte;
    bool autorizada = true;
    void (*visitar)(Entorno&) = nullptr; // what is done in the screen that it opens
};
// The cash office is opened, and one of its buttons pressed there.
template <BotonCaja boton>
constexpr Operacion EnCaja(const char* nombre) {
    return {nombre, Apretar<BotonPie::Caja>, kImporte, true, [](Entorno& entorno) {
                Caja caja(entorno);
                caja.AlMostrar();
                OperacionesCaja(caja).boton_Click(boton);
            }};
}
// A register is opened, and something touched there.
void VisitarListado(Entorno& entorno, ModoListado modo, int columna) {
    Listado listado(entorno);
    listado.RellenaGrdZv(modo);
    OperacionesListado operaciones(listado);
    if (columna < 0) {
        operaciones.Todas();
    } else if (!operaciones.grdZV_Click(1, columna, false) && columna == ColumnaListado::Reenviar) {
        std::fputs("the incident has not been resent\n", stderr);
    }
}
template <int columna>
constexpr Operacion EnIncidencias(const char* nombre) {
    return {nombre, Apretar<BotonPie::Incidencias>, kImporte, true,
            [](Entorno& entorno) { VisitarListado(entorno, ModoListado::Incidencias, columna); }};
}
constexpr Operacion kOperaciones[] = {
    {"", [](const PartesMonitor&) {}},
    {"cambio", Apretar<BotonPie::DarCambio>},
    {"ingreso", Apretar<BotonPie::AnadirCambio>},
    {"rechazado", Apretar<BotonPie::AnadirCambio>, kImporte, false},
    {"pago", Apretar<BotonPie::Pago>},
    {"cobro", Apretar<BotonPie::CobroManual>},
    {"cero", Apretar<BotonPie::CobroManual>, 0},
    {"grupo", CobrarTodas},
    {"anular", TocarPrimera<ColumnaCola::Anular>},
    {"enviar", TocarPrimera<ColumnaCola::Enviar>},
    EnCaja<BotonCaja::CierreNiveles>("cierre"),
    EnCaja<BotonCaja::CierreValor>("valor"),
    EnCaja<BotonCaja::Cuadrar>("cuadre"),
    EnCaja<BotonCaja::VaciarMonedas>("monedas"),
    EnCaja<BotonCaja::VaciarBilletes>("billetes"),
    EnIncidencias<ColumnaListado::Reenviar>("reenviar"),
    EnIncidencias<ColumnaListado::Descartar>("descartar"),
    EnIncidencias<-1>("incidencias"),
    {"accesos",
     [](const PartesMonitor& partes) { VisitarListado(partes.entorno, ModoListado::Accesos, -1); }},
};

bool Vacia(DatabaseEngine& database) {
    return database.Consultar(u"SELECT Count(*) AS n FROM cola"_s).front().LeerLong(0) == 0;
}

int Ejecutar(const QString& carpeta, int mortal, const Operacion& pedida) {
    Puntos puntos(mortal);
    const RelojMortal reloj(puntos);
    Opciones opciones;
    opciones.carpeta = carpeta;
    opciones.registro = carpeta + u"/Registro"_s;
    opciones.region = u"es_ES"_s;
    opciones.programa = u"ZVMonitor"_s;
    Servicios servicios(opciones, reloj);
    OperacionMortal operacion(puntos);
    GatewayClient pasarela(servicios.log, servicios.textos, &operacion, UnIntento());
    DeviceMortal cliente(pasarela, puntos);
    OperadorMortal dialogos(puntos, pedida.importe);
    test::FakeProcessList procesos;
    test::ShellFalsa shell(procesos);
    PantallasMortales pantallas(puntos, pedida.autorizada);
    test::VentanaFalsa ventana;
    Monitor monitor(servicios, Exterior{cliente, dialogos, procesos, shell, pantallas});
    monitor.PonerVentana(ventana);
    pantallas.alAbrir = [&] { pedida.visitar(monitor.Partes().entorno); };
    DatabaseEngine& database = monitor.Partes().entorno.Database();
    database.PonerGancho([&](const Statement&) { puntos.Pasar(); });
    if (!monitor.Cargar()) {
        return EXIT_FAILURE;
    }
    const bool aMano = monitor.Partes().entorno.configuracio->Modo == modo::kManual;
    monitor.Partes().pulso.ProcesarCola(); // enables the buttons
    pedida.hacer(monitor.Partes());
    const QDeadlineTimer limite(kLimiteMs);
    bool hecho = false;
    while (!hecho && !limite.hasExpired()) {
        monitor.Partes().pulso.ProcesarCola();
        QCoreApplication::processEvents();
        hecho = aMano || Vacia(database);
    }
    monitor.Descargar();
    std::printf("%d\n", puntos.Pasados());
    return hecho ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace
} // namespace zv

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    const QStringList argumentos = QCoreApplication::arguments();
    bool bien = false;
    const int mortal = argumentos.value(2).toInt(&bien);
    const auto* const pedida = std::ranges::find_if(zv::kOperaciones, [&](const auto& cada) {
        return argumentos.value(3) == QLatin1String(cada.nombre);
    });
    if (argumentos.size() > 4 || !bien || mortal < 0 || pedida == std::end(zv::kOperaciones)) {
        std::fputs("usage: zv_crash_monitor FOLDER N [OPERATION]\n", stderr);
        return EXIT_FAILURE;
    }
    try {
        return zv::Ejecutar(argumentos.at(1), mortal, *pedida);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
        return EXIT_FAILURE;
    }
}
