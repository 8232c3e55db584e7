// Orders against a scripted link: how they end, and how long they wait.
#include "zvpos/EnlaceGuion.h"

#include <gtest/gtest.h>

using namespace zv::zvpos;
using namespace Qt::StringLiterals;

namespace {

class EjecucionZvpos : public testing::Test {
  protected:
    EjecucionZvpos() {
        opciones.venta.id = u"T1"_s;
        opciones.venta.importe = 1250;
        opciones.segundos = 10;
    }
    Veredicto Hacer(Orden orden) {
        opciones.orden = orden;
        return Ejecutar(opciones, enlace, tiempo);
    }
    void Fallar(Contestacion::Kind kind) { enlace.guion.append({kind, u"roto"_s}); }

    Opciones opciones;
    TiempoFalso tiempo;
    EnlaceGuion enlace{tiempo};
};

TEST_F(EjecucionZvpos, CobrarSendsOneMessage) {
    enlace.Contestar(u"OK|Added"_s);
    opciones.plazoMs = 77;
    EXPECT_EQ(Hacer(Orden::Cobrar).codigo, Bien);
    EXPECT_EQ(enlace.mensajes, QList<QByteArray>{"C|T1|1250"});
    EXPECT_EQ(enlace.plazos, QList<int>{77});
}

TEST_F(EjecucionZvpos, EstadoAsksOnce) {
    enlace.Contestar(u"OK|PENDING"_s);
    const Veredicto veredicto = Hacer(Orden::Estado);
    EXPECT_EQ(veredicto.codigo, Pendiente);
    EXPECT_TRUE(veredicto.error.isEmpty());
    EXPECT_EQ(enlace.mensajes, QList<QByteArray>{"S|T1"});
}

TEST_F(EjecucionZvpos, WhoKnowsNothingOfASaleSaysSo) {
    Fallar(Contestacion::SinRespuesta);
    const Veredicto sin = Hacer(Orden::Cobrar);
    EXPECT_EQ(sin.codigo, SinRespuesta);
    EXPECT_EQ(sin.error, u"el monitor en 127.0.0.1:16501 no ha contestado a tiempo; "
                         "no se sabe si ha tomado la venta: repita la misma orden, "
                         "con el mismo ID"_s);
    Fallar(Contestacion::Cortada);
    EXPECT_TRUE(
        Hacer(Orden::Cobrar)
            .error.startsWith(
                u"el monitor en 127.0.0.1:16501 ha cortado la conexión; no se sabe si ha tomado"_s));
    Fallar(Contestacion::SinConexion);
    EXPECT_EQ(Hacer(Orden::Cobrar).error,
              u"no hay conexión con el monitor en 127.0.0.1:16501: roto"_s);
}

TEST_F(EjecucionZvpos, FailuresOfEstado) {
    for (const auto kind :
         {Contestacion::SinConexion, Contestacion::SinRespuesta, Contestacion::Cortada}) {
        Fallar(kind);
        const Veredicto veredicto = Hacer(Orden::Estado);
        EXPECT_EQ(veredicto.codigo, SinRespuesta);
        EXPECT_TRUE(veredicto.salida.isEmpty());
        EXPECT_FALSE(veredicto.error.isEmpty());
        EXPECT_FALSE(veredicto.error.contains(u"venta"_s));
    }
}

TEST_F(EjecucionZvpos, EsperarAsksUntilTheSaleHasEnded) {
    const struct {
        const char* final;
        Codigo codigo;
    } casos[] = {{"OK|OK", Bien},
                 {"OK|ERROR", NoAceptada},
                 {"OK|CANCEL", NoAceptada},
                 {"NOK|Not found", Desconocida}};
    for (const auto& caso : casos) {
        tiempo.dormido.clear();
        enlace.Contestar(u"OK|PENDING"_s);
        enlace.Contestar(u"OK|PENDING"_s);
        enlace.Contestar(QString::fromLatin1(caso.final));
        EXPECT_EQ(Hacer(Orden::Esperar).codigo, caso.codigo) << caso.final;
        EXPECT_EQ(tiempo.dormido, (QList<qint64>{250, 250}));
    }
}

TEST_F(EjecucionZvpos, AnUnknownSaleIsNotWaitedFor) {
    enlace.Contestar(u"NOK|Not found"_s);
    EXPECT_EQ(Hacer(Orden::Esperar).codigo, Desconocida);
    EXPECT_TRUE(tiempo.dormido.isEmpty());
}

TEST_F(EjecucionZvpos, EsperarEndsWithTheTimeAndAsksOnceMoreAtIt) {
    enlace.siempre = Contestacion{Contestacion::Contestada, u"OK|PENDING"_s};
    const Veredicto veredicto = Hacer(Orden::Esperar);
    EXPECT_EQ(veredicto.codigo, Pendiente);
    EXPECT_EQ(veredicto.salida, u"PENDING"_s);
    EXPECT_EQ(veredicto.error, u"sigue pendiente después de 10 segundos"_s);
    EXPECT_EQ(tiempo.ahora, 11'000);
    EXPECT_EQ(enlace.mensajes.size(), 41);
}

TEST_F(EjecucionZvpos, NoSecondsIsOneQuestion) {
    opciones.segundos = 0;
    enlace.Contestar(u"OK|PENDING"_s);
    EXPECT_EQ(Hacer(Orden::Esperar).codigo, Pendiente);
    EXPECT_EQ(enlace.plazos, QList<int>{5000});
}

TEST_F(EjecucionZvpos, OneQuestionWaitsAsLongAsThereIsTime) {
    enlace.Contestar(u"OK|PENDING"_s);
    Fallar(Contestacion::SinRespuesta);
    EXPECT_EQ(Hacer(Orden::Esperar).codigo, SinRespuesta);
    EXPECT_EQ(enlace.plazos, (QList<int>{10'000, 9'750}));
}

TEST_F(EjecucionZvpos, TheLastQuestionHasTheWholeTimeForAnAnswer) {
    opciones.segundos = 1;
    enlace.siempre = Contestacion{Contestacion::Contestada, u"OK|PENDING"_s};
    Hacer(Orden::Esperar);
    EXPECT_EQ(enlace.plazos, (QList<int>{5000, 5000, 5000, 5000, 5000}));
}

TEST_F(EjecucionZvpos, NobodyThereAtTheFirstQuestionIsAnErrorAtOnce) {
    Fallar(Contestacion::SinConexion);
    EXPECT_EQ(Hacer(Orden::Esperar).codigo, SinRespuesta);
    EXPECT_TRUE(tiempo.dormido.isEmpty());
}

TEST_F(EjecucionZvpos, AConnectionLostOnTheWayIsMadeAnew) {
    enlace.Contestar(u"OK|PENDING"_s);
    Fallar(Contestacion::Cortada);
    Fallar(Contestacion::SinConexion);
    enlace.Contestar(u"OK|OK"_s);
    EXPECT_EQ(Hacer(Orden::Esperar).codigo, Bien);
    EXPECT_EQ(tiempo.dormido.size(), 3);
}

TEST_F(EjecucionZvpos, WithNoConnectionAtTheEndTheStateIsNotKnown) {
    enlace.Contestar(u"OK|PENDING"_s);
    enlace.siempre = Contestacion{Contestacion::SinConexion, u"roto"_s};
    const Veredicto veredicto = Hacer(Orden::Esperar);
    EXPECT_EQ(veredicto.codigo, SinRespuesta);
    EXPECT_TRUE(veredicto.salida.isEmpty());
    EXPECT_EQ(tiempo.ahora, 11'000);
}

TEST_F(EjecucionZvpos, AMonitorThatCouldNotLookIsAskedAgain) {
    enlace.Contestar(u"NOK|Failed"_s);
    enlace.Contestar(u"OK|OK"_s);
    EXPECT_EQ(Hacer(Orden::Esperar).codigo, Bien);
    EXPECT_EQ(tiempo.dormido, QList<qint64>{250});
    enlace.siempre = Contestacion{Contestacion::Contestada, u"NOK|Failed"_s};
    EXPECT_EQ(Hacer(Orden::Esperar).codigo, SinRespuesta);
}

TEST_F(EjecucionZvpos, WhatIsNoMonitorIsNotAskedAgain) {
    enlace.Contestar(u"HTTP/1.1 400 Bad Request"_s);
    const Veredicto veredicto = Hacer(Orden::Esperar);
    EXPECT_EQ(veredicto.codigo, SinRespuesta);
    EXPECT_TRUE(veredicto.error.contains(u"¿es un ZVMonitor?"_s));
}

} // namespace
