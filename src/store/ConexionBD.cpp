#include "store/ConexionBD.h"

#include "platform/ErrorEjecucion.h"
#include "platform/Files.h"
#include "platform/StringLiterals.h"
#include "store/Claves.h"

#include <QDir>

namespace zv {

namespace {

QString Separador(bool sobra) {
    return sobra ? QString() : u"\\"_s;
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
        return u"Provider=Microsoft.ACE.OLEDB.12.0;Data Source="_s + ruta + Separador(baseAbierta) +
               base + SiHay(";Jet OLEDB:Database Password=", clave) + u';';
    }
    if (tipo == QLatin1String("MDB")) {
        return u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_s + ruta +
               Separador(baseAbierta || ruta.isEmpty()) + base + SiHay(";User Id=", usuario) +
               SiHay(";Password=", clave) + u';';
    }
    if (tipo == QLatin1String("FIREBIRD")) {
        return u"DRIVER=Firebird/InterBase(r) driver; UID="_s + usuario + u"; PWD="_s + clave +
               u"; DBNAME="_s + ruta + Separador(ruta.endsWith(u'/') || ruta.endsWith(u'\\')) +
               base + u";READONLY=YES;NOWAIT=YES;DIALECT=1"_s;
    }
    if (tipo == QLatin1String("FOXPRO")) {
        return u"Provider=vfpoledb;Data Source="_s + ruta + u'\\' + base +
               u";Collating Sequence=general;"_s;
    }
    if (tipo == QLatin1String("PARADOX")) {
        return u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_s + ruta + u'\\' + base +
               u";Extended Properties=Paradox 5.x;"_s;
    }
    if (tipo == QLatin1String("ODBC")) {
        return u"DSN="_s + ruta + u";Uid="_s + usuario + u";Pwd="_s + clave + u';';
    }
    if (tipo == QLatin1String("SQLSERVER")) {
        return u"Provider=sqloledb;Data Source="_s + ruta + u";Initial Catalog="_s + base +
               u";User ID="_s + usuario + u";Password="_s + clave + u';';
    }
    return u"Provider="_s + tipo + u";Server="_s + ruta + u";Database="_s + base + u";;Uid="_s +
           usuario + u";Password="_s + clave;
}

QString RutaBaseDatos(const QString& carpeta) {
    return carpeta + QDir::separator() + u"ZVMonito2.mdb"_s;
}

ConexionBD::ConexionBD(DatabaseEngine& motor, QString carpeta, Log& log, Dialogos& dialogos,
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
            dialogos_.MostrarMensaje(u"Error de configuración"_s,
                                     u"No se encuentra la base de datos de ZVMonitor"_s);
            log_.LogLinea(u"No se encuentra el fichero de configuración de la aplicación"_s);
            return false;
        }
        cadena = CadenaConexion(u"MDB"_s, {}, RutaFichero(), {}, {});
        try {
            motor_.Abrir(cadena);
        } catch (const ErrorEjecucion& e) {
            dialogos_.MostrarMensaje(textos_.Traduce(texto::kErrorDeConfiguracion),
                                     textos_.Traduce(texto::kErrorMDB));
            log_.LogLinea(u"ERROR_%1 - "_s.arg(e.Numero()) + e.Descripcion() + u": "_s + cadena);
            return false;
        }
        return true;
    } catch (const ErrorEjecucion& e) {
        try {
            log_.LogLinea(u">>> Error conectarBDZV %1 - "_s.arg(e.Numero()) + e.Descripcion() +
                          u": "_s + cadena);
        } catch (const ErrorEjecucion&) {
            return false; // the log itself is what has failed
        }
        return false;
    }
}

} // namespace zv
