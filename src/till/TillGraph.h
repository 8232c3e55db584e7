// Owns the objects of which a till has one each, from the database to the supervision of the
// device. They are wired here and nowhere else: the program, tests and measurements all stand on
// it.
#pragma once

#include "store/sqlite/SqliteEngine.h"
#include "till/Entorno.h"

namespace zv {

class TillGraph {
  public:
    explicit TillGraph(const TillServices& servicios);
    TillGraph(const TillGraph&) = delete;
    TillGraph& operator=(const TillGraph&) = delete;

    zv::Entorno& Entorno() { return entorno_; }

  private:
    SqliteEngine database_;
    ConexionBD conexion_;
    TransactionOwner transacciones_;
    Seguretat seguretat_;
    OperacionesRegistro registros_;
    ModuloIni ini_;
    ConfiguracioGlobal configuracio_;
    MarcaActivo marca_;
    SupervisionConexion supervision_;
    zv::Entorno entorno_;
};

} // namespace zv
