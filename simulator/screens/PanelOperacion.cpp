// The card of the operation.
#include "simulator/screens/PanelOperacion.h"

#include "platform/StringLiterals.h"
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
      titulo_(Rotulo(u"titulo"_s, tema::Fuente(22, true), Qt::AlignLeft)),
      estado_(Rotulo(u"estado"_s, tema::Fuente(16), Qt::AlignLeft | Qt::AlignVCenter)),
      pedido_(Rotulo(u"pedido"_s, tema::FuenteImporte(44), Qt::AlignRight)),
      entrado_(Rotulo(u"entrado"_s, tema::FuenteImporte(24), Qt::AlignRight)),
      salido_(Rotulo(u"salido"_s, tema::FuenteImporte(24), Qt::AlignRight)),
      cancelar_(Tecla(u"cancelar"_s, u"Cancelar"_s, tema::Papel::Peligro)),
      terminar_(Tecla(u"terminar"_s, u"Terminar"_s, tema::Papel::Principal)) {
    estado_->setWordWrap(true);
    auto* const importes = new QGridLayout;
    importes->setVerticalSpacing(2);
    importes->addWidget(Leyenda(u"Ha entrado"_s), 0, 0);
    importes->addWidget(entrado_, 0, 1);
    importes->addWidget(Leyenda(u"Ha salido"_s), 1, 0);
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
        if (const Operacion* const op = aparato_.Abierta()) {
            aparato_.Cancelar(op->opId);
        }
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
        titulo_->setText(u"En espera"_s);
        estado_->setText(u"Ninguna operación todavía"_s);
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
    QString estado = u"Trabajando"_s;
    if (aparato_.Admite()) {
        estado = u"Toque monedas y billetes para meterlos"_s;
    } else if (op.acabada) {
        estado = TextoFin(op) + (aparato_.Abierta() ? u" (sin acuse)"_s : QString());
    }
    estado_->setText(estado);
    tema::PonerColorTexto(*estado_,
                          op.acabada && op.codigo > 0 ? tema::kRojoTexto : tema::kTextoTenue);
    pedido_->setText(TextoPedido(op));
    entrado_->setText(TextoImporte(op.entrado));
    salido_->setText(TextoImporte(op.salido));
}

} // namespace zv::simulador
