// Record sets without an open statement: the key of a new row is read under the write lock, so
// that the row can be stored with it.
#include "store/ConjuntoSQLite.h"

#include "platform/ErrorEjecucion.h"
#include "store/EsquemaSQLite.h"

namespace zv {

using esquemasqlite::Citar;

namespace {

constexpr int kErrorSQLite = 1;
constexpr int kErrorNoEncontrada = 12;
constexpr int kErrorUso = 21;

ErrorEjecucion SinFila() {
    return {kErrorUso, QStringLiteral("no hay ninguna fila actual")};
}

ErrorEjecucion FilaPerdida() {
    return {kErrorNoEncontrada, QStringLiteral("la fila ya no está en la tabla")};
}

} // namespace

ConjuntoSQLite::ConjuntoSQLite(NucleoSQLite& nucleo, const QString& tabla)
    : nucleo_(nucleo), tabla_(Citar(tabla)), nombre_(tabla) {
    const std::vector<Fila> filas =
        nucleo_.Leer(Sentencia::Clase::Catalogo,
                     QStringLiteral("SELECT name, pk, EXISTS(SELECT 1 FROM sqlite_master WHERE "
                                    "name='sqlite_sequence') FROM pragma_table_info(?)"),
                     {tabla});
    if (filas.empty()) {
        throw ErrorEjecucion(kErrorSQLite, QStringLiteral("no such table: ") + tabla);
    }
    for (const Fila& fila : filas) {
        const QString columna = fila.LeerTexto(0);
        if (fila.LeerLong(1) == 1) {
            columnaClave_ = static_cast<int>(columnas_.size());
            clave_ = Citar(columna);
        }
        columnas_.append(columna);
        numerada_ = fila.LeerBooleano(2);
    }
}

ConjuntoSQLite::~ConjuntoSQLite() {
    SoltarPropia();
}

void ConjuntoSQLite::Consultar(const QString& sql, const Parametros& parametros) {
    actual_.reset();
    nucleo_.Recorrer(sql, parametros, [this](const Fila& fila) {
        actual_ = fila;
        return false;
    });
}

bool ConjuntoSQLite::Buscar(qint64 clave) {
    if (columnaClave_ < 0) {
        throw ErrorEjecucion(kErrorSQLite,
                             QStringLiteral("la tabla %1 no tiene clave").arg(nombre_));
    }
    actual_.reset();
    cambios_.clear();
    std::vector<Fila> filas =
        nucleo_.Leer(Sentencia::Clase::Lectura,
                     QStringLiteral("SELECT * FROM ") + tabla_ + QStringLiteral(" WHERE ") +
                         clave_ + QStringLiteral("=?"),
                     {clave});
    if (filas.empty()) {
        return false;
    }
    actual_ = std::move(filas.front());
    return true;
}

const Fila& ConjuntoSQLite::Actual() const {
    if (!actual_) {
        throw SinFila();
    }
    return *actual_;
}

void ConjuntoSQLite::Nuevo() {
    SoltarPropia();
    cambios_.clear();
    claveNueva_.reset();
    nueva_ = true;
}

void ConjuntoSQLite::Poner(const QString& columna, const QVariant& valor) {
    if (!nueva_ && !actual_) {
        throw SinFila();
    }
    for (int i = 0; i < static_cast<int>(columnas_.size()); ++i) {
        if (columnas_.at(i).compare(columna, Qt::CaseInsensitive) != 0) {
            continue;
        }
        for (Cambio& cambio : cambios_) {
            if (cambio.columna == i) {
                cambio.valor = ConexionSQLite::Valor(valor);
                return;
            }
        }
        cambios_.push_back({i, ConexionSQLite::Valor(valor)});
        return;
    }
    throw errores::FueraDeIntervalo();
}

qint64 ConjuntoSQLite::ClaveNueva() {
    if (!nueva_ || columnaClave_ < 0) {
        throw SinFila();
    }
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
        QStringLiteral("SELECT max(coalesce((SELECT max(%1) FROM %2),0),").arg(clave_, tabla_);
    if (numerada_) {
        sql += QStringLiteral("coalesce((SELECT max(seq) FROM sqlite_sequence WHERE name=? COLLATE "
                              "NOCASE),0))+1");
        parametros.emplace_back(nombre_);
    } else {
        sql += QStringLiteral("0)+1");
    }
    const std::vector<Fila> filas = nucleo_.Leer(Sentencia::Clase::Lectura, sql, parametros);
    claveNueva_ = filas.at(0).Valor(0).toLongLong();
    return *claveNueva_;
}

void ConjuntoSQLite::Actualizar() {
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

void ConjuntoSQLite::Insertar() {
    QString nombres;
    QString marcas;
    Parametros valores;
    const auto añadir = [&](const QString& nombre, const QVariant& valor) {
        if (!valores.empty()) {
            nombres += QStringLiteral(", ");
            marcas += QStringLiteral(", ");
        }
        nombres += nombre;
        marcas += QLatin1Char('?');
        valores.push_back(valor);
    };
    if (claveNueva_) {
        añadir(clave_, QVariant(static_cast<qlonglong>(*claveNueva_)));
    }
    for (const Cambio& cambio : cambios_) {
        if (!(claveNueva_ && cambio.columna == columnaClave_)) {
            añadir(Citar(columnas_.at(cambio.columna)), cambio.valor);
        }
    }
    const QString sql =
        QStringLiteral("INSERT INTO ") + tabla_ +
        (valores.empty() ? QStringLiteral(" DEFAULT VALUES")
                         : QStringLiteral(" (") + nombres + QStringLiteral(") VALUES (") + marcas +
                               QLatin1Char(')'));
    NivelesSQLite& niveles = nucleo_.Niveles();
    if (!claveNueva_ || niveles.Nivel() > 0) {
        nucleo_.Escribir(sql, valores);
        return;
    }
    if (!niveles.EsPropia(this)) {
        // A failed commit has ended it; the number still stands unless someone took it meanwhile.
        niveles.ComenzarPropia(this);
    }
    nucleo_.Escribir(sql, valores, this);
    niveles.ConfirmarPropia();
}

void ConjuntoSQLite::Modificar() {
    if (!actual_) {
        throw SinFila();
    }
    if (cambios_.empty()) {
        return;
    }
    QString asignaciones;
    Parametros valores;
    for (const Cambio& cambio : cambios_) {
        asignaciones += (valores.empty() ? QString() : QStringLiteral(", ")) +
                        Citar(columnas_.at(cambio.columna)) + QStringLiteral("=?");
        valores.push_back(cambio.valor);
    }
    valores.push_back(ClaveActual());
    if (nucleo_.Escribir(QStringLiteral("UPDATE ") + tabla_ + QStringLiteral(" SET ") +
                             asignaciones + QStringLiteral(" WHERE ") + clave_ +
                             QStringLiteral("=?"),
                         valores) == 0) {
        throw FilaPerdida();
    }
    for (const Cambio& cambio : cambios_) {
        // A query need not have asked for every column.
        const QString& columna = columnas_.at(cambio.columna);
        if (actual_->Columnas().contains(columna, Qt::CaseInsensitive)) {
            actual_->Cambiar(actual_->Indice(columna), cambio.valor);
        }
    }
}

void ConjuntoSQLite::Borrar() {
    if (!actual_) {
        throw SinFila();
    }
    if (nucleo_.Escribir(QStringLiteral("DELETE FROM ") + tabla_ + QStringLiteral(" WHERE ") +
                             clave_ + QStringLiteral("=?"),
                         {ClaveActual()}) == 0) {
        throw FilaPerdida();
    }
    actual_.reset();
}

void ConjuntoSQLite::Cerrar() {
    SoltarPropia();
    actual_.reset();
    cambios_.clear();
    nueva_ = false;
    claveNueva_.reset();
}

QVariant ConjuntoSQLite::ClaveActual() const {
    if (columnaClave_ < 0) {
        throw ErrorEjecucion(kErrorSQLite,
                             QStringLiteral("la tabla %1 no tiene clave").arg(nombre_));
    }
    return actual_->Valor(actual_->Indice(columnas_.at(columnaClave_)));
}

void ConjuntoSQLite::SoltarPropia() noexcept {
    if (nucleo_.Niveles().EsPropia(this)) {
        nucleo_.Niveles().DeshacerPropia();
    }
}

} // namespace zv
