// The system's printer: pages of text that is placed by a current position, in twips (1/1440 inch)
// from the upper left corner of what the printer can print on. The document is kept here until it
// is ended and reaches the printer as a whole, so that one given up half way leaves nothing on
// paper.
#pragma once

#include <QPoint>
#include <QSize>
#include <QString>
#include <QtGlobal>

#include <vector>

namespace zv {

struct FuenteImpresora {
    QString nombre;
    int tamaño = 10; // points
    bool negrita = false;
    bool cursiva = false;
    bool subrayado = false;
    bool operator==(const FuenteImpresora&) const = default;
};

// The platform's own numbers.
enum class Orientacion : quint8 { Vertical = 1, Apaisada = 2 };

struct TextoImpreso {
    QPoint sitio; // upper left corner, twips
    QString texto;
    FuenteImpresora fuente;
};
struct PaginaImpresa {
    Orientacion orientacion = Orientacion::Vertical;
    std::vector<TextoImpreso> textos;
};
using DocumentoImpreso = std::vector<PaginaImpresa>;

// Any member but Abandonar raises 482 when there is no printer, or it cannot do what is asked.
class Impresora {
  public:
    Impresora() = default;
    Impresora(const Impresora&) = delete;
    Impresora& operator=(const Impresora&) = delete;
    virtual ~Impresora() = default;

    void PonerFuente(const FuenteImpresora& fuente);
    void PonerX(int twips);
    void PonerY(int twips);
    // At the current position, which then stands behind the text, or with saltoLinea at the begin
    // of the next line. A line break inside the text does the same there. A line that does not fit
    // on the page goes to the top of the next one.
    void Escribir(const QString& texto, bool saltoLinea);
    // Twips, in the present font.
    int AnchoTexto(const QString& texto);
    int AnchoPagina();
    // For this page while it is empty, else for a new one; up to the end of the document.
    void PonerOrientacion(Orientacion orientacion);
    // Whether a line of the present font fits here.
    bool CabeLinea();
    // Goes on at the top of a new page.
    void NuevaPagina();
    // Hands the document to the printer; an empty one is dropped. The next call begins another.
    void TerminarDocumento();
    // Drops the document, what it holds too.
    void Abandonar() noexcept;

  protected:
    // A document begins: finds the printer, which the others then ask.
    virtual void Abrir() = 0;
    virtual int Ancho(const QString& texto, const FuenteImpresora& fuente) = 0;
    virtual int AltoLinea(const FuenteImpresora& fuente) = 0;
    // What can be printed on, twips.
    virtual QSize Pagina(Orientacion orientacion) = 0;
    virtual void Enviar(const DocumentoImpreso& documento) = 0;

  private:
    void Preparar();
    void EscribirTrozo(const QString& texto);
    void BajarLinea();

    bool abierto_ = false;
    DocumentoImpreso documento_;
    Orientacion orientacion_ = Orientacion::Vertical;
    FuenteImpresora fuente_;
    int x_ = 0;
    int y_ = 0;
};

} // namespace zv
