#include "engine/screens/DisenoMonitor.h"

#include "engine/Claves.h"
#include "platform/StringLiterals.h"
#include "ui/Claves.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

namespace zv {

namespace {

QToolButton* Boton(QWidget* padre, const QString& icono, const QColor& color) {
    auto* control = new QToolButton(padre);
    control->setIcon(tema::Icono(icono, color));
    // The keyboard belongs to the barcode box.
    control->setFocusPolicy(Qt::NoFocus);
    return control;
}

// A button whose picture alone is shown.
QToolButton* Boton(QWidget* padre, const QString& nombre, const QString& icono,
                   const QColor& color) {
    QToolButton* control = Boton(padre, icono, color);
    control->setObjectName(nombre);
    return control;
}

constexpr EntradaPie Entrada(BotonPie boton, std::u16string_view icono) {
    const auto indice = static_cast<std::size_t>(boton);
    return {static_cast<int>(indice), texto::kBotones[indice], icono};
}

constexpr std::array<EntradaPie, kBotonesPie.size()> kPie{
    Entrada(BotonPie::Registro, u"view-list-details"),
    Entrada(BotonPie::Caja, u"wallet-open"),
    Entrada(BotonPie::DarCambio, u"view-refresh"),
    Entrada(BotonPie::AnadirCambio, u"download"),
    Entrada(BotonPie::Pago, u"cloud-upload"),
    Entrada(BotonPie::Incidencias, u"dialog-warning"),
    Entrada(BotonPie::Desconectar, u"network-disconnect"),
    Entrada(BotonPie::Conectar, u"network-connect"),
    Entrada(BotonPie::CobroManual, u"document-edit"),
    Entrada(BotonPie::AgruparCobros, u"object-group"),
    Entrada(BotonPie::Contrasena, u"dialog-password"),
    Entrada(BotonPie::SinUso, {}),
    Entrada(BotonPie::Configurar, u"configure")};

} // namespace

void DisenoMonitor::Construir(QWidget& ventana, Rejilla& cola) {
    ConstruirCabecera(ventana);
    ConstruirEstado(ventana);
    ConstruirGrid(ventana, cola);
    ConstruirAviso(ventana);
    ConstruirPie(ventana);

    auto* centro = new QHBoxLayout;
    centro->setContentsMargins(0, 0, 0, 0);
    centro->setSpacing(0);
    centro->addWidget(grdZV, 1);
    centro->addWidget(pctScrollBar);

    auto* todo = new QVBoxLayout(&ventana);
    todo->setContentsMargins(0, 0, 0, 0);
    todo->setSpacing(0);
    todo->addWidget(frameCab);
    todo->addWidget(frmEstado);
    todo->addLayout(centro, 1);
    todo->addWidget(frmAviso);
    todo->addWidget(framePie);
    AplicarEscala();
}

void DisenoMonitor::Escalar(const QSize& ventana) {
    const double escala = tema::EscalaDe(ventana);
    if (escala != escala_) {
        escala_ = escala;
        AplicarEscala();
    }
}

void DisenoMonitor::PonerEstado(const QString& texto) {
    lbEstado->setText(texto);
    lbEstado->setToolTip(texto);
    AjustarEstado();
}

void DisenoMonitor::AjustarEstado() {
    lbEstado->setFont(tema::Fuente(qRound(17 * escala_), true));
    const int alto = lbEstado->fontMetrics()
                         .boundingRect(QRect(0, 0, qMax(1, lbEstado->width()), frmEstado->height()),
                                       Qt::AlignCenter | Qt::TextWordWrap, lbEstado->text())
                         .height();
    if (alto > frmEstado->height()) {
        lbEstado->setFont(tema::Fuente(qRound(13 * escala_), true));
    }
}

void DisenoMonitor::AplicarEscala() {
    const auto px = [this](int pixeles) { return qRound(pixeles * escala_); };
    frmEstado->setFixedHeight(px(60));
    lbContador->setFont(tema::Fuente(px(19), true));
    AjustarEstado();
    for (Lampara* lampara : {ShapeOK, ShapeAlert, ShapeCritico}) {
        lampara->setFixedSize(px(32), px(32));
    }
    frmAviso->setFixedHeight(px(44));
    lbAviso->setFont(tema::Fuente(px(18), true));
    lbSumaAviso->setFont(tema::FuenteImporte(px(26)));
    grdZV->Escalar(escala_);
    pctScrollBar->Escalar(escala_);
    framePie->Escalar(escala_);
}

void DisenoMonitor::ConstruirCabecera(QWidget& ventana) {
    frameCab = new QFrame(&ventana);
    frameCab->setObjectName(u"frameCab"_s);
    frameCab->setFixedHeight(tema::kAltoCabecera);

    btnLogo = Boton(frameCab, u"btnLogo"_s, u"zvmonitor"_s, tema::kCabeceraTexto);
    btnLogo->setAccessibleName(u"ZVMonitor"_s);
    btnLogo->setIconSize(QSize(32, 32));
    lbVer = new QLabel(frameCab);
    Rotular(*lbVer, texto::kLbVer);
    lbVer->setFont(tema::Fuente(17, true));

    auto* fila = new QHBoxLayout(frameCab);
    fila->setContentsMargins(8, 0, 8, 0);
    fila->setSpacing(6);
    fila->addWidget(btnLogo);
    fila->addWidget(lbVer);
    fila->addStretch(1);

    const std::array<QString, 3> modos{u"media-playback-start"_s, u"hand"_s,
                                       u"media-repeat-none"_s};
    for (std::size_t i = 0; i < modos.size(); ++i) {
        QToolButton* control = Boton(frameCab, modos[i], tema::kCabeceraTexto);
        // The analyser does not look into the constant table.
        Rotular(*control, *texto::kBtnModo[i]); // NOLINT(clang-analyzer-core.CallAndMessage)
        tema::PonerPapel(*control, tema::Papel::Cabecera);
        control->setFocusPolicy(Qt::NoFocus);
        control->setIcon(tema::Icono(modos[i], tema::kCabeceraTexto, tema::kTexto));
        control->setCheckable(true);
        control->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        control->setMinimumWidth(tema::kToqueMinimo * 3);
        btnModo[i] = control;
        fila->addWidget(control);
    }
    fila->addStretch(1);

    const std::array<std::pair<const Clave&, QString>, 3> ventanas{
        {{texto::kBtnMinimizar, u"window-minimize"_s},
         {texto::kCerrar, u"window-close"_s},
         {texto::kBtnManuales, u"help-contents"_s}}};
    for (std::size_t i = 0; i < ventanas.size(); ++i) {
        const auto& [clave, icono] = ventanas[i];
        QToolButton* control = Boton(frameCab, icono, tema::kCabeceraTexto);
        Nombrar(*control, clave, Pista::Si);
        control->setFixedSize(tema::kToqueMinimo + 4, tema::kToqueMinimo);
        control->setIconSize(QSize(24, 24));
        btnW[i] = control;
    }
    // Manuals, minimise, close: the closing one stands where every window has it.
    fila->addWidget(btnW[2]);
    fila->addWidget(btnW[0]);
    fila->addWidget(btnW[1]);
}

void DisenoMonitor::ConstruirEstado(QWidget& ventana) {
    frmEstado = new QFrame(&ventana);
    frmEstado->setObjectName(u"frmEstado"_s);

    lbContador = new QLabel(frmEstado);
    Rotular(*lbContador, texto::kLbContador);
    lbEstado = new QLabel(frmEstado);
    Rotular(*lbEstado, texto::kLbEstado);
    lbEstado->setAlignment(Qt::AlignCenter);
    lbEstado->setWordWrap(true);

    ShapeOK = new Lampara(Lampara::Marca::Bien, texto::kShapeOK, frmEstado);
    ShapeAlert = new Lampara(Lampara::Marca::Alerta, texto::kShapeAlert, frmEstado);
    ShapeCritico = new Lampara(Lampara::Marca::Critico, texto::kShapeCritico, frmEstado);

    TextIni = new QLineEdit(frmEstado);
    Nombrar(*TextIni, texto::kCodigoBarras, Pista::Si);
    TextIni->setFixedSize(190, 48);

    auto* fila = new QHBoxLayout(frmEstado);
    fila->setContentsMargins(14, 0, 14, 0);
    fila->setSpacing(14);
    fila->addWidget(lbContador);
    fila->addWidget(lbEstado, 1);
    fila->addWidget(TextIni);
    fila->addWidget(ShapeOK);
    fila->addWidget(ShapeAlert);
    fila->addWidget(ShapeCritico);
}

void DisenoMonitor::ConstruirGrid(QWidget& ventana, Rejilla& cola) {
    grdZV = new VistaRejilla(cola, texto::kGrdZV.Nombre(), &ventana);
    Nombrar(*grdZV, texto::kGrdZV);
    pctScrollBar = new Paginador(u"pctScrollBar"_s, &ventana);
    btnArriba = pctScrollBar->BtnArriba();
    btnAbajo = pctScrollBar->BtnAbajo();

    btnCobro = Boton(&ventana, u"btnCobro"_s, u"list-add"_s, tema::kTexto);
    btnAbono = Boton(&ventana, u"btnAbono"_s, u"list-remove"_s, tema::kTexto);
    btnCancelar = Boton(&ventana, u"btnCancelar"_s, u"edit-delete"_s, tema::kRojoTexto);
    for (QToolButton* control : {btnCobro, btnAbono, btnCancelar}) {
        control->hide();
    }
    grdZV->PonerImagen(Imagen::Cancelar, *btnCancelar, tema::kFondoAnular);
    grdZV->PonerImagen(Imagen::Cobro, *btnCobro, tema::kVerde);
    grdZV->PonerImagen(Imagen::Abono, *btnAbono, tema::kAmbar);
}

void DisenoMonitor::ConstruirAviso(QWidget& ventana) {
    frmAviso = new QFrame(&ventana);
    frmAviso->setObjectName(u"frmAviso"_s);
    lbAviso = new QLabel(frmAviso);
    lbAviso->setObjectName(u"lbAviso"_s);
    lbAviso->setWordWrap(true);
    lbSumaAviso = new QLabel(frmAviso);
    lbSumaAviso->setObjectName(u"lbSumaAviso"_s);
    lbSumaAviso->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    auto* fila = new QHBoxLayout(frmAviso);
    fila->setContentsMargins(14, 0, 14, 0);
    fila->setSpacing(14);
    fila->addWidget(lbAviso, 1);
    fila->addWidget(lbSumaAviso);
    PonerAviso({});
}

void DisenoMonitor::PonerAviso(const LineaAviso& aviso) {
    tema::Tono tono = tema::Tono::Callado;
    switch (aviso.tono) {
    case LineaAviso::Tono::Ninguno:
        break;
    case LineaAviso::Tono::Agrupando:
        tono = tema::Tono::Marca;
        break;
    case LineaAviso::Tono::SinConexion:
        tono = tema::Tono::Aviso;
        break;
    case LineaAviso::Tono::Parada:
        tono = tema::Tono::Alarma;
        break;
    }
    tema::PonerTono(*frmAviso, tono);
    lbAviso->setText(aviso.texto);
    lbSumaAviso->setText(aviso.importe);
}

void DisenoMonitor::ConstruirPie(QWidget& ventana) {
    framePie = new BarraPie(kPie, &ventana);
    for (const BotonPie cada : kBotonesPie) {
        boton[cada] = framePie->Boton(static_cast<int>(cada));
        // The keyboard belongs to the barcode box.
        boton[cada]->setFocusPolicy(Qt::NoFocus);
    }
}

} // namespace zv
