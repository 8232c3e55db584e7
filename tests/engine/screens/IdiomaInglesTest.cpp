// The main screen in English: nothing of it stays Spanish.
#include "../BancoEngine.h"
#include "engine/screens/frmZVMonitor.h"
#include "platform/StringLiterals.h"
#include "support/PantallaInglesa.h"

#include <QApplication>
#include <QLabel>
#include <QToolButton>

namespace zv::test {

class IdiomaInglesMonitorTest : public BancoEngine {
  protected:
    std::unique_ptr<frmZVMonitor> Crear() {
        auto pantalla = std::make_unique<frmZVMonitor>(graph.Partes(), AccionesVentana{});
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
    ComprobarEnIngles(*castellana, *inglesa, {u"lbVer"_s, u"btnModo_1"_s, u"btnLogo"_s});
}

TEST_F(IdiomaInglesMonitorTest, TitlesOfTheColumns) {
    PonerIngles();
    const auto pantalla = Crear();
    const QStringList titulos{u"Void"_s,      u"IdCola"_s,   u"Sale date"_s, u"Sale ID"_s,
                              u"Sale ID 2"_s, u"Id. Till"_s, u"Terminal"_s,  u"Cashier"_s,
                              u"Payment"_s,   u"Amount"_s,   u"Send"_s};
    for (int columna = 0; columna < ColumnaCola::Cuantas; ++columna) {
        EXPECT_EQ(grid.Celdas().Texto(0, columna), titulos[columna]);
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
    EXPECT_EQ(pantalla->Diseno().lbContador->text(), u"1 to charge / 1 to refund"_s);
}

} // namespace zv::test
