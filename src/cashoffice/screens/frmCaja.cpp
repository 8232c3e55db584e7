#include "cashoffice/screens/frmCaja.h"

#include "cashoffice/Claves.h"
#include "device/screens/BarrasNiveles.h"
#include "platform/StringLiterals.h"
#include "till/Claves.h"
#include "ui/screens/Paginador.h"
#include "ui/screens/PintarYa.h"
#include "ui/screens/Tarjeta.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"
#include "ui/screens/VistaRejilla.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QScopedValueRollback>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace zv {

// One amount of a card: its caption, the name of its label, where it comes from.
struct frmCaja::Renglon {
    const Clave* clave;
    const char* nombre;
    QString EstadoCaja::*etiqueta;
    tema::Letra letra = tema::Letra::Cifra;
};

namespace {

constexpr int kTwipsPorPixel = 15;
constexpr int kCifrasTotal = 12; // "123.456,78 €"
constexpr int kBajoTitulo = 10;
constexpr int kEntreLineas = 8;
constexpr auto kDerecha = Qt::AlignRight | Qt::AlignVCenter;

constexpr EntradaPie Entrada(BotonCaja boton, std::u16string_view icono, bool hueco = false,
                             EntradaPie::Clase clase = EntradaPie::Clase::Orden) {
    const auto n = static_cast<int>(boton);
    return {n, texto::kBotonesCajaTexto[n], icono, hueco, clase};
}

// What closes stands apart, and so does what empties.
constexpr EntradaPie kPie[] = {
    Entrada(BotonCaja::Salir, u"go-previous", false, EntradaPie::Clase::Salir),
    Entrada(BotonCaja::Imprimir, u"document-print"),
    Entrada(BotonCaja::ExportCsv, u"document-export"),
    Entrada(BotonCaja::Historico, u"view-history"),
    Entrada(BotonCaja::CierreNiveles, u"view-refresh", true),
    Entrada(BotonCaja::CierreValor, u"wallet-open"),
    Entrada(BotonCaja::Cuadrar, u"view-list-details", true),
    Entrada(BotonCaja::VaciarMonedas, u"archive-remove"),
    Entrada(BotonCaja::VaciarBilletes, u"archive-extract"),
    Entrada(BotonCaja::Configuracion, u"configure")};

} // namespace

frmCaja::frmCaja(Caja& caja, AccionesCaja acciones, QWidget* padre)
    : PantallaCompleta(u"frmCaja"_s, kPie, padre), caja_(caja), acciones_(std::move(acciones)) {
    PonerTitulo(texto::kCajaTitulo.PorDefecto());
    auto* fila = new QHBoxLayout;
    fila->setSpacing(12);
    auto* izquierda = new QVBoxLayout;
    izquierda->setSpacing(6);
    izquierda->addWidget(Movimientos(), 1);
    izquierda->addWidget(Niveles());
    auto* derecha = new QVBoxLayout;
    derecha->setSpacing(8);
    derecha->addWidget(Periodo());
    derecha->addWidget(Aparato());
    derecha->addStretch(1);
    fila->addLayout(izquierda, 60);
    fila->addLayout(derecha, 40);
    Cuerpo()->addLayout(fila, 1);
    TraducirPantalla(*this, caja_.ElEntorno().textos);
    const QString& cambio = findChild<QLabel*>(texto::kLblCambio.Nombre())->text();
    const QString& cajones = findChild<QLabel*>(texto::kLblCB.Nombre())->text();
    monedas_->PonerPalabras(cambio, cajones);
    billetes_->PonerPalabras(cambio, cajones);

    porSeguir_.setSingleShot(true);
    connect(&porSeguir_, &QTimer::timeout, this, &frmCaja::Seguir);
    paso_.setSingleShot(true);
    connect(&paso_, &QTimer::timeout, this, [this] {
        if (caja_.SeguirRellenando()) {
            paso_.start();
        }
    });
    caja_.AlCambiar([this] { Notar(); });
    caja_.AlPintar([this] { Pintar(); });
    caja_.PorPasos([this] { paso_.start(); });
    Seguir();
}

frmCaja::~frmCaja() {
    caja_.AlCambiar({});
    caja_.AlPintar({});
    caja_.PorPasos({});
}

