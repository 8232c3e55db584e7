// A log that keeps its lines in memory, and fails on demand as a full disk would.
#pragma once

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "ui/Log.h"

#include <QStringList>

#include <algorithm>
#include <functional>
#include <utility>

namespace zv::test {

class LogMemoria final : public Log {
  public:
    void LogLinea(const QString& texto) override {
        if (fallosPendientes > 0) {
            --fallosPendientes;
            throw ErrorEjecucion(fallo);
        }
        lineas << texto;
        if (alEscribir) {
            alEscribir(texto);
        }
    }
    void LogFast(const QString& texto) override { lineasFast << texto; }

    // Number of lines that are exactly this text, or that begin with it.
    qsizetype Cuenta(const QString& texto) const { return lineas.count(texto); }
    qsizetype CuentaInicio(const QString& inicio) const {
        return std::count_if(lineas.cbegin(), lineas.cend(),
                             [&](const QString& linea) { return linea.startsWith(inicio); });
    }
    // The lines since the last call, which are taken out.
    QStringList Toma() { return std::exchange(lineas, {}); }

    QStringList lineas;
    std::function<void(const QString&)> alEscribir; // behind each line
    QStringList lineasFast;
    // The next so many lines raise this failure and are lost.
    int fallosPendientes = 0;
    ErrorEjecucion fallo{75, u"Error de acceso a la ruta o al archivo"_s};
};

} // namespace zv::test
