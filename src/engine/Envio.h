// Takes one row of cola through the device and into procesados. The money moves first, outside any
// transaction, for as long as the customer needs; the books are written afterwards in one short
// transaction. The row leaves cola only when it has been filed.
#pragma once

#include "platform/ErrorEjecucion.h"
#include "till/Asiento.h"

namespace zv {

class Envio {
  public:
    explicit Envio(Entorno& entorno);

    // origen: trace name of the path. idZV 0: the oldest row. Answers the result of a send; a
    // failure of its own is logged and answered as an error, never raised.
    int EnviarOperacion(const QString& origen, DeviceClient& cliente, qint32 idZV);

    // Writes creditoError of one row, in the caller's transaction. Amount in minor units.
    void EditarCredito(qint32 idZV, Currency importe);

  private:
    // The row in progress. There is no durable record of it but the row itself.
    struct Operacion {
        QString origen;
        qint32 idZV = 0;
        Currency importe;
        Currency credito;
        DatosVenta venta;
        qint32 paidIn = 0;
        qint32 paidOut = 0;
        bool creditoRechazado = false;
    };

    int Enviar(DeviceClient& cliente, Operacion& op);
    void AnotarFallo(const Operacion& op, const ErrorEjecucion& e);
    void LeerFila(Operacion& op);
    // False when the operator refuses to go on with an earlier partial payment.
    bool AplicarCredito(Operacion& op);
    void ArchivarSinCobro(const Operacion& op);
    void ArchivarCobro(const Operacion& op);
    int ArchivarFallo(DeviceClient& cliente, const Operacion& op);
    // The record of an error or a cancel, and the credit of an error.
    int AnotarFalloDelDispositivo(DeviceClient& cliente, const Operacion& op, qint16 codigo,
                                  const LecturaSaldo& saldo);
    // Commits a filing that answered a key, otherwise rolls back and tells the operator.
    void TerminarArchivo(Asiento& asiento, qint32 clave, const QString& etiqueta);

    Entorno& entorno_;
    DeviceJournal diario_;
};

} // namespace zv
