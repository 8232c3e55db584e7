// A long table read in pieces.
#include "store/LecturaPorClaves.h"

#include "support/BaseDeDatosTemporal.h"
#include "support/ImprimeQt.h"

#include <QThread>

#include <algorithm>
#include <gtest/gtest.h>

namespace zv::test {
namespace {

class LecturaPorClavesTest : public testing::Test {
  protected:
    void Poner(const std::vector<qint64>& claves) {
        motor.Comenzar();
        for (const qint64 clave : claves) {
            motor.Ejecutar(u"INSERT INTO Accesos (idAcceso) VALUES (?)"_s, {clave});
        }
        motor.Confirmar();
    }
    void PonerSeguidas(int cuantas) {
        std::vector<qint64> claves(static_cast<std::size_t>(cuantas));
        for (std::size_t i = 0; i < claves.size(); ++i) {
            claves[i] = static_cast<qint64>(i) + 1;
        }
        Poner(claves);
    }
    std::optional<RangoClaves> Rango() {
        return LeerRangoClaves(motor, u"Accesos"_s, u"idAcceso"_s);
    }
    std::vector<qint64> Leer() {
        std::vector<qint64> leidas;
        RecorrerPorClaves(
            motor, Rango().value(),
            u"SELECT idAcceso FROM Accesos WHERE idAcceso>=? AND idAcceso<=? "
            "ORDER BY idAcceso"_s,
            [&](const Row& fila) { leidas.push_back(fila.LeerLong(0)); },
            [&] {
                ++pausas;
                motor.Consultar(u"SELECT 1"_s); // nothing is open
            });
        return leidas;
    }

    BaseDeDatosTemporal base;
    SqliteEngine& motor = base.Database();
    int pausas = 0;
};

TEST_F(LecturaPorClavesTest, AnEmptyTableHasNoKeys) {
    EXPECT_FALSE(Rango().has_value());
}

TEST_F(LecturaPorClavesTest, EachRowOnceAndInOrderHoweverFarItsKeyLies) {
    const std::vector<qint64> claves{-70000, 0, 1, 50000, 50001, 2147483647 - 100000, 2147483647};
    Poner(claves);
    EXPECT_EQ(Rango()->primera, -70000);
    EXPECT_EQ(Rango()->ultima, 2147483647);
    EXPECT_EQ(Leer(), claves);
}

TEST_F(LecturaPorClavesTest, APieceEndsAfterSomeThousandRowsAndTheNextGoesOnBehindIt) {
    PonerSeguidas(9001);
    int lecturas = 0;
    motor.PonerGancho([&](const Statement& s) {
        lecturas += s.sql.contains(u"BETWEEN"_s) || s.sql.contains(u">="_s);
    });
    const std::vector<qint64> leidas = Leer();
    motor.PonerGancho({});
    ASSERT_EQ(leidas.size(), 9001U);
    EXPECT_TRUE(std::is_sorted(leidas.begin(), leidas.end()));
    EXPECT_EQ(leidas.back(), 9001);
    EXPECT_EQ(lecturas, 3);
}

TEST_F(LecturaPorClavesTest, WhoWaitsIsGivenAPauseBehindPiecesThatTakeTheirTime) {
    PonerSeguidas(4001);
    motor.PonerGancho([](const Statement& s) {
        if (s.sql.contains(u">="_s)) {
            QThread::msleep(45);
        }
    });
    EXPECT_EQ(Leer().size(), 4001U);
    motor.PonerGancho({});
    EXPECT_EQ(pausas, 2);
}

} // namespace
} // namespace zv::test
