// The application object: a failure that no handler was told to catch ends the program with its
// plain box, a line in the log if that can be written, and exit code 1.
#pragma once

#include "platform/ErrorEjecucion.h"

#include <QApplication>

#include <functional>

namespace zv {

class Aplicacion final : public QApplication {
    Q_OBJECT

  public:
    Aplicacion(int& argc, char** argv);

    // alFallar tells the operator and the log; the process ends after it.
    void PonerAlFallar(std::function<void(const QString&)> alFallar) {
        alFallar_ = std::move(alFallar);
    }
    // Ends the process. Does not return.
    [[noreturn]] void Fallar(const QString& texto) noexcept;

    bool notify(QObject* receptor, QEvent* evento) override;

  private:
    std::function<void(const QString&)> alFallar_;
};

// "Error nº 13 - No coinciden los tipos".
QString TextoDeError(const std::exception& e);

} // namespace zv
