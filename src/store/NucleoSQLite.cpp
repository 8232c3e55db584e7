// Opening with care, reading, writing, and the mark that tells of changes.
#include "store/NucleoSQLite.h"

#include "platform/ErrorEjecucion.h"
#include "store/EsquemaSQLite.h"

#include <QFile>
#include <QFileInfo>

namespace zv {

namespace {

constexpr int kErrorSQLite = 1;
constexpr int kErrorSoloLectura = 8;
constexpr int kErrorNoEsBaseDeDatos = 26;
constexpr int kErrorFicheroMovido = 1032;

// For the log: what stands there instead of a SQLite database.
QString DescribirFichero(const QString& ruta) {
    QFile fichero(ruta);
    const QByteArray cabecera = fichero.open(QIODevice::ReadOnly) ? fichero.read(32) : QByteArray();
    const QByteArray firma = cabecera.mid(4, 15);
    if (firma == "Standard Jet DB" || firma == "Standard ACE DB") {
        return QStringLiteral("el fichero %1 es una base de datos de Access (%2) y este programa "
                              "usa SQLite; conviértalo o retírelo")
            .arg(ruta, QString::fromLatin1(firma));
    }
    return QStringLiteral("el fichero %1 no es una base de datos SQLite o está dañado").arg(ruta);
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
    ConexionSQLite sonda;
    try {
        sonda.Abrir(ruta, ConexionSQLite::Modo::Inmutable, espera);
        sonda.Ejecutar(QStringLiteral("PRAGMA schema_version"));
    } catch (const ErrorEjecucion& e) {
        if (e.Numero() == kErrorNoEsBaseDeDatos) {
            throw ErrorEjecucion(kErrorNoEsBaseDeDatos, DescribirFichero(ruta));
        }
        // Any other trouble is told by the opening itself.
    }
}

} // namespace

NucleoSQLite::NucleoSQLite(NivelesSQLite::Aviso aviso)
    : aviso_(std::move(aviso)), niveles_(
                                    conexion_,
                                    [this](Sentencia::Clase clase, const QString& sql) {
                                        ContarCambio();
                                        aviso_(clase, sql);
                                    },
                                    [this] { VerificarFichero(); }) {}

void NucleoSQLite::Abrir(const QString& ruta, std::chrono::milliseconds espera) {
    Cerrar();
    ExigirSQLite(ruta, espera);
    const QByteArray nombre = QFile::encodeName(QFileInfo(ruta).absoluteFilePath());
    if (IdentidadFichero::De(nombre).existe && !SePuedeEscribir(nombre)) {
        // Better now than after a customer's money has been taken.
        throw ErrorEjecucion(kErrorSoloLectura,
                             QStringLiteral("el fichero %1 es de solo lectura").arg(ruta));
    }
    conexion_.Abrir(ruta, ConexionSQLite::Modo::LecturaEscritura, espera);
    try {
        conexion_.Ejecutar(QStringLiteral("PRAGMA journal_mode=WAL"));
        conexion_.Ejecutar(QStringLiteral("PRAGMA synchronous=FULL"));
    } catch (...) {
        Cerrar();
        throw;
    }
    ruta_ = nombre;
    identidad_ = IdentidadFichero::De(ruta_);
    wal_.Vigilar(ruta_);
    ContarCambio();
}

void NucleoSQLite::Cerrar() {
    tablas_.clear();
    conexion_.Cerrar();
    niveles_.Olvidar();
}

void NucleoSQLite::VerificarFichero() const {
    // SQLite would go on writing into a file that has no name any more.
    if (conexion_.Abierta() && IdentidadFichero::De(ruta_) != identidad_) {
        throw ErrorEjecucion(
            kErrorFicheroMovido,
            QStringLiteral("el fichero de la base de datos ha sido movido o borrado"));
    }
}

qint64 NucleoSQLite::Ejecutar(Sentencia::Clase clase, const QString& sql,
                              const Parametros& parametros, const ConexionSQLite::Visita& visita) {
    aviso_(clase, sql);
    try {
        return conexion_.Ejecutar(sql, parametros, visita);
    } catch (const ErrorEjecucion&) {
        niveles_.TrasFallo();
        throw;
    }
}

std::vector<Fila> NucleoSQLite::Leer(Sentencia::Clase clase, const QString& sql,
                                     const Parametros& parametros) {
    std::vector<Fila> filas;
    Ejecutar(
        clase, sql, parametros,
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

void NucleoSQLite::Recorrer(const QString& sql, const Parametros& parametros,
                            const std::function<bool(const Fila&)>& visitar) {
    // One row serves for all: nothing is allocated for each.
    std::optional<Fila> fila;
    Ejecutar(Sentencia::Clase::Lectura, sql, parametros,
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

void NucleoSQLite::Preparar(const QString& sql, std::size_t parametros) {
    aviso_(Sentencia::Clase::Catalogo, sql);
    conexion_.Compilar(sql, parametros);
}

qint64 NucleoSQLite::Escribir(const QString& sql, const Parametros& parametros) {
    niveles_.PrepararEscritura();
    ContarCambio();
    return Ejecutar(Sentencia::Clase::Escritura, sql, parametros, {});
}

void NucleoSQLite::EscribirAlta(const QString& sql, const Parametros& parametros,
                                const void* dueño) {
    niveles_.PrepararEscritura(dueño);
    ++altas_;
    Ejecutar(Sentencia::Clase::Escritura, sql, parametros, {});
}

void NucleoSQLite::Definir(const QString& sql) {
    Escribir(sql);
    conexion_.VaciarPreparadas();
}

qint64 NucleoSQLite::LeerNumero(Sentencia::Clase clase, const QString& sql) {
    qint64 numero = 0;
    Ejecutar(clase, sql, {},
             [&numero](const QSqlQuery& consulta, const std::shared_ptr<const QStringList>&) {
                 numero = consulta.value(0).toLongLong();
                 return false;
             });
    return numero;
}

std::shared_ptr<const TablaSQLite> NucleoSQLite::Tabla(const QString& nombre) {
    const qint64 version =
        LeerNumero(Sentencia::Clase::Catalogo, QStringLiteral("PRAGMA schema_version"));
    if (version != versionTablas_) {
        tablas_.clear();
        // Statements that name all columns know them as they were.
        conexion_.VaciarPreparadas();
        versionTablas_ = version;
    }
    if (const auto conocida = tablas_.find(nombre); conocida != tablas_.end()) {
        return conocida->second;
    }
    auto tabla = std::make_shared<TablaSQLite>();
    tabla->nombre = esquemasqlite::Citar(nombre);
    for (const Fila& fila :
         Leer(Sentencia::Clase::Catalogo,
              QStringLiteral("SELECT name, pk, EXISTS(SELECT 1 FROM sqlite_master WHERE "
                             "name='sqlite_sequence') FROM pragma_table_info(?)"),
              {nombre})) {
        if (fila.LeerLong(1) == 1) {
            tabla->columnaClave = static_cast<int>(tabla->columnas.size());
        }
        tabla->columnas.append(fila.LeerTexto(0));
        tabla->citadas.append(esquemasqlite::Citar(fila.LeerTexto(0)));
        tabla->numerada = fila.LeerBooleano(2);
    }
    if (tabla->columnas.isEmpty()) {
        throw ErrorEjecucion(kErrorSQLite, QStringLiteral("no such table: ") + nombre);
    }
    tablas_.emplace(nombre, tabla);
    return tabla;
}

quint64 NucleoSQLite::Marca(quint64 propios) {
    if (!Abierta()) {
        throw ConexionSQLite::Cerrada();
    }
    if (wal_.HayQuePreguntar()) {
        versionDatos_ = static_cast<quint64>(
            LeerNumero(Sentencia::Clase::Lectura, QStringLiteral("PRAGMA data_version")));
    }
    constexpr int kMitad = 32;
    return (versionDatos_ << kMitad) ^ propios;
}

} // namespace zv
