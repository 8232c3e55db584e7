// What the fuzz targets share: a check that ends the run, the input cut into its parts, and a
// dialog seam that answers everything.
#pragma once

#include "platform/ErrorEjecucion.h"
#include "ui/Dialogos.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace zv::fuzz {

// What must hold for every input. The fuzzer takes the abort for a finding.
inline void Exige(bool cierto, const char* regla) {
    if (!cierto) {
        std::fprintf(stderr, "BROKEN RULE: %s\n", regla);
        std::abort();
    }
}

// The input: lines that say what to do, then bytes as they are. Missing lines are empty.
class Entrada {
  public:
    Entrada(const std::uint8_t* datos, std::size_t largo)
        : bytes_(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(largo)) {}

    QByteArray Linea() {
        const qsizetype fin = bytes_.indexOf('\n', sitio_);
        const qsizetype hasta = fin < 0 ? bytes_.size() : fin;
        QByteArray linea = bytes_.mid(sitio_, hasta - sitio_);
        sitio_ = fin < 0 ? hasta : fin + 1;
        return linea;
    }
    QString Texto() { return QString::fromUtf8(Linea()); }
    // A line of texts parted by "|", as many as asked for.
    QStringList Campos(qsizetype cuantos) {
        QStringList campos = Texto().split(u'|');
        while (campos.size() < cuantos) {
            campos << QString();
        }
        return campos;
    }
    QByteArray Resto() const { return bytes_.mid(sitio_); }

  private:
    QByteArray bytes_;
    qsizetype sitio_ = 0;
};

inline void Poner(const QString& ruta, const QByteArray& bytes) {
    QFile fichero(ruta);
    Exige(fichero.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
              fichero.write(bytes) == bytes.size(),
          "the input's file can be written");
}

inline QByteArray Leer(const QString& ruta) {
    QFile fichero(ruta);
    return fichero.open(QIODevice::ReadOnly) ? fichero.readAll() : QByteArray();
}

// Runs what may raise a run-time failure; its number, 0 for none. Anything else that is thrown
// leaves the target and is a finding.
template <typename Accion>
int Numero(Accion&& accion) {
    try {
        accion();
        return 0;
    } catch (const ErrorEjecucion& error) {
        return error.Numero();
    }
}

class DialogosMudos final : public Dialogos {
  public:
    Respuesta MostrarMensaje(const QString& /*titulo*/, const QString& texto,
                             EstiloMensaje /*estilo*/) override {
        mensajes << texto;
        return Respuesta::Aceptar;
    }
    QString PedirTexto(const QString& /*titulo*/, const QString& /*texto*/,
                       const QString& porDefecto) override {
        return porDefecto;
    }
    Currency PedirImporte(const QString& /*titulo*/, const QString& /*prompt*/, Currency porDefecto,
                          bool* /*sinImporte*/, bool& cancelado) override {
        cancelado = false;
        return porDefecto;
    }
    Impresion ElegirImpresion() override { return Impresion::Nada; }
    void CajaSimple(const QString& texto) override { cajas << texto; }

    QStringList mensajes;
    QStringList cajas;
};

} // namespace zv::fuzz
