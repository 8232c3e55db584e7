#include "registers/screens/frmHistorial.h"

#include "platform/StringLiterals.h"
#include "registers/Claves.h"
#include "ui/screens/Paginador.h"
#include "ui/screens/PintarYa.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"
#include "ui/screens/VistaRejilla.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace zv {

namespace {

constexpr int kTwipsPorPixel = 15;
constexpr int kParteCierres = 45;
constexpr int kParteMovimientos = 55;

enum Boton : int { kSalir, kImprimir, kLimpiar, kExportHist, kExportMov };

// What clears stands apart.
constexpr EntradaPie kPie[] = {
    {kSalir, texto::kBotonesHistorial[kSalir], u"go-previous", false, EntradaPie::Clase::Salir},
    {kImprimir, texto::kBotonesHistorial[kImprimir], u"document-print"},
    {kExportHist, texto::kBotonesHistorial[kExportHist], u"document-export"},
    {kExportMov, texto::kBotonesHistorial[kExportMov], u"document-export"},
    {kLimpiar, texto::kBotonesHistorial[kLimpiar], u"edit-clear-history", true}};

} // namespace

frmHistorial::frmHistorial(Historial& historial, QWidget* padre)
    : PantallaCompleta(u"frmHistorial"_s, kPie, padre), historial_(historial) {
    PonerTitulo(texto::kHistoricoTitulo.PorDefecto());
    Cuerpo()->addLayout(Colgar(cierres_, texto::kGrdCierres, texto::kSinCierres), kParteCierres);
    Cuerpo()->addLayout(Rotulos());
    Cuerpo()->addLayout(Colgar(movimientos_, texto::kGrdHis, texto::kCierreVacio),
                        kParteMovimientos);
    cierres_.vista->DesplazarDeLado();
    connect(cierres_.vista, &VistaRejilla::Soltado, this, [this](int fila, int, bool debajo) {
        if (!debajo && !ocupado_) {
            historial_.Elegir(fila);
        }
    });
    connect(movimientos_.vista, &VistaRejilla::Soltado, this, [this](int fila, int, bool debajo) {
        if (!debajo && fila > 0) {
            movimientos_.rejilla.PonerFilaActual(fila);
        }
    });
    TraducirPantalla(*this, historial_.ElEntorno().textos);

    porLeer_.setSingleShot(true);
    connect(&porLeer_, &QTimer::timeout, this,
            [this] { Ocupar([this] { historial_.Completar(); }); });
    historial_.PorTurnos([this] { porLeer_.start(0); });
    historial_.AlPintar([this] { Pintar(); });
    Seguir();
}

frmHistorial::~frmHistorial() {
    historial_.PorTurnos({});
    historial_.AlPintar({});
}

QBoxLayout* frmHistorial::Colgar(Lista& lista, const Clave& nombre, const Clave& vacia) {
    auto* fila = new QHBoxLayout;
    fila->setSpacing(0);
    lista.vista = new VistaRejilla(lista.rejilla, nombre.Nombre(), this);
    Nombrar(*lista.vista, nombre);
    lista.vista->SenalarFilaActual();
    lista.vista->viewport()->installEventFilter(this);
    connect(lista.vista, &VistaRejilla::Desplazada, this, &frmHistorial::Seguir);
    lista.vacia = new QLabel(lista.vista->viewport());
    Rotular(*lista.vacia, vacia);
    tema::PonerLetra(*lista.vacia, tema::Letra::Nota);
    lista.vacia->setWordWrap(true);
    lista.vacia->setAlignment(Qt::AlignCenter);
    (new QVBoxLayout(lista.vista->viewport()))->addWidget(lista.vacia);
    fila->addWidget(lista.vista, 1);
    lista.paginador = new Paginador(u"pctScrollBar"_s, this);
    connect(lista.paginador->BtnArriba(), &QToolButton::clicked, this,
            [this, &lista] { Pasar(lista, -1); });
    connect(lista.paginador->BtnAbajo(), &QToolButton::clicked, this,
            [this, &lista] { Pasar(lista, 1); });
    fila->addWidget(lista.paginador);
    return fila;
}

// The heading of the movements, and whose they are.
QBoxLayout* frmHistorial::Rotulos() {
    auto* fila = new QHBoxLayout;
    auto* lbHis = new QLabel(this);
    Rotular(*lbHis, texto::kLbHis);
    tema::PonerLetra(*lbHis, tema::Letra::Nota);
    fila->addWidget(lbHis, 1);
    lbCierre_ = new QLabel(this);
    lbCierre_->setObjectName(u"lbCierre"_s);
    tema::PonerLetra(*lbCierre_, tema::Letra::Cifra);
    fila->addWidget(lbCierre_);
    return fila;
}

void frmHistorial::showEvent(QShowEvent* evento) {
    PantallaCompleta::showEvent(evento);
    if (!aparecida_) {
        aparecida_ = true;
        // Behind the showing: the window stands before the tables are read.
        QMetaObject::invokeMethod(this, &frmHistorial::AlAparecer, Qt::QueuedConnection);
    }
}

