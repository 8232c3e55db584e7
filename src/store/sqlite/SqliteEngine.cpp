#include "store/sqlite/SqliteEngine.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/sqlite/SqlDialect.h"
#include "store/sqlite/SqliteErrors.h"
#include "store/sqlite/SqliteRecordSet.h"
#include "store/sqlite/SqliteSchema.h"
#include "store/sqlite/SqliteStatement.h"

#include <QFile>

namespace zv {

namespace {

QString RutaExigida(const QString& cadena) {
    QString ruta = RutaDeCadena(cadena);
    if (ruta.isEmpty()) {
        throw ErrorEjecucion(kErrorSQLite, u"la cadena de conexión no nombra ningún fichero"_s);
    }
    return ruta;
}

} // namespace

QString RutaDeCadena(const QString& cadena) {
    const QString clave = u"Data Source="_s;
    const qsizetype inicio = cadena.indexOf(clave, 0, Qt::CaseInsensitive);
    if (inicio < 0) {
        return {};
    }
    QString resto = cadena.mid(inicio + clave.size());
    // A path may hold a semicolon: only what is known to follow ends it.
    for (const char* siguiente : {";User Id=", ";Password=", ";Jet OLEDB:"}) {
        const qsizetype fin = resto.indexOf(QLatin1String(siguiente), 0, Qt::CaseInsensitive);
        if (fin >= 0) {
            resto.truncate(fin);
        }
    }
    if (resto.endsWith(u';')) {
        resto.chop(1);
    }
    return resto;
}

SqliteEngine::SqliteEngine(SqliteOptions opciones)
    : opciones_(opciones),
      nucleo_([this](Statement::Kind kind, const QString& sql) { Avisar(kind, sql); }) {}

SqliteEngine::~SqliteEngine() = default;

void SqliteEngine::Crear(const QString& cadena) {
    Avisar(Statement::Kind::Abrir, cadena);
    const QString ruta = RutaExigida(cadena);
    QFile fichero(ruta);
    if (!fichero.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        throw errores::ErrorDeArchivo(ruta, fichero.errorString());
    }
    fichero.close();
    nucleo_.Abrir(ruta, opciones_.espera);
}

void SqliteEngine::Abrir(const QString& cadena) {
    Avisar(Statement::Kind::Abrir, cadena);
    nucleo_.Abrir(RutaExigida(cadena), opciones_.espera);
}

bool SqliteEngine::Abierta() const {
    return nucleo_.Abierta();
}

void SqliteEngine::Cerrar() {
    nucleo_.Cerrar();
}

QStringList SqliteEngine::Nombres(const QString& sql, const Parametros& parametros) {
    QStringList nombres;
    for (const Row& fila : nucleo_.Leer(Statement::Kind::Catalogo, sql, parametros)) {
        nombres.append(fila.LeerTexto(0));
    }
    return nombres;
}

QStringList SqliteEngine::Tablas() {
    return Nombres(u"SELECT name FROM sqlite_master WHERE type IN ('table','view') "
                   "AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY rowid"_s,
                   {});
}

QStringList SqliteEngine::Indices(const QString& tabla) {
    QStringList nombres;
    // The key of a numbered table has no index of its own in SQLite.
    if (!Nombres(u"SELECT name FROM pragma_table_info(?) WHERE pk>0"_s, {tabla}).isEmpty()) {
        nombres.append(u"PrimaryKey"_s);
    }
    for (const QString& fisico :
         Nombres(u"SELECT name FROM pragma_index_list(?) WHERE origin='c' ORDER BY "
                 "seq DESC"_s,
                 {tabla})) {
        nombres.append(sqliteschema::IndiceLogico(tabla, fisico));
    }
    return nombres;
}

QStringList SqliteEngine::Columnas(const QString& tabla) {
    return Nombres(u"SELECT name FROM pragma_table_info(?)"_s, {tabla});
}

void SqliteEngine::CrearTabla(const TableDef& tabla) {
    nucleo_.Definir(sqliteschema::SqlCrearTabla(tabla));
}

void SqliteEngine::CrearIndice(const IndexDef& indice) {
    nucleo_.Definir(sqliteschema::SqlCrearIndice(indice));
}

void SqliteEngine::AñadirColumna(const QString& tabla, const ColumnDef& columna) {
    nucleo_.Definir(sqliteschema::SqlAñadirColumna(tabla, columna));
}

void SqliteEngine::CrearVista(const QString& nombre, const QString& sql) {
    nucleo_.Definir(u"CREATE VIEW "_s + sqliteschema::Citar(nombre) + u" AS "_s +
                    AdaptViewToSqlite(sql));
}

QString SqliteEngine::AdaptarLectura(const QString& sql) {
    // A write that came in as a query would escape the transaction levels.
    const QStringView inicio = QStringView(sql).trimmed();
    for (const char* palabra : {"SELECT", "WITH", "VALUES", "PRAGMA"}) {
        if (inicio.startsWith(QLatin1String(palabra), Qt::CaseInsensitive)) {
            return AdaptToSqlite(sql);
        }
    }
    throw ErrorEjecucion(kErrorSQLite, u"la sentencia no devuelve filas"_s);
}

std::vector<Row> SqliteEngine::Consultar(const QString& sql, const Parametros& parametros) {
    return nucleo_.Leer(Statement::Kind::Lectura, AdaptarLectura(sql), parametros);
}

void SqliteEngine::Recorrer(const QString& sql, const Parametros& parametros,
                            const std::function<bool(const Row&)>& visitar) {
    nucleo_.Recorrer(AdaptarLectura(sql), parametros, visitar);
}

std::unique_ptr<PreparedStatement> SqliteEngine::Preparar(const QString& sql,
                                                          std::size_t parametros) {
    return std::make_unique<SqliteStatement>(nucleo_, AdaptarLectura(sql), parametros);
}

qint64 SqliteEngine::Ejecutar(const QString& sql, const Parametros& parametros) {
    return nucleo_.Escribir(sql, parametros);
}

std::unique_ptr<RecordSet> SqliteEngine::AbrirTabla(const QString& tabla) {
    return std::make_unique<SqliteRecordSet>(nucleo_, tabla);
}

void SqliteEngine::Comenzar(std::optional<std::chrono::milliseconds> espera) {
    nucleo_.Niveles().Comenzar(espera);
}
void SqliteEngine::Confirmar() {
    nucleo_.Niveles().Confirmar();
}
void SqliteEngine::Deshacer() {
    nucleo_.Niveles().Deshacer();
}
int SqliteEngine::Nivel() const {
    return nucleo_.Niveles().Nivel();
}
bool SqliteEngine::NivelEscrito() const {
    return nucleo_.Niveles().Escrito();
}

quint64 SqliteEngine::ChangeStamp() {
    return nucleo_.ChangeStamp();
}
quint64 SqliteEngine::ChangeStampExceptAdded() {
    return nucleo_.ChangeStampExceptAdded();
}

} // namespace zv
