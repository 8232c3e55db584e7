#include "platform/WatchedValue.h"

namespace zv {

namespace {
constexpr qint64 kMirarMs = 50;
} // namespace

WatchedValue::WatchedValue(const RegistryTree& registry, RegistryName nombre, QString defecto)
    : registry_(registry), nombre_(std::move(nombre)), defecto_(std::move(defecto)),
      pausa_(kMirarMs) {}

const QString& WatchedValue::Leer() {
    const bool cambiado = vigia_.HaCambiado();
    const bool vencida = pausa_.Vencida();
    if (vencida) {
        pausa_.Empezar();
        if (cambiado) {
            Vigilar();
        }
    }
    if (vencida || cambiado) {
        texto_ = registry_.LeerValor(nombre_, defecto_);
    }
    return texto_;
}

// The folders are watched before they are looked at, so that no change slips in between; when the
// look finds others than those, they have to wait for the next one.
void WatchedValue::Vigilar() {
    vigia_.Vigilar(carpetas_);
    QList<QByteArray> ahora = registry_.Carpetas(nombre_);
    if (ahora != carpetas_) {
        carpetas_ = std::move(ahora);
        vigia_.Vigilar({});
    }
}

} // namespace zv
