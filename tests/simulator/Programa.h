// The real program as a child, on a free port.
#pragma once

#include "platform/StringLiterals.h"
#include "support/Esperas.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStringList>

namespace zv::simulador {

using test::Esperar;

class Programa {
  public:
    Programa() = default;
    ~Programa() { Matar(); }
    Programa(const Programa&) = delete;
    Programa& operator=(const Programa&) = delete;

    static QString Ruta() { return QCoreApplication::applicationDirPath() + u"/ZVSimulador"_s; }

    // Without a window, on a free port; false when it does not come to listen.
    bool Arrancar(const QString& carpeta, const QStringList& demas = {}) {
        proceso.start(Ruta(),
                      QStringList{u"--puerto=0"_s, u"--sin-ventana"_s, u"--carpeta="_s + carpeta} +
                          demas);
        return Esperar([this] {
                   salida += proceso.readAllStandardOutput();
                   const qsizetype fin = salida.indexOf('\n');
                   if (fin < 0) {
                       return proceso.state() == QProcess::NotRunning;
                   }
                   puerto = salida.left(fin).mid(salida.lastIndexOf(':', fin) + 1).toUShort();
                   return true;
               }) &&
               puerto != 0;
    }
    // Ends it as the command line says; answers its exit code, -1 when it does not end.
    int Correr(const QStringList& argumentos) {
        proceso.start(Ruta(), argumentos);
        return Terminado() ? proceso.exitCode() : -1;
    }
    bool Terminado() {
        const bool fin = Esperar([this] {
            salida += proceso.readAllStandardOutput();
            errores += proceso.readAllStandardError();
            return proceso.state() == QProcess::NotRunning;
        });
        return fin;
    }
    // As kill -9.
    void Matar() {
        if (proceso.state() == QProcess::NotRunning) {
            return;
        }
        proceso.kill();
        proceso.waitForFinished();
    }

    QProcess proceso;
    QByteArray salida;
    QByteArray errores;
    quint16 puerto = 0;
};

} // namespace zv::simulador
