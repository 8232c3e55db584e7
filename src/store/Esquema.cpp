// The tables, indexes and views of the system as data, and the walk that creates what is missing.
#include "store/Esquema.h"

#include "platform/ErrorEjecucion.h"
#include "platform/Ficheros.h"
#include "store/ConexionBD.h"

namespace zv {

namespace {

constexpr auto kLong = TipoColumna::Long;
constexpr auto kAutoLong = TipoColumna::AutoLong;
constexpr auto kDate = TipoColumna::Date;
constexpr auto kCurrency = TipoColumna::Currency;
constexpr auto kText = TipoColumna::Text;
constexpr auto kBoolean = TipoColumna::Boolean;

DefTabla TablaUsuarios() {
    return {QStringLiteral("Usuarios"),
            {{QStringLiteral("idUser"), kAutoLong},
             {QStringLiteral("nombre"), kText, 20},
             {QStringLiteral("password"), kText, 40},
             {QStringLiteral("rol"), kLong}}};
}

DefTabla TablaAccesos() {
    return {QStringLiteral("Accesos"),
            {{QStringLiteral("idAcceso"), kAutoLong},
             {QStringLiteral("fecha"), kDate},
             {QStringLiteral("usuario"), kText, 50},
             {QStringLiteral("lugar"), kText, 50}}};
}

DefTabla TablaCola() {
    return {QStringLiteral("Cola"),
            {{QStringLiteral("idZV"), kAutoLong},
             {QStringLiteral("fecha"), kDate},
             {QStringLiteral("importe"), kCurrency},
             {QStringLiteral("id1"), kText, 50},
             {QStringLiteral("id2"), kText, 50},
             {QStringLiteral("idcaja"), kLong},
             {QStringLiteral("terminal"), kText, 50},
             {QStringLiteral("vendedor"), kText, 50},
             {QStringLiteral("formapago"), kText, 50},
             {QStringLiteral("creditoError"), kCurrency},
             {QStringLiteral("manual"), kBoolean}}};
}

// Without usuario, which its own step adds in new files too.
DefTabla TablaProcesados() {
    return {QStringLiteral("Procesados"),
            {{QStringLiteral("idZV"), kAutoLong},
             {QStringLiteral("fechaZV"), kDate},
             {QStringLiteral("fechaVenta"), kDate},
             {QStringLiteral("importeVenta"), kCurrency},
             {QStringLiteral("cobrado"), kCurrency},
             {QStringLiteral("devuelto"), kCurrency},
             {QStringLiteral("saldoZV"), kCurrency},
             {QStringLiteral("estado"), kText, 20},
             {QStringLiteral("id1"), kText, 50},
             {QStringLiteral("id2"), kText, 50},
             {QStringLiteral("idcaja"), kLong},
             {QStringLiteral("terminal"), kText, 50},
             {QStringLiteral("vendedor"), kText, 50},
             {QStringLiteral("formapago"), kText, 50},
             {QStringLiteral("error"), kText, 255},
             {QStringLiteral("idCierre"), kLong},
             {QStringLiteral("idcola"), kLong}}};
}

DefTabla TablaCierres() {
    DefTabla tabla{QStringLiteral("Cierres"),
                   {{QStringLiteral("idCierre"), kAutoLong}, {QStringLiteral("fecha"), kDate}}};
    for (const char* columna :
         {"saldoInicial", "cobros", "abonos", "ingresos", "pagos", "saldoZV", "importeCierre",
          "cambioBilletes", "cambioMonedas", "cajonBilletes", "cajonMonedas"}) {
        tabla.columnas.push_back({QString::fromLatin1(columna), kCurrency});
    }
    return tabla;
}

DefTabla TablaHistorial() {
    return {QStringLiteral("historial"),
            {{QStringLiteral("idHis"), kAutoLong},
             {QStringLiteral("id"), kText, 255},
             {QStringLiteral("fecha"), kDate}}};
}

bool Contiene(const QStringList& nombres, const QString& nombre) {
    const QString buscado = nombre.toUpper();
    for (const QString& uno : nombres) {
        if (uno.toUpper() == buscado) {
            return true;
        }
    }
    return false;
}

// Each asks the catalogue anew and creates only what it does not find.
class Creador {
  public:
    explicit Creador(MotorBD& catalogo) : catalogo_(catalogo) {}

