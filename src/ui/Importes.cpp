#include "ui/Importes.h"

#include "platform/ErrorEjecucion.h"

#include <cstdlib>

namespace zv {

Importes::Importes(FormatoRegional formato, std::function<quint8()> multiplicador)
    : formato_(std::move(formato)), multiplicador_(std::move(multiplicador)) {}

QString Importes::FormatoImporte(qint32 importe) const {
    const quint8 multiplicador = multiplicador_();
    if (multiplicador == 0) {
        throw errores::DivisionPorCero();
    }
    return formato_.FormatoCurrency(
        Currency::DeDoble(static_cast<double>(importe) / multiplicador));
}

QString Importes::FormatoImporteLargo(Currency importe) const {
    const quint8 multiplicador = multiplicador_();
    if (multiplicador == 0) {
        throw errores::DivisionPorCero();
    }
    // In whole ten-thousandths: a double would lose digits of a large amount.
    const qint64 valor = importe.Diezmilesimas();
    const qint64 cociente = valor / multiplicador;
    const qint64 doble = 2 * (valor % multiplicador);
    qint64 ajuste = 0;
    if (std::abs(doble) > multiplicador ||
        (std::abs(doble) == multiplicador && cociente % 2 != 0)) {
        ajuste = valor < 0 ? -1 : 1;
    }
    return formato_.FormatoCurrency(Currency::DeDiezmilesimas(cociente + ajuste));
}

QString& QuitaEuro(QString& texto) {
    return texto.remove(QChar(u'€'));
}

} // namespace zv