// The grid with its heading, its pager, and the mark of a long period that is still being filled.
QWidget* frmCaja::Movimientos() {
    auto* marco = new QWidget(this);
    auto* columna = new QVBoxLayout(marco);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->setSpacing(4);
    auto* titulo = new QHBoxLayout;
    QLabel* lbGrdZV = Rotulo(texto::kLbGrdZV, marco);
    titulo->addWidget(lbGrdZV, 1);
    titulo->addWidget(Rotulo(texto::kLblContador, marco));
    lbContador_ = new QLabel(marco);
    lbContador_->setObjectName(u"lbContador"_s);
    tema::PonerLetra(*lbContador_, tema::Letra::Nota);
    titulo->addWidget(lbContador_);
    columna->addLayout(titulo);
    progreso_ = new QProgressBar(marco);
    Nombrar(*progreso_, texto::kProgreso);
    progreso_->setTextVisible(false);
    progreso_->hide();
    columna->addWidget(progreso_);

    auto* cuerpo = new QHBoxLayout;
    cuerpo->setSpacing(0);
    grdZV_ = new VistaRejilla(caja_.grdZV(), texto::kCajaGrdZV.Nombre(), marco);
    Nombrar(*grdZV_, texto::kCajaGrdZV);
    grdZV_->viewport()->installEventFilter(this);
    connect(grdZV_, &VistaRejilla::Desplazada, this, &frmCaja::SeguirPaginas);
    lbVacia_ = Rotulo(texto::kSinMovimientosPeriodo, grdZV_->viewport());
    lbVacia_->setWordWrap(true);
    lbVacia_->setAlignment(Qt::AlignCenter);
    auto* centro = new QVBoxLayout(grdZV_->viewport());
    centro->addWidget(lbVacia_);
    cuerpo->addWidget(grdZV_, 1);
    paginador_ = new Paginador(u"pctScrollBar"_s, marco);
    connect(paginador_->BtnArriba(), &QToolButton::clicked, this, [this] {
        caja_.grdZV().PaginaArriba();
        SeguirPaginas();
    });
    connect(paginador_->BtnAbajo(), &QToolButton::clicked, this, [this] {
        caja_.grdZV().PaginaAbajo();
        SeguirPaginas();
    });
    cuerpo->addWidget(paginador_);
    columna->addLayout(cuerpo, 1);
    return marco;
}

// What the device holds, one bar for each coin and note.
QWidget* frmCaja::Niveles() {
    auto* marco = new QWidget(this);
    auto* rejilla = new QGridLayout(marco);
    rejilla->setContentsMargins(0, 0, 0, 0);
    rejilla->setHorizontalSpacing(8);
    rejilla->setVerticalSpacing(2);
    auto* leyenda = new QHBoxLayout;
    leyenda->setSpacing(6);
    leyenda->addWidget(Rotulo(texto::kNivelesMonedas, marco));
    const std::pair<MuestraNivel::Lugar, const Clave*> lugares[] = {
        {MuestraNivel::Lugar::Reciclador, &texto::kNivelCambio},
        {MuestraNivel::Lugar::Cajon, &texto::kNivelCajon}};
    for (const auto& [lugar, clave] : lugares) {
        leyenda->addSpacing(8);
        leyenda->addWidget(new MuestraNivel(lugar, marco));
        leyenda->addWidget(Rotulo(*clave, marco));
    }
    monedas_ = new BarrasNiveles(caja_.ElEntorno().importes, marco);
    billetes_ = new BarrasNiveles(caja_.ElEntorno().importes, marco);
    leyenda->addStretch(1);
    rejilla->addLayout(leyenda, 0, 0);
    rejilla->addWidget(Rotulo(texto::kNivelesBilletes, marco), 0, 1);
    rejilla->addWidget(monedas_, 1, 0);
    rejilla->addWidget(billetes_, 1, 1);
    rejilla->setColumnStretch(0, 8);
    rejilla->setColumnStretch(1, 7);
    return marco;
}

QLabel* frmCaja::Rotulo(const Clave& clave, QWidget* padre) {
    auto* rotulo = new QLabel(padre);
    Rotular(*rotulo, clave);
    tema::PonerLetra(*rotulo, tema::Letra::Nota);
    return rotulo;
}

QLabel* frmCaja::Importe(const Renglon& renglon, QLabel* rotulo, QLabel* columna, QWidget* padre) {
    auto* importe = new QLabel(padre);
    importe->setObjectName(QString::fromLatin1(renglon.nombre));
    importe->setAlignment(kDerecha);
    tema::PonerLetra(*importe, renglon.letra);
    lineas_.push_back({renglon.etiqueta, rotulo, columna, importe});
    return importe;
}

