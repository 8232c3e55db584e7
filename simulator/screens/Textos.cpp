// Spanish texts of the window.
#include "simulator/screens/Textos.h"

#include <cstdlib>

namespace zv::simulador {

QString TextoImporte(qint64 centimos) {
    constexpr int kGrupo = 3;
    QString euros = QString::number(std::abs(centimos) / 100);
    for (qsizetype i = euros.size() - kGrupo; i > 0; i -= kGrupo)
        euros.insert(i, u'.');
    return QStringLiteral("%1%2,%3 €")
        .arg(centimos < 0 ? QStringLiteral("-") : QString(), euros)
        .arg(std::abs(centimos) % 100, 2, 10, QChar(u'0'));
}

QString TextoPieza(qint32 valor) {
    return valor < 100 ? QStringLiteral("%1 c").arg(valor)
                       : QStringLiteral("%1 €").arg(valor / 100);
}

QString TituloOperacion(const Operacion& op) {
    switch (op.metodo) {
    case Metodo::Cobro:
        return op.valor < 0 ? QStringLiteral("Abono") : QStringLiteral("Cobro");
    case Metodo::Cambio:
        return QStringLiteral("Dar cambio");
    case Metodo::Ingreso:
        return QStringLiteral("Añadir cambio");
    case Metodo::Pago:
        return QStringLiteral("Pago");
    case Metodo::Cajones:
        return op.valor == 0   ? QStringLiteral("Cuadre")
               : op.valor == 7 ? QStringLiteral("Cierre a niveles óptimos")
                               : QStringLiteral("Cierre por valor");
    case Metodo::Vaciado:
        return op.valor == 0 ? QStringLiteral("Vaciar cajón de monedas")
                             : QStringLiteral("Vaciar cajón de billetes");
    }
    return {};
}

QString TextoFin(const Operacion& op) {
    if (op.ok)
        return QStringLiteral("Terminada");
    return op.codigo > 0 ? QStringLiteral("Error %1: %2").arg(op.codigo).arg(op.mensaje)
                         : QStringLiteral("Cancelada");
}

} // namespace zv::simulador
