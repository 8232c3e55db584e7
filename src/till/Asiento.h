// The bracket of a booked operation: busy mark, begin, and the end of the transaction, each with
// its log line. It does nothing by itself when it is destroyed: a level that its operation leaves
// open is ended by TransactionOwner.
#pragma once

#include "till/Entorno.h"

#include <functional>

namespace zv {

class Asiento {
  public:
    // How long the filing may wait when another program holds the lock.
    enum class Espera {
        Normal,
        TrasMoverDinero // up to 10 s: the books must tell of money that has moved
    };

    // Whether the connector is told of the transaction.
    enum class Marca { Poner, Dejar };

    explicit Asiento(Entorno& entorno, Marca marca = Marca::Poner)
        : entorno_(entorno), marca_(marca) {}

    // Busy mark, begin, log line.
    void Abrir(const QString& linea, Espera espera = Espera::Normal);
    // Commit, then what the operator is to see of it, then the log line. An operation that began
    // anew after a reconnection stands nested in its own earlier attempts. They have written
    // nothing and end with it: what the log calls committed stands in the file, and nobody is kept
    // from it by what follows.
    void Confirmar(const QString& linea, const std::function<void()>& mostrar = {});
    // Rollback, then what the operator is to be told, then the log line: nobody is waited for
    // under the write lock. A rollback that fails is raised when the operator has been told.
    void Deshacer(const QString& linea, const std::function<void()>& avisar = {});

  private:
    Entorno& entorno_;
    Marca marca_;
};

} // namespace zv
