#include "registers/screens/frmListado.h"

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
#include <QProgressBar>
#include <QScopedValueRollback>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

namespace zv {

namespace {

constexpr int kTwipsPorPixel = 15;
constexpr int kAnchoBoton = 80;
constexpr int kCifrasTotales = 24; // "123.456,78 €" twice

constexpr EntradaPie Entrada(BotonListado boton, std::u16string_view icono, bool hueco = false,
                             EntradaPie::Clase clase = EntradaPie::Clase::Orden) {
    const auto n = static_cast<int>(boton);
    return {n, texto::kBotonesListado[n], icono, hueco, clase};
}

// What clears all rows stands apart.
constexpr EntradaPie kPie[] = {
    Entrada(BotonListado::Salir, u"go-previous", false, EntradaPie::Clase::Salir),
    Entrada(BotonListado::Imprimir, u"document-print"),
    Entrada(BotonListado::ExportCsv, u"document-export"),
    Entrada(BotonListado::Todas, u"edit-delete", true)};

// Lends the pictures of its column their icon; never seen itself.
QToolButton* BotonDeImagen(QWidget* padre, const QString& nombre, const QString& icono,
                           const QColor& color) {
    auto* boton = new QToolButton(padre);
    boton->setObjectName(nombre);
    boton->setIcon(tema::Icono(icono, color));
    boton->hide();
    return boton;
}

} // namespace

frmListado::frmListado(Listado& listado, ModoListado modo, AccionesListado acciones, QWidget* padre)
    : PantallaCompleta(u"frmListado"_s, kPie, padre), listado_(listado), modo_(modo),
      acciones_(std::move(acciones)) {
    Cuerpo()->addWidget(Filas(), 1);
    Cuerpo()->addWidget(PieDeLista());
    TraducirPantalla(*this, listado_.ElEntorno().textos);
    PonerTitulo(listado_.ElEntorno().textos.Traduce(TituloDe(modo_)));
    Conectar();
    Seguir();
}

frmListado::~frmListado() {
    listado_.AlCambiar({});
    listado_.AlPintar({});
    listado_.PorPasos({});
}

void frmListado::Conectar() {
    porSeguir_.setSingleShot(true);
    connect(&porSeguir_, &QTimer::timeout, this, &frmListado::Seguir);
    paso_.setSingleShot(true);
    connect(&paso_, &QTimer::timeout, this, [this] {
        if (listado_.SeguirRellenando()) {
            paso_.start();
        }
    });
    listado_.AlCambiar([this] { Notar(); });
    listado_.AlPintar([this] { Pintar(); });
    listado_.PorPasos([this] { paso_.start(); });

    grdZV_->viewport()->installEventFilter(this);
    connect(grdZV_, &VistaRejilla::Desplazada, this, &frmListado::SeguirPaginas);
    connect(grdZV_, &VistaRejilla::Soltado, this, &frmListado::Tocada);
    connect(paginador_->BtnArriba(), &QToolButton::clicked, this, [this] {
        listado_.grdZV().PaginaArriba();
        SeguirPaginas();
    });
    connect(paginador_->BtnAbajo(), &QToolButton::clicked, this, [this] {
        listado_.grdZV().PaginaAbajo();
        SeguirPaginas();
    });
    connect(paginador_->BtnTop(), &QToolButton::clicked, this, [this] {
        listado_.IrAlPrincipio();
        SeguirPaginas();
    });
    connect(paginador_->BtnBottom(), &QToolButton::clicked, this, [this] {
        listado_.IrAlFinal();
        SeguirPaginas();
    });
}

QWidget* frmListado::Filas() {
    auto* marco = new QWidget(this);
    auto* columna = new QVBoxLayout(marco);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->setSpacing(4);
    progreso_ = new QProgressBar(marco);
    Nombrar(*progreso_, texto::kFilasCargadas);
    progreso_->setTextVisible(false);
    progreso_->hide();
    columna->addWidget(progreso_);

    grdZV_ = new VistaRejilla(listado_.grdZV(), texto::kListadoGrdZV.Nombre(), marco);
    Nombrar(*grdZV_, texto::kListadoGrdZV);
    grdZV_->SenalarFilaActual();
    grdZV_->PonerImagen(Imagen::Cancelar,
                        *BotonDeImagen(marco, u"btnCancelar"_s, u"edit-delete"_s, tema::kRojoTexto),
                        tema::kFondoAnular);
    grdZV_->PonerImagen(Imagen::Enviar,
                        *BotonDeImagen(marco, u"btnEnviar"_s, u"mail-send"_s, tema::kTexto),
                        tema::kAmbar);
    lbVacia_ = new QLabel(grdZV_->viewport());
    Rotular(*lbVacia_, texto::kListadoVacio);
    tema::PonerLetra(*lbVacia_, tema::Letra::Nota);
    lbVacia_->setWordWrap(true);
    lbVacia_->setAlignment(Qt::AlignCenter);
    lbVacia_->hide();
    auto* centro = new QVBoxLayout(grdZV_->viewport());
    centro->addWidget(lbVacia_);
    columna->addWidget(grdZV_, 1);
    return marco;
}

// Below the grid, which needs the whole width for its columns.
QWidget* frmListado::PieDeLista() {
    auto* pie = new QWidget(this);
    auto* linea = new QHBoxLayout(pie);
    linea->setContentsMargins(0, 0, 12, 0);
    linea->setSpacing(12);
    paginador_ = new Paginador(u"pctScrollBar"_s, pie);
    paginador_->PonerExtremos();
    paginador_->Tumbar();
    linea->addWidget(paginador_);
    lbDetalle_ = new QLabel(pie);
    lbDetalle_->setObjectName(u"lbDetalle"_s);
    lbDetalle_->setWordWrap(true);
    lbDetalle_->setTextFormat(Qt::PlainText);
    tema::PonerLetra(*lbDetalle_, tema::Letra::Nota);
    linea->addWidget(lbDetalle_, 1);

    totales_ = new QWidget(pie);
    auto* totales = new QHBoxLayout(totales_);
    totales->setContentsMargins(0, 0, 0, 0);
    totales->setSpacing(12);
    lbCobros_ = Total(texto::kTotalCobros, "lbCobros", *totales);
    totales->addSpacing(24);
    lbPagos_ = Total(texto::kTotalPagos, "lbPagos", *totales);
    linea->addWidget(totales_);
    return pie;
}

QLabel* frmListado::Total(const Clave& clave, const char* nombre, QHBoxLayout& linea) {
    auto* rotulo = new QLabel(totales_);
    Rotular(*rotulo, clave);
    tema::PonerLetra(*rotulo, tema::Letra::Nota);
    auto* importe = new QLabel(totales_);
    importe->setObjectName(QString::fromLatin1(nombre));
    tema::PonerLetra(*importe, tema::Letra::Total);
    linea.addWidget(rotulo);
    linea.addWidget(importe);
    return importe;
}

void frmListado::showEvent(QShowEvent* evento) {
    PantallaCompleta::showEvent(evento);
    if (!aparecida_) {
        aparecida_ = true;
        // Behind the showing: the window stands before the table is read.
        QMetaObject::invokeMethod(this, &frmListado::AlAparecer, Qt::QueuedConnection);
    }
}

void frmListado::AlAparecer() {
    Ocupar([this] {
        Pintar();
        listado_.RellenaGrdZv(modo_);
    });
}

void frmListado::Ocupar(const std::function<void()>& accion) {
    // A touch that comes with the one that has ended the screen is none.
    if (ocupado_ || !isVisible()) {
        return;
    }
    const QScopedValueRollback ocupado(ocupado_, true);
    fallo_.Hacer(*this, accion);
}

void frmListado::Tocada(int fila, int columna, bool debajo) {
    // A screen reader may choose a cell of a column that is not shown.
    if (columna >= 0 && grdZV_->isColumnHidden(columna)) {
        return;
    }
    bool salir = false;
    Ocupar([&] { salir = acciones_.tocar && acciones_.tocar(fila, columna, debajo); });
    SeguirPaginas(); // another row is selected
    if (salir) {
        accept();
    }
}

void frmListado::Pulsado(int indice) {
    Ocupar([this, indice] {
        switch (static_cast<BotonListado>(indice)) {
        case BotonListado::Imprimir:
            return acciones_.imprimir();
        case BotonListado::Todas:
            return acciones_.todas();
        case BotonListado::ExportCsv:
            listado_.Completar();
            return acciones_.exportar();
        case BotonListado::Salir:
            return;
        }
    });
}

void frmListado::Notar() {
    if (!porSeguir_.isActive()) {
        porSeguir_.start(0);
    }
}

void frmListado::Pintar() {
    Seguir();
    PintarYa(*this);
}

void frmListado::Seguir() {
    porSeguir_.stop();
    const EstadoListado& estado = listado_.Estado();
    if (!estado.lbTitulo.isEmpty()) {
        PonerTitulo(estado.lbTitulo);
    }
    // What a mode has stands from the start.
    totales_->setVisible(estado.leido ? estado.totalesVisibles : modo_ == ModoListado::Cobros);
    QToolButton& todas = *boton(static_cast<int>(BotonListado::Todas));
    todas.setVisible(estado.leido ? estado.todasVisible : modo_ != ModoListado::Cobros);
    todas.setEnabled(acciones_.todas && estado.filas > 0);
    boton(static_cast<int>(BotonListado::Imprimir))
        ->setEnabled(acciones_.imprimir && listado_.ElEntorno().configuracio->SINIMPRESORA != 1);
    boton(static_cast<int>(BotonListado::ExportCsv))
        ->setEnabled(static_cast<bool>(acciones_.exportar));
    SeguirTotales(estado);
    lbVacia_->setVisible(estado.leido && estado.filas == 0);
    const bool rellenando = estado.rellenadas < estado.filas;
    if (rellenando) {
        progreso_->setMaximum(estado.filas);
        progreso_->setValue(estado.rellenadas);
    }
    progreso_->setVisible(rellenando);
    if (estado.punteroEspera != aplicado_.punteroEspera) {
        estado.punteroEspera ? setCursor(Qt::WaitCursor) : unsetCursor();
    }
    SeguirPaginas();
    aplicado_ = estado;
}

void frmListado::SeguirTotales(const EstadoListado& estado) {
    const std::pair<QLabel*, const QString*> totales[] = {{lbCobros_, &estado.lbCobros},
                                                          {lbPagos_, &estado.lbPagos}};
    const Clave* const claves[] = {&texto::kTotalCobros, &texto::kTotalPagos};
    // Two long ones beside each other have the letters of other amounts.
    const bool largos = estado.lbCobros.size() + estado.lbPagos.size() > kCifrasTotales;
    for (std::size_t i = 0; i < 2; ++i) {
        const auto& [etiqueta, importe] = totales[i];
        etiqueta->setText(*importe);
        tema::PonerLetra(*etiqueta, largos ? tema::Letra::Cifra : tema::Letra::Total);
        const auto* rotulo = findChild<QLabel*>(claves[i]->Nombre());
        etiqueta->setAccessibleName((rotulo->text() + u' ' + *importe).trimmed());
    }
}

void frmListado::SeguirPaginas() {
    const Rejilla& rejilla = listado_.grdZV();
    paginador_->Habilitar(rejilla.HayAnterior(), rejilla.HaySiguiente());
    const bool incidencia = modo_ == ModoListado::Incidencias && rejilla.FilaActual() > 0 &&
                            rejilla.FilaActual() <= rejilla.FilasDatos();
    lbDetalle_->setText(incidencia ? rejilla.Texto(rejilla.FilaActual(), ColumnaListado::Error)
                                   : QString());
}

void frmListado::ColocarColumnas() {
    const auto twips = [](int pixeles) { return pixeles * kTwipsPorPixel; };
    listado_.AjustarColumnas({.grid = twips(grdZV_->width()),
                              .barra = twips(grdZV_->AnchoBarra()),
                              .btnCancelar = twips(Px(kAnchoBoton)),
                              .btnEnviar = twips(Px(kAnchoBoton)),
                              .escala = Escala()});
    listado_.grdZV().PonerPagina(grdZV_->viewport()->height() / grdZV_->AltoFila());
    SeguirPaginas();
}

void frmListado::keyPressEvent(QKeyEvent* evento) {
    switch (evento->key()) {
    case Qt::Key_Up:
        listado_.MoverFila(-1);
        break;
    case Qt::Key_Down:
        listado_.MoverFila(1);
        break;
    case Qt::Key_PageUp:
        listado_.grdZV().PaginaArriba();
        break;
    case Qt::Key_PageDown:
        if (listado_.grdZV().HaySiguiente()) {
            listado_.grdZV().PaginaAbajo();
        }
        break;
    case Qt::Key_Home:
        listado_.IrAlPrincipio();
        break;
    case Qt::Key_End:
        listado_.IrAlFinal();
        break;
    default:
        PantallaCompleta::keyPressEvent(evento);
        return;
    }
    SeguirPaginas();
}

void frmListado::resizeEvent(QResizeEvent* evento) {
    PantallaCompleta::resizeEvent(evento);
    // Fourteen columns: no margin beside them.
    Cuerpo()->setContentsMargins(0, 0, 0, Px(4));
    Cuerpo()->setSpacing(Px(4));
}

bool frmListado::eventFilter(QObject* objeto, QEvent* evento) {
    // The grid's own size decides, which follows the window's a moment later.
    if (evento->type() == QEvent::Resize && objeto == grdZV_->viewport()) {
        ColocarColumnas();
    }
    return PantallaCompleta::eventFilter(objeto, evento);
}

} // namespace zv
