// The scripted dialogs themselves: a script that is not kept must fail the test.
#include "support/DialogosGuion.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest-spi.h>
#include <optional>

namespace zv {
namespace {

using test::DialogosGuion;

const QString& Hola() {
    static const QString texto = u"hola"_s;
    return texto;
}

TEST(DialogosGuion, AnswersInOrder) {
    DialogosGuion guion;
    bool visto = false;
    guion.EsperaMensaje(Hola(), testing::_, Respuesta::Si, EstiloMensaje::SiNo,
                        [&] { visto = true; });
    guion.EsperaTexto(testing::_, testing::_, u"causa"_s, u"antes"_s);
    guion.EsperaImporte(testing::_, testing::_, Currency(1250));
    guion.EsperaImporte(testing::_, testing::_, Currency(), true);
    guion.EsperaSinImporte(testing::_, testing::_);
    guion.EsperaImpresion(Impresion::Todo);
    guion.EsperaCaja(Hola());
    EXPECT_EQ(guion.MostrarMensaje(Hola(), u"x"_s, EstiloMensaje::SiNo), Respuesta::Si);
    EXPECT_TRUE(visto);
    EXPECT_EQ(guion.PedirTexto(Hola(), {}, u"antes"_s), u"causa"_s);
    bool cancelado = true;
    bool sinImporte = true;
    EXPECT_EQ(guion.PedirImporte(Hola(), {}, Currency(7), &sinImporte, cancelado), Currency(1250));
    EXPECT_FALSE(cancelado);
    EXPECT_FALSE(sinImporte);
    EXPECT_EQ(guion.UltimoImportePorDefecto(), Currency(7));
    EXPECT_TRUE(guion.UltimoSinImporte());
    EXPECT_EQ(guion.PedirImporte(Hola(), {}, Currency(), nullptr, cancelado), Currency());
    EXPECT_TRUE(cancelado);
    EXPECT_FALSE(guion.UltimoSinImporte());
    cancelado = false;
    EXPECT_EQ(guion.PedirImporte(Hola(), {}, Currency(), &sinImporte, cancelado), Currency());
    EXPECT_TRUE(cancelado);
    EXPECT_TRUE(sinImporte);
    EXPECT_EQ(guion.ElegirImpresion(), Impresion::Todo);
    guion.CajaSimple(Hola());
    EXPECT_EQ(guion.Pendientes(), 0U);
    EXPECT_EQ(guion.Llamadas().size(), 7);
}

TEST(DialogosGuion, AnUnexpectedDialogFailsTheTest) {
    DialogosGuion guion;
    EXPECT_NONFATAL_FAILURE(guion.MostrarMensaje(Hola(), {}), "unexpected dialog");
    EXPECT_NONFATAL_FAILURE(guion.CajaSimple(Hola()), "unexpected dialog");
    bool cancelado = false;
    EXPECT_NONFATAL_FAILURE(guion.PedirImporte(Hola(), {}, {}, nullptr, cancelado),
                            "unexpected dialog");
    EXPECT_TRUE(cancelado);
}

TEST(DialogosGuion, AnotherDialogThanTheScriptsFailsTheTest) {
    DialogosGuion guion;
    guion.EsperaMensaje(Hola(), u"texto"_s, Respuesta::No, EstiloMensaje::SiNo);
    const QString otro = u"otro"_s;
    const QString texto = u"texto"_s;
    EXPECT_NONFATAL_FAILURE(guion.MostrarMensaje(otro, texto, EstiloMensaje::SiNo),
                            "the script has");
    EXPECT_NONFATAL_FAILURE(guion.MostrarMensaje(Hola(), otro, EstiloMensaje::SiNo),
                            "the script has");
    EXPECT_NONFATAL_FAILURE(guion.MostrarMensaje(Hola(), texto, EstiloMensaje::Aceptar),
                            "the script has");
    EXPECT_NONFATAL_FAILURE(guion.CajaSimple(texto), "the script has");
    EXPECT_EQ(guion.MostrarMensaje(Hola(), texto, EstiloMensaje::SiNo), Respuesta::No);
}

TEST(DialogosGuion, AnAnswerNobodyAskedForFailsTheTest) {
    std::optional<DialogosGuion> guion(std::in_place);
    guion->EsperaCaja(Hola());
    EXPECT_NONFATAL_FAILURE(guion.reset(), "nobody asked for this dialog");
}

} // namespace
} // namespace zv
