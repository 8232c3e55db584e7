// What the SQLite engine and its record sets share: the connection, the transaction levels, the
// hook, the count of changes and the guard of the file.
#pragma once

#include "store/sqlite/FileIdentity.h"
#include "store/sqlite/SqliteConnection.h"
#include "store/sqlite/TransactionLevels.h"
#include "store/sqlite/WalFingerprint.h"

namespace zv {

// What a record set needs to know of its table.
struct TableLayout {
    QString nombre; // quoted
    QStringList columnas;
    QStringList citadas; // the same, quoted
    int columnaClave = -1;
    bool numerada = false; // the file keeps the highest number of each table
};

class SqliteCore {
  public:
    explicit SqliteCore(TransactionLevels::Aviso aviso);

    // Refuses a file that is no SQLite database (26) without touching it, and one that cannot be
    // written (8).
    void Abrir(const QString& ruta, std::chrono::milliseconds espera);
    bool Abierta() const { return conexion_.Abierta(); }
    void Cerrar();

    std::vector<Row> Leer(Statement::Kind kind, const QString& sql,
                          const Parametros& parametros = {});
    void Recorrer(const QString& sql, const Parametros& parametros,
                  const std::function<bool(const Row&)>& visitar);
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
    std::shared_ptr<const TableLayout> Tabla(const QString& nombre);

    TransactionLevels& Niveles() { return niveles_; }
    const TransactionLevels& Niveles() const { return niveles_; }
    void ContarCambio() { ++cambios_; }
    quint64 ChangeStamp() { return Marca(cambios_ + altas_); }
    quint64 ChangeStampExceptAdded() { return Marca(cambios_); }

  private:
    void VerificarFichero() const;
    quint64 Marca(quint64 propios);
    qint64 LeerNumero(Statement::Kind kind, const QString& sql);
    qint64 Ejecutar(Statement::Kind kind, const QString& sql, const Parametros& parametros,
                    const SqliteConnection::Visita& visita);

    TransactionLevels::Aviso aviso_;
    SqliteConnection conexion_;
    TransactionLevels niveles_;
    QByteArray ruta_;
    FileIdentity identidad_;
    std::unordered_map<QString, std::shared_ptr<const TableLayout>> tablas_;
    qint64 versionTablas_ = -1;
    WalFingerprint wal_;
    quint64 versionDatos_ = 0;
    quint64 cambios_ = 0; // but for the rows added
    quint64 altas_ = 0;
};

} // namespace zv
