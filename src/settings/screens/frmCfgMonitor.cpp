#include "settings/screens/frmCfgMonitor.h"

#include "platform/StringLiterals.h"
#include "ui/screens/Interruptor.h"
#include "ui/screens/PintarYa.h"
#include "ui/screens/SelectorTres.h"
#include "ui/screens/Tarjeta.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QVBoxLayout>

namespace zv {

namespace {

// Numbers of the footer's buttons.
enum BotonCfg : int { kSalir = 0, kGuardar = 1, kTeclado = 2, kCodigoBarras = 13 };

constexpr EntradaPie kPie[] = {
    {kSalir, &texto::DeCfgMonitor(u"boton_0"), u"go-previous", false, EntradaPie::Clase::Salir},
    {kTeclado, &texto::DeCfgMonitor(u"boton_2"), u"input-keyboard"},
    {kCodigoBarras, &texto::DeCfgMonitor(u"boton_13"), u"view-barcode"},
    {kGuardar, &texto::DeCfgMonitor(u"boton_1"), u"document-save", true}};

constexpr const Clave& kTitulo = texto::DeCfgMonitor(u"lbTitulo");

constexpr int kMargen = 9;
constexpr int kEntreTarjetas = 6;
constexpr int kEntreLineas = 6;
constexpr int kMaximoTexto = 255; // no more of a value is read back
constexpr int kMaximoRefresco = 3;
constexpr int kAnchoNumero = 90;
constexpr std::size_t kRotuloCorto = 24; // characters of a caption that shares its line

} // namespace

QString ExplorarConector(const Textos& textos, QWidget& sobre) {
    QFileDialog dialogo(&sobre, textos.Traduce(texto::kEscogerConector));
    dialogo.setFileMode(QFileDialog::ExistingFile);
    // A program of this system has no ending: all files are all of them.
    dialogo.setNameFilters({u"All Files (*)"_s, u"Exe Files (*.exe)"_s});
    return dialogo.exec() == QDialog::Accepted ? dialogo.selectedFiles().value(0) : QString();
}

frmCfgMonitor::frmCfgMonitor(CfgMonitor& cfg, QWidget* padre, Explorador explorador)
    : PantallaCompleta(u"frmCfgMonitor"_s, kPie, padre), cfg_(cfg),
      explorador_(std::move(explorador)) {
    PonerTitulo(kTitulo.PorDefecto());
    if (!explorador_) {
        explorador_ = [this](QWidget& sobre) {
            return ExplorarConector(cfg_.ElEntorno().textos, sobre);
        };
    }
    // Captions of another language may be longer: what then finds no room is scrolled to.
    auto* zona = new QScrollArea(this);
    zona->setFrameShape(QFrame::NoFrame);
    zona->setWidgetResizable(true);
    zona->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    zona->setFocusPolicy(Qt::NoFocus);
    auto* dentro = new QWidget(zona);
    // First: cards measure themselves anew, and wrongly, when they come to another window.
    zona->setWidget(dentro);
    auto* fila = new QHBoxLayout(dentro);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->setSpacing(kEntreTarjetas);
    fila->addWidget(Izquierda(dentro), 46);
    fila->addWidget(Derecha(dentro), 54);
    Cuerpo()->addWidget(zona, 1);
    lbAviso_ = Nota("lbAviso", this);
    Cuerpo()->addWidget(lbAviso_);
    TraducirPantalla(*this, cfg_.ElEntorno().textos);
    NombrarCampos();
    PonerOrden();
    cfg_.AlCambiar([this] { Seguir(); });
    cfg_.AlPintar([this] { PintarYa(*this); });
    Seguir();
}

frmCfgMonitor::~frmCfgMonitor() {
    cfg_.AlCambiar({});
    cfg_.AlPintar({});
}

QWidget* frmCfgMonitor::Izquierda(QWidget* padre) {
    auto* lado = new QWidget(padre);
    auto* columna = new QVBoxLayout(lado);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->setSpacing(kEntreTarjetas);
    columna->addWidget(Modos(lado));
    columna->addWidget(Aparato(lado));
    columna->addWidget(Conectores(lado));
    columna->addStretch(1);
    return lado;
}

QWidget* frmCfgMonitor::Derecha(QWidget* padre) {
    using enum InterruptorAjuste::Grupo;
    auto* lado = new QWidget(padre);
    auto* columna = new QVBoxLayout(lado);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->setSpacing(kEntreTarjetas);
    columna->addWidget(Grupo(Columnas, texto::DeCfgMonitor(u"lblColumnas"), lado));
    columna->addWidget(Grupo(Personalizacion, texto::DeCfgMonitor(u"lblPersonalizacion"), lado));
    columna->addWidget(Usuarios(lado));
    columna->addStretch(1);
    return lado;
}

Tarjeta* frmCfgMonitor::Modos(QWidget* padre) {
    auto* tarjeta = new Tarjeta(texto::DeCfgMonitor(u"lblModo"), padre);
    modo_ =
        new SelectorTres(texto::DeCfgMonitor(u"fraModo"),
                         {&texto::DeCfgMonitor(u"btnModo_0"), &texto::DeCfgMonitor(u"btnModo_1"),
                          &texto::DeCfgMonitor(u"btnModo_2")},
                         tarjeta);
    connect(modo_, &SelectorTres::Elegido, this,
            [this](int indice) { Hacer([&] { cfg_.ElegirModo(indice); }); });
    tarjeta->Cuerpo()->addWidget(modo_);
    return tarjeta;
}

Tarjeta* frmCfgMonitor::Aparato(QWidget* padre) {
    auto* tarjeta = new Tarjeta(texto::DeCfgMonitor(u"lblZorvex"), padre);
    auto* rejilla = new QGridLayout;
    rejilla->setVerticalSpacing(kEntreLineas);
    QLineEdit* ip = Campo(CampoCfg::IP, tarjeta);
    rejilla->addWidget(rotulos_[static_cast<std::size_t>(CampoCfg::IP)], 0, 0);
    rejilla->addWidget(ip, 0, 1, 1, 3);
    const auto probar = [this] { cfg_.ProbarConexion(); };
    btnTestZV_ = Orden(texto::DeCfgMonitor(u"btnTestZV"), tarjeta, probar);
    rejilla->addWidget(btnTestZV_, 0, 4);
    connect(ip, &QLineEdit::returnPressed, this, [this, probar] { Hacer(probar); });

    QLineEdit* refresco = Campo(CampoCfg::Refresco, tarjeta);
    connect(refresco, &QLineEdit::returnPressed, this,
            [this] { Hacer([this] { cfg_.ComprobarRefresco(); }); });
    rejilla->addWidget(rotulos_[static_cast<std::size_t>(CampoCfg::Refresco)], 1, 0);
    rejilla->addWidget(refresco, 1, 1);
    rejilla->addWidget(Rotulo(texto::DeCfgMonitor(u"lblSegundos"), tarjeta), 1, 2);
    lbPrueba_ = Nota("lbPrueba", tarjeta);
    rejilla->addWidget(lbPrueba_, 1, 3, 1, 2);
    rejilla->setColumnStretch(3, 1);
    tarjeta->Cuerpo()->addLayout(rejilla);
    return tarjeta;
}

// Port and path appear under the switch that is on.
Tarjeta* frmCfgMonitor::Conectores(QWidget* padre) {
    auto* tarjeta = new Tarjeta(texto::DeCfgMonitor(u"lblConector"), padre);
    auto* interruptores = new QHBoxLayout;
    interruptores->addWidget(CrearInterruptor(kInterruptorFast, tarjeta), 1);
    interruptores->addWidget(CrearInterruptor(kInterruptorConector, tarjeta), 1);
    tarjeta->Cuerpo()->addLayout(interruptores);

    auto* rejilla = new QGridLayout;
    rejilla->setVerticalSpacing(kEntreLineas);
    rejilla->setColumnStretch(2, 1);
    QLineEdit* puerto = Campo(CampoCfg::Puerto, tarjeta);
    rejilla->addWidget(rotulos_[static_cast<std::size_t>(CampoCfg::Puerto)], 0, 0);
    rejilla->addWidget(puerto, 0, 1);
    lbNotaPuerto_ = Nota("lbNotaPuerto", tarjeta);
    rejilla->addWidget(lbNotaPuerto_, 0, 2, 1, 2);
    QLineEdit* ruta = Campo(CampoCfg::Ruta, tarjeta);
    rejilla->addWidget(rotulos_[static_cast<std::size_t>(CampoCfg::Ruta)], 1, 0);
    rejilla->addWidget(ruta, 1, 1, 1, 2);
    btnExplorer1_ = Orden(texto::DeCfgMonitor(u"btnExplorer1_0"), tarjeta, [this] {
        const QString elegida = explorador_(*this);
        if (!elegida.isEmpty()) {
            cfg_.Escribir(CampoCfg::Ruta, elegida);
        }
    });
    rejilla->addWidget(btnExplorer1_, 1, 3);
    lbNotaRuta_ = Nota("lbNotaRuta", tarjeta);
    rejilla->addWidget(lbNotaRuta_, 2, 1, 1, 3);
    tarjeta->Cuerpo()->addLayout(rejilla);
    return tarjeta;
}

Tarjeta* frmCfgMonitor::Grupo(InterruptorAjuste::Grupo grupo, const Clave& titulo, QWidget* padre) {
    auto* tarjeta = new Tarjeta(titulo, padre);
    auto* rejilla = new QGridLayout;
    rejilla->setVerticalSpacing(0);
    rejilla->setColumnStretch(0, 1);
    rejilla->setColumnStretch(1, 1);
    int sitio = 0;
    for (std::size_t i = 0; i < kInterruptoresCfg.size(); ++i) {
        if (kInterruptoresCfg[i].grupo != grupo) {
            continue;
        }
        // A question takes the whole line.
        const int ancho = kInterruptoresCfg[i].rotulo->porDefecto.size() > kRotuloCorto ? 2 : 1;
        rejilla->addWidget(CrearInterruptor(i, tarjeta), sitio / 2, sitio % 2, 1, ancho);
        sitio += ancho;
    }
    tarjeta->Cuerpo()->addLayout(rejilla);
    return tarjeta;
}

QWidget* frmCfgMonitor::Usuarios(QWidget* padre) {
    auto* marco = new QWidget(padre);
    auto* fila = new QHBoxLayout(marco);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->addWidget(Rotulo(texto::DeCfgMonitor(u"lblUsuarios"), marco));
    btnUsuarios_ = Orden(texto::DeCfgMonitor(u"btnUsuarios"), marco,
                         [this] { cfg_.Abrir(Pantalla::Usuarios); });
    btnAccesos_ =
        Orden(texto::DeCfgMonitor(u"btnAccesos"), marco, [this] { cfg_.Abrir(Pantalla::Accesos); });
    fila->addWidget(btnUsuarios_, 1);
    fila->addWidget(btnAccesos_, 1);
    return marco;
}

QLabel* frmCfgMonitor::Rotulo(const Clave& clave, QWidget* padre) {
    auto* rotulo = new QLabel(padre);
    Rotular(*rotulo, clave);
    tema::PonerLetra(*rotulo, tema::Letra::Texto);
    return rotulo;
}

QLabel* frmCfgMonitor::Nota(const char* nombre, QWidget* padre) {
    auto* nota = new QLabel(padre);
    nota->setObjectName(QString::fromLatin1(nombre));
    nota->setWordWrap(true);
    nota->setTextFormat(Qt::PlainText);
    tema::PonerLetra(*nota, tema::Letra::Nota);
    nota->hide();
    return nota;
}

QLineEdit* frmCfgMonitor::Campo(CampoCfg campo, QWidget* padre) {
    const auto n = static_cast<std::size_t>(campo);
    auto* caja = new QLineEdit(padre);
    caja->setObjectName(u"tbCfg_%1"_s.arg(n));
    caja->setMaxLength(campo == CampoCfg::Refresco ? kMaximoRefresco : kMaximoTexto);
    rotulos_[n] = Rotulo(*kAjusteDeCampo[n].rotulo, padre);
    rotulos_[n]->setBuddy(caja);
    connect(caja, &QLineEdit::textChanged, this, [this, campo](const QString& texto) {
        if (!siguiendo_) {
            cfg_.Escribir(campo, texto);
        }
    });
    tbCfg_[n] = caja;
    return caja;
}

Interruptor* frmCfgMonitor::CrearInterruptor(std::size_t indice, QWidget* padre) {
    auto* interruptor =
        new Interruptor(*kInterruptoresCfg[indice].rotulo, cfg_.ElEntorno().textos, padre);
    connect(interruptor, &Interruptor::clicked, this,
            [this, indice] { Hacer([&] { cfg_.Conmutar(indice); }); });
    interruptores_[indice] = interruptor;
    return interruptor;
}

QPushButton* frmCfgMonitor::Orden(const Clave& clave, QWidget* padre, std::function<void()> al) {
    auto* boton = new QPushButton(padre);
    Rotular(*boton, clave);
    tema::PonerPapel(*boton, tema::Papel::Normal, Escala());
    connect(boton, &QPushButton::clicked, this, [this, al = std::move(al)] { Hacer(al); });
    return boton;
}

void frmCfgMonitor::NombrarCampos() {
    for (std::size_t i = 0; i < tbCfg_.size(); ++i) {
        tbCfg_[i]->setAccessibleName(rotulos_[i]->text());
    }
    // Three dots say nothing aloud.
    const QString escoger = cfg_.ElEntorno().textos.Traduce(texto::kEscogerConector);
    btnExplorer1_->setAccessibleName(escoger);
    btnExplorer1_->setToolTip(escoger);
}

void frmCfgMonitor::PonerOrden() {
    QWidget* antes = modo_->Parte(0);
    const auto sigue = [&antes](QWidget* control) {
        setTabOrder(antes, control);
        antes = control;
    };
    sigue(modo_->Parte(1));
    sigue(modo_->Parte(2));
    sigue(tbCfg(CampoCfg::IP));
    sigue(btnTestZV_);
    sigue(tbCfg(CampoCfg::Refresco));
    sigue(interruptores_[kInterruptorFast]);
    sigue(interruptores_[kInterruptorConector]);
    sigue(tbCfg(CampoCfg::Puerto));
    sigue(tbCfg(CampoCfg::Ruta));
    sigue(btnExplorer1_);
    for (const auto grupo :
         {InterruptorAjuste::Grupo::Columnas, InterruptorAjuste::Grupo::Personalizacion}) {
        for (std::size_t i = 0; i < interruptores_.size(); ++i) {
            if (kInterruptoresCfg[i].grupo == grupo) {
                sigue(interruptores_[i]);
            }
        }
    }
    sigue(btnUsuarios_);
    sigue(btnAccesos_);
}

void frmCfgMonitor::resizeEvent(QResizeEvent* evento) {
    PantallaCompleta::resizeEvent(evento);
    Cuerpo()->setContentsMargins(Px(kMargen), Px(kMargen), Px(kMargen), Px(kMargen));
    for (const CampoCfg campo : {CampoCfg::Refresco, CampoCfg::Puerto}) {
        tbCfg(campo)->setFixedWidth(Px(kAnchoNumero));
    }
}

void frmCfgMonitor::Hacer(const std::function<void()>& accion) {
    // By name a control can be pressed under a box; a second touch comes when the screen has ended.
    if (ocupado_ || !isVisible()) {
        Seguir(); // what the press has turned over stands as it was
        return;
    }
    const QScopedValueRollback ocupado(ocupado_, true);
    fallo_.Hacer(*this, accion);
}

bool frmCfgMonitor::PuedeSalir() {
    bool puede = !isVisible();
    Hacer([&] { puede = cfg_.PuedeSalir(); });
    return puede;
}

void frmCfgMonitor::Pulsado(int indice) {
    switch (indice) {
    case kGuardar:
        return Hacer([this] { Guardar(); });
    case kTeclado:
        return Hacer([this] { cfg_.AbrirTeclado(); });
    case kCodigoBarras:
        return Hacer([this] { cfg_.AbrirCodigoBarras(); });
    default:
        return;
    }
}

void frmCfgMonitor::Guardar() {
    if (cfg_.Guardar()) {
        cfg_.AlCambiar({}); // its copy is the configuration in force now
        done(QDialog::Accepted);
    }
}

void frmCfgMonitor::Seguir() {
    const QScopedValueRollback siguiendo(siguiendo_, true);
    const EstadoCfg& estado = cfg_.Estado();
    if (modo_->Elegida() != estado.modo) {
        modo_->Elegir(estado.modo);
    }
    for (std::size_t i = 0; i < interruptores_.size(); ++i) {
        interruptores_[i]->setChecked(estado.pulsado[i]);
    }
    for (const CampoCfg campo : kCamposCfg) {
        SeguirCampo(campo);
    }
    SeguirNotas();
    boton(kGuardar)->setEnabled(estado.cambios);
    boton(kCodigoBarras)->setEnabled(cfg_.PuedeAbrir(Pantalla::Balanza));
    btnTestZV_->setEnabled(!estado.Texto(CampoCfg::IP).isEmpty());
    btnUsuarios_->setEnabled(cfg_.PuedeAbrir(Pantalla::Usuarios));
    btnAccesos_->setEnabled(cfg_.PuedeAbrir(Pantalla::Accesos));
    if (estado.punteroEspera != espera_) {
        espera_ = estado.punteroEspera;
        espera_ ? setCursor(Qt::WaitCursor) : unsetCursor();
    }
    if (estado.foco) {
        tbCfg(*estado.foco)->setFocus();
        tbCfg(*estado.foco)->selectAll();
    }
}

void frmCfgMonitor::SeguirCampo(CampoCfg campo) {
    const EstadoCfg& estado = cfg_.Estado();
    QLineEdit& caja = *tbCfg(campo);
    if (caja.text() != estado.Texto(campo)) {
        caja.setText(estado.Texto(campo));
    }
    const auto ver = [&](bool visible) {
        caja.setVisible(visible);
        rotulos_[static_cast<std::size_t>(campo)]->setVisible(visible);
    };
    if (campo == CampoCfg::Puerto) {
        ver(estado.FastPulsado());
    } else if (campo == CampoCfg::Ruta) {
        ver(estado.ConectorPulsado());
        btnExplorer1_->setVisible(estado.ConectorPulsado());
    }
}

void frmCfgMonitor::SeguirNotas() {
    const EstadoCfg& estado = cfg_.Estado();
    const std::pair<QLabel*, const QString*> notas[] = {{lbPrueba_, &estado.prueba},
                                                        {lbNotaPuerto_, &estado.notaPuerto},
                                                        {lbNotaRuta_, &estado.notaRuta},
                                                        {lbAviso_, &estado.aviso}};
    for (const auto& [nota, texto] : notas) {
        nota->setText(*texto);
        nota->setVisible(!texto->isEmpty());
    }
}

} // namespace zv
