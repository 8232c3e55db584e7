// The scripted screens themselves: a script that is not kept must fail the test.
#include "support/PantallasGuion.h"

#include "config/Configuracio.h"
#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/DialogosGuion.h"
#include "support/LogMemoria.h"

#include <gtest/gtest-spi.h>
#include <optional>

namespace zv::test {

TEST(PantallasGuion, AnswersInOrder) {
    PantallasGuion guion;
    bool visto = false;
    guion.EsperaValidar(1, u"authCaja"_s, true);
    guion.EsperaAbrir(Pantalla::Caja, [&] { visto = true; });
    guion.EsperaValidar(0, u"authIncidencias"_s, false);
    EXPECT_TRUE(guion.ValidarUsuari(1, u"authCaja"_s));
    EXPECT_FALSE(visto);
    guion.Abrir(Pantalla::Caja);
    EXPECT_TRUE(visto);
    EXPECT_FALSE(guion.ValidarUsuari(0, u"authIncidencias"_s));
    EXPECT_EQ(guion.Pendientes(), 0U);
    EXPECT_EQ(guion.Llamadas(), (QStringList{u"ValidarUsuari(1,authCaja)"_s, u"Abrir(Caja)"_s,
                                             u"ValidarUsuari(0,authIncidencias)"_s}));
}

TEST(PantallasGuion, TheBarcodeLayoutChangesTheConfigurationHandedOver) {
    const CarpetaTemporal carpeta;
    LogMemoria log;
    DialogosGuion dialogos;
    const ModuloIni ini(log, dialogos);
    RegistryTree registry(carpeta.Ruta(u"Registro"_s));
    Configuracio cfg(ini, registry, carpeta.Ruta());
    PantallasGuion guion;
    guion.EsperaBalanza([](Configuracio& suya) { suya.BCEAN = 13; });
    guion.EsperaBalanza();
    guion.AbrirBalanza(cfg);
    EXPECT_EQ(cfg.BCEAN, 13);
    guion.AbrirBalanza(cfg);
    EXPECT_EQ(guion.Llamadas(), (QStringList{u"Abrir(Balanza)"_s, u"Abrir(Balanza)"_s}));
    EXPECT_NONFATAL_FAILURE(guion.AbrirBalanza(cfg), "unexpected call: Abrir(Balanza)");
}

TEST(PantallasGuion, AnUnexpectedCallFailsTheTest) {
    PantallasGuion guion;
    EXPECT_NONFATAL_FAILURE(guion.Abrir(Pantalla::Cobros), "unexpected call: Abrir(Cobros)");
    EXPECT_NONFATAL_FAILURE(EXPECT_FALSE(guion.ValidarUsuari(2, u"authCobro"_s)),
                            "unexpected call: ValidarUsuari(2,authCobro)");
}

TEST(PantallasGuion, AWrongCallFailsTheTestAndLeavesTheScript) {
    PantallasGuion guion;
    guion.EsperaValidar(1, u"authCaja"_s, true);
    EXPECT_NONFATAL_FAILURE(guion.Abrir(Pantalla::Caja), "where the script has ValidarUsuari");
    EXPECT_NONFATAL_FAILURE(EXPECT_FALSE(guion.ValidarUsuari(2, u"authCaja"_s)), "(1,authCaja)");
    EXPECT_NONFATAL_FAILURE(EXPECT_FALSE(guion.ValidarUsuari(1, u"authPago"_s)), "(1,authCaja)");
    EXPECT_TRUE(guion.ValidarUsuari(1, u"authCaja"_s));
}

TEST(PantallasGuion, AnUnusedEntryFailsTheTest) {
    std::optional<PantallasGuion> guion(std::in_place);
    guion->EsperaAbrir(Pantalla::BotonAcceso);
    EXPECT_NONFATAL_FAILURE(guion.reset(), "nobody asked for this screen: Abrir(BotonAcceso)");
}

TEST(PantallasGuion, AScreenExistsUnlessTheTestSaysOtherwise) {
    PantallasGuion guion;
    EXPECT_TRUE(guion.Existe(Pantalla::Configuracion));
    guion.faltan = {Pantalla::Configuracion};
    EXPECT_FALSE(guion.Existe(Pantalla::Configuracion));
    EXPECT_TRUE(guion.Existe(Pantalla::Caja));
}

} // namespace zv::test
