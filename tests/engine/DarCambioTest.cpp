// Giving change: every end of the device with its record, its lines, its message.
#include "BancoManual.h"

namespace zv::test {

class DarCambioTest : public BancoManual {
  protected:
    void Dar() { Pulsar(BotonPie::DarCambio); }
    static ApunteEsperado Bueno() {
        return {tipo::kDarCambio, estado::kOk, 2000, 2000, 1990, {}, 50000};
    }
};

TEST_F(DarCambioTest, GoodChangeIsFiled) {
    cliente.EsperaChange(2000, 1990, FinGuion::Ok().Durante([this] { ComprobarEnMarcha(); }));
    Dar();
    EXPECT_EQ(log.lineas,
              (QStringList{u"DARCAMBIO_BEGINTRANS"_s,
                           u"ZVCHANGE_DARCAMBIO_OK: PAIDINVALUE=2000 PAIDOUTVALUE=1990"_s,
                           u"ADDPROC_OK_1_DARCAMBIO"_s, u"DARCAMBIO_COMMIT"_s}));
    ComprobarApuntes({Bueno()});
    EXPECT_EQ(Activo(), u"0"_s);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
}

TEST_F(DarCambioTest, NobodyIsAskedWhoTheyAre) {
    cliente.EsperaChange(500, 500);
    Dar();
    EXPECT_TRUE(pantallas.Llamadas().isEmpty());
    EXPECT_TRUE(dialogos.Llamadas().isEmpty());
}

TEST_F(DarCambioTest, WhatCameInDecidesWhetherThereIsARecord) {
    cliente.EsperaChange(1000, 0);
    Dar();
    cliente.EsperaChange(0, 1000);
    Dar();
    ComprobarApuntes({{tipo::kDarCambio, estado::kOk, 1000, 1000, 0, {}, 50000}});
}

TEST_F(DarCambioTest, ACancelIsFiledWithWhatMoved) {
    cliente.EsperaChange(1000, 1000, FinGuion::Cancelado());
    Dar();
    EXPECT_EQ(log.lineas,
              (QStringList{u"DARCAMBIO_BEGINTRANS"_s,
                           u"ZVCHANGE_DARCAMBIO_CANCEL: PAIDINVALUE=1000 PAIDOUTVALUE=1000"_s,
                           u"ADDPROC_OK_1_DARCAMBIO_CANCEL"_s, u"DARCAMBIO_COMMIT"_s}));
    ComprobarApuntes(
        {{tipo::kDarCambio, estado::kCancel, 1000, 1000, 1000, u"Cambio cancelado"_s}});
}

TEST_F(DarCambioTest, ACancelWithNothingPutInIsFiledToo) {
    cliente.EsperaChange(0, 0, FinGuion::Cancelado());
    Dar();
    ComprobarApuntes({{tipo::kDarCambio, estado::kCancel, 0, 0, 0, u"Cambio cancelado"_s}});
}

} // namespace zv::test
