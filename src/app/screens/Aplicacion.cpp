#include "app/screens/Aplicacion.h"

#include "platform/StringLiterals.h"

#include <cstdlib>

namespace zv {

QString TextoDeError(const std::exception& e) {
    if (const auto* error = dynamic_cast<const ErrorEjecucion*>(&e)) {
        return u"Error nº "_s + QString::number(error->Numero()) + u" - "_s + error->Descripcion();
    }
    // 51, internal error: nothing of the system's own raises this.
    return u"Error nº 51 - "_s + QString::fromUtf8(e.what());
}

// A caret that blinks has the field of the barcode painted twice a second, all day.
Aplicacion::Aplicacion(int& argc, char** argv) : QApplication(argc, argv) {
    setCursorFlashTime(0);
}

void Aplicacion::Fallar(const QString& texto) noexcept {
    try {
        if (alFallar_) {
            // A second failure while this one is told must not come back here.
            const auto alFallar = std::exchange(alFallar_, {});
            alFallar(texto);
        }
    } catch (...) {
        // The operator could not be told; what is left is to end.
    }
    std::_Exit(EXIT_FAILURE);
}

bool Aplicacion::notify(QObject* receptor, QEvent* evento) {
    try {
        // A tick concerns nobody but its timer: filters, gestures and the like need not look at it
        // a thousand times a second.
        if (evento->type() == QEvent::Timer && !receptor->isWidgetType()) {
            return receptor->event(evento);
        }
        return QApplication::notify(receptor, evento);
    } catch (const std::exception& e) {
        Fallar(TextoDeError(e));
    }
}

} // namespace zv
