// Where pieces go, the levels, and the boxes.
#include "simulator/Inventario.h"

#include "platform/StringLiterals.h"

#include <gtest/gtest.h>

namespace zv::simulador {
namespace {

constexpr CapacidadCajones kCajones{};

std::size_t De(qint32 valor) {
    return *Indice(valor);
}

TEST(Dinero, APieceWorthTwoHundredIsACoin) {
    EXPECT_TRUE(EsMoneda(De(200)));
    EXPECT_FALSE(EsMoneda(De(500)));
    EXPECT_FALSE(Indice(300));
}

TEST(Dinero, MixturesComeBackFromJson) {
    Mezcla mezcla{};
    mezcla.at(De(1)) = 3;
    mezcla.at(De(20000)) = 2;
    EXPECT_EQ(MezclaDeJson(MezclaAJson(mezcla)), mezcla);
}

TEST(Dinero, JsonWithAStrangePieceOrCountIsRefused) {
    EXPECT_FALSE(MezclaDeJson({{u"300"_s, 1}}));
    EXPECT_FALSE(MezclaDeJson({{u"200"_s, -1}}));
    EXPECT_FALSE(MezclaDeJson({{u"200"_s, 1.5}}));
    EXPECT_FALSE(MezclaDeJson({{u"200"_s, u"4"_s}}));
}

TEST(Inventario, ANewDeviceHoldsItsFloatWithAllLevelsNormal) {
    const Inventario nuevo = Inventario::Inicial();
    EXPECT_EQ(nuevo.Saldo(), 20 * 388 + 10 * 3500);
    for (std::size_t i = 0; i < kCuantas; ++i) {
        EXPECT_EQ(nuevo.EstadoDe(i, kCajones), 0) << kDenominaciones.at(i).valor;
    }
}

TEST(Inventario, RecyclesUpToTheTargetAndThenFillsTheBox) {
    Inventario hay;
    const Denominacion& d = kDenominaciones.at(De(50));
    hay.reciclador.at(De(50)) = d.objetivo - 1;
    EXPECT_EQ(hay.DestinoDe(De(50), false, kCajones), Destino::Reciclador);
    hay.reciclador.at(De(50)) = d.objetivo;
    EXPECT_EQ(hay.DestinoDe(De(50), false, kCajones), Destino::Cajon);
}

TEST(Inventario, FloatFillsTheUnitUpToItsCapacity) {
    Inventario hay;
    const Denominacion& d = kDenominaciones.at(De(50));
    hay.reciclador.at(De(50)) = d.capacidad - 1;
    EXPECT_EQ(hay.DestinoDe(De(50), true, kCajones), Destino::Reciclador);
    hay.reciclador.at(De(50)) = d.capacidad;
    EXPECT_EQ(hay.DestinoDe(De(50), true, kCajones), Destino::Cajon);
}

TEST(Inventario, LargeNotesGoToTheNoteBoxOnly) {
    const Inventario hay;
    EXPECT_EQ(hay.DestinoDe(De(10000), true, kCajones), Destino::Cajon);
    EXPECT_EQ(hay.DestinoDe(De(20000), false, kCajones), Destino::Cajon);
}

TEST(Inventario, AFullBoxLetsTheUnitFillUpAndThenRefuses) {
    Inventario hay;
    hay.cajon.at(De(1)) = 2;
    const CapacidadCajones justa{2, 1};
    const Denominacion& d = kDenominaciones.at(De(50));
    hay.reciclador.at(De(50)) = d.objetivo;
    EXPECT_EQ(hay.DestinoDe(De(50), false, justa), Destino::Reciclador);
    hay.reciclador.at(De(50)) = d.capacidad;
    EXPECT_EQ(hay.DestinoDe(De(50), false, justa), Destino::Rechazada);
    EXPECT_EQ(hay.DestinoDe(De(10000), false, justa), Destino::Cajon); // the other box has room
    hay.cajon.at(De(20000)) = 1;
    EXPECT_EQ(hay.DestinoDe(De(10000), false, justa), Destino::Rechazada);
}

TEST(Inventario, MovesToTheBoxOnlyWhatFits) {
    Inventario hay = Inventario::Inicial();
    const qint64 antes = hay.Saldo();
    Mezcla piezas{};
    piezas.at(De(200)) = 20;
    piezas.at(De(500)) = 3;
    const Mezcla movidas = hay.PasarACajon(piezas, {15, 10});
    EXPECT_EQ(movidas.at(De(200)), 15);
    EXPECT_EQ(movidas.at(De(500)), 3);
    EXPECT_EQ(hay.reciclador.at(De(200)), 5);
    EXPECT_EQ(hay.cajon.at(De(200)), 15);
    EXPECT_EQ(hay.Saldo(), antes);
}

TEST(Inventario, LowUnitsAlertAndThenTurnCritical) {
    Inventario hay = Inventario::Inicial();
    const Denominacion& d = kDenominaciones.at(De(50));
    hay.reciclador.at(De(50)) = d.alerta - 1;
    EXPECT_EQ(hay.EstadoDe(De(50), kCajones), 1);
    hay.reciclador.at(De(50)) = d.critica - 1;
    EXPECT_EQ(hay.EstadoDe(De(50), kCajones), 2);
}

TEST(Inventario, ABoxThatRunsFullShowsInItsClassOnly) {
    Inventario hay = Inventario::Inicial();
    hay.cajon.at(De(500)) = 9;
    EXPECT_EQ(hay.EstadoDe(De(20000), {10, 10}), 1);
    hay.cajon.at(De(500)) = 10;
    EXPECT_EQ(hay.EstadoDe(De(20000), {10, 10}), 2);
    EXPECT_EQ(hay.EstadoDe(De(200), {10, 10}), 0);
}

TEST(Inventario, EmptyingOneBoxLeavesTheOther) {
    Inventario hay;
    hay.cajon.at(De(200)) = 4;
    hay.cajon.at(De(500)) = 2;
    EXPECT_EQ(hay.Vaciar(Cajon::Monedas), 800);
    EXPECT_EQ(Total(hay.cajon), 1000);
    EXPECT_EQ(hay.Vaciar(Cajon::Billetes), 1000);
    EXPECT_EQ(hay.Saldo(), 0);
}

} // namespace
} // namespace zv::simulador
