// The real program as a script sees it: exit code, stdout, stderr.
#include "zvpos/ServidorFalso.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>

#include <gtest/gtest.h>

using namespace zv::zvpos;
using namespace Qt::StringLiterals;

namespace {

struct Salida {
    int codigo = -1;
    QByteArray normal;
    QByteArray errores;
};

Salida Correr(const QStringList& argumentos) {
    QProcess proceso;
    QEventLoop bucle;
    QObject::connect(&proceso, &QProcess::finished, &bucle, &QEventLoop::quit);
    QObject::connect(&proceso, &QProcess::errorOccurred, &bucle, &QEventLoop::quit);
    QTimer::singleShot(60'000, &bucle, [&bucle] { bucle.quit(); });
    proceso.start(QCoreApplication::applicationDirPath() + u"/zvpos"_s, argumentos);
    if (proceso.state() != QProcess::NotRunning) {
        bucle.exec();
    }
    EXPECT_EQ(proceso.state(), QProcess::NotRunning);
    EXPECT_EQ(proceso.error(), QProcess::UnknownError);
    return {proceso.exitCode(), proceso.readAllStandardOutput(), proceso.readAllStandardError()};
}

Salida Preguntar(const QByteArray& respuesta, const QStringList& argumentos, QByteArray* mensaje) {
    ServidorFalso servidor(
        [&respuesta](const QByteArray&) { return QList<QByteArray>{respuesta}; });
    const Salida salida =
        Correr(argumentos + QStringList{u"--puerto"_s, QString::number(servidor.Puerto()),
                                        u"--plazo"_s, u"20000"_s});
    if (mensaje != nullptr) {
        *mensaje = servidor.mensajes.value(0);
    }
    return salida;
}

TEST(ProgramaZvpos, ASaleIsTaken) {
    QByteArray mensaje;
    const Salida salida =
        Preguntar("OK|Added", {u"cobrar"_s, u"Ñ1"_s, u"-450"_s, u"--caja"_s, u"3"_s}, &mensaje);
    EXPECT_EQ(salida.codigo, 0);
    EXPECT_EQ(salida.normal, QByteArray("Added\n"));
    EXPECT_EQ(salida.errores, QByteArray());
    EXPECT_EQ(mensaje, QByteArray("C|\xd1"
                                  "1|-450||3"));
}

TEST(ProgramaZvpos, ASaleThatIsThereAlready) {
    const Salida salida = Preguntar("NOK|Already exists", {u"cobrar"_s, u"T1"_s, u"5"_s}, nullptr);
    EXPECT_EQ(salida.codigo, 6);
    EXPECT_EQ(salida.normal, QByteArray("Already exists\n"));
    EXPECT_EQ(salida.errores,
              QByteArray("zvpos: ya hay una venta con ese ID; no se ha puesto otra\n"));
}

TEST(ProgramaZvpos, StatesInTheExitCode) {
    const QStringList estado{u"estado"_s, u"T1"_s};
    EXPECT_EQ(Preguntar("OK|OK", estado, nullptr).codigo, 0);
    EXPECT_EQ(Preguntar("OK|CANCEL", estado, nullptr).codigo, 1);
    EXPECT_EQ(Preguntar("OK|PENDING", estado, nullptr).codigo, 4);
    EXPECT_EQ(Preguntar("NOK|Not found", estado, nullptr).codigo, 5);
}

TEST(ProgramaZvpos, EsperarSeesTheSaleThrough) {
    int preguntas = 0;
    ServidorFalso servidor([&preguntas](const QByteArray&) {
        return QList<QByteArray>{++preguntas < 2 ? "OK|PENDING" : "OK|OK"};
    });
    const Salida salida = Correr({u"esperar"_s, u"T1"_s, u"--segundos"_s, u"60"_s, u"--puerto"_s,
                                  QString::number(servidor.Puerto())});
    EXPECT_EQ(salida.codigo, 0);
    EXPECT_EQ(salida.normal, QByteArray("OK\n"));
    EXPECT_EQ(preguntas, 2);
    EXPECT_EQ(servidor.conexiones, 1);
}

TEST(ProgramaZvpos, AWrongLineSendsNothing) {
    ServidorFalso servidor([](const QByteArray&) { return QList<QByteArray>(); });
    const Salida salida = Correr(
        {u"cobrar"_s, u"T1"_s, u"12,50"_s, u"--puerto"_s, QString::number(servidor.Puerto())});
    EXPECT_EQ(salida.codigo, 2);
    EXPECT_EQ(salida.normal, QByteArray());
    EXPECT_TRUE(salida.errores.startsWith("zvpos: el importe \"12,50\" no es"));
    EXPECT_EQ(servidor.conexiones, 0);
}

TEST(ProgramaZvpos, ABrokenTextOfTheShellIsRefused) {
    // Not UTF-8: the byte would become another character on the way.
    QProcess proceso;
    proceso.start(u"/bin/sh"_s, {u"-c"_s, u"exec \"$0\" estado \"$(printf 'a\\361')\""_s,
                                 QCoreApplication::applicationDirPath() + u"/zvpos"_s});
    ASSERT_TRUE(proceso.waitForFinished());
    EXPECT_EQ(proceso.exitCode(), 2);
    EXPECT_TRUE(proceso.readAllStandardError().contains("Windows-1252"));
}

TEST(ProgramaZvpos, NobodyThere) {
    QTcpServer libre;
    libre.listen(QHostAddress::LocalHost);
    const quint16 puerto = libre.serverPort();
    libre.close();
    const Salida salida = Correr({u"estado"_s, u"T1"_s, u"--puerto"_s, QString::number(puerto)});
    EXPECT_EQ(salida.codigo, 3);
    EXPECT_EQ(salida.normal, QByteArray());
    EXPECT_TRUE(salida.errores.startsWith("zvpos: no hay conexión con el monitor en 127.0.0.1:"));
}

TEST(ProgramaZvpos, HelpAndVersion) {
    const Salida ayuda = Correr({u"--help"_s});
    EXPECT_EQ(ayuda.codigo, 0);
    EXPECT_TRUE(ayuda.normal.startsWith("Uso: zvpos"));
    const Salida version = Correr({u"--version"_s});
    EXPECT_EQ(version.codigo, 0);
    EXPECT_TRUE(version.normal.startsWith("zvpos "));
}

} // namespace
