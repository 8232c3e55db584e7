// A shop in one process: the real engine on a real database, the real client of the gateway, and
// the simulated device with its customer in a thread of its own, because the client's questions
// block the monitor's. Nobody waits: the customer acts at once.
#pragma once

#include "ClienteEspia.h"
#include "device/gateway/GatewayClient.h"
#include "engine/EngineGraph.h"
#include "platform/StringLiterals.h"
#include "simulator/MostradorEnHilo.h"
#include "store/Esquema.h"
#include "support/FixedClock.h"
#include "support/VentanaFalsa.h"

#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <utility>

namespace zv::test {

class Aparador : public simulador::MostradorEnHilo {
  public:
    // Faults from here on, in the simulator's language, and how the customer pays.
    void Preparar(const QString& fallos, simulador::Guion guion) {
        const QString error = EnHilo([&](simulador::Mostrador& m) {
            QString reparo;
            m.fallos.Borrar();
            const bool entendidos = fallos.isEmpty() || m.fallos.Añadir(fallos, reparo);
            m.motor.PonerGuion(guion);
            return entendidos ? QString() : fallos + u": "_s + reparo;
        });
        ASSERT_EQ(error.toStdString(), "");
    }
    void SinFallos() {
        EnHilo([](simulador::Mostrador& m) {
            m.fallos.Borrar();
            return true;
        });
    }
    // What has ended at the device since the last call, true amounts and all.
    std::vector<simulador::Operacion> TomarFines() {
        return EnHilo([](simulador::Mostrador& m) { return std::exchange(m.banco.fines, {}); });
    }
    // A hand takes what lies in a box.
    void Retirar(simulador::Cajon cual) {
        EnHilo([cual](simulador::Mostrador& m) {
            m.banco.aparato.RetirarAMano(cual);
            return true;
        });
    }
    bool EnMarcha() {
        return EnHilo([](simulador::Mostrador& m) { return m.banco.aparato.EnMarcha(); });
    }
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

// Whoever is asked for is there, or gives up. The place goes into the books as in the program.
class PantallasDeTienda final : public Pantallas, public PantallaLogin {
  public:
    bool Existe(Pantalla pantalla) const override { return pantalla == Pantalla::Caja; }
    void Abrir(Pantalla) override {
        if (alAbrirCaja) {
            alAbrirCaja();
        }
    }
    void AbrirBalanza(Configuracio&) override {}
    bool ValidarUsuari(qint16 nivel, const QString& lugar) override {
        return seguretat->ValidarUsuari(nivel, lugar);
    }
    Identificado Identificar(const QString&) override {
        return autoriza ? Identificado{u"ANA"_s, 0} : Identificado{};
    }

    bool autoriza = true;
    Seguretat* seguretat = nullptr;
    std::function<void()> alAbrirCaja;
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
        espia = std::make_unique<ClienteEspia>(*cliente);
        graph = std::make_unique<EngineGraph>(TillServices{
            carpeta.path(), *espia, registry, log, operador, textos, *importes, reloj, pantallas});
        {
            SqliteEngine catalogo;
            CrearBaseDatos(catalogo, carpeta.path(), log, operador, textos);
        }
        Entorno& e = Partes().entorno;
        e.configuracio->IP = u"127.0.0.1:"_s + QString::number(aparador.puerto);
        e.configuracio->Modo = u"MANUAL"_s;
        ASSERT_TRUE(e.conexion.ConectarBD());
        // Somebody of each rank: every place asks.
        for (const char* nombre : {"ANA", "EVA"}) {
            Database().Ejecutar(
                u"INSERT OR IGNORE INTO Usuarios (nombre,password,rol) VALUES (?,?,?)"_s,
                {QString::fromLatin1(nombre), u"1234"_s, *nombre == 'A' ? 0 : 2});
        }
        pantallas.seguretat = &e.seguretat;
        e.seguretat.PonerLogin(pantallas);
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
    std::unique_ptr<ClienteEspia> espia;
    std::unique_ptr<Importes> importes;
    std::unique_ptr<EngineGraph> graph;
};

} // namespace zv::test