Tarjeta* frmCaja::Periodo() {
    static const Renglon kRenglones[] = {
        {&texto::kLblCobros, "lbCobros", &EstadoCaja::lbCobros},
        {&texto::kLblAbonos, "lbAbonos", &EstadoCaja::lbAbonos},
        {&texto::kLblPagos, "lbPagos", &EstadoCaja::lbPagos},
        {&texto::kLblIngresos, "lbIngresos", &EstadoCaja::lbIngresos},
        {&texto::kLblQuebranto, "lbQuebranto", &EstadoCaja::lbQuebranto},
        {&texto::kLblSaldoFinal, "lbSaldoFinal", &EstadoCaja::lbSaldoFinal, tema::Letra::Total},
        {&texto::kLblSaldoCierre, "lbSaldoCierre", &EstadoCaja::lbSaldoCierre}};
    auto* tarjeta = new Tarjeta(texto::kTarjetaPeriodo, this);
    auto* rejilla = new QGridLayout;
    rejilla->setContentsMargins(0, kBajoTitulo, 0, 0);
    rejilla->setVerticalSpacing(kEntreLineas);
    rejilla->setColumnStretch(1, 1);
    int fila = 0;
    for (const Renglon& renglon : kRenglones) {
        QLabel* rotulo = Rotulo(*renglon.clave, tarjeta);
        rejilla->addWidget(rotulo, fila, 0);
        rejilla->addWidget(Importe(renglon, rotulo, nullptr, tarjeta), fila, 1);
        if (renglon.etiqueta == &EstadoCaja::lbQuebranto) {
            lblQuebranto_ = rotulo;
        }
        ++fila;
    }
    tarjeta->Cuerpo()->addLayout(rejilla);
    return tarjeta;
}

Tarjeta* frmCaja::Aparato() {
    static const Renglon kRenglones[2][2] = {
        {{&texto::kLblCambio, "lbCambioMonedas", &EstadoCaja::lbCambioMonedas},
         {&texto::kLblCambio, "lbCambioBilletes", &EstadoCaja::lbCambioBilletes}},
        {{&texto::kLblCB, "lbCBMonedas", &EstadoCaja::lbCBMonedas},
         {&texto::kLblCB, "lbCBBilletes", &EstadoCaja::lbCBBilletes}}};
    static const Renglon kContenido{&texto::kLblContenido, "lbContenido", &EstadoCaja::lbContenido};
    auto* tarjeta = new Tarjeta(texto::kTarjetaAparato, this);
    auto* rejilla = new QGridLayout;
    rejilla->setContentsMargins(0, kBajoTitulo, 0, 0);
    rejilla->setVerticalSpacing(kEntreLineas);
    rejilla->setColumnStretch(1, 1);
    rejilla->setColumnStretch(2, 1);
    QLabel* const columnas[] = {Rotulo(texto::kLblMonedas, tarjeta),
                                Rotulo(texto::kLblBilletes, tarjeta)};
    for (int i = 0; i < 2; ++i) {
        columnas[i]->setAlignment(kDerecha);
        rejilla->addWidget(columnas[i], 0, i + 1);
    }
    int fila = 1;
    for (const auto& renglones : kRenglones) {
        QLabel* rotulo = Rotulo(*renglones[0].clave, tarjeta);
        rejilla->addWidget(rotulo, fila, 0);
        for (int i = 0; i < 2; ++i) {
            rejilla->addWidget(Importe(renglones[i], rotulo, columnas[i], tarjeta), fila, i + 1);
        }
        ++fila;
    }
    QLabel* rotulo = Rotulo(*kContenido.clave, tarjeta);
    rejilla->addWidget(rotulo, fila, 0);
    rejilla->addWidget(Importe(kContenido, rotulo, nullptr, tarjeta), fila, 1, 1, 2);
    tarjeta->Cuerpo()->addLayout(rejilla);
    return tarjeta;
}

void frmCaja::showEvent(QShowEvent* evento) {
    PantallaCompleta::showEvent(evento);
    if (!aparecida_) {
        aparecida_ = true;
        // Behind the showing: the window stands before the device is asked.
        QMetaObject::invokeMethod(this, &frmCaja::AlAparecer, Qt::QueuedConnection);
    }
}

void frmCaja::AlAparecer() {
    Ocupar([this] {
        Pintar();
        caja_.AlMostrar();
    });
}

void frmCaja::Ocupar(const std::function<void()>& accion) {
    if (ocupado_) {
        return;
    }
    const QScopedValueRollback ocupado(ocupado_, true);
    fallo_.Hacer(*this, accion);
}

void frmCaja::Pulsado(int indice) {
    const auto boton = static_cast<BotonCaja>(indice);
    Ocupar([this, boton] {
        if (boton == BotonCaja::Historico) {
            caja_.AbrirHistorial();
            return;
        }
        if (boton == BotonCaja::Imprimir || boton == BotonCaja::ExportCsv) {
            caja_.Completar();
        }
        if (acciones_[boton]) {
            acciones_[boton]();
        }
    });
}

void frmCaja::Notar() {
    if (!porSeguir_.isActive()) {
        porSeguir_.start(0);
    }
}

void frmCaja::Pintar() {
    Seguir();
    PintarYa(*this);
}

