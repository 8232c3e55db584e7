// The card of the operation.
#include "simulator/screens/PanelOperacion.h"

#include "simulator/screens/Textos.h"
#include "ui/screens/Tema.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <cstdlib>

namespace zv::simulador {

namespace {

QLabel* Rotulo(const QString& nombre, const QFont& fuente, Qt::Alignment sitio) {
    auto* const rotulo = new QLabel;
    rotulo->setObjectName(nombre);
    rotulo->setFont(fuente);
    rotulo->setAlignment(sitio);
    return rotulo;
}

QLabel* Leyenda(const QString& texto) {
    auto* const rotulo = new QLabel(texto);
    rotulo->setFont(tema::Fuente(16));
    tema::PonerColorTexto(*rotulo, tema::kTextoTenue);
    return rotulo;
}

QPushButton* Tecla(const QString& nombre, const QString& texto, tema::Papel papel) {
    auto* const boton = new QPushButton(texto);
    boton->setObjectName(nombre);
    tema::PonerPapel(*boton, papel);
    boton->setMinimumHeight(tema::kTeclaMinima);
    return boton;
}

// The amount that an operation asks for; nothing for those that have none.
QString TextoPedido(const Operacion& op) {
    switch (op.metodo) {
    case Metodo::Cobro:
    case Metodo::Pago:
        return TextoImporte(std::abs(qint64{op.valor}));
    case Metodo::Cajones:
        return op.valor == 15 ? TextoImporte(op.dejar) : QString();
    default:
        return {};
    }
}

} // namespace

PanelOperacion::PanelOperacion(Aparato& aparato, QWidget* padre)
    : QFrame(padre), aparato_(aparato),
      titulo_(Rotulo(QStringLiteral("titulo"), tema::Fuente(22, true), Qt::AlignLeft)),
      estado_(Rotulo(QStringLiteral("estado"), tema::Fuente(16), Qt::AlignLeft | Qt::AlignVCenter)),
      pedido_(Rotulo(QStringLiteral("pedido"), tema::FuenteImporte(44), Qt::AlignRight)),
      entrado_(Rotulo(QStringLiteral("entrado"), tema::FuenteImporte(24), Qt::AlignRight)),
      salido_(Rotulo(QStringLiteral("salido"), tema::FuenteImporte(24), Qt::AlignRight)),
      cancelar_(
          Tecla(QStringLiteral("cancelar"), QStringLiteral("Cancelar"), tema::Papel::Peligro)),
      terminar_(
          Tecla(QStringLiteral("terminar"), QStringLiteral("Terminar"), tema::Papel::Principal)) {
    estado_->setWordWrap(true);
    auto* const importes = new QGridLayout;
    importes->setVerticalSpacing(2);
    importes->addWidget(Leyenda(QStringLiteral("Ha entrado")), 0, 0);
    importes->addWidget(entrado_, 0, 1);
    importes->addWidget(Leyenda(QStringLiteral("Ha salido")), 1, 0);
    importes->addWidget(salido_, 1, 1);
    auto* const teclas = new QHBoxLayout;
    teclas->setSpacing(16);
    teclas->addWidget(cancelar_);
    teclas->addWidget(terminar_);
    auto* const columna = new QVBoxLayout(this);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->setSpacing(4);
    columna->addWidget(titulo_);
    columna->addWidget(estado_);
    columna->addWidget(pedido_);
    columna->addLayout(importes);
    columna->addSpacing(4);
    columna->addLayout(teclas);

    connect(cancelar_, &QPushButton::clicked, this, [this] {
        if (const Operacion* const op = aparato_.Abierta())
            aparato_.Cancelar(op->opId);
    });
    connect(terminar_, &QPushButton::clicked, this, [this] { aparato_.Terminar(); });
    Refrescar();
}

void PanelOperacion::Refrescar() {
    const Operacion* const op = aparato_.Abierta();
    const bool hayUltima = op == nullptr && !aparato_.Ver().recientes.empty();
    if (op != nullptr) {
        MostrarUna(*op);
    } else if (hayUltima) {
        MostrarUna(aparato_.Ver().recientes.back());
    } else {
        titulo_->setText(QStringLiteral("En espera"));
        estado_->setText(QStringLiteral("Ninguna operación todavía"));
        pedido_->setText(TextoImporte(0));
        entrado_->setText(TextoImporte(0));
        salido_->setText(TextoImporte(0));
    }
    const bool enMarcha = aparato_.EnMarcha();
    pedido_->setEnabled(enMarcha);
    entrado_->setEnabled(op != nullptr);
    salido_->setEnabled(op != nullptr);
    cancelar_->setEnabled(aparato_.Admite());
    terminar_->setEnabled(op != nullptr && aparato_.Admite() && op->metodo != Metodo::Cobro);
}

void PanelOperacion::MostrarUna(const Operacion& op) {
    titulo_->setText(TituloOperacion(op));
    QString estado = QStringLiteral("Trabajando");
    if (aparato_.Admite())
        estado = QStringLiteral("Toque monedas y billetes para meterlos");
    else if (op.acabada)
        estado = TextoFin(op) + (aparato_.Abierta() ? QStringLiteral(" (sin acuse)") : QString());
    estado_->setText(estado);
    tema::PonerColorTexto(*estado_,
                          op.acabada && op.codigo > 0 ? tema::kRojoTexto : tema::kTextoTenue);
    pedido_->setText(TextoPedido(op));
    entrado_->setText(TextoImporte(op.entrado));
    salido_->setText(TextoImporte(op.salido));
}

} // namespace zv::simulador
