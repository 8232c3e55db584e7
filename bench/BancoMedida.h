// A monitor for measurements: real database, registry and logs in a temporary folder, a device
// that answers at once, an operator who is never asked.
#pragma once

#include "app/Monitor.h"
#include "platform/StringLiterals.h"

#include <QDir>
#include <QTemporaryDir>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace zv::bench {

class DispositivoListo final : public DeviceClient {
  public:
    qint16 ErrorCode() const override { return 0; }
    QString ErrorMessage() const override { return {}; }
    void Address(const QString&) override {}
    void Connect(bool& result) override { result = true; }
    void Disconnect() override {}
    void Change(qint32& in, qint32& out, bool& result) override { Nada(in, out, result); }
    void AddChange(qint32& in, bool& result) override {
        qint32 out = 0;
        Nada(in, out, result);
    }
    void Pay(qint32, qint32& out, bool& result) override {
        qint32 in = 0;
        Nada(in, out, result);
    }
    void Charge(qint32 value, qint32& in, qint32& out, bool& result) override {
        in = value;
        out = 0;
        result = true;
        respuesta = std::chrono::steady_clock::now();
    }
    std::chrono::steady_clock::time_point respuesta; // of the last charge, or control of the boxes
    void CashBoxControl(qint32, qint32& a, qint32& b, qint32&, bool& result) override {
        Nada(a, b, result);
        respuesta = std::chrono::steady_clock::now();
    }
    void Configuration(bool& result) override { result = true; }
    void EmptyCB(qint32, qint32& value, bool& result) override {
        qint32 out = 0;
        Nada(value, out, result);
    }
    void GetLevels(qint32 tipo, QString& noms, QString& levels, bool& result) override {
        noms = u"1,2,5,10,20,50,100,200,500,1000,2000,5000"_s;
        levels = tipo == 4 ? u"0,0,0,0,0,0,0,0,0,0,0,0"_s : u"0,0,0,0,0,0,0,0,0,0,0,0"_s;
        result = true;
    }
    void SessionFlag(bool) override {}
    quint8 Decimals() const override { return 2; }
    quint8 Multiplier() const override { return 100; }

  private:
    static void Nada(qint32& in, qint32& out, bool& result) {
        in = out = 0;
        result = true;
    }
};

// A question would stop the measurement: it ends the program.
class DialogosProhibidos : public Dialogos {
  public:
    Respuesta MostrarMensaje(const QString& titulo, const QString& texto, EstiloMensaje) override {
        Fin(titulo + u": "_s + texto);
    }
    QString PedirTexto(const QString& titulo, const QString&, const QString&) override {
        Fin(titulo);
    }
    Currency PedirImporte(const QString& titulo, const QString&, Currency, bool*, bool&) override {
        Fin(titulo);
    }
    void CajaSimple(const QString& texto) override { Fin(texto); }
    Impresion ElegirImpresion() override { Fin(u"ElegirImpresion"_s); }

  private:
    [[noreturn]] static void Fin(const QString& texto) {
        std::fprintf(stderr, "unexpected dialog: %s\n", qPrintable(texto));
        std::exit(EXIT_FAILURE);
    }
};

// Whatever is asked is accepted.
class DialogosQueAceptan final : public DialogosProhibidos {
  public:
    Respuesta MostrarMensaje(const QString&, const QString&, EstiloMensaje) override {
        return Respuesta::Aceptar;
    }
};

class SinProcesos final : public ProcessList {
  public:
    int Contar(const QString&) const override { return 0; }
    void Terminar(const QString&) override {}
};

class SinShell final : public Shell {
  public:
    bool Abrir(const QString&, const QString&) override { return false; }
    bool AbrirDireccion(const QString&) override { return false; }
};

// No other screen, and nobody who has to say who they are.
class PantallasAbiertas final : public Pantallas {
  public:
    bool Existe(Pantalla) const override { return false; }
    void Abrir(Pantalla) override {}
    void AbrirBalanza(Configuracio&) override {}
    bool ValidarUsuari(qint16, const QString&) override { return true; }
};

// The queue holds n rows that no mode sends, put there in one transaction.
inline void PonerFilas(DatabaseEngine& motor, int n) {
    motor.Comenzar();
    motor.Ejecutar(u"DELETE FROM cola"_s);
    for (int i = 0; i < n; ++i) {
        motor.Ejecutar(u"INSERT INTO cola (fecha,importe,id1,id2,idcaja,terminal,vendedor,"
                       "formapago,creditoError,manual) VALUES (?,?,?,?,?,?,?,?,?,?)"_s,
                       {u"2026-03-14 10:20:30"_s, 100 + i, u"T%1"_s.arg(i), u"L%1"_s.arg(i), 3,
                        u"TPV1"_s, u"Ana"_s, u"EFECTIVO"_s, 0, true});
    }
    motor.Confirmar();
}

class BancoMedida {
  public:
    BancoMedida() : BancoMedida(abiertas) {}
    // With screens of its own.
    explicit BancoMedida(Pantallas& pantallas)
        : servicios(OpcionesDe(carpeta), reloj),
          monitor(servicios, Exterior{cliente, dialogos, procesos, shell, pantallas}) {
        QFile ini(carpeta.filePath(u"ZVMonitor.ini"_s));
        if (!ini.open(QIODevice::WriteOnly)) {
            std::exit(EXIT_FAILURE);
        }
        ini.write("[ZVMONITOR]\r\nMODO=AUTO\r\n[CONECTOR]\r\nZVFastActive=0\r\n");
    }

    void PonerFilas(int n) { bench::PonerFilas(monitor.Partes().entorno.Database(), n); }
    QString RutaBase() const { return carpeta.filePath(u"ZVMonito2.mdb"_s); }

    QTemporaryDir carpeta;
    SystemClock reloj;
    Servicios servicios;
    DispositivoListo cliente;
    DialogosProhibidos dialogos;
    SinProcesos procesos;
    SinShell shell;
    PantallasAbiertas abiertas;
    Monitor monitor;

  private:
    static Opciones OpcionesDe(const QTemporaryDir& carpeta) {
        return {carpeta.path(), carpeta.filePath(u"Registro"_s), u"es_ES"_s, u"ZVMonitor"_s};
    }
};

} // namespace zv::bench
