// The printer that the system has as its default one.
#pragma once

#include "platform/Impresora.h"

#include <memory>

class QPrinter;

namespace zv {

class ImpresoraSistema final : public Impresora {
  public:
    // trabajo: what the documents are called in the system's list of jobs.
    explicit ImpresoraSistema(QString trabajo);
    ~ImpresoraSistema() override;

  protected:
    void Abrir() override;
    int Ancho(const QString& texto, const FuenteImpresora& fuente) override;
    int AltoLinea(const FuenteImpresora& fuente) override;
    QSize Pagina(Orientacion orientacion) override;
    void Enviar(const DocumentoImpreso& documento) override;

  private:
    // Of a length in points of the printer.
    int EnTwips(double puntos) const;

    QString trabajo_;
    std::unique_ptr<QPrinter> impresora_;
};

} // namespace zv
