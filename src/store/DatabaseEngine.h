// The port behind which every database engine stands: open by connection text, catalogue,
// statements, updatable keyed record sets, nested transactions. Statements are written in the
// system's own dialect (TOP 1 at the head of a SELECT, ? and @x by position, in a view text joined
// with +); the engine adapts them in one place and raises its own failure for what it does not
// know.
//
// Every failure is an ErrorEjecucion with the engine's number and description. No result set stays
// open after a call: rows are copied and the statement is finished.
#pragma once

#include "platform/Currency.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zv {

// Column types of the schema.
enum class ColumnType { Long, AutoLong, Date, Currency, Text, Boolean };

struct ColumnDef {
    QString nombre;
    ColumnType tipo = ColumnType::Long;
    int caracteres = 0; // of Text
};

// Its first column is the primary key, named "PrimaryKey".
struct TableDef {
    QString nombre;
    std::vector<ColumnDef> columnas;
};

struct IndexDef {
    QString nombre;
    QString tabla;
    QStringList columnas;
    bool unico = false;
};

// One copied row. Columns are found without regard to case; an unknown one raises 9. A value that
// is not of the kind asked for raises 13, one beyond its range 6.
class Row {
  public:
    Row(std::shared_ptr<const QStringList> columnas, std::vector<QVariant> valores);

    int Indice(const QString& columna) const;
    const QStringList& Columnas() const { return *columnas_; }
    // The value as the engine holds it. An index beyond the columns raises 9.
    const QVariant& Valor(int indice) const;
    // Changes this copy only, never the table.
    void Cambiar(int indice, QVariant valor);
    bool EsNulo(int indice) const { return Valor(indice).isNull(); }
    bool EsNulo(const QString& columna) const { return EsNulo(Indice(columna)); }

    qint32 LeerLong(int indice, qint32 siNulo = 0) const;
    Currency LeerCurrency(int indice, Currency siNulo = {}) const;
    QString LeerTexto(int indice) const; // Null reads as empty
    bool LeerBooleano(int indice) const; // Null reads as false
    // Invalid when Null. ISO text, or a number: days since 1899-12-30.
    QDateTime LeerFecha(int indice) const;

    qint32 LeerLong(const QString& c, qint32 siNulo = 0) const {
        return LeerLong(Indice(c), siNulo);
    }
    Currency LeerCurrency(const QString& c, Currency siNulo = {}) const {
        return LeerCurrency(Indice(c), siNulo);
    }
    QString LeerTexto(const QString& c) const { return LeerTexto(Indice(c)); }
    bool LeerBooleano(const QString& c) const { return LeerBooleano(Indice(c)); }
    QDateTime LeerFecha(const QString& c) const { return LeerFecha(Indice(c)); }

  private:
    std::shared_ptr<const QStringList> columnas_;
    std::vector<QVariant> valores_;
};

using Parametros = std::vector<QVariant>;

// A value for the engine from the system's types (QVariant holds the others as they are). A null
// QString is an empty text; only a QVariant without a value is Null.
QVariant ValorBD(Currency valor);

// An updatable record set with the key of its table. It holds no open statement; it must not
// outlive its engine. Leaving it without Cerrar abandons a row that was not stored.
class RecordSet {
  public:
    virtual ~RecordSet() = default;

    // Makes the row with that primary key current; false, with no current row, when there is none.
    virtual bool Buscar(qint64 clave) = 0;
    // The current row. Only after Buscar answered true (or, for a query, on its first row).
    virtual const Row& Actual() const = 0;
    virtual bool HayActual() const = 0;

    // Begins a new row; nothing is stored before Actualizar.
    virtual void Nuevo() = 0;
    // Begins a change of the current row by Poner and Actualizar.
    virtual void Poner(const QString& columna, const QVariant& valor) = 0;
    // Key that the new row will have. Takes the write lock.
    virtual qint64 ClaveNueva() = 0;
    // Stores the new row or the changes of the current one. May be repeated after a failure.
    virtual void Actualizar() = 0;
    // Deletes the current row. May be repeated after a failure.
    virtual void Borrar() = 0;
    virtual void Cerrar() = 0;
};

