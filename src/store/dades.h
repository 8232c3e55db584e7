// What the fast link and the barcode entry ask of the store: how does a sale stand, and can it be
// queued. Three statements, prepared once; no result set of theirs stays open.
#pragma once

#include "platform/Clock.h"
#include "store/DatabaseEngine.h"
#include "store/Missatge.h"

#include <memory>

namespace zv {

class dades {
  public:
    dades(DatabaseEngine& motor, const Clock& reloj);

    // Prepares the statements; the connection must be open. Raises the engine's failure.
    void Inicialitza();
    // estado: that of the newest record of ID1, "PENDING" when it waits in cola (unless that state
    // is "OK"), or "NOT FOUND"; left alone for an empty ID1. resultado is false for an empty ID1,
    // and for an unknown one when Comanda is exactly "S". Raises the engine's failure.
    void EstatComanda(const Missatge& missatge, QString& estado, bool& resultado);
    // Adds the sale to cola unless a row of that ID1 stands there; true only when it has been
    // added. Never raises. A failure with the record set open leaves it open, and every later
    // call answers false.
    void Inserta(const Missatge& missatge, bool& resultado);

  private:
    QString EstadoProcesado(const QString& id);
    bool ExistePendiente(const QString& id);
    void InsertaProtegido(const Missatge& missatge, bool& resultado);

    DatabaseEngine& motor_;
    const Clock& reloj_;
    std::unique_ptr<PreparedStatement> pendiente_;
    std::unique_ptr<PreparedStatement> estado_;
    std::unique_ptr<PreparedStatement> insercion_;
    std::unique_ptr<RecordSet> filas_; // of insercion_
};

} // namespace zv
