// The text of a dialog: as high as it needs to be, and scrolled where the screen is too low for it.
#pragma once

#include <QScrollArea>

namespace zv {

class EtiquetaTexto;

class ZonaTexto final : public QScrollArea {
    Q_OBJECT

  public:
    // nombre: of the label within, as the language file knows it.
    ZonaTexto(const QString& nombre, QWidget* padre);

    EtiquetaTexto& Etiqueta() { return *etiqueta_; }
    void PonerTexto(const QString& texto);
    // Height in pixels of the whole text at a width in pixels.
    int AltoPara(int ancho) const;
    // Takes no more height than that; the text scrolls when it needs more.
    void Medir(int ancho, int altoMaximo);

  private:
    EtiquetaTexto* etiqueta_;
};

} // namespace zv