// A query prepared once and run often. It holds no open statement; it must not outlive its engine.
class PreparedStatement {
  public:
    virtual ~PreparedStatement() = default;
    // The first row, if there is one; the others are not read.
    virtual std::optional<Row> Primera(const Parametros& parametros) = 0;
    // A record set over its rows, which are of that table: the first one current if there is one;
    // new rows go to the table.
    virtual std::unique_ptr<RecordSet> AbrirConjunto(const QString& tabla,
                                                     const Parametros& parametros) = 0;
};

// What the engine is about to do, for the hook of fault tests.
struct Statement {
    enum class Kind { Abrir, Catalogo, Lectura, Escritura, Comenzar, Confirmar, Deshacer };
    Kind kind;
    QString sql; // as the engine will run it
};

class DatabaseEngine {
  public:
    virtual ~DatabaseEngine() = default;

    // New empty database at the Data Source of the text; fails if a file stands there.
    virtual void Crear(const QString& cadena) = 0;
    // Existing database. A file of another kind is refused and never touched.
    virtual void Abrir(const QString& cadena) = 0;
    virtual bool Abierta() const = 0;
    virtual void Cerrar() = 0;

    // Catalogue. Views count as tables. Names as created.
    virtual QStringList Tablas() = 0;
    virtual QStringList Indices(const QString& tabla) = 0;
    virtual QStringList Columnas(const QString& tabla) = 0;
    virtual void CrearTabla(const TableDef& tabla) = 0;
    virtual void CrearIndice(const IndexDef& indice) = 0;
    virtual void AñadirColumna(const QString& tabla, const ColumnDef& columna) = 0;
    virtual void CrearVista(const QString& nombre, const QString& sql) = 0;

    // All rows of a query.
    virtual std::vector<Row> Consultar(const QString& sql, const Parametros& parametros = {}) = 0;
    // Rows one by one, for results too large to copy; ends early when the visitor answers false.
    // The visitor must not use the engine.
    virtual void Recorrer(const QString& sql, const Parametros& parametros,
                          const std::function<bool(const Row&)>& visitar) = 0;
    // A query for many runs with other values; fails for what cannot be prepared.
    virtual std::unique_ptr<PreparedStatement> Preparar(const QString& sql,
                                                        std::size_t parametros) = 0;
    // Any other statement; answers the rows touched.
    virtual qint64 Ejecutar(const QString& sql, const Parametros& parametros = {}) = 0;

    virtual std::unique_ptr<RecordSet> AbrirTabla(const QString& tabla) = 0;

    // Transactions nest; Confirmar and Deshacer end the innermost level only. The begin is lazy:
    // the write lock is taken by the first write.
    // espera: how long in all the writes of this level and of those inside it wait for the lock of
    // another program, with no event running meanwhile; without one, each waits as the engine's
    // options say.
    virtual void Comenzar(std::optional<std::chrono::milliseconds> espera = {}) = 0;
    virtual void Confirmar() = 0;
    virtual void Deshacer() = 0;
    virtual int Nivel() const = 0;
    // The innermost open level has written something itself; what inner levels have committed
    // into it does not count.
    virtual bool NivelEscrito() const = 0;

    // A number that differs from the last one whenever the data may have changed, by this
    // connection or by another program. Costs a few microseconds however many rows there are.
    virtual quint64 ChangeStamp() = 0;
    // The same, but for rows that record sets of this connection have added: while it stands, a
    // table differs from the last reading by rows behind its highest key only.
    virtual quint64 ChangeStampExceptAdded() = 0;

    // Called before each statement; a failure that it raises stands for the engine's.
    using Gancho = std::function<void(const Statement&)>;
    void PonerGancho(Gancho gancho) { gancho_ = std::move(gancho); }

  protected:
    void Avisar(Statement::Kind kind, const QString& sql) const {
        if (gancho_) {
            gancho_(Statement{kind, sql});
        }
    }

  private:
    Gancho gancho_;
};

} // namespace zv
