// A code as a strip of numbered cells, those of the ticket and those of the amount in a colour of
// their own.
#pragma once

#include "barcode/LecturaCodigo.h"
#include "ui/screens/Escalable.h"

#include <QWidget>

namespace zv {

class TiraCodigo final : public QWidget, public Escalable {
    Q_OBJECT

  public:
    explicit TiraCodigo(QWidget* padre);

    // codigo: a scan whose characters stand in the cells; without one they tell what they are for.
    void Poner(const LayoutCodigo& layout, const QString& codigo);
    int Celdas() const { return celdas_; }
    // One letter a cell, for reading aloud: "T" of the ticket, "I" of the amount, "." of neither.
    QString Letras() const;

    void Escalar(double escala) override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int ancho) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    int Px(int pixeles) const;
    int AnchoCelda(int ancho) const;
    int PorFila(int ancho) const;
    void PintarCelda(QPainter& p, const QRect& sitio, int posicion) const;

    LayoutCodigo layout_;
    QString codigo_;
    int celdas_ = 0;
    double escala_ = 1;
};

// A square in the colour of a part of the code, for the line that explains the strip.
class MuestraZona final : public QWidget, public Escalable {
    Q_OBJECT

  public:
    MuestraZona(ZonaCodigo zona, QWidget* padre);
    void Escalar(double escala) override;

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    ZonaCodigo zona_;
};

} // namespace zv
