// The language of the fault scripts.
#include "simulator/Fallos.h"

#include "platform/StringLiterals.h"

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
        EXPECT_EQ(acciones[0].regla, u"cobro:error=5"_s);
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

TEST(Fallos, ACutMayKeepEverybodyOutForAWhile) {
    Fallos fallos = Con("cambio:cortar=durante+9000,terminar:cortar=antes");
    const Acciones cambio = fallos.Toca(Punto::Cambio);
    EXPECT_EQ(cambio.front().momento, Momento::Durante);
    EXPECT_EQ(cambio.front().valor, 9000);
    EXPECT_EQ(fallos.Toca(Punto::Terminar).front().valor, 0);
    EXPECT_TRUE(fallos.Toca(Punto::Ingreso).empty());
}

TEST(Fallos, AddedLaterCountFromThen) {
    Fallos fallos;
    fallos.Toca(Punto::Cobro);
    QString error;
    ASSERT_TRUE(fallos.Añadir(u"cobro#1:atasco"_s, error));
    EXPECT_EQ(fallos.Toca(Punto::Cobro).size(), 1U);
}

TEST(Fallos, ListsTheRulesThatMayStillStrike) {
    Fallos fallos = Con("cobro#1:atasco,pago:mudo,cobro#2+:mudo");
    EXPECT_EQ(fallos.Pendientes().size(), 3);
    fallos.Toca(Punto::Cobro);
    EXPECT_EQ(fallos.Pendientes(), (QStringList{u"pago:mudo"_s, u"cobro#2+:mudo"_s}));
    fallos.Borrar();
    EXPECT_TRUE(fallos.Pendientes().isEmpty());
}

TEST(Fallos, AWrongRuleIsToldInPlainWordsAndAddsNothing) {
    EXPECT_EQ(ErrorDe("cobro"), u"fallo \"cobro\": la forma es punto[#n]:acción[=valor]"_s);
    EXPECT_EQ(ErrorDe("venta:atasco"), u"fallo \"venta:atasco\": no hay ningún punto \"venta\""_s);
    EXPECT_EQ(ErrorDe("cobro:explotar"),
              u"fallo \"cobro:explotar\": no hay ninguna acción \"explotar\""_s);
    EXPECT_EQ(ErrorDe("cobro#0:atasco"), u"fallo \"cobro#0:atasco\": la cuenta empieza en 1"_s);
    EXPECT_EQ(ErrorDe("cobro:atasco,cobro:error=1"),
              u"fallo \"cobro:error=1\": el código va de 2 a 32767"_s);
    EXPECT_EQ(ErrorDe("cobro:error=32768"),
              u"fallo \"cobro:error=32768\": el código va de 2 a 32767"_s);
    EXPECT_EQ(ErrorDe("cobro:error"), u"fallo \"cobro:error\": el código va de 2 a 32767"_s);
    EXPECT_EQ(ErrorDe("cobro:lento=0"),
              u"fallo \"cobro:lento=0\": los milisegundos van de 1 a 600000"_s);
    EXPECT_EQ(ErrorDe("cobro:atasco=3"), u"fallo \"cobro:atasco=3\": no lleva valor"_s);
    EXPECT_EQ(ErrorDe("cobro:cortar=nunca"),
              u"fallo \"cobro:cortar=nunca\": el momento es antes, durante o despues"_s);
    EXPECT_EQ(ErrorDe("cobro:cortar=durante+0"),
              u"fallo \"cobro:cortar=durante+0\": los milisegundos van de 1 a 600000"_s);
    EXPECT_EQ(ErrorDe("cobro:cortar=nunca+5"),
              u"fallo \"cobro:cortar=nunca+5\": el momento es antes, durante o despues"_s);
    EXPECT_EQ(ErrorDe("cobro:matar=durante+5"),
              u"fallo \"cobro:matar=durante+5\": el momento es antes, durante o despues"_s);
    EXPECT_EQ(ErrorDe("terminar:atasco"),
              u"fallo \"terminar:atasco\": \"atasco\" no vale en \"terminar\""_s);
    EXPECT_EQ(ErrorDe("cuadre:retirar=oro"),
              u"fallo \"cuadre:retirar=oro\": el cajón es monedas, billetes o todo"_s);
    EXPECT_EQ(ErrorDe("niveles:descuadre=x"),
              u"fallo \"niveles:descuadre=x\": el descuadre va de -100000 a 100000"_s);
    EXPECT_EQ(ErrorDe("cobro:rechazar"),
              u"fallo \"cobro:rechazar\": \"rechazar\" no vale en \"cobro\""_s);
    EXPECT_EQ(ErrorDe("niveles:atasco"),
              u"fallo \"niveles:atasco\": \"atasco\" no vale en \"niveles\""_s);
    EXPECT_EQ(ErrorDe("cierre:retirar=todo"),
              u"fallo \"cierre:retirar=todo\": \"retirar\" no vale en \"cierre\""_s);
}

} // namespace
} // namespace zv::simulador
