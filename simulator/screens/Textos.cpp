// Spanish texts of the window.
#include "simulator/screens/Textos.h"

#include "platform/StringLiterals.h"

#include <cstdlib>

namespace zv::simulador {

QString TextoImporte(qint64 centimos) {
    constexpr int kGrupo = 3;
    QString euros = QString::number(std::abs(centimos) / 100);
    for (qsizetype i = euros.size() - kGrupo; i > 0; i -= kGrupo) {
        euros.insert(i, u'.');
    }
    return u"%1%2,%3 €"_s.arg(centimos < 0 ? u"-"_s : QString(), euros)
        .arg(std::abs(centimos) % 100, 2, 10, QChar(u'0'));
}

QString TextoPieza(qint32 valor) {
    return valor < 100 ? u"%1 c"_s.arg(valor) : u"%1 €"_s.arg(valor / 100);
}

QString TituloOperacion(const Operacion& op) {
    switch (op.metodo) {
    case Metodo::Cobro:
        return op.valor < 0 ? u"Abono"_s : u"Cobro"_s;
    case Metodo::Cambio:
        return u"Dar cambio"_s;
    case Metodo::Ingreso:
        return u"Añadir cambio"_s;
    case Metodo::Pago:
        return u"Pago"_s;
    case Metodo::Cajones:
        return op.valor == 0   ? u"Cuadre"_s
               : op.valor == 7 ? u"Cierre a niveles óptimos"_s
                               : u"Cierre por valor"_s;
    case Metodo::Vaciado:
        return op.valor == 0 ? u"Vaciar cajón de monedas"_s : u"Vaciar cajón de billetes"_s;
    }
    return {};
}

QString TextoFin(const Operacion& op) {
    if (op.ok) {
        return u"Terminada"_s;
    }
    return op.codigo > 0 ? u"Error %1: %2"_s.arg(op.codigo).arg(op.mensaje) : u"Cancelada"_s;
}

} // namespace zv::simulador
