// A shop in one process: the real engine on a real database, the real client of the gateway, and
// the simulated device with its customer in a thread of its own, because the client's questions
// block the monitor's. Nobody waits: the customer acts at once.
#pragma once

#include "device/gateway/GatewayClient.h"
#include "engine/EngineGraph.h"
#include "platform/StringLiterals.h"
#include "simulator/Mostrador.h"
#include "store/Esquema.h"
#include "support/FixedClock.h"
#include "support/VentanaFalsa.h"

#include <QTemporaryDir>
#include <QThread>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>

namespace zv::test {

class Aparador {
  public:
    Aparador() {
        ancla_.moveToThread(&hilo_);
        hilo_.start();
        Hacer([this] { mostrador_ = std::make_unique<simulador::Mostrador>(); });
    }
    ~Aparador() {
        Hacer([this] { mostrador_.reset(); });
        hilo_.quit();
        hilo_.wait();
    }
    Aparador(const Aparador&) = delete;
    Aparador& operator=(const Aparador&) = delete;

    quint16 Puerto() {
        quint16 puerto = 0;
        Hacer([&] { puerto = mostrador_->servidor.Puerto(); });
        return puerto;
    }
    // Faults from here on, in the simulator's language, and how the customer pays.
    void Preparar(const QString& fallos, simulador::Guion guion) {
        QString error;
        bool bien = true;
        Hacer([&] {
            mostrador_->fallos.Borrar();
            bien = fallos.isEmpty() || mostrador_->fallos.Añadir(fallos, error);
            mostrador_->motor.PonerGuion(guion);
        });
        ASSERT_TRUE(bien) << error.toStdString();
    }
    void SinFallos() {
        Hacer([this] { mostrador_->fallos.Borrar(); });
    }
    // What has ended at the device since the last call, true amounts and all.
    std::vector<simulador::Operacion> TomarFines() {
        std::vector<simulador::Operacion> fines;
        Hacer([&] { fines.swap(mostrador_->banco.fines); });
        return fines;
    }
    qint64 Saldo() {
        qint64 saldo = 0;
        Hacer([&] { saldo = mostrador_->banco.Saldo(); });
        return saldo;
    }
    bool EnMarcha() {
        bool enMarcha = false;
        Hacer([&] { enMarcha = mostrador_->banco.aparato.EnMarcha(); });
        return enMarcha;
    }

  private:
    template <class F>
    void Hacer(F&& trabajo) {
        QMetaObject::invokeMethod(&ancla_, std::forward<F>(trabajo), Qt::BlockingQueuedConnection);
    }

    QThread hilo_;
    QObject ancla_;
    std::unique_ptr<simulador::Mostrador> mostrador_;
};

// Keeps its lines, and tells of each as it comes.
class LogDeTienda final : public Log {
  public:
    void LogLinea(const QString& texto) override {
        lineas << texto;
        if (alEscribir) {
            alEscribir(texto);
        }
    }
    void LogFast(const QString&) override {}

    QStringList lineas;
    std::function<void(const QString&)> alEscribir;
};

// What the operator answers in this step.
class OperadorDeTienda final : public Dialogos {
  public:
    Respuesta MostrarMensaje(const QString&, const QString&, EstiloMensaje estilo) override {
        ++mensajes;
        switch (estilo) {
        case EstiloMensaje::ReintentarCancelar:
            return acepta ? Respuesta::Reintentar : Respuesta::Cancelar;
        case EstiloMensaje::SiNo:
        case EstiloMensaje::SiNoCancelar:
            return acepta ? Respuesta::Si : Respuesta::No;
        default:
            return acepta ? Respuesta::Aceptar : Respuesta::Cancelar;
        }
    }
    QString PedirTexto(const QString&, const QString&, const QString&) override { return concepto; }
    Currency PedirImporte(const QString&, const QString&, Currency, bool* sinImporte,
                          bool& cancelado) override {
        cancelado = cancela;
        if (sinImporte != nullptr) {
            *sinImporte = !cancela && importe == 0;
        }
        return cancela ? Currency(0) : Currency(importe);
    }
    Impresion ElegirImpresion() override { return Impresion::Nada; }
    void CajaSimple(const QString&) override { ++mensajes; }

    bool acepta = true;
    QString concepto = u"concepto"_s;
    qint32 importe = 0;
    bool cancela = false;
    int mensajes = 0;
};

class PantallasDeTienda final : public Pantallas {
  public:
    bool Existe(Pantalla) const override { return false; }
    void Abrir(Pantalla) override {}
    bool ValidarUsuari(qint16, const QString&) override { return autoriza; }

    bool autoriza = true;
};

class Tienda {
  public:
    Tienda() : registry(carpeta.filePath(u"Registro"_s)), textos(carpeta.path()) { Empezar(); }

    // The program starts: again, when it has ended in the middle of something.
    void Empezar() {
        graph.reset();
        cliente = std::make_unique<GatewayClient>(log, textos, nullptr, Prisas());
        importes = std::make_unique<Importes>(FormatoRegional(u"es_ES"_s),
                                              [this] { return cliente->Multiplier(); });
        graph = std::make_unique<EngineGraph>(TillServices{carpeta.path(), *cliente, registry, log,
                                                           operador, textos, *importes, reloj,
                                                           pantallas});
        {
            SqliteEngine catalogo;
            CrearBaseDatos(catalogo, carpeta.path(), log, operador, textos);
        }
        Entorno& e = Partes().entorno;
        e.configuracio->IP = u"127.0.0.1:"_s + QString::number(aparador.Puerto());
        e.configuracio->Modo = u"MANUAL"_s;
        ASSERT_TRUE(e.conexion.ConectarBD());
        Partes().pulso.PonerVentana(&ventana);
        Partes().grid.PonerTitulos();
        e.marca.MarcarActivo(false);
        e.supervision.Conectar();
        ASSERT_TRUE(e.supervision.Conectado());
        Partes().estado.ActualizarBotonesMonitor(true);
        Partes().pulso.ArrancaTimer();
    }
    const PartesMonitor& Partes() const { return graph->Partes(); }
    DatabaseEngine& Database() const { return Partes().entorno.Database(); }

    static GatewayOptions Prisas() {
        GatewayOptions o;
        o.reintento = 4;
        o.intento = 200;
        o.reanudar = 60;
        o.reapertura = 200;
        o.pausaReapertura = 0;
        o.tic = 2;
        return o;
    }

    QTemporaryDir carpeta;
    Aparador aparador;
    FixedClock reloj;
    LogDeTienda log;
    OperadorDeTienda operador;
    PantallasDeTienda pantallas;
    RegistryTree registry;
    Textos textos;
    VentanaFalsa ventana;
    std::unique_ptr<GatewayClient> cliente;
    std::unique_ptr<Importes> importes;
    std::unique_ptr<EngineGraph> graph;
};

} // namespace zv::test