void frmHistorial::AlAparecer() {
    Ocupar([this] {
        historial_.AlMostrar();
        Pintar(); // the movements cost a pass over their table
    });
}

void frmHistorial::Ocupar(const std::function<void()>& accion) {
    if (ocupado_) {
        return;
    }
    const QScopedValueRollback ocupado(ocupado_, true);
    setCursor(Qt::WaitCursor);
    fallo_.Hacer(*this, accion);
    unsetCursor();
    Seguir();
}

void frmHistorial::Pulsado(int indice) {
    Ocupar([this, indice] {
        historial_.Completar(); // its turn may not have come
        Hacer(indice);
    });
}

void frmHistorial::Hacer(int indice) {
    switch (indice) {
    case kImprimir:
        return historial_.Imprimir();
    case kLimpiar:
        return historial_.Limpiar();
    case kExportHist:
        return historial_.ExportarCierres();
    case kExportMov:
        return historial_.ExportarMovimientos();
    default:
        return;
    }
}

void frmHistorial::Pintar() {
    Seguir();
    PintarYa(*this);
}

void frmHistorial::Seguir() {
    const bool hayCierres = historial_.HayCierres();
    boton(kImprimir)->setEnabled(historial_.PuedeImprimir());
    boton(kExportHist)->setEnabled(hayCierres);
    boton(kExportMov)->setEnabled(historial_.HayMovimientos());
    cierres_.vacia->setVisible(!hayCierres);
    movimientos_.vacia->setVisible(hayCierres && !historial_.HayMovimientos());
    for (const Lista* lista : {&cierres_, &movimientos_}) {
        lista->paginador->Habilitar(lista->rejilla.HayAnterior(), lista->rejilla.HaySiguiente());
    }
    QStringList cierre;
    const int fila = cierres_.rejilla.FilaActual();
    for (const int columna : {ColumnaCierres::Fecha, ColumnaCierres::Cierre}) {
        if (fila > 0) {
            cierre << cierres_.rejilla.Texto(0, columna) << cierres_.rejilla.Texto(fila, columna);
        }
    }
    lbCierre_->setText(cierre.join(u' '));
}

void frmHistorial::ColocarColumnas(const Lista& lista) {
    const int ancho = lista.vista->width() * kTwipsPorPixel;
    const int barra = lista.vista->AnchoBarra() * kTwipsPorPixel;
    lista.rejilla.PonerPagina(lista.vista->viewport()->height() / lista.vista->AltoFila());
    if (&lista == &cierres_) {
        historial_.AjustarCierres(ancho, barra);
        historial_.MostrarElegido();
    } else {
        historial_.AjustarMovimientos(ancho, barra);
    }
    Seguir();
}

// The chosen row stays: a page is looked at.
void frmHistorial::Pasar(const Lista& lista, int paginas) {
    Rejilla& rejilla = lista.rejilla;
    if (paginas < 0 || rejilla.HaySiguiente()) {
        rejilla.PonerFilaSuperior(rejilla.FilaSuperior() + paginas * rejilla.Pagina());
    }
    Seguir();
}

void frmHistorial::MoverDeLado(int pasos) {
    QScrollBar* barra = cierres_.vista->horizontalScrollBar();
    barra->setValue(barra->value() + pasos * barra->pageStep() / 2);
}

void frmHistorial::keyPressEvent(QKeyEvent* evento) {
    const int elegida = cierres_.rejilla.FilaActual();
    switch (evento->key()) {
    case Qt::Key_Up:
        return ocupado_ ? void() : historial_.Elegir(elegida - 1);
    case Qt::Key_Down:
        return ocupado_ ? void() : historial_.Elegir(elegida + 1);
    case Qt::Key_Home:
        return ocupado_ ? void() : historial_.Elegir(1);
    case Qt::Key_End:
        return ocupado_ ? void() : historial_.Elegir(cierres_.rejilla.FilasDatos());
    case Qt::Key_PageUp:
        return Pasar(movimientos_, -1);
    case Qt::Key_PageDown:
        return Pasar(movimientos_, 1);
    case Qt::Key_Left:
        return MoverDeLado(-1);
    case Qt::Key_Right:
        return MoverDeLado(1);
    default:
        PantallaCompleta::keyPressEvent(evento);
    }
}

bool frmHistorial::eventFilter(QObject* objeto, QEvent* evento) {
    // The grids' own sizes decide, which follow the window's a moment later.
    if (evento->type() == QEvent::Resize) {
        for (const Lista* lista : {&cierres_, &movimientos_}) {
            if (lista->vista != nullptr && objeto == lista->vista->viewport()) {
                ColocarColumnas(*lista);
            }
        }
    }
    return PantallaCompleta::eventFilter(objeto, evento);
}

} // namespace zv
