// Building and refreshing of the simulator's window.
#include "simulator/screens/frmSimulador.h"

#include "platform/StringLiterals.h"
#include "simulator/screens/BotonPieza.h"
#include "simulator/screens/PanelOperacion.h"
#include "simulator/screens/TablaNiveles.h"
#include "simulator/screens/Textos.h"
#include "simulator/screens/frmFallos.h"
#include "ui/screens/Tema.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTime>
#include <QVBoxLayout>

namespace zv::simulador {

namespace {

constexpr int kMargen = 12;
constexpr int kSucesosMaximos = 200;
constexpr int kRefrescoMs = 30; // a burst of steps is painted once

QFrame* Tarjeta() {
    auto* const tarjeta = new QFrame;
    tarjeta->setFrameShape(QFrame::NoFrame);
    return tarjeta;
}

QLabel* Encabezado(const QString& texto) {
    auto* const rotulo = new QLabel(texto);
    rotulo->setFont(tema::Fuente(16, true));
    return rotulo;
}

} // namespace

frmSimulador::frmSimulador(Simulador& simulador, QWidget* padre)
    : QWidget(padre), simulador_(simulador), operacion_(new PanelOperacion(simulador.ElAparato())),
      enlace_(new QLabel), saldo_(new QLabel), fallos_(new QPushButton), cliente_(new QComboBox),
      niveles_(new TablaNiveles), sucesos_(new QListWidget) {
    setObjectName(u"frmSimulador"_s);
    setWindowTitle(u"ZVSimulador"_s);
    auto* const izquierda = new QVBoxLayout;
    izquierda->setSpacing(kMargen);
    izquierda->addWidget(operacion_);
    izquierda->addWidget(HacerDinero(), 1);
    auto* const derecha = new QVBoxLayout;
    derecha->setSpacing(kMargen);
    derecha->addWidget(HacerNiveles(), 3);
    derecha->addWidget(HacerSucesos(), 1);
    auto* const cuerpo = new QHBoxLayout;
    cuerpo->setContentsMargins(kMargen + 4, kMargen, kMargen + 4, kMargen);
    cuerpo->setSpacing(2 * kMargen);
    cuerpo->addLayout(izquierda, 1);
    cuerpo->addLayout(derecha, 1);
    auto* const todo = new QVBoxLayout(this);
    todo->setContentsMargins(0, 0, 0, 0);
    todo->setSpacing(0);
    todo->addWidget(HacerCabecera());
    todo->addLayout(cuerpo, 1);

    refresco_.setSingleShot(true);
    refresco_.setInterval(kRefrescoMs);
    connect(&refresco_, &QTimer::timeout, this, &frmSimulador::Refrescar);
    const auto pronto = [this] {
        if (!refresco_.isActive()) {
            refresco_.start();
        }
    };
    connect(&simulador.ElAparato(), &Aparato::cambiado, this, pronto);
    connect(&simulador.ElServidor(), &Servidor::cambiado, this, pronto);
    connect(&simulador, &Simulador::suceso, this, &frmSimulador::Anotar);
    Refrescar();
    resize(1024, 768);
}

QFrame* frmSimulador::HacerCabecera() {
    auto* const cabecera = new QFrame;
    cabecera->setObjectName(u"frameCab"_s);
    cabecera->setFixedHeight(tema::kAltoCabecera);
    auto* const titulo = new QLabel(u"ZVSimulador"_s);
    titulo->setFont(tema::Fuente(20, true));
    enlace_->setObjectName(u"enlace"_s);
    enlace_->setFont(tema::Fuente(16));
    saldo_->setObjectName(u"saldo"_s);
    saldo_->setFont(tema::FuenteImporte(22));
    auto* const fila = new QHBoxLayout(cabecera);
    fila->setContentsMargins(kMargen + 4, 0, kMargen + 4, 0);
    fila->setSpacing(2 * kMargen);
    fila->addWidget(titulo);
    fila->addWidget(enlace_);
    fila->addStretch(1);
    fila->addWidget(saldo_);
    return cabecera;
}

QFrame* frmSimulador::HacerDinero() {
    auto* const tarjeta = Tarjeta();
    auto* const monedas = new QGridLayout;
    auto* const billetes = new QGridLayout;
    for (QGridLayout* const rejilla : {monedas, billetes}) {
        rejilla->setSpacing(4);
    }
    int moneda = 0;
    int billete = 0;
    for (std::size_t i = 0; i < kCuantas; ++i) {
        auto* const pieza = new BotonPieza(kDenominaciones.at(i).valor);
        if (EsMoneda(i)) {
            monedas->addWidget(pieza, moneda / 4, moneda % 4);
            ++moneda;
        } else {
            billetes->addWidget(pieza, billete / 3, billete % 3);
            ++billete;
        }
        connect(pieza, &QAbstractButton::clicked, this,
                [this, valor = pieza->Valor()] { simulador_.ElAparato().Meter(valor); });
        piezas_.push_back(pieza);
    }

    cliente_->setObjectName(u"cliente"_s);
    cliente_->setAccessibleName(u"Cliente"_s);
    for (const auto& [texto, guion] : {std::pair{u"Cliente: usted"_s, Guion::Manual},
                                       {u"Cliente: exacto"_s, Guion::Exacto},
                                       {u"Cliente: redondeo"_s, Guion::Redondeo}}) {
        cliente_->addItem(texto, static_cast<int>(guion));
    }
    cliente_->setCurrentIndex(cliente_->findData(static_cast<int>(simulador_.ElMotor().ElGuion())));
    connect(cliente_, &QComboBox::currentIndexChanged, this, [this] {
        simulador_.ElMotor().PonerGuion(static_cast<Guion>(cliente_->currentData().toInt()));
    });
    fallos_->setObjectName(u"fallos"_s);
    tema::PonerPapel(*fallos_, tema::Papel::Normal);
    connect(fallos_, &QPushButton::clicked, this, &frmSimulador::AbrirFallos);
    auto* const pie = new QHBoxLayout;
    pie->setSpacing(16);
    pie->addWidget(cliente_, 1);
    pie->addWidget(fallos_, 1);

    auto* const columna = new QVBoxLayout(tarjeta);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->setSpacing(8);
    columna->addLayout(monedas, 1);
    columna->addLayout(billetes, 1);
    columna->addLayout(pie);
    return tarjeta;
}

QFrame* frmSimulador::HacerNiveles() {
    auto* const tarjeta = Tarjeta();
    auto* const columna = new QVBoxLayout(tarjeta);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->setSpacing(4);
    columna->addWidget(Encabezado(u"Niveles"_s));
    columna->addWidget(niveles_, 1);
    columna->addSpacing(4);
    cajones_ = {HacerCajon(Cajon::Monedas, *columna), HacerCajon(Cajon::Billetes, *columna)};
    return tarjeta;
}

frmSimulador::FilaCajon frmSimulador::HacerCajon(Cajon cual, QVBoxLayout& columna) {
    const bool monedas = cual == Cajon::Monedas;
    auto* const nombre = new QLabel(monedas ? u"Cajón de monedas"_s : u"Cajón de billetes"_s);
    nombre->setFont(tema::Fuente(15));
    nombre->setMinimumWidth(136);
    FilaCajon fila{new QLabel, new BarraCajon, new QPushButton(u"Retirar"_s)};
    fila.valor->setObjectName(u"cajon_%1"_s.arg(static_cast<int>(cual)));
    fila.valor->setFont(tema::FuenteImporte(17));
    fila.valor->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    fila.valor->setMinimumWidth(108);
    fila.retirar->setObjectName(u"retirar_%1"_s.arg(static_cast<int>(cual)));
    fila.retirar->setAccessibleName(u"Retirar a mano el "_s + nombre->text().toLower());
    tema::PonerPapel(*fila.retirar, tema::Papel::Normal);
    connect(fila.retirar, &QPushButton::clicked, this,
            [this, cual] { simulador_.ElAparato().RetirarAMano(cual); });
    auto* const linea = new QHBoxLayout;
    linea->setSpacing(kMargen);
    linea->addWidget(nombre);
    linea->addWidget(fila.barra, 1);
    linea->addWidget(fila.valor);
    linea->addWidget(fila.retirar);
    columna.addLayout(linea);
    return fila;
}

QFrame* frmSimulador::HacerSucesos() {
    auto* const tarjeta = Tarjeta();
    sucesos_->setObjectName(u"sucesos"_s);
    sucesos_->setAccessibleName(u"Últimos sucesos"_s);
    sucesos_->setFont(tema::Fuente(14));
    sucesos_->setFocusPolicy(Qt::NoFocus);
    sucesos_->setSelectionMode(QAbstractItemView::NoSelection);
    sucesos_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    sucesos_->setTextElideMode(Qt::ElideRight);
    auto* const columna = new QVBoxLayout(tarjeta);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->setSpacing(4);
    columna->addWidget(Encabezado(u"Últimos sucesos"_s));
    columna->addWidget(sucesos_, 1);
    return tarjeta;
}

void frmSimulador::AbrirFallos() {
    auto* const dialogo = new frmFallos(simulador_, this);
    dialogo->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialogo, &frmFallos::cambiados, this, &frmSimulador::Refrescar);
    dialogo->open();
}