void frmCaja::Seguir() {
    porSeguir_.stop();
    const EstadoCaja& estado = caja_.Estado();
    SeguirImportes(estado);
    SeguirMovimientos(estado);
    for (const BotonCaja cada : kBotonesCaja) {
        const bool lleva =
            cada == BotonCaja::Salir ||
            (cada == BotonCaja::Historico ? caja_.ElEntorno().pantallas.Existe(Pantalla::Historial)
                                          : static_cast<bool>(acciones_[cada]));
        boton(static_cast<int>(cada))->setEnabled(estado.boton[cada] && lleva);
    }
    if (estado.punteroEspera != aplicado_.punteroEspera) {
        estado.punteroEspera ? setCursor(Qt::WaitCursor) : unsetCursor();
    }
    if (estado.foco && estado.foco != aplicado_.foco) {
        boton(static_cast<int>(*estado.foco))->setFocus();
    }
    aplicado_ = estado;
}

void frmCaja::SeguirImportes(const EstadoCaja& estado) {
    for (const Linea& linea : lineas_) {
        const QString& texto = estado.*linea.etiqueta;
        const bool quebranto = linea.etiqueta == &EstadoCaja::lbQuebranto;
        if (quebranto) {
            // Nor does it stand before the first refresh, which takes it away.
            const bool visible = estado.quebrantoVisible && !estado.lbCobros.isEmpty();
            lblQuebranto_->setVisible(visible);
            linea.importe->setVisible(visible);
        }
        if (linea.importe->text() != texto || linea.importe->accessibleName().isEmpty()) {
            linea.importe->setText(texto);
            if (linea.etiqueta == &EstadoCaja::lbSaldoFinal) {
                // One that would push the window beyond its screen has the letters of the others.
                tema::PonerLetra(*linea.importe, texto.size() > kCifrasTotal ? tema::Letra::Cifra
                                                                             : tema::Letra::Total);
            }
            QStringList nombre{linea.rotulo->text()};
            if (linea.columna != nullptr) {
                nombre << linea.columna->text();
            }
            nombre << texto;
            linea.importe->setAccessibleName(nombre.join(u' ').trimmed());
        }
    }
    if (estado.niveles != aplicado_.niveles) {
        const auto monedas = NivelesEnBarras(estado.niveles, false);
        const auto billetes = NivelesEnBarras(estado.niveles, true);
        const qint64 mayor = std::max(MayorNivel(monedas), MayorNivel(billetes));
        monedas_->Poner(monedas, mayor);
        billetes_->Poner(billetes, mayor);
    }
}

void frmCaja::SeguirMovimientos(const EstadoCaja& estado) {
    lbContador_->setText(QString::number(estado.movimientos));
    lbVacia_->setVisible(estado.movimientos == 0);
    const bool rellenando = estado.rellenados < estado.movimientos;
    if (rellenando) {
        progreso_->setMaximum(estado.movimientos);
        progreso_->setValue(estado.rellenados);
    }
    progreso_->setVisible(rellenando);
    SeguirPaginas();
}

void frmCaja::SeguirPaginas() {
    paginador_->Habilitar(caja_.grdZV().HayAnterior(), caja_.grdZV().HaySiguiente());
}

void frmCaja::ColocarColumnas() {
    caja_.AjustarColumnas(grdZV_->width() * kTwipsPorPixel, grdZV_->AnchoBarra() * kTwipsPorPixel);
    caja_.grdZV().PonerPagina(grdZV_->viewport()->height() / grdZV_->AltoFila());
    SeguirPaginas();
}

void frmCaja::IrA(int fila) {
    Rejilla& rejilla = caja_.grdZV();
    rejilla.PonerFilaSuperior(std::clamp(fila, 1, std::max(1, rejilla.FilasDatos())));
    SeguirPaginas();
}

void frmCaja::keyPressEvent(QKeyEvent* evento) {
    const Rejilla& rejilla = caja_.grdZV();
    switch (evento->key()) {
    case Qt::Key_Up:
        return IrA(rejilla.FilaSuperior() - 1);
    case Qt::Key_Down:
        return rejilla.HaySiguiente() ? IrA(rejilla.FilaSuperior() + 1) : void();
    case Qt::Key_PageUp:
        return IrA(rejilla.FilaSuperior() - rejilla.Pagina());
    case Qt::Key_PageDown:
        return rejilla.HaySiguiente() ? IrA(rejilla.FilaSuperior() + rejilla.Pagina()) : void();
    case Qt::Key_Home:
        return IrA(1);
    case Qt::Key_End:
        return IrA(rejilla.FilasDatos() - rejilla.Pagina() + 1);
    default:
        PantallaCompleta::keyPressEvent(evento);
    }
}

bool frmCaja::eventFilter(QObject* objeto, QEvent* evento) {
    // The grid's own size decides, which follows the window's a moment later.
    if (evento->type() == QEvent::Resize && objeto == grdZV_->viewport()) {
        ColocarColumnas();
    }
    return PantallaCompleta::eventFilter(objeto, evento);
}

} // namespace zv
