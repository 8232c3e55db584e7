// The port's calls in SQLite's words.
#include "store/MotorSQLite.h"

#include "platform/ErrorEjecucion.h"
#include "store/ConjuntoSQLite.h"
#include "store/DialectoSQLite.h"
#include "store/EsquemaSQLite.h"
#include "store/SentenciaSQLite.h"

#include <QFile>

namespace zv {

namespace {

QString RutaExigida(const QString& cadena) {
    QString ruta = RutaDeCadena(cadena);
    if (ruta.isEmpty()) {
        throw ErrorEjecucion(1, QStringLiteral("la cadena de conexión no nombra ningún fichero"));
    }
    return ruta;
}

} // namespace

QString RutaDeCadena(const QString& cadena) {
    const QString clave = QStringLiteral("Data Source=");
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

MotorSQLite::MotorSQLite(OpcionesSQLite opciones)
    : opciones_(opciones),
      nucleo_([this](Sentencia::Clase clase, const QString& sql) { Avisar(clase, sql); }) {}

MotorSQLite::~MotorSQLite() = default;

void MotorSQLite::Crear(const QString& cadena) {
    Avisar(Sentencia::Clase::Abrir, cadena);
    const QString ruta = RutaExigida(cadena);
    QFile fichero(ruta);
    if (!fichero.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        throw errores::ErrorDeArchivo(ruta, fichero.errorString());
    }
    fichero.close();
    nucleo_.Abrir(ruta, opciones_.espera);
}

void MotorSQLite::Abrir(const QString& cadena) {
    Avisar(Sentencia::Clase::Abrir, cadena);
    nucleo_.Abrir(RutaExigida(cadena), opciones_.espera);
}

bool MotorSQLite::Abierta() const {
    return nucleo_.Abierta();
}

void MotorSQLite::Cerrar() {
    nucleo_.Cerrar();
}

QStringList MotorSQLite::Nombres(const QString& sql, const Parametros& parametros) {
    QStringList nombres;
    for (const Fila& fila : nucleo_.Leer(Sentencia::Clase::Catalogo, sql, parametros)) {
        nombres.append(fila.LeerTexto(0));
    }
    return nombres;
}

QStringList MotorSQLite::Tablas() {
    return Nombres(QStringLiteral("SELECT name FROM sqlite_master WHERE type IN ('table','view') "
                                  "AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY rowid"),
                   {});
}

QStringList MotorSQLite::Indices(const QString& tabla) {
    QStringList nombres;
    // The key of a numbered table has no index of its own in SQLite.
    if (!Nombres(QStringLiteral("SELECT name FROM pragma_table_info(?) WHERE pk>0"), {tabla})
             .isEmpty()) {
        nombres.append(QStringLiteral("PrimaryKey"));
    }
    for (const QString& fisico :
         Nombres(QStringLiteral("SELECT name FROM pragma_index_list(?) WHERE origin='c' ORDER BY "
                                "seq DESC"),
                 {tabla})) {
        nombres.append(esquemasqlite::IndiceLogico(tabla, fisico));
    }
    return nombres;
}

QStringList MotorSQLite::Columnas(const QString& tabla) {
    return Nombres(QStringLiteral("SELECT name FROM pragma_table_info(?)"), {tabla});
}

void MotorSQLite::CrearTabla(const DefTabla& tabla) {
    nucleo_.Definir(esquemasqlite::SqlCrearTabla(tabla));
}

void MotorSQLite::CrearIndice(const DefIndice& indice) {
    nucleo_.Definir(esquemasqlite::SqlCrearIndice(indice));
}

void MotorSQLite::AñadirColumna(const QString& tabla, const DefColumna& columna) {
    nucleo_.Definir(esquemasqlite::SqlAñadirColumna(tabla, columna));
}

void MotorSQLite::CrearVista(const QString& nombre, const QString& sql) {
    nucleo_.Definir(QStringLiteral("CREATE VIEW ") + esquemasqlite::Citar(nombre) +
                    QStringLiteral(" AS ") + Adaptar(sql));
}

QString MotorSQLite::Adaptar(const QString& sql) {
    return AdaptarSQLite(sql, [this] {
        // A name that holds text in one table and a number in another is left alone.
        const QStringList nombres = Nombres(
            QStringLiteral("SELECT lower(c.name) FROM sqlite_master AS t JOIN "
                           "pragma_table_info(t.name) AS c WHERE t.type='table' GROUP BY 1 HAVING "
                           "min(c.type LIKE '%CHAR%' OR c.type LIKE '%TEXT%')=1"),
            {});
        return QSet<QString>(nombres.begin(), nombres.end());
    });
}

QString MotorSQLite::AdaptarLectura(const QString& sql) {
    // A write that came in as a query would escape the transaction levels.
    const QStringView inicio = QStringView(sql).trimmed();
    for (const char* palabra : {"SELECT", "WITH", "VALUES", "PRAGMA"}) {
        if (inicio.startsWith(QLatin1String(palabra), Qt::CaseInsensitive)) {
            return Adaptar(sql);
        }
    }
    throw ErrorEjecucion(1, QStringLiteral("la sentencia no devuelve filas"));
}

std::vector<Fila> MotorSQLite::Consultar(const QString& sql, const Parametros& parametros) {
    return nucleo_.Leer(Sentencia::Clase::Lectura, AdaptarLectura(sql), parametros);
}

void MotorSQLite::Recorrer(const QString& sql, const Parametros& parametros,
                           const std::function<bool(const Fila&)>& visitar) {
    nucleo_.Recorrer(AdaptarLectura(sql), parametros, visitar);
}

std::unique_ptr<SentenciaPreparada> MotorSQLite::Preparar(const QString& sql,
                                                          std::size_t parametros) {
    return std::make_unique<SentenciaSQLite>(nucleo_, AdaptarLectura(sql), parametros);
}

qint64 MotorSQLite::Ejecutar(const QString& sql, const Parametros& parametros) {
    return nucleo_.Escribir(Adaptar(sql), parametros);
}

std::unique_ptr<ConjuntoRegistros> MotorSQLite::AbrirTabla(const QString& tabla) {
    return std::make_unique<ConjuntoSQLite>(nucleo_, tabla);
}

std::unique_ptr<ConjuntoRegistros>
MotorSQLite::AbrirConsulta(const QString& tabla, const QString& sql, const Parametros& parametros) {
    auto conjunto = std::make_unique<ConjuntoSQLite>(nucleo_, tabla);
    conjunto->Consultar(AdaptarLectura(sql), parametros);
    return conjunto;
}

void MotorSQLite::Comenzar() {
    nucleo_.Niveles().Comenzar();
}
void MotorSQLite::Confirmar() {
    nucleo_.Niveles().Confirmar();
}
void MotorSQLite::Deshacer() {
    nucleo_.Niveles().Deshacer();
}
int MotorSQLite::Nivel() const {
    return nucleo_.Niveles().Nivel();
}

quint64 MotorSQLite::MarcaCambios() {
    return nucleo_.MarcaCambios();
}
quint64 MotorSQLite::MarcaSalvoAltas() {
    return nucleo_.MarcaSalvoAltas();
}

} // namespace zv