void frmSimulador::Anotar(const QString& linea) {
    // A start has its stamp and its id for programs; people need neither.
    const QString breve =
        linea.startsWith(QLatin1String("inicio ")) ? linea.section(QChar(u' '), 0, 2) : linea;
    sucesos_->insertItem(0, QTime::currentTime().toString(u"HH:mm:ss  "_s) + breve);
    if (sucesos_->count() > kSucesosMaximos) {
        delete sucesos_->takeItem(kSucesosMaximos);
    }
}

void frmSimulador::Refrescar() {
    const Aparato& aparato = simulador_.ElAparato();
    const QString puerto = QString::number(simulador_.ElServidor().Puerto());
    const bool conectado = simulador_.ElServidor().HayCliente();
    enlace_->setText(u"127.0.0.1:%1  ·  %2"_s.arg(puerto, conectado ? u"monitor conectado"_s
                                                                    : u"sin monitor"_s));
    tema::PonerColorTexto(*enlace_, conectado ? tema::kVerde : tema::kAmbar);
    saldo_->setText(TextoImporte(aparato.Ver().inventario.Saldo()));
    operacion_->Refrescar();
    for (BotonPieza* const pieza : piezas_) {
        pieza->setEnabled(aparato.Admite());
    }
    niveles_->Mostrar(aparato.Ver().inventario, aparato.Capacidad());
    RefrescarCajon(cajones_[0], true);
    RefrescarCajon(cajones_[1], false);
    const qsizetype pendientes = simulador_.LosFallos().Pendientes().size();
    fallos_->setText(pendientes == 0 ? u"Fallos…"_s : u"Fallos… (%1)"_s.arg(pendientes));
}

void frmSimulador::RefrescarCajon(const FilaCajon& fila, bool monedas) {
    const Estado& estado = simulador_.ElAparato().Ver();
    const CapacidadCajones& capacidad = simulador_.ElAparato().Capacidad();
    const int piezas = PiezasClase(estado.inventario.cajon, monedas);
    const bool retirado = PiezasClase(estado.retirado, monedas) > 0;
    fila.valor->setText(TextoImporte(TotalClase(estado.inventario.cajon, monedas)));
    fila.barra->Mostrar(piezas, monedas ? capacidad.monedas : capacidad.billetes, retirado);
    fila.retirar->setText(retirado ? u"Retirado"_s : u"Retirar"_s);
    fila.retirar->setEnabled(!retirado && piezas > 0 && !simulador_.ElAparato().EnMarcha());
}

} // namespace zv::simulador
