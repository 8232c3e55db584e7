// What the SQLite engine and its record sets share: the connection, the transaction levels, the
// hook, the count of changes and the guard of the file.
#pragma once

#include "store/ConexionSQLite.h"
#include "store/HuellaWal.h"
#include "store/IdentidadFichero.h"
#include "store/NivelesSQLite.h"

namespace zv {

// What a record set needs to know of its table.
struct TablaSQLite {
    QString nombre; // quoted
    QStringList columnas;
    QStringList citadas; // the same, quoted
    int columnaClave = -1;
    bool numerada = false; // the file keeps the highest number of each table
};

class NucleoSQLite {
  public:
    explicit NucleoSQLite(NivelesSQLite::Aviso aviso);

    // Refuses a file that is no SQLite database (26) without touching it, and one that cannot be
    // written (8).
    void Abrir(const QString& ruta, std::chrono::milliseconds espera);
    bool Abierta() const { return conexion_.Abierta(); }
    void Cerrar();

    std::vector<Fila> Leer(Sentencia::Clase clase, const QString& sql,
                           const Parametros& parametros = {});
    void Recorrer(const QString& sql, const Parametros& parametros,
                  const std::function<bool(const Fila&)>& visitar);
    // Compiles a query ahead of its first run.
    void Preparar(const QString& sql, std::size_t parametros);
    // Answers the rows touched.
    qint64 Escribir(const QString& sql, const Parametros& parametros = {});
    // A row that a record set adds behind the others. dueño: that set, within its own transaction.
    void EscribirAlta(const QString& sql, const Parametros& parametros,
                      const void* dueño = nullptr);
    // A write that changes the schema.
    void Definir(const QString& sql);

    // Read once and again only when the file's schema has changed. Raises 1 for an unknown table.
    std::shared_ptr<const TablaSQLite> Tabla(const QString& nombre);

    NivelesSQLite& Niveles() { return niveles_; }
    const NivelesSQLite& Niveles() const { return niveles_; }
    void ContarCambio() { ++cambios_; }
    quint64 MarcaCambios() { return Marca(cambios_ + altas_); }
    quint64 MarcaSalvoAltas() { return Marca(cambios_); }

  private:
    void VerificarFichero() const;
    quint64 Marca(quint64 propios);
    qint64 LeerNumero(Sentencia::Clase clase, const QString& sql);
    qint64 Ejecutar(Sentencia::Clase clase, const QString& sql, const Parametros& parametros,
                    const ConexionSQLite::Visita& visita);

    NivelesSQLite::Aviso aviso_;
    ConexionSQLite conexion_;
    NivelesSQLite niveles_;
    QByteArray ruta_;
    IdentidadFichero identidad_;
    std::unordered_map<QString, std::shared_ptr<const TablaSQLite>> tablas_;
    qint64 versionTablas_ = -1;
    HuellaWal wal_;
    quint64 versionDatos_ = 0;
    quint64 cambios_ = 0; // but for the rows added
    quint64 altas_ = 0;
};

} // namespace zv
