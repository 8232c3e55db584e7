// The main screen in English: nothing of it stays Spanish.
#include "../BancoMotor.h"
#include "engine/screens/frmZVMonitor.h"
#include "support/PantallaInglesa.h"

#include <QApplication>
#include <QLabel>
#include <QToolButton>

namespace zv::test {

class IdiomaInglesMonitorTest : public BancoMotor {
  protected:
    std::unique_ptr<frmZVMonitor> Crear() {
        auto pantalla = std::make_unique<frmZVMonitor>(
            PartesMonitor{entorno, controles, grid, estado, pulso, botones}, AccionesVentana{});
        pantalla->Traducir();
        pantalla->PrepararGrid();
        return pantalla;
    }
    void PonerIngles() { IdiomaIngles().PonerEn(carpeta.path()); }
};

TEST_F(IdiomaInglesMonitorTest, EveryCaptionAndHint) {
    const auto castellana = Crear();
    PonerIngles();
    const auto inglesa = Crear();
    ComprobarEnIngles(
        *castellana, *inglesa,
        {QStringLiteral("lbVer"), QStringLiteral("btnModo_1"), QStringLiteral("btnLogo")});
}

TEST_F(IdiomaInglesMonitorTest, TitlesOfTheColumns) {
    PonerIngles();
    const auto pantalla = Crear();
    const QStringList titulos{
        QStringLiteral("Void"),     QStringLiteral("IdCola"),    QStringLiteral("Sale date"),
        QStringLiteral("Sale ID"),  QStringLiteral("Sale ID 2"), QStringLiteral("Id. Till"),
        QStringLiteral("Terminal"), QStringLiteral("Cashier"),   QStringLiteral("Payment"),
        QStringLiteral("Amount"),   QStringLiteral("Send")};
    for (int columna = 0; columna < kColumnasGrid; ++columna) {
        EXPECT_EQ(grid.Titulo(columna), titulos[columna]);
    }
}

TEST_F(IdiomaInglesMonitorTest, CounterAndModesWork) {
    PonerIngles();
    PonerFila(1250);
    PonerFila(-300);
    const auto pantalla = Crear();
    estado.RellenarGrid();
    for (int i = 0; i < 3; ++i) {
        estado.PulsarModo(i);
        pantalla->Seguir();
        EXPECT_TRUE(pantalla->Diseno().btnModo[static_cast<std::size_t>(i)]->isChecked()) << i;
    }
    EXPECT_EQ(pantalla->Diseno().lbContador->text(), QStringLiteral("1 to charge / 1 to refund"));
}

} // namespace zv::test
