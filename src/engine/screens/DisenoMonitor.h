// The controls of frmZVMonitor and where they stand. Behaviour is frmZVMonitor's.
#pragma once

#include "engine/BotonPie.h"
#include "engine/Controles.h"
#include "engine/screens/Lampara.h"
#include "ui/screens/BarraPie.h"
#include "ui/screens/Paginador.h"
#include "ui/screens/VistaRejilla.h"

#include <QWidget>

#include <array>

class QAbstractButton;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace zv {

struct DisenoMonitor {
    // Builds all controls as children of the window; captions are the Spanish defaults.
    void Construir(QWidget& ventana, Rejilla& cola);
    // Letters, rows and footer grow with a window larger than 1024x768, up to half as much again.
    void Escalar(const QSize& ventana);
    // The line above the footer.
    void PonerAviso(const LineaAviso& aviso);
    // The state line: a text too long for two lines takes smaller letters.
    void PonerEstado(const QString& texto);

    QFrame* frameCab = nullptr;
    QToolButton* btnLogo = nullptr;
    QLabel* lbVer = nullptr;
    std::array<QToolButton*, 3> btnModo{};
    std::array<QToolButton*, 3> btnW{};

    QFrame* frmEstado = nullptr;
    QLabel* lbContador = nullptr;
    QLabel* lbEstado = nullptr;
    Lampara* ShapeOK = nullptr;
    Lampara* ShapeAlert = nullptr;
    Lampara* ShapeCritico = nullptr;
    QLineEdit* TextIni = nullptr;

    VistaRejilla* grdZV = nullptr;
    Paginador* pctScrollBar = nullptr;
    QToolButton* btnArriba = nullptr;
    QToolButton* btnAbajo = nullptr;

    QFrame* frmAviso = nullptr;
    QLabel* lbAviso = nullptr;
    QLabel* lbSumaAviso = nullptr;

    BarraPie* framePie = nullptr;
    PorBotonPie<QToolButton*> boton;

    // Never clicked: only their pictures are shown in grid cells.
    QToolButton* btnCobro = nullptr;
    QToolButton* btnAbono = nullptr;
    QToolButton* btnCancelar = nullptr;

  private:
    double escala_ = 1;

    void ConstruirCabecera(QWidget& ventana);
    void ConstruirEstado(QWidget& ventana);
    void ConstruirGrid(QWidget& ventana, Rejilla& cola);
    void ConstruirAviso(QWidget& ventana);
    void ConstruirPie(QWidget& ventana);
    void AplicarEscala();
    void AjustarEstado();
};

} // namespace zv
