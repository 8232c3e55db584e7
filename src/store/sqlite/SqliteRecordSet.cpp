// Record sets without an open statement: the key of a new row is read under the write lock, so
// that the row can be stored with it.
#include "store/sqlite/SqliteRecordSet.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/sqlite/SqliteErrors.h"

namespace zv {

namespace {

ErrorEjecucion SinFila() {
    return {kErrorUso, u"no hay ninguna fila actual"_s};
}

ErrorEjecucion FilaPerdida() {
    return {kErrorNoEncontrada, u"la fila ya no está en la tabla"_s};
}

} // namespace

SqliteRecordSet::SqliteRecordSet(SqliteCore& nucleo, const QString& tabla)
    : nucleo_(nucleo), tabla_(nucleo.Tabla(tabla)), nombre_(tabla) {}

SqliteRecordSet::~SqliteRecordSet() {
    SoltarPropia();
}

void SqliteRecordSet::Consultar(const QString& sql, const Parametros& parametros) {
    actual_.reset();
    nucleo_.Recorrer(sql, parametros, [this](const Row& fila) {
        actual_ = fila;
        return false;
    });
}

bool SqliteRecordSet::Buscar(qint64 clave) {
    const QString& columna = Clave();
    actual_.reset();
    cambios_.clear();
    std::vector<Row> filas = nucleo_.Leer(
        Statement::Kind::Lectura,
        u"SELECT * FROM "_s + tabla_->nombre + u" WHERE "_s + columna + u"=?"_s, {clave});
    if (filas.empty()) {
        return false;
    }
    actual_ = std::move(filas.front());
    return true;
}

const Row& SqliteRecordSet::Actual() const {
    if (!actual_) {
        throw SinFila();
    }
    return *actual_;
}

void SqliteRecordSet::Nuevo() {
    SoltarPropia();
    cambios_.clear();
    claveNueva_.reset();
    nueva_ = true;
}

void SqliteRecordSet::Poner(const QString& columna, const QVariant& valor) {
    if (!nueva_ && !actual_) {
        throw SinFila();
    }
    for (int i = 0; i < static_cast<int>(tabla_->columnas.size()); ++i) {
        if (tabla_->columnas.at(i).compare(columna, Qt::CaseInsensitive) != 0) {
            continue;
        }
        for (Cambio& cambio : cambios_) {
            if (cambio.columna == i) {
                cambio.valor = SqliteConnection::Valor(valor);
                return;
            }
        }
        cambios_.push_back({i, SqliteConnection::Valor(valor)});
        return;
    }
    throw errores::FueraDeIntervalo();
}

qint64 SqliteRecordSet::ClaveNueva() {
    if (!nueva_) {
        throw SinFila();
    }
    const QString& columna = Clave();
    if (claveNueva_) {
        return *claveNueva_;
    }
    // Under the lock nobody else can take the number.
    if (nucleo_.Niveles().Nivel() == 0) {
        // A question that failed half way has left it open.
        if (!nucleo_.Niveles().EsPropia(this)) {
            nucleo_.Niveles().ComenzarPropia(this);
        }
    } else {
        nucleo_.Niveles().PrepararEscritura();
    }
    Parametros parametros;
    QString sql =
        u"SELECT max(coalesce((SELECT max(%1) FROM %2),0),"_s.arg(columna, tabla_->nombre);
    if (tabla_->numerada) {
        sql += u"coalesce((SELECT max(seq) FROM sqlite_sequence WHERE name=? COLLATE "
               "NOCASE),0))+1"_s;
        parametros.emplace_back(nombre_);
    } else {
        sql += u"0)+1"_s;
    }
    const std::vector<Row> filas = nucleo_.Leer(Statement::Kind::Lectura, sql, parametros);
    claveNueva_ = filas.at(0).Valor(0).toLongLong();
    return *claveNueva_;
}

void SqliteRecordSet::Actualizar() {
    if (nueva_) {
        Insertar();
        nueva_ = false;
        claveNueva_.reset();
        actual_.reset();
    } else {
        Modificar();
    }
    cambios_.clear();
}

void SqliteRecordSet::Insertar() {
    QString nombres;
    QString marcas;
    Parametros valores;
    const auto añadir = [&](const QString& nombre, const QVariant& valor) {
        if (!valores.empty()) {
            nombres += u", "_s;
            marcas += u", "_s;
        }
        nombres += nombre;
        marcas += QLatin1Char('?');
        valores.push_back(valor);
    };
    if (claveNueva_) {
        añadir(Clave(), QVariant(static_cast<qlonglong>(*claveNueva_)));
    }
    for (const Cambio& cambio : cambios_) {
        if (!(claveNueva_ && cambio.columna == tabla_->columnaClave)) {
            añadir(tabla_->citadas.at(cambio.columna), cambio.valor);
        }
    }
    const QString sql =
        u"INSERT INTO "_s + tabla_->nombre +
        (valores.empty() ? u" DEFAULT VALUES"_s
                         : u" ("_s + nombres + u") VALUES ("_s + marcas + QLatin1Char(')'));
    TransactionLevels& niveles = nucleo_.Niveles();
    if (!claveNueva_ || niveles.Nivel() > 0) {
        nucleo_.EscribirAlta(sql, valores);
        return;
    }
    if (!niveles.EsPropia(this)) {
        // A failed commit has ended it; the number still stands unless someone took it meanwhile.
        niveles.ComenzarPropia(this);
    }
    nucleo_.EscribirAlta(sql, valores, this);
    niveles.ConfirmarPropia();
}

void SqliteRecordSet::Modificar() {
    if (!actual_) {
        throw SinFila();
    }
    if (cambios_.empty()) {
        return;
    }
    QString asignaciones;
    Parametros valores;
    for (const Cambio& cambio : cambios_) {
        asignaciones +=
            (valores.empty() ? QString() : u", "_s) + tabla_->citadas.at(cambio.columna) + u"=?"_s;
        valores.push_back(cambio.valor);
    }
    valores.push_back(ClaveActual());
    if (nucleo_.Escribir(u"UPDATE "_s + tabla_->nombre + u" SET "_s + asignaciones + u" WHERE "_s +
                             Clave() + u"=?"_s,
                         valores) == 0) {
        throw FilaPerdida();
    }
    for (const Cambio& cambio : cambios_) {
        // A query need not have asked for every column.
        const QString& columna = tabla_->columnas.at(cambio.columna);
        if (actual_->Columnas().contains(columna, Qt::CaseInsensitive)) {
            actual_->Cambiar(actual_->Indice(columna), cambio.valor);
        }
    }
}

void SqliteRecordSet::Borrar() {
    if (!actual_) {
        throw SinFila();
    }
    if (nucleo_.Escribir(u"DELETE FROM "_s + tabla_->nombre + u" WHERE "_s + Clave() + u"=?"_s,
                         {ClaveActual()}) == 0) {
        throw FilaPerdida();
    }
    actual_.reset();
}

void SqliteRecordSet::Cerrar() {
    SoltarPropia();
    actual_.reset();
    cambios_.clear();
    nueva_ = false;
    claveNueva_.reset();
}

const QString& SqliteRecordSet::Clave() const {
    if (tabla_->columnaClave < 0) {
        throw ErrorEjecucion(kErrorSQLite, u"la tabla %1 no tiene clave"_s.arg(nombre_));
    }
    return tabla_->citadas.at(tabla_->columnaClave);
}

QVariant SqliteRecordSet::ClaveActual() const {
    Clave();
    return actual_->Valor(actual_->Indice(tabla_->columnas.at(tabla_->columnaClave)));
}

void SqliteRecordSet::SoltarPropia() noexcept {
    if (nucleo_.Niveles().EsPropia(this)) {
        nucleo_.Niveles().DeshacerPropia();
    }
}

} // namespace zv
