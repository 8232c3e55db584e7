// The run-time failure of the system: a number and a description, as its messages show them
// ("Error nº " + number + " - " + description).
#pragma once

#include <QString>

#include <exception>

namespace zv {

class ErrorEjecucion : public std::exception {
  public:
    ErrorEjecucion(int numero, QString descripcion);

    int Numero() const { return numero_; }
    const QString& Descripcion() const { return descripcion_; }

    const char* what() const noexcept override { return what_.constData(); }

  private:
    int numero_;
    QString descripcion_;
    QByteArray what_;
};

// The platform's own failures, with the numbers that technicians know.
namespace errores {
ErrorEjecucion Desbordamiento();   // 6: a value beyond the range of its type
ErrorEjecucion DivisionPorCero();  // 11
ErrorEjecucion TipoNoCoincide();   // 13: text that is no number, a value of another kind
ErrorEjecucion FueraDeIntervalo(); // 9: an index beyond its list
ErrorEjecucion ErrorDeArchivo(const QString& ruta, const QString& detalle); // 75
ErrorEjecucion ErrorDeImpresora(const QString& detalle);                    // 482
} // namespace errores

} // namespace zv