    void Tabla(const DefTabla& tabla) {
        if (!ExisteTabla(catalogo_, tabla.nombre)) {
            catalogo_.CrearTabla(tabla);
        }
    }
    void Indice(const QString& tabla, const QString& nombre, const QStringList& columnas,
                bool unico = false) {
        if (!ExisteIndice(catalogo_, tabla, nombre)) {
            catalogo_.CrearIndice({nombre, tabla, columnas, unico});
        }
    }
    void Columna(const QString& tabla, const DefColumna& columna) {
        if (!ExisteColumna(catalogo_, tabla, columna.nombre)) {
            catalogo_.AñadirColumna(tabla, columna);
        }
    }
    void Vista(const QString& nombre, const QString& sql) {
        if (!ExisteTabla(catalogo_, nombre)) {
            catalogo_.CrearVista(nombre, sql);
        }
    }

  private:
    MotorBD& catalogo_;
};

void CrearLoQueFalta(MotorBD& catalogo) {
    Creador creador(catalogo);
    const QString usuarios = QStringLiteral("Usuarios");
    const QString accesos = QStringLiteral("Accesos");
    const QString cola = QStringLiteral("cola");
    const QString procesados = QStringLiteral("procesados");
    const QString historial = QStringLiteral("historial");
    const QString id = QStringLiteral("id");
    const QString usuario = QStringLiteral("usuario");
    const QString lugar = QStringLiteral("lugar");
    const QStringList id1id2{QStringLiteral("id1"), QStringLiteral("id2")};
    const QString idcaja = QStringLiteral("idcaja");

    creador.Tabla(TablaUsuarios());
    creador.Indice(usuarios, QStringLiteral("nombre"), {QStringLiteral("nombre")}, true);
    creador.Tabla(TablaAccesos());
    creador.Indice(accesos, usuario, {usuario});
    creador.Indice(accesos, lugar, {lugar});
    creador.Tabla(TablaCola());
    creador.Indice(cola, id, id1id2);
    creador.Indice(cola, QStringLiteral("idCaja"), {idcaja});
    creador.Tabla(TablaProcesados());
    creador.Indice(procesados, id, id1id2);
    creador.Indice(procesados, idcaja, {idcaja});
    creador.Columna(procesados, {usuario, kText, 50});
    creador.Tabla(TablaCierres());
    creador.Vista(QStringLiteral("v_cola_agrupar_id"),
                  QStringLiteral("SELECT * FROM cola WHERE id1+' '+id2 IN (SELECT Cola.id1+' "
                                 "'+Cola.id2 FROM Cola GROUP BY Cola.id1, Cola.id2 HAVING "
                                 "Count(Cola.idcaja)>1)"));
    creador.Vista(QStringLiteral("v_cola_grupos_id"),
                  QStringLiteral("SELECT id1, id2, sum(importe) as SumaGrupo FROM Cola GROUP BY "
                                 "Cola.id1, Cola.id2 HAVING Count(Cola.idcaja)>1"));
    creador.Vista(QStringLiteral("v_cola_grupos_farmatic"),
                  QStringLiteral("SELECT fecha,vendedor,formapago,terminal,SUM(Importe) AS "
                                 "sumaGrupo FROM cola GROUP BY fecha,vendedor,formapago,terminal "
                                 "HAVING Count(idCaja)>1"));
    creador.Tabla(TablaHistorial());
    creador.Indice(historial, id, {id});
}

} // namespace

bool ExisteTabla(MotorBD& catalogo, const QString& nombre) {
    return Contiene(catalogo.Tablas(), nombre);
}

bool ExisteIndice(MotorBD& catalogo, const QString& tabla, const QString& nombre) {
    return Contiene(catalogo.Indices(tabla), nombre);
}

bool ExisteColumna(MotorBD& catalogo, const QString& tabla, const QString& nombre) {
    return Contiene(catalogo.Columnas(tabla), nombre);
}

void CrearBaseDatos(MotorBD& catalogo, const QString& carpeta, Log& log, Dialogos& dialogos,
                    const Textos& textos) {
    try {
        const QString ruta = RutaBaseDatos(carpeta);
        const QString cadena =
            QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=") + ruta + u';';
        if (ExisteFichero(ruta)) {
            catalogo.Abrir(cadena);
        } else {
            catalogo.Crear(cadena);
        }
        CrearLoQueFalta(catalogo);
    } catch (const ErrorEjecucion& e) {
        try {
            // The message that follows tells one cause for all; the log tells the real one.
            log.LogLinea(QStringLiteral(">>> Error CrearBaseDatos %1 - ").arg(e.Numero()) +
                         e.Descripcion());
        } catch (const ErrorEjecucion&) {
            // A log that cannot be written must not hide the message.
        }
        dialogos.MostrarMensaje(
            textos.Traduce(QStringLiteral("errorDeConfiguracion"),
                           QStringLiteral("Error de configuración")),
            textos.Traduce(QStringLiteral("errorMDB"),
                           QStringLiteral("Error al crear el fichero MDB, el archivo ya esta en "
                                          "uso")));
    }
    catalogo.Cerrar();
}

} // namespace zv
