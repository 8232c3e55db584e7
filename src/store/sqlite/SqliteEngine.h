// The engine port over SQLite: the file that the point of sale and the connector share, in WAL
// mode with full synchronisation. It stands open to any program while this one works.
#pragma once

#include "store/sqlite/SqliteCore.h"

namespace zv {

struct SqliteOptions {
    // How long a statement waits for another program's write lock.
    std::chrono::milliseconds espera{1000};
};

class SqliteEngine final : public DatabaseEngine {
  public:
    explicit SqliteEngine(SqliteOptions opciones = {});
    ~SqliteEngine() override;

    void Crear(const QString& cadena) override;
    void Abrir(const QString& cadena) override;
    bool Abierta() const override;
    void Cerrar() override;

    QStringList Tablas() override;
    QStringList Indices(const QString& tabla) override;
    QStringList Columnas(const QString& tabla) override;
    void CrearTabla(const TableDef& tabla) override;
    void CrearIndice(const IndexDef& indice) override;
    void AñadirColumna(const QString& tabla, const ColumnDef& columna) override;
    void CrearVista(const QString& nombre, const QString& sql) override;

    std::vector<Row> Consultar(const QString& sql, const Parametros& parametros = {}) override;
    void Recorrer(const QString& sql, const Parametros& parametros,
                  const std::function<bool(const Row&)>& visitar) override;
    std::unique_ptr<PreparedStatement> Preparar(const QString& sql,
                                                std::size_t parametros) override;
    qint64 Ejecutar(const QString& sql, const Parametros& parametros = {}) override;

    std::unique_ptr<RecordSet> AbrirTabla(const QString& tabla) override;

    void Comenzar(std::optional<std::chrono::milliseconds> espera = {}) override;
    void Confirmar() override;
    void Deshacer() override;
    int Nivel() const override;
    bool NivelEscrito() const override;

    quint64 ChangeStamp() override;
    quint64 ChangeStampExceptAdded() override;

  private:
    static QString AdaptarLectura(const QString& sql);
    QStringList Nombres(const QString& sql, const Parametros& parametros);

    SqliteOptions opciones_;
    SqliteCore nucleo_;
};

// Path of the file in a connection text: its "Data Source". Empty when it has none.
QString RutaDeCadena(const QString& cadena);

} // namespace zv
