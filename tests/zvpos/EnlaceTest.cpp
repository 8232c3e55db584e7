// The connection against a server in the same process.
#include "zvpos/Enlace.h"

#include "zvpos/Mensajes.h"
#include "zvpos/ServidorFalso.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

using namespace zv::zvpos;
using namespace Qt::StringLiterals;

namespace {

// Patient where an answer comes, short where none does.
constexpr int kLargoMs = 20'000;
constexpr int kCortoMs = 40;

ServidorFalso::Contestador Con(const QList<QByteArray>& trozos) {
    return [trozos](const QByteArray&) { return trozos; };
}

Contestacion Preguntar(ServidorFalso& servidor, int plazoMs = kLargoMs) {
    EnlaceTcp enlace(u"127.0.0.1"_s, servidor.Puerto(), kLargoMs);
    return enlace.Preguntar(MensajeEstado(u"T1"_s), RespuestasEstado(), plazoMs);
}

void Contestada(const Contestacion& contestacion, const char* texto) {
    EXPECT_EQ(contestacion.kind, Contestacion::Contestada);
    EXPECT_EQ(contestacion.texto, QString::fromUtf8(texto));
}

TEST(EnlaceZvpos, OneMessageOneAnswer) {
    ServidorFalso servidor(Con({"OK|PENDING"}));
    Contestada(Preguntar(servidor), "OK|PENDING");
    EXPECT_EQ(servidor.mensajes, (QList<QByteArray>{"S|T1"}));
}

TEST(EnlaceZvpos, TheConnectionServesSeveralQuestions) {
    ServidorFalso servidor(Con({"OK|PENDING"}));
    EnlaceTcp enlace(u"127.0.0.1"_s, servidor.Puerto(), kLargoMs);
    for (int i = 0; i < 3; ++i) {
        Contestada(enlace.Preguntar(MensajeEstado(u"T1"_s), RespuestasEstado(), kLargoMs),
                   "OK|PENDING");
    }
    EXPECT_EQ(servidor.conexiones, 1);
    EXPECT_EQ(servidor.mensajes, (QList<QByteArray>{"S|T1", "S|T1", "S|T1"}));
}

TEST(EnlaceZvpos, AnAnswerInPieces) {
    ServidorFalso servidor(Con({"O", "K|PEN", "DING"}));
    Contestada(Preguntar(servidor), "OK|PENDING");
}

TEST(EnlaceZvpos, AnAnswerThatIsNotKnownIsWholeAfterAShortQuiet) {
    ServidorFalso servidor(Con({"OK|Espa\xf1", "ol \x80"}));
    Contestada(Preguntar(servidor), "OK|Español €");
}

TEST(EnlaceZvpos, ABeginningIsNoAnswer) {
    for (const char* const trozo : {"OK|", "OK|PEN", "N", "NOK|Not foun"}) {
        ServidorFalso servidor(Con({trozo}));
        EXPECT_EQ(Preguntar(servidor, kCortoMs).kind, Contestacion::SinRespuesta) << trozo;
    }
}

TEST(EnlaceZvpos, SilenceEndsWithTheTime) {
    ServidorFalso servidor(Con({}));
    EXPECT_EQ(Preguntar(servidor, kCortoMs).kind, Contestacion::SinRespuesta);
    EXPECT_EQ(servidor.mensajes.value(0), QByteArray("S|T1"));
}

TEST(EnlaceZvpos, WhatFollowsAnAnswerIsNoAnswerToTheNextQuestion) {
    int preguntas = 0;
    ServidorFalso servidor([&preguntas](const QByteArray&) -> QList<QByteArray> {
        return {++preguntas == 1 ? "OK|PENDING" : "OK|ERROR"};
    });
    EnlaceTcp enlace(u"127.0.0.1"_s, servidor.Puerto(), kLargoMs);
    const QByteArray mensaje = MensajeEstado(u"T1"_s);
    Contestada(enlace.Preguntar(mensaje, RespuestasEstado(), kLargoMs), "OK|PENDING");
    servidor.Decir("OK|OK");
    QCoreApplication::processEvents();
    Contestada(enlace.Preguntar(mensaje, RespuestasEstado(), kLargoMs), "OK|ERROR");
}

TEST(EnlaceZvpos, ALateAnswerIsNotTakenForTheNextOne) {
    int preguntas = 0;
    ServidorFalso servidor([&preguntas](const QByteArray&) -> QList<QByteArray> {
        return ++preguntas == 1 ? QList<QByteArray>{} : QList<QByteArray>{"OK|OK"};
    });
    EnlaceTcp enlace(u"127.0.0.1"_s, servidor.Puerto(), kLargoMs);
    const QByteArray mensaje = MensajeEstado(u"T1"_s);
    EXPECT_EQ(enlace.Preguntar(mensaje, RespuestasEstado(), kCortoMs).kind,
              Contestacion::SinRespuesta);
    Contestada(enlace.Preguntar(mensaje, RespuestasEstado(), kLargoMs), "OK|OK");
    EXPECT_EQ(servidor.conexiones, 2);
}

TEST(EnlaceZvpos, NobodyThere) {
    ServidorFalso servidor(Con({}));
    servidor.Cerrar();
    QTcpServer libre;
    libre.listen(QHostAddress::LocalHost);
    const quint16 puerto = libre.serverPort();
    libre.close();
    EnlaceTcp enlace(u"127.0.0.1"_s, puerto, kLargoMs);
    const Contestacion nadie =
        enlace.Preguntar(MensajeEstado(u"T1"_s), RespuestasEstado(), kLargoMs);
    EXPECT_EQ(nadie.kind, Contestacion::SinConexion);
    EXPECT_FALSE(nadie.texto.isEmpty());
}

TEST(EnlaceZvpos, AServerThatLeavesBeforeItsAnswer) {
    for (const char* const trozo : {"", "OK|", "NOK"}) {
        ServidorFalso servidor(Con({trozo}));
        servidor.cuelga = true;
        EXPECT_EQ(Preguntar(servidor).kind, Contestacion::Cortada) << trozo;
    }
}

TEST(EnlaceZvpos, AServerThatLeavesBehindItsAnswer) {
    for (const char* const texto : {"OK|OK", "OK|Otro"}) {
        ServidorFalso servidor(Con({texto}));
        servidor.cuelga = true;
        Contestada(Preguntar(servidor), texto);
    }
}

TEST(EnlaceZvpos, AServerThatGoesOnTalkingIsNoMonitor) {
    ServidorFalso servidor(Con(QList<QByteArray>(20, QByteArray(1000, 'x'))));
    const Contestacion contestacion = Preguntar(servidor);
    EXPECT_EQ(contestacion.kind, Contestacion::Contestada);
    EXPECT_LT(contestacion.texto.size(), 10'000);
    EXPECT_EQ(JuzgarEstado(contestacion.texto).codigo, SinRespuesta);
}

} // namespace
