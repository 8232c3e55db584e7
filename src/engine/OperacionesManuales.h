// The operations that do not come from the queue: give change, add float, pay out, charge by hand.
// Each opens its transaction before it asks the device, for as long as the customer needs: the lock
// is taken by the first write, when the device has ended. A link that is lost begins the operation
// anew once the device is connected again. A failure of the program itself is raised; the level
// that it leaves open is ended by TransactionOwner.
#pragma once

#include "engine/PulsoCola.h"
#include "till/Asiento.h"
#include "till/FinOperacion.h"
#include "ui/Clave.h"

#include <optional>

namespace zv {

class OperacionesManuales {
  public:
    OperacionesManuales(Entorno& entorno, PulsoCola& pulso);

    // Each ends with the pulse armed, but for Pago when it answers false: the operator has stopped
    // before the device was asked, and the caller arms it.
    void DarCambio();
    void AñadirCambio();
    bool Pago();
    // concepto empty: the operator is asked for it when the settings say so.
    void cobroManual(const QString& concepto);

  private:
    // What the operator is told when the books are closed.
    struct Avisos {
        LecturaSaldo saldo;
        const Clave* titulo = nullptr;
        QString texto = {};
    };
    struct Pedido {
        Currency importe; // whole minor units
        QString concepto;
    };

    Avisos ArchivarCambio(const FinOperacion& fin);

    Avisos ArchivarAñadido(const FinOperacion& fin);
    Avisos ArchivarAñadidoBueno(qint32 paidIn);
    // Nobody may have put it in: it goes back.
    Avisos DevolverAñadido(qint32 paidIn);
    Avisos ArchivarAñadidoCancelado(qint32 paidIn);

    std::optional<Pedido> PedirPago();
    Avisos ArchivarPago(const FinOperacion& fin, const Pedido& pedido);

    // concepto is kept for the next time.
    std::optional<Pedido> PedirCobro(QString& concepto);
    FinOperacion Cobrar(Currency importe);
    Avisos ArchivarCobro(const FinOperacion& fin, const Pedido& pedido);
    Avisos ArchivarCobroFallido(const FinOperacion& fin, const RegistroProcesado& registro,
                                Currency importe);

    // A record of the monitor's own. Amounts in minor units.
    RegistroProcesado Registro(const QString& id1, const QString& estado, const QString& error,
                               Currency importeVenta, qint32 cobrado, qint32 devuelto) const;
    // Files it with the balance of this moment, and answers that.
    LecturaSaldo Archivar(const QString& origen, RegistroProcesado registro);
    // The link was lost and stands again: the operation is to be done anew.
    bool Reconectado(const FinOperacion& fin);
    // Commit, what the operator is told, busy mark down, balance stored, pulse armed.
    void Terminar(Asiento& asiento, const QString& linea, const Avisos& avisos);

    Entorno& entorno_;
    PulsoCola& pulso_;
    DeviceJournal diario_;
};

} // namespace zv
