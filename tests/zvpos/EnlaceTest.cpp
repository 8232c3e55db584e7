// The connection against a server in the same process.
#include "zvpos/Enlace.h"

#include "zvpos/Mensajes.h"
#include "zvpos/ServidorFalso.h"

#include <QTimer>

#include <gtest/gtest.h>

using namespace zv::zvpos;

namespace {

// Patient where an answer comes, short where none does.
constexpr int kLargoMs = 20'000;
constexpr int kCortoMs = 40;

// Answers the first message as a monitor does, and the others with the given writes.
ServidorFalso::Contestador Con(const QList<QByteArray>& trozos) {
    return [trozos](const QByteArray& mensaje) {
        return mensaje == MensajeMarca() ? QList<QByteArray>{RespuestaMarca()} : trozos;
    };
}

Contestacion Preguntar(ServidorFalso& servidor, int plazoMs = kLargoMs) {
    EnlaceTcp enlace(QStringLiteral("127.0.0.1"), servidor.Puerto(), kLargoMs);
    return enlace.Preguntar(MensajeEstado(QStringLiteral("T1")), RespuestasEstado(), plazoMs);
}

void Contestada(const Contestacion& contestacion, const char* texto) {
    EXPECT_EQ(contestacion.clase, Contestacion::Contestada);
    EXPECT_EQ(contestacion.texto, QString::fromUtf8(texto));
}

TEST(EnlaceZvpos, OneMessageOneAnswer) {
    ServidorFalso servidor(Con({"OK|PENDING"}));
    Contestada(Preguntar(servidor), "OK|PENDING");
    EXPECT_EQ(servidor.mensajes, (QList<QByteArray>{"ZVPOS|", "S|T1"}));
}

TEST(EnlaceZvpos, TheConnectionServesSeveralQuestions) {
    ServidorFalso servidor(Con({"OK|PENDING"}));
    EnlaceTcp enlace(QStringLiteral("127.0.0.1"), servidor.Puerto(), kLargoMs);
    for (int i = 0; i < 3; ++i) {
        Contestada(
            enlace.Preguntar(MensajeEstado(QStringLiteral("T1")), RespuestasEstado(), kLargoMs),
            "OK|PENDING");
    }
    EXPECT_EQ(servidor.conexiones, 1);
    EXPECT_EQ(servidor.mensajes, (QList<QByteArray>{"ZVPOS|", "S|T1", "S|T1", "S|T1"}));
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
        EXPECT_EQ(Preguntar(servidor, kCortoMs).clase, Contestacion::SinRespuesta)
            << trozo;
    }
}

TEST(EnlaceZvpos, SilenceEndsWithTheTime) {
    ServidorFalso servidor(Con({}));
    EXPECT_EQ(Preguntar(servidor, kCortoMs).clase, Contestacion::SinRespuesta);
    EXPECT_EQ(servidor.mensajes.last(), QByteArray("S|T1"));
}

TEST(EnlaceZvpos, AServerThatAnswersNothingAtAllNeverGetsTheMessage) {
    ServidorFalso servidor([](const QByteArray&) { return QList<QByteArray>(); });
    EXPECT_EQ(Preguntar(servidor, kCortoMs).clase, Contestacion::SinTurno);
    EXPECT_EQ(servidor.mensajes, QList<QByteArray>{"ZVPOS|"});
}

TEST(EnlaceZvpos, AnswersForSomebodyElseAreLeftAside) {
    ServidorFalso servidor(Con({"OK|PENDING"}));
    servidor.saludo = "OK|OKNOK|Not found";
    Contestada(Preguntar(servidor), "OK|PENDING");
}

TEST(EnlaceZvpos, FirstMessagesOfOthersThatGaveUpAreAnsweredToo) {
    // The answer to the first message of another is taken for our own; ours comes later.
    ServidorFalso servidor([](const QByteArray& mensaje) -> QList<QByteArray> {
        if (mensaje == MensajeMarca())
            return {RespuestaMarca()};
        return {RespuestaMarca().left(7), RespuestaMarca().mid(7) + RespuestaMarca(), "OK|ERROR"};
    });
    Contestada(Preguntar(servidor), "OK|ERROR");
}

TEST(EnlaceZvpos, ALateAnswerIsNotTakenForTheNextOne) {
    int preguntas = 0;
    ServidorFalso servidor([&preguntas](const QByteArray& mensaje) -> QList<QByteArray> {
        if (mensaje == MensajeMarca())
            return {RespuestaMarca()};
        return ++preguntas == 1 ? QList<QByteArray>{} : QList<QByteArray>{"OK|OK"};
    });
    EnlaceTcp enlace(QStringLiteral("127.0.0.1"), servidor.Puerto(), kLargoMs);
    const QByteArray mensaje = MensajeEstado(QStringLiteral("T1"));
    EXPECT_EQ(enlace.Preguntar(mensaje, RespuestasEstado(), kCortoMs).clase,
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
    EnlaceTcp enlace(QStringLiteral("127.0.0.1"), puerto, kLargoMs);
    const Contestacion nadie =
        enlace.Preguntar(MensajeEstado(QStringLiteral("T1")), RespuestasEstado(), kLargoMs);
    EXPECT_EQ(nadie.clase, Contestacion::SinConexion);
    EXPECT_FALSE(nadie.texto.isEmpty());
}

TEST(EnlaceZvpos, AServerThatLeavesBeforeItsAnswer) {
    ServidorFalso* este = nullptr;
    ServidorFalso servidor([&este](const QByteArray& mensaje) -> QList<QByteArray> {
        if (mensaje == MensajeMarca())
            return {RespuestaMarca()};
        este->Colgar();
        return {};
    });
    este = &servidor;
    EXPECT_EQ(Preguntar(servidor).clase, Contestacion::Cortada);
}

TEST(EnlaceZvpos, AServerThatLeavesBehindItsAnswer) {
    for (const char* const texto : {"OK|OK", "OK|Otro"}) {
        ServidorFalso* este = nullptr;
        ServidorFalso servidor([&este, texto](const QByteArray& mensaje) -> QList<QByteArray> {
            if (mensaje == MensajeMarca())
                return {RespuestaMarca()};
            QTimer::singleShot(0, [&este] { este->Colgar(); });
            return {texto};
        });
        este = &servidor;
        Contestada(Preguntar(servidor), texto);
    }
}

TEST(EnlaceZvpos, AServerThatTalksForeverIsNoMonitor) {
    ServidorFalso servidor(Con({QByteArray(5000, 'x')}));
    const Contestacion contestacion = Preguntar(servidor);
    EXPECT_EQ(contestacion.clase, Contestacion::Contestada);
    EXPECT_EQ(JuzgarEstado(contestacion.texto).codigo, SinRespuesta);
    ServidorFalso alPrincipio(
        [](const QByteArray&) { return QList<QByteArray>{QByteArray(5000, 'x')}; });
    EXPECT_EQ(Preguntar(alPrincipio).clase, Contestacion::SinTurno);
}

} // namespace
