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

Aplicacion::Aplicacion(int& argc, char** argv) : QApplication(argc, argv) {}

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
        return QApplication::notify(receptor, evento);
    } catch (const std::exception& e) {
        Fallar(TextoDeError(e));
    }
}

} // namespace zv
