// A whole monitor on a temporary folder, with a scripted device, operator and process list.
#pragma once

#include "app/Monitor.h"
#include "support/DeviceGuion.h"
#include "support/DialogosGuion.h"
#include "support/ImprimeQt.h"
#include "support/ProcesosFalsos.h"
#include "support/RelojFijo.h"
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

    // Builds the monitor again on the same folder, as a second start does.
    void Montar() {
        monitor.reset();
        servicios.reset();
        Opciones opciones;
        opciones.carpeta = carpeta.path();
        opciones.registro = carpeta.filePath(QStringLiteral("Registro"));
        opciones.region = QStringLiteral("es_ES");
        opciones.programa = QStringLiteral("ZVMonitor");
        opciones.fastDireccion = DireccionPropia();
        servicios = std::make_unique<Servicios>(opciones, reloj);
        importes =
            std::make_unique<Importes>(servicios->formato, [this] { return cliente.Multiplier(); });
        monitor = std::make_unique<Monitor>(*servicios, *importes,
                                            Exterior{cliente, dialogos, procesos, shell});
        monitor->PonerVentana(ventana);
    }

    void EscribirIni(const QByteArray& contenido = "[ZORVEX]\r\nIP=127.0.0.1\r\n") {
        QFile fichero(carpeta.filePath(QStringLiteral("ZVMonitor.ini")));
        ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
        fichero.write(contenido);
    }
    void PonerSaldo(qint32 total) {
        cliente.PonerTotal(total);
        servicios->registro.GuardarValor(QStringLiteral("Zorvex\\ZVMonitor"),
                                         QStringLiteral("Saldo_Exit"), QString::number(total));
    }
    QString LeerValor(const QString& valor) const {
        return servicios->registro.LeerValor(QStringLiteral("Zorvex\\ZVMonitor"), valor,
                                             QStringLiteral("-"));
    }
    QStringList LineasLog() const {
        QStringList lineas;
        const QDir debug(carpeta.filePath(QStringLiteral("Debug")));
        for (const QString& nombre : debug.entryList({QStringLiteral("ZVMonitor*.log")})) {
            QFile fichero(debug.filePath(nombre));
            if (fichero.open(QIODevice::ReadOnly)) {
                for (const QByteArray& linea : fichero.readAll().split('\n')) {
                    const QString texto = QString::fromLatin1(linea).trimmed();
                    if (!texto.isEmpty()) {
                        lineas << texto.section(QStringLiteral(" - "), 2);
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
    RelojFijo reloj;
    DeviceGuion cliente;
    DialogosGuion dialogos;
    ProcesosFalsos procesos;
    ShellFalsa shell;
    VentanaFalsa ventana;
    std::unique_ptr<Servicios> servicios;
    std::unique_ptr<Importes> importes;
    std::unique_ptr<Monitor> monitor;
};

} // namespace zv::test
