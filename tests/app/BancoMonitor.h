// A whole monitor on a temporary folder, with a scripted device, operator and process list.
#pragma once

#include "app/Monitor.h"
#include "platform/RegistryNames.h"
#include "platform/StringLiterals.h"
#include "support/DeviceGuion.h"
#include "support/DialogosGuion.h"
#include "support/FakeProcessList.h"
#include "support/FixedClock.h"
#include "support/ImprimeQt.h"
#include "support/PantallasGuion.h"
#include "support/VentanaFalsa.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QHostAddress>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <memory>

namespace zv::test {

class BancoMonitor : public testing::Test {
  protected:
    BancoMonitor() : shell(procesos) { Montar(); }

    Opciones OpcionesPropias() const {
        Opciones opciones;
        opciones.carpeta = carpeta.path();
        opciones.registro = carpeta.filePath(u"Registro"_s);
        opciones.region = u"es_ES"_s;
        opciones.programa = u"ZVMonitor"_s;
        opciones.fastDireccion = DireccionPropia();
        return opciones;
    }
    // Builds the monitor again on the same folder, as a second start does.
    void Montar() { Montar(OpcionesPropias()); }
    void Montar(const Opciones& opciones) {
        monitor.reset();
        servicios = std::make_unique<Servicios>(opciones, reloj);
        monitor = std::make_unique<Monitor>(
            *servicios, Exterior{cliente, dialogos, procesos, shell, pantallas});
        monitor->PonerVentana(ventana);
    }

    PulsoCola& Pulso() const { return monitor->Partes().pulso; }
    const GridCola& Grid() const { return monitor->Partes().grid; }
    const EstadoControles& Controles() const { return monitor->Partes().controles.Estado(); }
    Configuracio& Ajustes() const { return *monitor->Partes().entorno.configuracio; }
    SupervisionConexion& Supervision() const { return monitor->Partes().entorno.supervision; }
    DatabaseEngine& Database() const { return monitor->Partes().entorno.Database(); }

    void EscribirIni(const QByteArray& contenido = "[ZORVEX]\r\nIP=127.0.0.1\r\n") {
        QFile fichero(carpeta.filePath(u"ZVMonitor.ini"_s));
        ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
        fichero.write(contenido);
    }
    void PonerSaldo(qint32 total) {
        cliente.PonerTotal(total);
        servicios->registry.GuardarValor(registry_name::kSaldoExit, QString::number(total));
    }
    QString LeerValor(const QString& valor) const {
        return servicios->registry.LeerValor(registry_name::kMonitor, valor, u"-"_s);
    }
    QStringList LineasLog() const {
        QStringList lineas;
        const QDir debug(carpeta.filePath(u"Debug"_s));
        for (const QString& nombre : debug.entryList({u"ZVMonitor*.log"_s})) {
            QFile fichero(debug.filePath(nombre));
            if (fichero.open(QIODevice::ReadOnly)) {
                for (const QByteArray& linea : fichero.readAll().split('\n')) {
                    const QString texto = QString::fromLatin1(linea).trimmed();
                    if (!texto.isEmpty()) {
                        lineas << texto.section(u" - "_s, 2);
                    }
                }
            }
        }
        return lineas;
    }

    // A loopback address of this process: tests side by side share no port.
    static QString DireccionPropia() {
        const auto pid = static_cast<quint32>(QCoreApplication::applicationPid());
        return QHostAddress(0x7F020000U | (pid & 0xFFFFU)).toString();
    }

    QTemporaryDir carpeta;
    FixedClock reloj;
    DeviceGuion cliente;
    DialogosGuion dialogos;
    FakeProcessList procesos;
    ShellFalsa shell;
    PantallasGuion pantallas;
    VentanaFalsa ventana;
    std::unique_ptr<Servicios> servicios;
    std::unique_ptr<Monitor> monitor;
};

} // namespace zv::test
