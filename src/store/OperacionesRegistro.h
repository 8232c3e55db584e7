// The five operations that write procesados, historial and, for a resend, cola. Each takes a
// database failure on itself: retries, log lines under its own tags, and a plain number back, the
// new row's key or 0. None starts or ends a transaction; the caller does.
#pragma once

#include "platform/Clock.h"
#include "store/DatabaseEngine.h"
#include "store/Firma.h"
#include "ui/Dialogos.h"
#include "ui/Importes.h"
#include "ui/Log.h"

#include <functional>

namespace zv {

// The point of sale's own data of a sale.
struct DatosVenta {
    QString id1;
    QString id2;
    qint32 idcaja = 0;
    QString terminal;
    QString vendedor;
    QString formapago;
};

// Of a row of cola or of procesados; a Null reads as empty or 0.
DatosVenta LeerVenta(const Row& fila);

// One row of procesados as its caller gives it. Amounts in minor units.
struct RegistroProcesado {
    QDateTime fechaVenta;
    Currency importeVenta;
    Currency cobrado;
    Currency devuelto;
    QString estado;
    DatosVenta venta;
    Currency saldoZV;
    QString error;
    qint32 idcola = 0;
};

class OperacionesRegistro {
  public:
    OperacionesRegistro(DatabaseEngine& motor, Log& log, Dialogos& dialogos, const Firma& firma,
                        const Importes& importes, const Clock& reloj);

    // origen: trace name for the log, stored nowhere.
    qint32 AñadirProcesado(const QString& origen, const RegistroProcesado& registro);
    // Files the row idZV of cola and deletes it; 0 and no log line when it is not there.
    qint32 AñadirColaProcesada(const QString& origen, qint32 idZV, const QString& estado,
                               Currency cobrado, Currency devuelto, Currency saldoZV,
                               const QString& error);
    // Files a row that a grouped charge has taken in.
    qint32 BorrarColaGrupo(const QString& origen, qint32 idZV, const QString& tipoGrupo);
    qint32 AñadirHistorial(const QString& origen, const QString& id1, const QString& id2,
                           qint32 idcaja, const QDateTime& fecha, Currency importe);
    // antesDeAvisar runs before the operator is told of the failure: nobody is waited for under a
    // lock that the caller holds.
    qint32 AñadirCola(const QString& origen, const QDateTime& fecha, Currency importe,
                      const DatosVenta& venta, bool mostrarError,
                      const std::function<void()>& antesDeAvisar = {});

  private:
    DatabaseEngine& motor_;
    Log& log_;
    Dialogos& dialogos_;
    const Firma& firma_;
    const Importes& importes_;
    const Clock& reloj_;
};

} // namespace zv
