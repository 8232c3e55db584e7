// The durable store: what is committed comes back, and what is wrong is told.
#include "Banco.h"
#include "platform/StringLiterals.h"
#include "simulator/Simulador.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zv::simulador {
namespace {

class AlmacenEnDisco : public testing::Test {
  protected:
    QString Fichero() const { return carpeta.filePath(u"dinero.json"_s); }
    void Escribir(const QByteArray& texto) const {
        QFile fichero(Fichero());
        ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
        fichero.write(texto);
    }
    QByteArray Texto() const {
        QFile fichero(Fichero());
        return fichero.open(QIODevice::ReadOnly) ? fichero.readAll() : QByteArray();
    }

    QTemporaryDir carpeta;
    QString error;
};

TEST_F(AlmacenEnDisco, GivesBackAllThatWasCommitted) {
    Estado estado = EstadoInicial();
    estado.retirado.at(3) = 2;
    estado.abierta = Pedir(Metodo::Cajones, 15, 1000, u"abierta"_s);
    estado.abierta->acabada = true;
    estado.abierta->codigo = 31;
    estado.abierta->mensaje = u"Cajón"_s;
    estado.abierta->entrado = 1;
    estado.abierta->salido = 2;
    estado.abierta->monedasCajon = 3;
    estado.abierta->billetesCajon = 4;
    estado.abierta->resta = 5;
    Operacion vieja = Pedir(Metodo::Vaciado, 1, 0, u"vieja"_s);
    vieja.acabada = vieja.ok = true;
    vieja.vaciado = 6;
    estado.recientes = {vieja};

    Almacen almacen(carpeta.path());
    ASSERT_TRUE(almacen.Abrir(error)) << error.toStdString();
    ASSERT_TRUE(almacen.Guardar(estado, error)) << error.toStdString();
    Estado leido;
    ASSERT_EQ(almacen.Leer(leido, error), Almacen::Lectura::Bien);
    EXPECT_EQ(leido.storeId, estado.storeId);
    EXPECT_EQ(leido.inventario.AJson(), estado.inventario.AJson());
    EXPECT_EQ(leido.retirado, estado.retirado);
    EXPECT_EQ(leido.abierta->AJson(), estado.abierta->AJson());
    ASSERT_EQ(leido.recientes.size(), 1U);
    EXPECT_EQ(leido.recientes[0].Estado(), vieja.Estado());
    EXPECT_EQ(QDir(carpeta.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList({u"dinero.json"_s, u"dinero.lock"_s}));
}

TEST_F(AlmacenEnDisco, IsMadeWithTheFloatAtTheFirstStartAndKeptAfterwards) {
    const QString dentro = carpeta.filePath(u"a/b"_s);
    Estado primero;
    {
        Almacen almacen(dentro);
        ASSERT_TRUE(AbrirDinero(almacen, primero, error)) << error.toStdString();
    }
    EXPECT_EQ(primero.inventario.Saldo(), 42760);
    EXPECT_FALSE(primero.storeId.isEmpty());
    Estado segundo;
    Almacen almacen(dentro);
    ASSERT_TRUE(AbrirDinero(almacen, segundo, error));
    EXPECT_EQ(segundo.storeId, primero.storeId);
}

TEST_F(AlmacenEnDisco, BelongsToOneProcessAtATime) {
    Almacen uno(carpeta.path());
    ASSERT_TRUE(uno.Abrir(error));
    Almacen otro(carpeta.path());
    EXPECT_FALSE(otro.Abrir(error));
    EXPECT_EQ(error, u"otro simulador usa la carpeta "_s + carpeta.path());
}

TEST_F(AlmacenEnDisco, ThatIsDamagedIsToldAndLeftAsItIs) {
    Almacen bueno(carpeta.path());
    ASSERT_TRUE(bueno.Guardar(EstadoInicial(), error));
    const QByteArray sano = Texto();
    QByteArray cortado = sano;
    cortado.chop(40);
    QByteArray raro = sano;
    raro.replace("\"200\"", "\"300\"");
    QByteArray negativo = sano;
    negativo.replace(": 20", ": -20");
    QByteArray otraVersion = sano;
    otraVersion.replace("\"version\": 1", "\"version\": 9");
    QByteArray sinOperacion = sano;
    sinOperacion.replace("\"operacion\"", "\"operacionx\"");
    QByteArray malaOperacion = sano;
    malaOperacion.replace("\"operacion\": null", "\"operacion\": {\"opId\": \"a\"}");
    for (const QByteArray& malo : {QByteArray(), QByteArray("[]"), cortado, raro, negativo,
                                   otraVersion, sinOperacion, malaOperacion}) {
        ASSERT_NE(malo, sano);
        Escribir(malo);
        Estado estado;
        Almacen almacen(carpeta.path());
        EXPECT_FALSE(AbrirDinero(almacen, estado, error)) << malo.toStdString();
        EXPECT_EQ(error, u"el fichero del dinero está dañado: "_s + Fichero());
        EXPECT_EQ(Texto(), malo);
    }
}

TEST_F(AlmacenEnDisco, ThatCannotBeWrittenKeepsTheStateBefore) {
    Almacen almacen(carpeta.path());
    ASSERT_TRUE(almacen.Guardar(EstadoInicial(), error));
    const QByteArray antes = Texto();
    ASSERT_TRUE(QFile::setPermissions(Fichero(), QFile::ReadOwner));
    Estado otro = EstadoInicial();
    otro.inventario = {};
    EXPECT_FALSE(almacen.Guardar(otro, error));
    EXPECT_EQ(error, u"no se puede escribir %1: permiso denegado"_s.arg(Fichero()));
    EXPECT_EQ(Texto(), antes);
}

TEST_F(AlmacenEnDisco, NeedsAFolderThatCanBeMade) {
    Escribir("{}");
    Almacen almacen(Fichero() + u"/dentro"_s);
    EXPECT_FALSE(almacen.Abrir(error));
    EXPECT_TRUE(error.startsWith(u"no se puede crear la carpeta "_s));
}

TEST_F(AlmacenEnDisco, TellsItsTotalAlsoWhileASimulatorRunsOnIt) {
    Almacen almacen(carpeta.path());
    Estado estado;
    ASSERT_TRUE(AbrirDinero(almacen, estado, error));
    estado.inventario.cajon.at(*Indice(20000)) = 1;
    ASSERT_TRUE(almacen.Guardar(estado, error));
    qint64 saldo = 0;
    EXPECT_TRUE(LeerSaldo(carpeta.path(), saldo, error));
    EXPECT_EQ(saldo, 62760);
}

} // namespace
} // namespace zv::simulador
