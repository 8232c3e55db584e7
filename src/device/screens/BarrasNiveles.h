// Levels of the device as bars, one for each denomination: what lies in the recycler, and what in
// the box. One look tells what to empty and what to order.
#pragma once

#include "device/Saldos.h"
#include "ui/screens/Escalable.h"

#include <QString>
#include <QWidget>

#include <vector>

namespace zv {

class Importes;

// The pieces of one denomination (minor units) in both places.
struct NivelBarra {
    qint32 denominacion = 0;
    qint64 reciclador = 0;
    qint64 cajon = 0;
    bool operator==(const NivelBarra&) const = default;
};

// Coins or notes of what the device has told, by ascending value.
std::vector<NivelBarra> NivelesEnBarras(const NivelesDispositivo& niveles, bool billetes);
// The highest bar, so that several groups can be drawn at one scale.
qint64 MayorNivel(const std::vector<NivelBarra>& barras);

class BarrasNiveles final : public QWidget, public Escalable {
    Q_OBJECT

  public:
    BarrasNiveles(const Importes& importes, QWidget* padre);

    // What the two places are called when a bar is read aloud.
    void PonerPalabras(const QString& reciclador, const QString& cajon);
    // mayor: pieces of a bar as high as the widget.
    void Poner(const std::vector<NivelBarra>& barras, qint64 mayor);
    void Escalar(double escala) override;

  private:
    class Barra;

    QString Denominacion(qint32 valor) const;
    void Nombrar(Barra& barra) const;

    const Importes& importes_;
    QString reciclador_;
    QString cajon_;
    std::vector<Barra*> barras_;
    double escala_ = 1;
};

// A square in the colour of a place, for the line that explains the bars.
class MuestraNivel final : public QWidget, public Escalable {
    Q_OBJECT

  public:
    enum class Lugar { Reciclador, Cajon };
    MuestraNivel(Lugar lugar, QWidget* padre);
    void Escalar(double escala) override;

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    Lugar lugar_;
};

} // namespace zv
