// Record sets without an open statement: the key of a new row is read under the write lock, so
// that the row can be stored with it.
#include "store/ConjuntoSQLite.h"

#include "platform/ErrorEjecucion.h"

namespace zv {

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
    : nucleo_(nucleo), tabla_(nucleo.Tabla(tabla)), nombre_(tabla) {}

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
    const QString& columna = Clave();
    actual_.reset();
    cambios_.clear();
    std::vector<Fila> filas =
        nucleo_.Leer(Sentencia::Clase::Lectura,
                     QStringLiteral("SELECT * FROM ") + tabla_->nombre + QStringLiteral(" WHERE ") +
                         columna + QStringLiteral("=?"),
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
    for (int i = 0; i < static_cast<int>(tabla_->columnas.size()); ++i) {
        if (tabla_->columnas.at(i).compare(columna, Qt::CaseInsensitive) != 0) {
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
    QString sql = QStringLiteral("SELECT max(coalesce((SELECT max(%1) FROM %2),0),")
                      .arg(columna, tabla_->nombre);
    if (tabla_->numerada) {
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
        añadir(Clave(), QVariant(static_cast<qlonglong>(*claveNueva_)));
    }
    for (const Cambio& cambio : cambios_) {
        if (!(claveNueva_ && cambio.columna == tabla_->columnaClave)) {
            añadir(tabla_->citadas.at(cambio.columna), cambio.valor);
        }
    }
    const QString sql =
        QStringLiteral("INSERT INTO ") + tabla_->nombre +
        (valores.empty() ? QStringLiteral(" DEFAULT VALUES")
                         : QStringLiteral(" (") + nombres + QStringLiteral(") VALUES (") + marcas +
                               QLatin1Char(')'));
    NivelesSQLite& niveles = nucleo_.Niveles();
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
                        tabla_->citadas.at(cambio.columna) + QStringLiteral("=?");
        valores.push_back(cambio.valor);
    }
    valores.push_back(ClaveActual());
    if (nucleo_.Escribir(QStringLiteral("UPDATE ") + tabla_->nombre + QStringLiteral(" SET ") +
                             asignaciones + QStringLiteral(" WHERE ") + Clave() +
                             QStringLiteral("=?"),
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

void ConjuntoSQLite::Borrar() {
    if (!actual_) {
        throw SinFila();
    }
    if (nucleo_.Escribir(QStringLiteral("DELETE FROM ") + tabla_->nombre +
                             QStringLiteral(" WHERE ") + Clave() + QStringLiteral("=?"),
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

const QString& ConjuntoSQLite::Clave() const {
    if (tabla_->columnaClave < 0) {
        throw ErrorEjecucion(kErrorSQLite,
                             QStringLiteral("la tabla %1 no tiene clave").arg(nombre_));
    }
    return tabla_->citadas.at(tabla_->columnaClave);
}

QVariant ConjuntoSQLite::ClaveActual() const {
    Clave();
    return actual_->Valor(actual_->Indice(tabla_->columnas.at(tabla_->columnaClave)));
}

void ConjuntoSQLite::SoltarPropia() noexcept {
    if (nucleo_.Niveles().EsPropia(this)) {
        nucleo_.Niveles().DeshacerPropia();
    }
}

} // namespace zv
