#include "store/sqlite/SqliteCore.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/sqlite/SqliteErrors.h"
#include "store/sqlite/SqliteSchema.h"

#include <QFile>
#include <QFileInfo>

namespace zv {

namespace {

// For the log: what stands there instead of a SQLite database.
QString DescribirFichero(const QString& ruta) {
    QFile fichero(ruta);
    const QByteArray cabecera = fichero.open(QIODevice::ReadOnly) ? fichero.read(32) : QByteArray();
    const QByteArray firma = cabecera.mid(4, 15);
    if (firma == "Standard Jet DB" || firma == "Standard ACE DB") {
        return u"el fichero %1 es una base de datos de Access (%2) y este programa "
               "usa SQLite; conviértalo o retírelo"_s.arg(ruta, QString::fromLatin1(firma));
    }
    return u"el fichero %1 no es una base de datos SQLite o está dañado"_s.arg(ruta);
}

constexpr qint64 kMenorBaseDeDatos = 512;

// Looks at the file without a lock, a journal or any trace. SQLite does it, and not a plain read:
// closing a descriptor of our own would drop the locks that another connection of this process
// holds on the same file. Once it is known to be no database, nobody holds locks there.
// A file without bytes is a new database.
void ExigirSQLite(const QString& ruta, std::chrono::milliseconds espera) {
    const qint64 bytes = QFileInfo(ruta).size();
    if (bytes > 0 && bytes < kMenorBaseDeDatos) {
        // SQLite would take a scrap for an empty database and write over it.
        throw ErrorEjecucion(kErrorNoEsBaseDeDatos, DescribirFichero(ruta));
    }
    SqliteConnection sonda;
    try {
        sonda.Abrir(ruta, SqliteConnection::Modo::Inmutable, espera);
        sonda.Ejecutar(u"PRAGMA schema_version"_s);
    } catch (const ErrorEjecucion& e) {
        if (e.Numero() == kErrorNoEsBaseDeDatos) {
            throw ErrorEjecucion(kErrorNoEsBaseDeDatos, DescribirFichero(ruta));
        }
        // Any other trouble is told by the opening itself.
    }
}

} // namespace

SqliteCore::SqliteCore(TransactionLevels::Aviso aviso)
    : aviso_(std::move(aviso)), niveles_(
                                    conexion_,
                                    [this](Statement::Kind kind, const QString& sql) {
                                        ContarCambio();
                                        aviso_(kind, sql);
                                    },
                                    [this] { VerificarFichero(); }) {}

void SqliteCore::Abrir(const QString& ruta, std::chrono::milliseconds espera) {
    Cerrar();
    ExigirSQLite(ruta, espera);
    const QByteArray nombre = QFile::encodeName(QFileInfo(ruta).absoluteFilePath());
    if (FileIdentity::De(nombre).existe && !SePuedeEscribir(nombre)) {
        // Better now than after a customer's money has been taken.
        throw ErrorEjecucion(kErrorSoloLectura, u"el fichero %1 es de solo lectura"_s.arg(ruta));
    }
    conexion_.Abrir(ruta, SqliteConnection::Modo::LecturaEscritura, espera);
    try {
        conexion_.Ejecutar(u"PRAGMA journal_mode=WAL"_s);
        conexion_.Ejecutar(u"PRAGMA synchronous=FULL"_s);
    } catch (...) {
        Cerrar();
        throw;
    }
    ruta_ = nombre;
    identidad_ = FileIdentity::De(ruta_);
    wal_.Vigilar(ruta_);
    ContarCambio();
}

void SqliteCore::Cerrar() {
    tablas_.clear();
    conexion_.Cerrar();
    niveles_.Olvidar();
}

void SqliteCore::VerificarFichero() const {
    // SQLite would go on writing into the deleted file, and the books would be lost with it.
    if (conexion_.Abierta() && FileIdentity::De(ruta_) != identidad_) {
        throw ErrorEjecucion(kErrorFicheroMovido,
                             u"el fichero de la base de datos ha sido movido o borrado"_s);
    }
}

qint64 SqliteCore::Ejecutar(Statement::Kind kind, const QString& sql, const Parametros& parametros,
                            const SqliteConnection::Visita& visita) {
    aviso_(kind, sql);
    try {
        return conexion_.Ejecutar(sql, parametros, visita);
    } catch (const ErrorEjecucion&) {
        niveles_.TrasFallo();
        throw;
    }
}

std::vector<Row> SqliteCore::Leer(Statement::Kind kind, const QString& sql,
                                  const Parametros& parametros) {
    std::vector<Row> filas;
    Ejecutar(
        kind, sql, parametros,
        [&filas](const QSqlQuery& consulta, const std::shared_ptr<const QStringList>& columnas) {
            std::vector<QVariant> valores;
            const int cuantas = static_cast<int>(columnas->size());
            valores.reserve(static_cast<std::size_t>(cuantas));
            for (int i = 0; i < cuantas; ++i) {
                valores.push_back(consulta.value(i));
            }
            filas.emplace_back(columnas, std::move(valores));
            return true;
        });
    return filas;
}

void SqliteCore::Recorrer(const QString& sql, const Parametros& parametros,
                          const std::function<bool(const Row&)>& visitar) {
    // One row serves for all: nothing is allocated for each.
    std::optional<Row> fila;
    Ejecutar(Statement::Kind::Lectura, sql, parametros,
             [&](const QSqlQuery& consulta, const std::shared_ptr<const QStringList>& columnas) {
                 const int cuantas = static_cast<int>(columnas->size());
                 if (!fila) {
                     fila.emplace(columnas,
                                  std::vector<QVariant>(static_cast<std::size_t>(cuantas)));
                 }
                 for (int i = 0; i < cuantas; ++i) {
                     fila->Cambiar(i, consulta.value(i));
                 }
                 return visitar(*fila);
             });
}

void SqliteCore::Preparar(const QString& sql, std::size_t parametros) {
    aviso_(Statement::Kind::Catalogo, sql);
    conexion_.Compilar(sql, parametros);
}

qint64 SqliteCore::Escribir(const QString& sql, const Parametros& parametros) {
    niveles_.PrepararEscritura();
    ContarCambio();
    const qint64 tocadas = Ejecutar(Statement::Kind::Escritura, sql, parametros, {});
    // A change that found no row has written nothing.
    if (tocadas != 0) {
        niveles_.AnotarEscritura();
    }
    return tocadas;
}

void SqliteCore::EscribirAlta(const QString& sql, const Parametros& parametros, const void* dueño) {
    niveles_.PrepararEscritura(dueño);
    ++altas_;
    Ejecutar(Statement::Kind::Escritura, sql, parametros, {});
    niveles_.AnotarEscritura();
}

void SqliteCore::Definir(const QString& sql) {
    Escribir(sql);
    niveles_.AnotarEscritura();
    conexion_.VaciarPreparadas();
}

qint64 SqliteCore::LeerNumero(Statement::Kind kind, const QString& sql) {
    qint64 numero = 0;
    Ejecutar(kind, sql, {},
             [&numero](const QSqlQuery& consulta, const std::shared_ptr<const QStringList>&) {
                 numero = consulta.value(0).toLongLong();
                 return false;
             });
    return numero;
}

std::shared_ptr<const TableLayout> SqliteCore::Tabla(const QString& nombre) {
    const qint64 version = LeerNumero(Statement::Kind::Catalogo, u"PRAGMA schema_version"_s);
    if (version != versionTablas_) {
        tablas_.clear();
        // Statements that name all columns know them as they were.
        conexion_.VaciarPreparadas();
        versionTablas_ = version;
    }
    if (const auto conocida = tablas_.find(nombre); conocida != tablas_.end()) {
        return conocida->second;
    }
    auto tabla = std::make_shared<TableLayout>();
    tabla->nombre = sqliteschema::Citar(nombre);
    for (const Row& fila : Leer(Statement::Kind::Catalogo,
                                u"SELECT name, pk, EXISTS(SELECT 1 FROM sqlite_master WHERE "
                                "name='sqlite_sequence') FROM pragma_table_info(?)"_s,
                                {nombre})) {
        if (fila.LeerLong(1) == 1) {
            tabla->columnaClave = static_cast<int>(tabla->columnas.size());
        }
        tabla->columnas.append(fila.LeerTexto(0));
        tabla->citadas.append(sqliteschema::Citar(fila.LeerTexto(0)));
        tabla->numerada = fila.LeerBooleano(2);
    }
    if (tabla->columnas.isEmpty()) {
        throw ErrorEjecucion(kErrorSQLite, u"no such table: "_s + nombre);
    }
    tablas_.emplace(nombre, tabla);
    return tabla;
}

quint64 SqliteCore::Marca(quint64 propios) {
    if (!Abierta()) {
        throw SqliteConnection::Cerrada();
    }
    if (wal_.HayQuePreguntar()) {
        versionDatos_ =
            static_cast<quint64>(LeerNumero(Statement::Kind::Lectura, u"PRAGMA data_version"_s));
    }
    constexpr int kMitad = 32;
    return (versionDatos_ << kMitad) ^ propios;
}

} // namespace zv
