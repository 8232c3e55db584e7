// The window of the simulator, by touching it.
#include "simulator/screens/frmSimulador.h"

#include "../Banco.h"
#include "platform/StringLiterals.h"
#include "simulator/screens/BotonPieza.h"
#include "simulator/screens/Textos.h"
#include "simulator/screens/frmFallos.h"
#include "support/Esperas.h"
#include "ui/screens/Tema.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zv::simulador {
using test::Esperar;

namespace {

TEST(Textos, WriteAmountsTheSpanishWay) {
    EXPECT_EQ(TextoImporte(0), u"0,00 €"_s);
    EXPECT_EQ(TextoImporte(5), u"0,05 €"_s);
    EXPECT_EQ(TextoImporte(123456), u"1.234,56 €"_s);
    EXPECT_EQ(TextoImporte(-100000000), u"-1.000.000,00 €"_s);
    EXPECT_EQ(TextoPieza(50), u"50 c"_s);
    EXPECT_EQ(TextoPieza(20000), u"200 €"_s);
}

class Ventana : public testing::Test {
  protected:
    Ventana() {
        Opciones opciones;
        opciones.carpeta = carpeta_.path();
        opciones.traza = carpeta_.filePath(u"traza"_s);
        simulador = std::make_unique<Simulador>(std::move(opciones));
        QString error;
        arrancado_ = simulador->Arrancar(error);
        if (arrancado_) {
            ventana = std::make_unique<frmSimulador>(*simulador);
            ventana->show();
        }
    }
    void SetUp() override { ASSERT_TRUE(arrancado_); }

    template <typename T>
    T* Hallar(const char* nombre) const {
        return ventana->findChild<T*>(QLatin1String(nombre));
    }
    QString Texto(const char* nombre) const { return Hallar<QLabel>(nombre)->text(); }
    BotonPieza* Pieza(qint32 valor) const {
        return ventana->findChild<BotonPieza*>(u"pieza_%1"_s.arg(valor));
    }
    // Starts an operation and waits until the window takes money for it.
    void Empezar(const Operacion& op) {
        Fallos& fallos = simulador->LosFallos();
        ASSERT_TRUE(simulador->ElAparato().Empezar(op, fallos.Toca(Punto::Cobro)));
        ASSERT_TRUE(Esperar([&] { return Pieza(100)->isEnabled(); }));
    }
    bool Acabada() {
        return Esperar([&] {
            const Operacion* const op = simulador->ElAparato().Abierta();
            return op != nullptr && op->acabada && !Pieza(100)->isEnabled();
        });
    }

