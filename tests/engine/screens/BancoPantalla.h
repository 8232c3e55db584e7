// The main screen shown on the bench of the engine.
#pragma once

#include "../BancoEngine.h"
#include "config/Modo.h"
#include "engine/screens/frmZVMonitor.h"
#include "support/Esperas.h"
#include "ui/screens/Tema.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QToolButton>

namespace zv::test {

class BancoPantalla : public BancoEngine {
  protected:
    BancoPantalla() {
        tema::Aplicar(*qApp);
        EscribirIni("[ZVMONITOR]\r\nMODO=MANUAL\r\n");
        configuracio->Modo = modo::kManual;
        pantalla = std::make_unique<frmZVMonitor>(
            graph.Partes(), AccionesVentana{[this] { ++descargas; }, [this] { ++manuales; }});
        pulso.PonerVentana(pantalla.get());
        pantalla->PrepararGrid();
        pantalla->resize(1024, 768);
        pantalla->show();
        Vuelta();
    }

    const DisenoMonitor& D() const { return pantalla->Diseno(); }
    void Mostrar() {
        estado.RellenarGrid();
        estado.ActualizarEstado(true);
        Vuelta();
    }
    void PonerFilas(int cuantas) {
        for (int i = 0; i < cuantas; ++i) {
            PonerFila(100 + i);
        }
        Mostrar();
    }
    static void Clic(QToolButton* boton) {
        QTest::mouseClick(boton, Qt::LeftButton);
        Vuelta();
    }

    int descargas = 0;
    int manuales = 0;
    std::unique_ptr<frmZVMonitor> pantalla;
};

} // namespace zv::test
