// The one database connection of the process, on ZVMonito2.mdb in the application folder. It is
// opened once and stays open.
#pragma once

#include "store/DatabaseEngine.h"
#include "ui/Dialogos.h"
#include "ui/Log.h"
#include "ui/Textos.h"

#include <QString>

namespace zv {

// Connection text for a kind of database, matched exactly: "MDB", "ACCDB", "FIREBIRD", "FOXPRO",
// "PARADOX", "ODBC", "SQLSERVER" or any provider.
QString CadenaConexion(const QString& tipo, const QString& ruta, const QString& base,
                       const QString& usuario, const QString& clave);

// Path of the database file in the application folder.
QString RutaBaseDatos(const QString& carpeta);

class ConexionBD {
  public:
    // carpeta: application folder, without a separator at its end.
    ConexionBD(DatabaseEngine& motor, QString carpeta, Log& log, Dialogos& dialogos,
               const Textos& textos);

    // True if the connection is open on return; a second call touches nothing.
    bool ConectarBD();

    DatabaseEngine& Database() { return motor_; }
    QString RutaFichero() const;

  private:
    DatabaseEngine& motor_;
    QString carpeta_;
    Log& log_;
    Dialogos& dialogos_;
    const Textos& textos_;
};

} // namespace zv