    QTemporaryDir carpeta_;
    bool arrancado_ = false;
    std::unique_ptr<Simulador> simulador;
    std::unique_ptr<frmSimulador> ventana;
};

TEST_F(Ventana, AtRestTakesNoMoneyAndShowsTheTotal) {
    EXPECT_EQ(Texto("saldo"), u"427,60 €"_s);
    EXPECT_EQ(Texto("titulo"), u"En espera"_s);
    EXPECT_TRUE(Texto("enlace").contains(u"sin monitor"_s));
    EXPECT_FALSE(Pieza(100)->isEnabled());
    EXPECT_FALSE(Hallar<QPushButton>("cancelar")->isEnabled());
    EXPECT_FALSE(Hallar<QPushButton>("terminar")->isEnabled());
}

TEST_F(Ventana, TouchedMoneyPaysTheCharge) {
    Empezar(Pedir(Metodo::Cobro, 1250));
    EXPECT_EQ(Texto("titulo"), u"Cobro"_s);
    EXPECT_EQ(Texto("pedido"), u"12,50 €"_s);
    Pieza(2000)->click();
    ASSERT_TRUE(Acabada());
    EXPECT_EQ(Texto("entrado"), u"20,00 €"_s);
    EXPECT_EQ(Texto("salido"), u"7,50 €"_s);
    EXPECT_EQ(Texto("estado"), u"Terminada (sin acuse)"_s);
    EXPECT_EQ(Texto("saldo"), u"440,10 €"_s);
}

TEST_F(Ventana, TheCancelKeyGivesTheMoneyBack) {
    Empezar(Pedir(Metodo::Cobro, 1250));
    EXPECT_FALSE(Hallar<QPushButton>("terminar")->isEnabled());
    Pieza(1000)->click();
    Hallar<QPushButton>("cancelar")->click();
    ASSERT_TRUE(Acabada());
    EXPECT_EQ(Texto("estado"), u"Cancelada (sin acuse)"_s);
    EXPECT_EQ(Texto("salido"), u"10,00 €"_s);
    EXPECT_EQ(Texto("saldo"), u"427,60 €"_s);
}

TEST_F(Ventana, TheEndKeyKeepsTheFloat) {
    Empezar(Pedir(Metodo::Ingreso));
    Pieza(500)->click();
    ASSERT_TRUE(Hallar<QPushButton>("terminar")->isEnabled());
    Hallar<QPushButton>("terminar")->click();
    ASSERT_TRUE(Acabada());
    EXPECT_EQ(Texto("saldo"), u"432,60 €"_s);
}

TEST_F(Ventana, ADeviceErrorIsTold) {
    Hallar<QPushButton>("fallos")->click();
    auto* const dialogo = ventana->findChild<frmFallos*>();
    ASSERT_NE(dialogo, nullptr);
    dialogo->findChild<QPushButton*>(u"todo#1:atasco"_s)->click();
    EXPECT_EQ(Hallar<QPushButton>("fallos")->text(), u"Fallos… (1)"_s);
    Empezar(Pedir(Metodo::Cobro, 1000));
    Pieza(1000)->click();
    ASSERT_TRUE(Acabada());
    EXPECT_EQ(Texto("estado"), u"Error 12: Pieza atascada (sin acuse)"_s);
    EXPECT_EQ(Hallar<QPushButton>("fallos")->text(), u"Fallos…"_s);
}

TEST_F(Ventana, EveryFaultOfTheMenuIsARule) {
    frmFallos dialogo(*simulador);
    int reglas = 0;
    for (QPushButton* const boton : dialogo.findChildren<QPushButton*>()) {
        if (!boton->objectName().contains(QLatin1Char(':'))) {
            continue;
        }
        boton->click();
        ++reglas;
        EXPECT_EQ(simulador->LosFallos().Pendientes().size(), reglas)
            << boton->objectName().toStdString();
    }
    EXPECT_EQ(reglas, 19);
    dialogo.findChild<QPushButton*>(u"quitar"_s)->click();
    EXPECT_TRUE(simulador->LosFallos().Vacio());
}

TEST_F(Ventana, ACustomerCanBePutToWork) {
    Empezar(Pedir(Metodo::Cobro, 1250));
    auto* const cliente = Hallar<QComboBox>("cliente");
    cliente->setCurrentIndex(cliente->findData(static_cast<int>(Guion::Exacto)));
    ASSERT_TRUE(Acabada());
    EXPECT_EQ(Texto("entrado"), u"12,50 €"_s);
}

TEST_F(Ventana, ABoxTakenByHandStillCountsUntilItIsReconciled) {
    Empezar(Pedir(Metodo::Cobro, 10000));
    Pieza(10000)->click();
    ASSERT_TRUE(Acabada());
    EXPECT_EQ(Texto("cajon_1"), u"100,00 €"_s);
    auto* const retirar = Hallar<QPushButton>("retirar_1");
    ASSERT_TRUE(retirar->isEnabled());
    EXPECT_FALSE(Hallar<QPushButton>("retirar_0")->isEnabled());
    retirar->click();
    ASSERT_TRUE(Esperar([&] { return !retirar->isEnabled(); }));
    EXPECT_EQ(retirar->text(), u"Retirado"_s);
    EXPECT_EQ(Texto("saldo"), u"527,60 €"_s);
}

TEST_F(Ventana, ListsWhatHappensNewestFirstWithoutStampsForPrograms) {
    Empezar(Pedir(Metodo::Cobro, 1250));
    Pieza(1000)->click();
    const auto* const sucesos = Hallar<QListWidget>("sucesos");
    ASSERT_EQ(sucesos->count(), 2);
    EXPECT_TRUE(sucesos->item(0)->text().endsWith(u"  entra 1000"_s));
    EXPECT_TRUE(sucesos->item(1)->text().endsWith(u"  inicio charge.start 1250"_s));
}

TEST_F(Ventana, NothingToTouchIsTooSmallOnASmallScreen) {
    tema::Aplicar(*qobject_cast<QApplication*>(QCoreApplication::instance()));
    ventana->resize(1024, 768);
    QCoreApplication::processEvents();
    EXPECT_EQ(ventana->size(), QSize(1024, 768)); // nothing asks for more
    for (const QAbstractButton* const boton : ventana->findChildren<QAbstractButton*>()) {
        if (!boton->isVisible()) {
            continue;
        }
        EXPECT_GE(boton->width(), tema::kToqueMinimo) << boton->objectName().toStdString();
        EXPECT_GE(boton->height(), tema::kToqueMinimo) << boton->objectName().toStdString();
        EXPECT_FALSE(boton->accessibleName().isEmpty() && boton->text().isEmpty());
    }
}

} // namespace
} // namespace zv::simulador
