// Fields of a code by their positions, counted from 1; nothing else of it is looked at.
#include "barcode/CobroCodigoBarras.h"

#include "barcode/Claves.h"
#include "platform/Conversions.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

#include <QScopeGuard>

namespace zv {

namespace {

constexpr int kSegundosEspera = 1;

// The characters from position inicio to position fin.
QString Campo(const QString& codigo, int inicio, int fin) {
    return codigo.mid(inicio - 1, fin - inicio + 1);
}

double Divisor(int decimales) {
    return u"10000000"_s.left(decimales + 1).toDouble();
}

} // namespace

CobroCodigoBarras::CobroCodigoBarras(ConfiguracioGlobal& configuracio,
                                     std::function<dades*()> datos, const Importes& importes,
                                     const Clock& reloj, Dialogos& dialogos, const Textos& textos,
                                     std::function<void(int)> espera,
                                     std::function<void()> preparar)
    : configuracio_(configuracio), datos_(std::move(datos)), importes_(importes), reloj_(reloj),
      dialogos_(dialogos), textos_(textos), espera_(std::move(espera)),
      preparar_(std::move(preparar)) {}

void CobroCodigoBarras::Avisar(const Clave& clave, const std::function<void()>& vaciar) {
    dialogos_.CajaSimple(textos_.Traduce(clave));
    vaciar();
}

bool CobroCodigoBarras::LayoutMalo() const {
    const Configuracio& c = *configuracio_;
    if (c.BCIINI == 0 || c.BCIFIN == 0 || (c.BCTPRE && (c.BCTINI == 0 || c.BCTFIN == 0)) ||
        c.BCEAN == 0) {
        return true;
    }
    // A field that ends before it begins has no characters to take.
    return c.BCIFIN < c.BCIINI || (c.BCTPRE && c.BCTFIN < c.BCTINI);
}

QString CobroCodigoBarras::Identificador(const QString& codigo) const {
    const Configuracio& c = *configuracio_;
    // A longer one would be a failure of the store, after which nothing more could be queued.
    return c.BCTPRE ? Campo(codigo, c.BCTINI, c.BCTFIN).left(kTextoMissatge)
                    : reloj_.Ahora().toString(u"MM/dd/yyyy-HH:mm:ss"_s);
}

Currency CobroCodigoBarras::Importe(const QString& texto) const {
    const Currency leido = importes_.Formato().LeerCurrency(texto);
    const auto producto = Currency::DeDiezmilesimas(leido.Diezmilesimas() *
                                                    static_cast<qint64>(importes_.Multiplicador()));
    return Currency::DeDoble(producto.ADoble() / Divisor(configuracio_->BCDEC));
}

void CobroCodigoBarras::Enter(const QString& codigo, const std::function<void()>& vaciar) {
    if (configuracio_->BCEAN == 0 || ocupado_) {
        return;
    }
    ocupado_ = true;
    const auto libre = qScopeGuard([this] { ocupado_ = false; });
    if (codigo.size() != configuracio_->BCEAN) {
        Avisar(texto::kErrorLongitudCodigo, vaciar);
        return;
    }
    if (LayoutMalo()) {
        Avisar(texto::kErrorConfiguracionCodigo, vaciar);
        return;
    }
    Missatge missatge;
    missatge.IdxSocket = 1;
    missatge.Comanda = u"C"_s;
    missatge.ID1 = Identificador(codigo);
    const QString importe = Campo(codigo, configuracio_->BCIINI, configuracio_->BCIFIN);
    try {
        AEntero32(importe, importes_.Formato());
    } catch (const ErrorEjecucion&) {
        Avisar(texto::kErrorImporteCodigo, vaciar);
        return;
    }
    // From here on a failure ends its own step only: an amount that does not fit is queued as 0.
    try {
        missatge.Importe = Importe(importe);
    } catch (const ErrorEjecucion&) {
        missatge.Importe = {};
    }
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
