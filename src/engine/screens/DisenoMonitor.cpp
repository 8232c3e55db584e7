// Layout of the main screen: header, state bar, grid with its page buttons, footer.
#include "engine/screens/DisenoMonitor.h"

#include "ui/Textos.h"
#include "ui/screens/Tema.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
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

void DisenoMonitor::Construir(QWidget& ventana) {
    ConstruirCabecera(ventana);
    ConstruirEstado(ventana);
    ConstruirGrid(ventana);
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
    grdZV->verticalHeader()->setDefaultSectionSize(px(tema::kAltoFila));
    grdZV->horizontalHeader()->setFixedHeight(px(44));
    tema::PonerLetra(*grdZV, escala_ > 1 ? px(14) : 0);
    framePie->setFixedHeight(px(104));
    for (QToolButton* b : boton) {
        b->setIconSize(QSize(px(32), px(32)));
    }
    tema::PonerLetra(*framePie, escala_ > 1 ? px(13) : 0);
}

void DisenoMonitor::ConstruirCabecera(QWidget& ventana) {
    frameCab = new QFrame(&ventana);
    frameCab->setObjectName(QStringLiteral("frameCab"));
    frameCab->setFixedHeight(tema::kAltoCabecera);

    btnLogo = Boton(frameCab, QStringLiteral("btnLogo"), QString(), QStringLiteral("zvmonitor"),
                    tema::kCabeceraTexto);
    btnLogo->setAccessibleName(QStringLiteral("ZVMonitor"));
    btnLogo->setIconSize(QSize(32, 32));
    lbVer = new QLabel(QStringLiteral("Monitor"), frameCab);
    lbVer->setObjectName(QStringLiteral("lbVer"));
    lbVer->setFont(tema::Fuente(17, true));

    auto* fila = new QHBoxLayout(frameCab);
    fila->setContentsMargins(8, 0, 8, 0);
    fila->setSpacing(6);
    fila->addWidget(btnLogo);
    fila->addWidget(lbVer);
    fila->addStretch(1);

    const std::array<std::pair<QString, QString>, 3> modos{
        {{QStringLiteral("Automático"), QStringLiteral("media-playback-start")},
         {QStringLiteral("Manual"), QStringLiteral("hand")},
         {QStringLiteral("Semiautomático"), QStringLiteral("media-repeat-none")}}};
    for (int i = 0; i < 3; ++i) {
        const auto& [caption, icono] = modos[static_cast<std::size_t>(i)];
        QToolButton* control = Boton(frameCab, Indexado(QStringLiteral("btnModo"), i), caption,
                                     icono, tema::kCabeceraTexto);
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
        {{QStringLiteral("Minimizar"), QStringLiteral("window-minimize")},
         {QStringLiteral("Cerrar"), QStringLiteral("window-close")},
         {QStringLiteral("Manuales"), QStringLiteral("help-contents")}}};
    for (int i = 0; i < 3; ++i) {
        const auto& [accesible, icono] = ventanas[static_cast<std::size_t>(i)];
        QToolButton* control = Boton(frameCab, Indexado(QStringLiteral("btnW"), i), QString(),
                                     icono, tema::kCabeceraTexto);
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
    frmEstado->setObjectName(QStringLiteral("frmEstado"));

    lbContador = new QLabel(QStringLiteral("Comprobando operaciones pendientes..."), frmEstado);
    lbContador->setObjectName(QStringLiteral("lbContador"));
    lbEstado = new QLabel(QStringLiteral("Inicializando..."), frmEstado);
    lbEstado->setObjectName(QStringLiteral("lbEstado"));
    lbEstado->setAlignment(Qt::AlignCenter);
    lbEstado->setWordWrap(true);

    ShapeOK = new Lampara(Lampara::Marca::Bien, QStringLiteral("ShapeOK"), frmEstado);
    ShapeAlert = new Lampara(Lampara::Marca::Alerta, QStringLiteral("ShapeAlert"), frmEstado);
    ShapeCritico = new Lampara(Lampara::Marca::Critico, QStringLiteral("ShapeCritico"), frmEstado);

    TextIni = new QLineEdit(frmEstado);
    TextIni->setObjectName(QStringLiteral("TextIni"));
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

void DisenoMonitor::ConstruirGrid(QWidget& ventana) {
    grdZV = new QTableView(&ventana);
    grdZV->setObjectName(QStringLiteral("grdZV"));
    grdZV->setFocusPolicy(Qt::NoFocus);
    grdZV->setSelectionMode(QAbstractItemView::NoSelection);
    grdZV->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdZV->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    grdZV->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grdZV->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    grdZV->setShowGrid(false);
    grdZV->setFrameShape(QFrame::NoFrame);
    grdZV->verticalHeader()->hide();
    grdZV->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView* cabecera = grdZV->horizontalHeader();
    cabecera->setSectionResizeMode(QHeaderView::Fixed);
    cabecera->setMinimumSectionSize(0);
    cabecera->setHighlightSections(false);
    cabecera->setSectionsClickable(false);

    pctScrollBar = new QFrame(&ventana);
    pctScrollBar->setObjectName(QStringLiteral("pctScrollBar"));
    pctScrollBar->setFixedWidth(76);
    btnArriba = Boton(pctScrollBar, QStringLiteral("btnArriba"), QString(), QStringLiteral("go-up"),
                      tema::kTexto);
    btnArriba->setAccessibleName(QStringLiteral("Página anterior"));
    btnAbajo = Boton(pctScrollBar, QStringLiteral("btnAbajo"), QString(), QStringLiteral("go-down"),
                     tema::kTexto);
    btnAbajo->setAccessibleName(QStringLiteral("Página siguiente"));
    auto* columna = new QVBoxLayout(pctScrollBar);
    columna->setContentsMargins(6, 6, 6, 6);
    for (QToolButton* control : {btnArriba, btnAbajo}) {
        control->setFixedSize(tema::kTeclaMinima, tema::kTeclaMinima + 16);
        control->setIconSize(QSize(36, 36));
    }
    columna->addWidget(btnArriba);
    columna->addStretch(1);
    columna->addWidget(btnAbajo);

    btnCobro = Boton(&ventana, QStringLiteral("btnCobro"), QString(), QStringLiteral("list-add"),
                     tema::kTexto);
    btnAbono = Boton(&ventana, QStringLiteral("btnAbono"), QString(), QStringLiteral("list-remove"),
                     tema::kTexto);
    btnCancelar = Boton(&ventana, QStringLiteral("btnCancelar"), QString(),
                        QStringLiteral("edit-delete"), tema::kRojoTexto);
    for (QToolButton* control : {btnCobro, btnAbono, btnCancelar}) {
        control->hide();
    }
}

void DisenoMonitor::ConstruirPie(QWidget& ventana) {
    framePie = new QFrame(&ventana);
    framePie->setObjectName(QStringLiteral("framePie"));
    auto* fila = new QHBoxLayout(framePie);
    fila->setContentsMargins(4, 6, 4, 6);
    fila->setSpacing(0);

    const std::array<std::pair<QString, QString>, 13> botones{
        {{QStringLiteral("Registro"), QStringLiteral("view-list-details")},
         {QStringLiteral("Caja"), QStringLiteral("wallet-open")},
         {QStringLiteral("Dar Cambio"), QStringLiteral("view-refresh")},
         {QStringLiteral("Añadir Cambio"), QStringLiteral("download")},
         {QStringLiteral("Pago"), QStringLiteral("cloud-upload")},
         {QStringLiteral("Incidencias"), QStringLiteral("dialog-warning")},
         {QStringLiteral("Desconectar"), QStringLiteral("network-disconnect")},
         {QStringLiteral("Conectar"), QStringLiteral("network-connect")},
         {QStringLiteral("Cobro¬Manual"), QStringLiteral("document-edit")},
         {QStringLiteral("Agrupar¬cobros"), QStringLiteral("object-group")},
         {QStringLiteral("Contraseña"), QStringLiteral("dialog-password")},
         {QString(), QString()},
         {QStringLiteral("Configurar"), QStringLiteral("configure")}}};
    for (std::size_t i = 0; i < botones.size(); ++i) {
        const auto& [caption, icono] = botones[i];
        QToolButton* b = Boton(framePie, Indexado(QStringLiteral("boton"), static_cast<int>(i)),
                               caption, icono, tema::kTexto);
        tema::PonerPapel(*b, tema::Papel::Pie);
        b->setFocusPolicy(Qt::NoFocus);
        boton[i] = b;
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
        return textos.TextoForm(QStringLiteral("frmZVMonitor"), clave, porDefecto);
    };
    const QString barras = sentido(QStringLiteral("TextIni"), QStringLiteral("Código de barras"));
    TextIni->setAccessibleName(barras);
    TextIni->setPlaceholderText(barras);
    ShapeOK->PonerSentido(sentido(QStringLiteral("ShapeOK"), QStringLiteral("Niveles normales")));
    ShapeAlert->PonerSentido(
        sentido(QStringLiteral("ShapeAlert"), QStringLiteral("Niveles en alerta")));
    ShapeCritico->PonerSentido(
        sentido(QStringLiteral("ShapeCritico"), QStringLiteral("Niveles críticos o sin conexión")));
}

void DisenoMonitor::PartirRotulos() {
    for (QToolButton* b : boton) {
        b->setText(b->text().replace(QLatin1Char(' '), QLatin1Char('\n')));
    }
}

} // namespace zv
