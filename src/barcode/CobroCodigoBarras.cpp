// The handler of the barcode box: what the code says is read elsewhere.
#include "barcode/CobroCodigoBarras.h"

#include "barcode/LecturaCodigo.h"
#include "platform/StringLiterals.h"

#include <QScopeGuard>

namespace zv {

namespace {

constexpr int kSegundosEspera = 1;

} // namespace

CobroCodigoBarras::CobroCodigoBarras(ConfiguracioGlobal& configuracio,
                                     std::function<dades*()> datos, const Importes& importes,
                                     const Clock& reloj, Dialogos& dialogos, const Textos& textos,
                                     std::function<void(int)> espera,
                                     std::function<void()> preparar)
    : configuracio_(configuracio), datos_(std::move(datos)), importes_(importes), reloj_(reloj),
      dialogos_(dialogos), textos_(textos), espera_(std::move(espera)),
      preparar_(std::move(preparar)) {}

void CobroCodigoBarras::Enter(const QString& codigo, const std::function<void()>& vaciar) {
    if (configuracio_->BCEAN == 0 || ocupado_) {
        return;
    }
    ocupado_ = true;
    const auto libre = qScopeGuard([this] { ocupado_ = false; });
    const LecturaCodigo leido =
        LeerCodigo(codigo, LayoutDe(*configuracio_), importes_, reloj_.Ahora());
    if (leido.reparo != nullptr) {
        dialogos_.CajaSimple(textos_.Traduce(*leido.reparo));
        vaciar();
        return;
    }
    Missatge missatge;
    missatge.IdxSocket = 1;
    missatge.Comanda = u"C"_s;
    missatge.ID1 = leido.ticket;
    missatge.Importe = leido.importe;
    if (dades* datos = datos_()) {
        if (preparar_) {
            preparar_();
        }
        // False when the ticket waits in cola already: the operator need not be told.
        bool resultado = false;
        datos->Inserta(missatge, resultado);
    }
    espera_(kSegundosEspera);
    vaciar();
}

} // namespace zv
