// The trace: one line an event, flushed at once, so that another program can follow it.
#pragma once

#include <QFile>
#include <QString>

namespace zv::simulador {

class Traza {
  public:
    // Empty writes to stdout. False with a text for people when the file cannot be written.
    bool Abrir(const QString& fichero, QString& error);
    void Escribir(const QString& linea);

  private:
    QFile salida_;
};

} // namespace zv::simulador
