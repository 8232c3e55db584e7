// The layout of the barcodes: its fields, the code as a strip of cells, and a scan to try it on.
#pragma once

#include "barcode/CamposBalanza.h"
#include "ui/screens/DeferredFailure.h"
#include "ui/screens/PantallaCompleta.h"

class QGridLayout;
class QLabel;
class QLineEdit;

namespace zv {

class Clock;
class EtiquetaTexto;
class Importes;
class Interruptor;
class Tarjeta;
class TiraCodigo;

class Balanza final : public PantallaCompleta {
    Q_OBJECT

  public:
    // decimales: those of the device. All must outlive this.
    Balanza(const Importes& importes, std::function<int()> decimales, const Clock& reloj,
            Dialogos& dialogos, const Textos& textos, QWidget* padre = nullptr);

    // The configuration that is edited, before the screen is shown. It outlives this.
    void CarregaConfig(Configuracio& cfg);

    // After the dialog: raises the failure that ended it.
    void LanzarFallo() const { fallo_.Lanzar(); }

  protected:
    void Pulsado(int indice) override;
    bool EscapeSale() const override { return !campos_.Cambiado(); }
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    QLabel* Rotulo(const Clave& clave, QWidget* padre);
    QLineEdit* CrearCampo(int indice, QWidget* padre);
    Tarjeta* Campos();
    // titulo may be null, where the line above is it.
    void LineaDesdeHasta(QGridLayout& rejilla, int fila, QWidget* titulo, int desde,
                         QWidget* padre);
    Tarjeta* Prueba();
    Tarjeta* Codigo();
    void NombrarCampos();
    bool TeclaDeCampo(QObject* objeto, int tecla);
    void Seguir();
    void SeguirPrueba(bool entera);
    void MostrarLectura(const LecturaCodigo* leido);
    void Aceptar();

    const Importes& importes_;
    const Clock& reloj_;
    const Textos& textos_;
    CamposBalanza campos_;
    std::array<QLineEdit*, CamposBalanza::kCuantos> TBal_{};
    std::array<QLabel*, CamposBalanza::kCuantos> rotulos_{};
    Interruptor* Check1_ = nullptr;
    QLabel* lblValor_ = nullptr;
    TiraCodigo* tira_ = nullptr;
    QLineEdit* tbPrueba_ = nullptr;
    QLabel* lbTicket_ = nullptr;
    QLabel* lbImporte_ = nullptr;
    QLabel* lblTicket_ = nullptr;
    QLabel* lblImporte_ = nullptr;
    EtiquetaTexto* lbNota_ = nullptr;
    DeferredFailure fallo_;
};

} // namespace zv
