// A link that answers from a script, and a time that passes only by sleeping and by waiting for
// answers that do not come.
#pragma once

#include "zvpos/Ejecucion.h"

#include <QList>

#include <gtest/gtest.h>

namespace zv::zvpos {

class TiempoFalso final : public Tiempo {
  public:
    qint64 AhoraMs() override { return ahora; }
    void Dormir(qint64 ms) override {
        ahora += ms;
        dormido.append(ms);
    }

    qint64 ahora = 1000;
    QList<qint64> dormido;
};

class EnlaceGuion final : public Enlace {
  public:
    explicit EnlaceGuion(TiempoFalso& tiempo) : tiempo_(tiempo) {}
    ~EnlaceGuion() override { EXPECT_TRUE(guion.isEmpty()) << "answers that nobody asked for"; }

    Contestacion Preguntar(const QByteArray& mensaje, const QList<QByteArray>&,
                           int plazoMs) override {
        mensajes.append(mensaje);
        plazos.append(plazoMs);
        if (guion.isEmpty() && !siempre) {
            ADD_FAILURE() << "one question too many: " << mensaje.constData();
            return {Contestacion::SinRespuesta, {}};
        }
        const Contestacion una = guion.isEmpty() ? *siempre : guion.takeFirst();
        if (una.kind == Contestacion::SinRespuesta) {
            tiempo_.ahora += plazoMs;
        }
        return una;
    }
    void Contestar(const QString& respuesta) {
        guion.append({Contestacion::Contestada, respuesta});
    }

    QList<Contestacion> guion;
    std::optional<Contestacion> siempre; // when the script is over
    QList<QByteArray> mensajes;
    QList<int> plazos;

  private:
    TiempoFalso& tiempo_;
};

} // namespace zv::zvpos
