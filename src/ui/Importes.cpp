// Amounts as text.
#include "ui/Importes.h"

#include "platform/ErrorEjecucion.h"

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

QString& QuitaEuro(QString& texto) {
    return texto.remove(QChar(u'€'));
}

} // namespace zv
