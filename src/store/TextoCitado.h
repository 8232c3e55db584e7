// A text that the system's own statements hold between single quotes. The engine binds it, so that
// it can never change what its statement means; one that would have ended the literal (a quote) or
// cut it short (a NUL) raises the failure of a statement that breaks there.
#pragma once

#include <QString>
#include <QVariant>

namespace zv {

struct TextoCitado {
    QString texto;
};

// The text as a parameter.
inline QVariant Citado(const QString& texto) {
    return QVariant::fromValue(TextoCitado{texto});
}

} // namespace zv
