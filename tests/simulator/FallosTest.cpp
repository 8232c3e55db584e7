// The language of the fault scripts.
#include "simulator/Fallos.h"

#include <gtest/gtest.h>

namespace zv::simulador {
namespace {

QString ErrorDe(const char* guion) {
    Fallos fallos;
    QString error;
    EXPECT_FALSE(fallos.Añadir(QString::fromUtf8(guion), error)) << guion;
    EXPECT_TRUE(fallos.Vacio());
    return error;
}

Fallos Con(const char* guion) {
    Fallos fallos;
    QString error;
    EXPECT_TRUE(fallos.Añadir(QString::fromUtf8(guion), error)) << error.toStdString();
    return fallos;
}

TEST(Fallos, ARuleWithoutACountStrikesEachTime) {
    Fallos fallos = Con("cobro:error=5");
    for (int n = 0; n < 3; ++n) {
        const Acciones acciones = fallos.Toca(Punto::Cobro);
        ASSERT_EQ(acciones.size(), 1U);
        EXPECT_EQ(acciones[0].tipo, TipoFallo::Error);
        EXPECT_EQ(acciones[0].valor, 5);
        EXPECT_EQ(acciones[0].regla, QStringLiteral("cobro:error=5"));
    }
}

TEST(Fallos, ACountedRuleStrikesThatTimeOnly) {
    Fallos fallos = Con("cobro#2:atasco");
    EXPECT_TRUE(fallos.Toca(Punto::Cobro).empty());
    EXPECT_EQ(fallos.Toca(Punto::Cobro).size(), 1U);
    EXPECT_TRUE(fallos.Toca(Punto::Cobro).empty());
}

TEST(Fallos, APlusStrikesFromThatTimeOn) {
    Fallos fallos = Con("cobro#2+:atasco");
    EXPECT_TRUE(fallos.Toca(Punto::Cobro).empty());
    EXPECT_EQ(fallos.Toca(Punto::Cobro).size(), 1U);
    EXPECT_EQ(fallos.Toca(Punto::Cobro).size(), 1U);
}

TEST(Fallos, OtherPointsAreNeitherStruckNorCounted) {
    Fallos fallos = Con("cobro#2:atasco");
    EXPECT_TRUE(fallos.Toca(Punto::Pago).empty());
    EXPECT_TRUE(fallos.Toca(Punto::Cobro).empty());
    EXPECT_EQ(fallos.Toca(Punto::Cobro).size(), 1U);
}

TEST(Fallos, RulesArePartedByCommasAndSemicolonsWithBlanksAround) {
    Fallos fallos = Con(" cobro:lento=3000 ; cobro:repetir , niveles#1:descuadre=-7,");
    EXPECT_EQ(fallos.Toca(Punto::Cobro).size(), 2U);
    const Acciones niveles = fallos.Toca(Punto::Niveles);
    ASSERT_EQ(niveles.size(), 1U);
    EXPECT_EQ(niveles[0].valor, -7);
}

TEST(Fallos, TodoMeansEachOperationAndNoQuery) {
    Fallos fallos = Con("todo#2:mudo");
    EXPECT_TRUE(fallos.Toca(Punto::Niveles).empty());
    EXPECT_TRUE(fallos.Toca(Punto::Conexion).empty());
    EXPECT_TRUE(fallos.Toca(Punto::Cobro).empty());
    EXPECT_EQ(fallos.Toca(Punto::Vaciado).size(), 1U);
}

TEST(Fallos, ACutHasItsMoment) {
    const Acciones acciones = Con("cobro:cortar=despues,cobro:matar=antes").Toca(Punto::Cobro);
    EXPECT_TRUE(Buscar(acciones, TipoFallo::Cortar, Momento::Despues));
    EXPECT_FALSE(Buscar(acciones, TipoFallo::Cortar, Momento::Antes));
    EXPECT_TRUE(Buscar(acciones, TipoFallo::Matar, Momento::Antes));
}

TEST(Fallos, AddedLaterCountFromThen) {
    Fallos fallos;
    fallos.Toca(Punto::Cobro);
    QString error;
    ASSERT_TRUE(fallos.Añadir(QStringLiteral("cobro#1:atasco"), error));
    EXPECT_EQ(fallos.Toca(Punto::Cobro).size(), 1U);
}

TEST(Fallos, ListsTheRulesThatMayStillStrike) {
    Fallos fallos = Con("cobro#1:atasco,pago:mudo,cobro#2+:mudo");
    EXPECT_EQ(fallos.Pendientes().size(), 3);
    fallos.Toca(Punto::Cobro);
    EXPECT_EQ(fallos.Pendientes(),
              (QStringList{QStringLiteral("pago:mudo"), QStringLiteral("cobro#2+:mudo")}));
    fallos.Borrar();
    EXPECT_TRUE(fallos.Pendientes().isEmpty());
}

TEST(Fallos, AWrongRuleIsToldInPlainWordsAndAddsNothing) {
    EXPECT_EQ(ErrorDe("cobro"),
              QStringLiteral("fallo \"cobro\": la forma es punto[#n]:acción[=valor]"));
    EXPECT_EQ(ErrorDe("venta:atasco"),
              QStringLiteral("fallo \"venta:atasco\": no hay ningún punto \"venta\""));
    EXPECT_EQ(ErrorDe("cobro:explotar"),
              QStringLiteral("fallo \"cobro:explotar\": no hay ninguna acción \"explotar\""));
    EXPECT_EQ(ErrorDe("cobro#0:atasco"),
              QStringLiteral("fallo \"cobro#0:atasco\": la cuenta empieza en 1"));
    EXPECT_EQ(ErrorDe("cobro:atasco,cobro:error=1"),
              QStringLiteral("fallo \"cobro:error=1\": el código va de 2 a 32767"));
    EXPECT_EQ(ErrorDe("cobro:error=32768"),
              QStringLiteral("fallo \"cobro:error=32768\": el código va de 2 a 32767"));
    EXPECT_EQ(ErrorDe("cobro:error"),
              QStringLiteral("fallo \"cobro:error\": el código va de 2 a 32767"));
    EXPECT_EQ(ErrorDe("cobro:lento=0"),
              QStringLiteral("fallo \"cobro:lento=0\": los milisegundos van de 1 a 600000"));
    EXPECT_EQ(ErrorDe("cobro:atasco=3"),
              QStringLiteral("fallo \"cobro:atasco=3\": no lleva valor"));
    EXPECT_EQ(
        ErrorDe("cobro:cortar=nunca"),
        QStringLiteral("fallo \"cobro:cortar=nunca\": el momento es antes, durante o despues"));
    EXPECT_EQ(ErrorDe("cuadre:retirar=oro"),
              QStringLiteral("fallo \"cuadre:retirar=oro\": el cajón es monedas, billetes o todo"));
    EXPECT_EQ(ErrorDe("niveles:descuadre=x"),
              QStringLiteral("fallo \"niveles:descuadre=x\": el descuadre va de -100000 a 100000"));
    EXPECT_EQ(ErrorDe("cobro:rechazar"),
              QStringLiteral("fallo \"cobro:rechazar\": \"rechazar\" no vale en \"cobro\""));
    EXPECT_EQ(ErrorDe("niveles:atasco"),
              QStringLiteral("fallo \"niveles:atasco\": \"atasco\" no vale en \"niveles\""));
    EXPECT_EQ(ErrorDe("cierre:retirar=todo"),
              QStringLiteral("fallo \"cierre:retirar=todo\": \"retirar\" no vale en \"cierre\""));
}

} // namespace
} // namespace zv::simulador
