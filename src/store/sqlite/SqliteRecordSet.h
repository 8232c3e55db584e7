// The updatable record set of the SQLite engine: copied rows, one statement for each change.
#pragma once

#include "store/sqlite/SqliteCore.h"

namespace zv {

class SqliteRecordSet final : public RecordSet {
  public:
    // Raises 1 when there is no such table.
    SqliteRecordSet(SqliteCore& nucleo, const QString& tabla);
    ~SqliteRecordSet() override;

    // Runs the query; its first row becomes the current one.
    void Consultar(const QString& sql, const Parametros& parametros);

    bool Buscar(qint64 clave) override;
    const Row& Actual() const override;
    bool HayActual() const override { return actual_.has_value(); }
    void Nuevo() override;
    void Poner(const QString& columna, const QVariant& valor) override;
    qint64 ClaveNueva() override;
    void Actualizar() override;
    void Borrar() override;
    void Cerrar() override;

  private:
    struct Cambio {
        int columna; // of the table
        QVariant valor;
    };
    void Insertar();
    void Modificar();
    // The key column's quoted name; raises 1 when the table has no key.
    const QString& Clave() const;
    QVariant ClaveActual() const;
    void SoltarPropia() noexcept;

    SqliteCore& nucleo_;
    std::shared_ptr<const TableLayout> tabla_;
    QString nombre_;
    std::optional<Row> actual_;
    std::vector<Cambio> cambios_;
    bool nueva_ = false;
    std::optional<qint64> claveNueva_;
};

} // namespace zv
