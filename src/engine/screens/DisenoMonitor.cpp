// Layout of the main screen: header, state bar, grid with its page buttons, footer.
#include "engine/screens/DisenoMonitor.h"

#include "platform/StringLiterals.h"
#include "ui/Textos.h"
#include "ui/screens/Tema.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

namespace zv {

namespace {

QToolButton* Boton(QWidget* padre, const QString& nombre, const QString& caption,
                   const QString& icono, const QColor& color) {
    auto* control = new QToolButton(padre);
    control->setObjectName(nombre);
    control->setText(tema::Rotulo(caption));
    control->setIcon(tema::Icono(icono, color));
    control->setAccessibleName(QString(caption).replace(QChar(0x00AC), QLatin1Char(' ')));
    // The keyboard belongs to the barcode box.
    control->setFocusPolicy(Qt::NoFocus);
    return control;
}

constexpr double kEscalaMaxima = 1.5;

QString Indexado(const QString& nombre, int indice) {
    return nombre + QLatin1Char('_') + QString::number(indice);
}

} // namespace

void DisenoMonitor::Construir(QWidget& ventana, Rejilla& cola) {
    ConstruirCabecera(ventana);
    ConstruirEstado(ventana);
    ConstruirGrid(ventana, cola);
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
    todo->addWidget(framePie);
    AplicarEscala();
}

void DisenoMonitor::Escalar(const QSize& ventana) {
    const double escala =
        qBound(1.0, qMin(ventana.width() / 1024.0, ventana.height() / 768.0), kEscalaMaxima);
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
    grdZV->Escalar(escala_);
    framePie->setFixedHeight(px(104));
    for (QToolButton* b : boton) {
        b->setIconSize(QSize(px(32), px(32)));
    }
    tema::PonerLetra(*framePie, escala_ > 1 ? px(13) : 0);
}

void DisenoMonitor::ConstruirCabecera(QWidget& ventana) {
    frameCab = new QFrame(&ventana);
    frameCab->setObjectName(u"frameCab"_s);
    frameCab->setFixedHeight(tema::kAltoCabecera);

    btnLogo = Boton(frameCab, u"btnLogo"_s, QString(), u"zvmonitor"_s, tema::kCabeceraTexto);
    btnLogo->setAccessibleName(u"ZVMonitor"_s);
    btnLogo->setIconSize(QSize(32, 32));
    lbVer = new QLabel(u"Monitor"_s, frameCab);
    lbVer->setObjectName(u"lbVer"_s);
    lbVer->setFont(tema::Fuente(17, true));

    auto* fila = new QHBoxLayout(frameCab);
    fila->setContentsMargins(8, 0, 8, 0);
    fila->setSpacing(6);
    fila->addWidget(btnLogo);
    fila->addWidget(lbVer);
    fila->addStretch(1);

    const std::array<std::pair<QString, QString>, 3> modos{
        {{u"Automático"_s, u"media-playback-start"_s},
         {u"Manual"_s, u"hand"_s},
         {u"Semiautomático"_s, u"media-repeat-none"_s}}};
    for (int i = 0; i < 3; ++i) {
        const auto& [caption, icono] = modos[static_cast<std::size_t>(i)];
        QToolButton* control =
            Boton(frameCab, Indexado(u"btnModo"_s, i), caption, icono, tema::kCabeceraTexto);
        tema::PonerPapel(*control, tema::Papel::Cabecera);
        control->setFocusPolicy(Qt::NoFocus);
        control->setIcon(tema::Icono(icono, tema::kCabeceraTexto, tema::kTexto));
        control->setCheckable(true);
        control->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        control->setMinimumWidth(tema::kToqueMinimo * 3);
        btnModo[static_cast<std::size_t>(i)] = control;
        fila->addWidget(control);
    }
    fila->addStretch(1);

    const std::array<std::pair<QString, QString>, 3> ventanas{
        {{u"Minimizar"_s, u"window-minimize"_s},
         {u"Cerrar"_s, u"window-close"_s},
         {u"Manuales"_s, u"help-contents"_s}}};
    for (int i = 0; i < 3; ++i) {
        const auto& [accesible, icono] = ventanas[static_cast<std::size_t>(i)];
        QToolButton* control =
            Boton(frameCab, Indexado(u"btnW"_s, i), QString(), icono, tema::kCabeceraTexto);
        control->setAccessibleName(accesible);
        control->setToolTip(accesible);
        control->setFixedSize(tema::kToqueMinimo + 4, tema::kToqueMinimo);
        control->setIconSize(QSize(24, 24));
        btnW[static_cast<std::size_t>(i)] = control;
    }
    // Manuals, minimise, close: the closing one stands where every window has it.
    fila->addWidget(btnW[2]);
    fila->addWidget(btnW[0]);
    fila->addWidget(btnW[1]);
}

void DisenoMonitor::ConstruirEstado(QWidget& ventana) {
    frmEstado = new QFrame(&ventana);
    frmEstado->setObjectName(u"frmEstado"_s);

    lbContador = new QLabel(u"Comprobando operaciones pendientes..."_s, frmEstado);
    lbContador->setObjectName(u"lbContador"_s);
    lbEstado = new QLabel(u"Inicializando..."_s, frmEstado);
    lbEstado->setObjectName(u"lbEstado"_s);
    lbEstado->setAlignment(Qt::AlignCenter);
    lbEstado->setWordWrap(true);

    ShapeOK = new Lampara(Lampara::Marca::Bien, u"ShapeOK"_s, frmEstado);
    ShapeAlert = new Lampara(Lampara::Marca::Alerta, u"ShapeAlert"_s, frmEstado);
    ShapeCritico = new Lampara(Lampara::Marca::Critico, u"ShapeCritico"_s, frmEstado);

    TextIni = new QLineEdit(frmEstado);
    TextIni->setObjectName(u"TextIni"_s);
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
    grdZV = new VistaRejilla(cola, u"grdZV"_s, &ventana);
    pctScrollBar = new Paginador(u"pctScrollBar"_s, &ventana);
    btnArriba = pctScrollBar->BtnArriba();
    btnAbajo = pctScrollBar->BtnAbajo();

    btnCobro = Boton(&ventana, u"btnCobro"_s, QString(), u"list-add"_s, tema::kTexto);
    btnAbono = Boton(&ventana, u"btnAbono"_s, QString(), u"list-remove"_s, tema::kTexto);
    btnCancelar = Boton(&ventana, u"btnCancelar"_s, QString(), u"edit-delete"_s, tema::kRojoTexto);
    for (QToolButton* control : {btnCobro, btnAbono, btnCancelar}) {
        control->hide();
    }
    grdZV->PonerImagen(Imagen::Cancelar, *btnCancelar, tema::kFondoAnular);
    grdZV->PonerImagen(Imagen::Cobro, *btnCobro, tema::kVerde);
    grdZV->PonerImagen(Imagen::Abono, *btnAbono, tema::kAmbar);
}

void DisenoMonitor::ConstruirPie(QWidget& ventana) {
    framePie = new QFrame(&ventana);
    framePie->setObjectName(u"framePie"_s);
    auto* fila = new QHBoxLayout(framePie);
    fila->setContentsMargins(4, 6, 4, 6);
    fila->setSpacing(0);

    const std::array<std::pair<QString, QString>, kBotonesPie.size()> botones{
        {{u"Registro"_s, u"view-list-details"_s},
         {u"Caja"_s, u"wallet-open"_s},
         {u"Dar Cambio"_s, u"view-refresh"_s},
         {u"Añadir Cambio"_s, u"download"_s},
         {u"Pago"_s, u"cloud-upload"_s},
         {u"Incidencias"_s, u"dialog-warning"_s},
         {u"Desconectar"_s, u"network-disconnect"_s},
         {u"Conectar"_s, u"network-connect"_s},
         {u"Cobro¬Manual"_s, u"document-edit"_s},
         {u"Agrupar¬cobros"_s, u"object-group"_s},
         {u"Contraseña"_s, u"dialog-password"_s},
         {QString(), QString()},
         {u"Configurar"_s, u"configure"_s}}};
    for (const BotonPie cada : kBotonesPie) {
        const auto i = static_cast<std::size_t>(cada);
        const auto& [caption, icono] = botones[i];
        QToolButton* b = Boton(framePie, Indexado(u"boton"_s, static_cast<int>(i)), caption, icono,
                               tema::kTexto);
        tema::PonerPapel(*b, tema::Papel::Pie);
        b->setFocusPolicy(Qt::NoFocus);
        boton[cada] = b;
        if (caption.isEmpty()) {
            b->hide();
        } else {
            fila->addWidget(b, 1);
        }
    }
    PartirRotulos();
}

void DisenoMonitor::PonerSentidos(const Textos& textos) {
    const auto sentido = [&](const QString& clave, const QString& porDefecto) {
        return textos.TextoForm(u"frmZVMonitor"_s, clave, porDefecto);
    };
    const QString barras = sentido(u"TextIni"_s, u"Código de barras"_s);
    TextIni->setAccessibleName(barras);
    TextIni->setPlaceholderText(barras);
    ShapeOK->PonerSentido(sentido(u"ShapeOK"_s, u"Niveles normales"_s));
    ShapeAlert->PonerSentido(sentido(u"ShapeAlert"_s, u"Niveles en alerta"_s));
    ShapeCritico->PonerSentido(sentido(u"ShapeCritico"_s, u"Niveles críticos o sin conexión"_s));
}

void DisenoMonitor::PartirRotulos() {
    for (QToolButton* b : boton) {
        b->setText(b->text().replace(QLatin1Char(' '), QLatin1Char('\n')));
    }
}

} // namespace zv
