// A label for texts of any length: it wraps between words, and within a word that is wider than
// the label (a path, an engine's message), so that nothing is cut.
#pragma once

#include <QLabel>

namespace zv {

class EtiquetaTexto final : public QLabel {
    Q_OBJECT

  public:
    explicit EtiquetaTexto(QWidget* padre = nullptr);

    bool hasHeightForWidth() const override { return true; }
    // Height in pixels of the text wrapped at a width in pixels.
    int heightForWidth(int ancho) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* evento) override;
};

} // namespace zv
