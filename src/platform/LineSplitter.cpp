// One buffer for what has come and has not been handed out.
#include "platform/LineSplitter.h"

namespace zv {

void LineSplitter::Anadir(const QByteArray& bytes) {
    if (desbordado_) {
        return;
    }
    if (inicio_ > 0 && inicio_ == buffer_.size()) {
        Vaciar();
    }
    buffer_.append(bytes);
}

std::optional<QByteArray> LineSplitter::Siguiente() {
    if (desbordado_) {
        return std::nullopt;
    }
    const qsizetype fin = buffer_.indexOf('\n', mirado_);
    const qsizetype largo = (fin < 0 ? buffer_.size() : fin + 1) - inicio_;
    if (largo > kMaxLinea || (fin < 0 && largo == kMaxLinea)) {
        Vaciar();
        desbordado_ = true;
        return std::nullopt;
    }
    if (fin < 0) {
        // What has been handed out goes once per burst, not once per line.
        buffer_.remove(0, inicio_);
        inicio_ = 0;
        mirado_ = buffer_.size();
        return std::nullopt;
    }
    QByteArray linea = buffer_.mid(inicio_, fin - inicio_);
    inicio_ = fin + 1;
    mirado_ = inicio_;
    return linea;
}

void LineSplitter::Vaciar() {
    buffer_.clear();
    inicio_ = 0;
    mirado_ = 0;
    desbordado_ = false;
}

} // namespace zv
