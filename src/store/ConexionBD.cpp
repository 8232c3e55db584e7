// Connection texts for every kind of database, and the opening of the one that is used.
#include "store/ConexionBD.h"

#include "platform/ErrorEjecucion.h"
#include "platform/Ficheros.h"

#include <QDir>

namespace zv {

namespace {

QString Separador(bool sobra) {
    return sobra ? QString() : QStringLiteral("\\");
}

QString SiHay(const char* parte, const QString& valor) {
    return valor.isEmpty() ? QString() : QLatin1String(parte) + valor;
}

} // namespace

QString CadenaConexion(const QString& tipo, const QString& ruta, const QString& base,
                       const QString& usuario, const QString& clave) {
    const bool baseAbierta = base.endsWith(u'\\');
    if (tipo == QLatin1String("ACCDB")) {
        // The separator looks at base, not at ruta: a ruta that ends in one gets a second.
        return QStringLiteral("Provider=Microsoft.ACE.OLEDB.12.0;Data Source=") + ruta +
               Separador(baseAbierta) + base + SiHay(";Jet OLEDB:Database Password=", clave) + u';';
    }
    if (tipo == QLatin1String("MDB")) {
        return QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=") + ruta +
               Separador(baseAbierta || ruta.isEmpty()) + base + SiHay(";User Id=", usuario) +
               SiHay(";Password=", clave) + u';';
    }
    if (tipo == QLatin1String("FIREBIRD")) {
        return QStringLiteral("DRIVER=Firebird/InterBase(r) driver; UID=") + usuario +
               QStringLiteral("; PWD=") + clave + QStringLiteral("; DBNAME=") + ruta +
               Separador(ruta.endsWith(u'/') || ruta.endsWith(u'\\')) + base +
               QStringLiteral(";READONLY=YES;NOWAIT=YES;DIALECT=1");
    }
    if (tipo == QLatin1String("FOXPRO")) {
        return QStringLiteral("Provider=vfpoledb;Data Source=") + ruta + u'\\' + base +
               QStringLiteral(";Collating Sequence=general;");
    }
    if (tipo == QLatin1String("PARADOX")) {
        return QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=") + ruta + u'\\' +
               base + QStringLiteral(";Extended Properties=Paradox 5.x;");
    }
    if (tipo == QLatin1String("ODBC")) {
        return QStringLiteral("DSN=") + ruta + QStringLiteral(";Uid=") + usuario +
               QStringLiteral(";Pwd=") + clave + u';';
    }
    if (tipo == QLatin1String("SQLSERVER")) {
        return QStringLiteral("Provider=sqloledb;Data Source=") + ruta +
               QStringLiteral(";Initial Catalog=") + base + QStringLiteral(";User ID=") + usuario +
               QStringLiteral(";Password=") + clave + u';';
    }
    return QStringLiteral("Provider=") + tipo + QStringLiteral(";Server=") + ruta +
           QStringLiteral(";Database=") + base + QStringLiteral(";;Uid=") + usuario +
           QStringLiteral(";Password=") + clave;
}

QString RutaBaseDatos(const QString& carpeta) {
    return carpeta + QDir::separator() + QStringLiteral("ZVMonito2.mdb");
}

ConexionBD::ConexionBD(MotorBD& motor, QString carpeta, Log& log, Dialogos& dialogos,
                       const Textos& textos)
    : motor_(motor), carpeta_(std::move(carpeta)), log_(log), dialogos_(dialogos), textos_(textos) {
}

QString ConexionBD::RutaFichero() const {
    return RutaBaseDatos(carpeta_);
}

bool ConexionBD::ConectarBD() {
    if (motor_.Abierta()) {
        return true;
    }
    QString cadena;
    try {
        if (!ExisteFichero(RutaFichero())) {
            dialogos_.MostrarMensaje(
                QStringLiteral("Error de configuración"),
                QStringLiteral("No se encuentra la base de datos de ZVMonitor"));
            log_.LogLinea(
                QStringLiteral("No se encuentra el fichero de configuración de la aplicación"));
            return false;
        }
        cadena = CadenaConexion(QStringLiteral("MDB"), {}, RutaFichero(), {}, {});
        try {
            motor_.Abrir(cadena);
        } catch (const ErrorEjecucion& e) {
            dialogos_.MostrarMensaje(
                textos_.Traduce(QStringLiteral("errorDeConfiguracion"),
                                QStringLiteral("Error de configuración")),
                textos_.Traduce(QStringLiteral("errorMDB"),
                                QStringLiteral("Error al crear el fichero MDB, el archivo ya esta "
                                               "en uso")));
            log_.LogLinea(QStringLiteral("ERROR_%1 - ").arg(e.Numero()) + e.Descripcion() +
                          QStringLiteral(": ") + cadena);
            return false;
        }
        return true;
    } catch (const ErrorEjecucion& e) {
        try {
            log_.LogLinea(QStringLiteral(">>> Error conectarBDZV %1 - ").arg(e.Numero()) +
                          e.Descripcion() + QStringLiteral(": ") + cadena);
        } catch (const ErrorEjecucion&) {
            return false; // the log itself is what has failed
        }
        return false;
    }
}

} // namespace zv
