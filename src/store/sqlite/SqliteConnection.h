// One QtSql connection to a SQLite file: prepared statements kept by their text, values bound,
// every statement finished before a call returns. It knows no transactions and no dialect.
#pragma once

#include "platform/ErrorEjecucion.h"
#include "store/DatabaseEngine.h"

#include <QSqlDatabase>
#include <QSqlQuery>

#include <chrono>
#include <functional>
#include <unordered_map>

namespace zv {

class SqliteConnection {
  public:
    // How the file is opened. Inmutable: read without a lock, a journal or any trace.
    enum class Modo { LecturaEscritura, Inmutable };
    // Answers false to end. The query stands on the row.
    using Visita =
        std::function<bool(const QSqlQuery&, const std::shared_ptr<const QStringList>& columnas)>;

    SqliteConnection() = default;
    ~SqliteConnection() { Cerrar(); }
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    // espera: how long a statement waits for another program's lock.
    void Abrir(const QString& ruta, Modo modo, std::chrono::milliseconds espera);
    // Another wait for as long as the object lives.
    class LockWait {
      public:
        LockWait(SqliteConnection& conexion, std::chrono::milliseconds espera)
            : conexion_(conexion) {
            conexion_.PonerEspera(espera);
        }
        ~LockWait();
        LockWait(const LockWait&) = delete;
        LockWait& operator=(const LockWait&) = delete;

      private:
        SqliteConnection& conexion_;
    };
    bool Abierta() const { return abierta_; }
    // An open transaction is rolled back. Harmless when closed.
    void Cerrar();

    // Runs one statement; answers the rows that it touched. Failures carry SQLite's extended code.
    qint64 Ejecutar(const QString& sql, const Parametros& parametros = {},
                    const Visita& visita = {});
    // Compiles a statement ahead of its first run. The same failures.
    void Compilar(const QString& sql, std::size_t parametros);
    // The value as SQLite holds it: dates as local ISO text, an empty text for a null QString.
    static QVariant Valor(const QVariant& valor);
    // The failure of every call on a closed connection: 3704, the data layer's own number.
    static ErrorEjecucion Cerrada();
    // Lets go of all prepared statements, for a changed schema.
    void VaciarPreparadas() { preparadas_.clear(); }

  private:
    struct Preparada {
        QSqlQuery consulta;
        std::shared_ptr<const QStringList> columnas; // known after the first run
        std::size_t parametros = 0;
        quint64 usada = 0;
    };
    void PonerEspera(std::chrono::milliseconds espera);
    Preparada& Preparar(const QString& sql, std::size_t parametros);

    QSqlDatabase base_;
    bool abierta_ = false; // asked for at every idle tick
    std::unordered_map<QString, Preparada> preparadas_;
    std::chrono::milliseconds espera_{};
    quint64 usos_ = 0;
    bool ocupada_ = false;
};

} // namespace zv
