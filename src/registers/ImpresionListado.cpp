#include "registers/ImpresionListado.h"

#include "platform/StringLiterals.h"
#include "registers/Claves.h"
#include "ui/Imprimir.h"

#include <QScopeGuard>

namespace zv {

void ImprimirListado(Listado& listado, Impresora& impresora) {
    Entorno& entorno = listado.ElEntorno();
    if (entorno.configuracio->SINIMPRESORA == 1) {
        return;
    }
    listado.PonerEspera(true);
    listado.Pintar(); // a long list, or a print server that is slow to answer, takes seconds
    const auto fin = qScopeGuard([&listado] { listado.PonerEspera(false); });
    ImprimirSinAvisar(impresora, entorno.log, [&] {
        constexpr int kMargen = 0;
        listado.Completar();
        const bool cobros = listado.Modo() == ModoListado::Cobros;
        ImprimirRejilla(impresora, listado.grdZV(), listado.Estado().lbTitulo,
                        cobros ? QString() : u"0,13"_s, kMargen);
        if (cobros) {
            const auto total = [&](const Clave& rotulo, const QString& importe) {
                ImprimirLinea(impresora, entorno.textos.Traduce(rotulo) + importe + u"\r\n"_s, true,
                              kMargen, -1, u"Arial"_s, 10, false, false, false);
            };
            total(texto::kImpresionCobros, listado.Estado().lbCobros);
            total(texto::kImpresionAbonos, listado.Estado().lbPagos);
        }
        impresora.TerminarDocumento();
    });
}

} // namespace zv
