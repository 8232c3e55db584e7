// Last resort for failures that nobody catches.
#include "app/screens/Aplicacion.h"

#include <cstdlib>

namespace zv {

QString TextoDeError(const std::exception& e) {
    if (const auto* error = dynamic_cast<const ErrorEjecucion*>(&e)) {
        return QStringLiteral("Error nº ") + QString::number(error->Numero()) +
               QStringLiteral(" - ") + error->Descripcion();
    }
    // 51, internal error: nothing of the system's own raises this.
    return QStringLiteral("Error nº 51 - ") + QString::fromUtf8(e.what());
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
