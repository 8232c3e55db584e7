#include "store/Esquema.h"

#include "platform/ErrorEjecucion.h"
#include "platform/Files.h"
#include "platform/StringLiterals.h"
#include "store/Claves.h"
#include "store/ConexionBD.h"

namespace zv {

namespace {

constexpr auto kLong = ColumnType::Long;
constexpr auto kAutoLong = ColumnType::AutoLong;
constexpr auto kDate = ColumnType::Date;
constexpr auto kCurrency = ColumnType::Currency;
constexpr auto kText = ColumnType::Text;
constexpr auto kBoolean = ColumnType::Boolean;

TableDef TablaUsuarios() {
    return {u"Usuarios"_s,
            {{u"idUser"_s, kAutoLong},
             {u"nombre"_s, kText, 20},
             {u"password"_s, kText, 40},
             {u"rol"_s, kLong}}};
}

TableDef TablaAccesos() {
    return {u"Accesos"_s,
            {{u"idAcceso"_s, kAutoLong},
             {u"fecha"_s, kDate},
             {u"usuario"_s, kText, 50},
             {u"lugar"_s, kText, 50}}};
}

TableDef TablaCola() {
    return {u"Cola"_s,
            {{u"idZV"_s, kAutoLong},
             {u"fecha"_s, kDate},
             {u"importe"_s, kCurrency},
             {u"id1"_s, kText, 50},
             {u"id2"_s, kText, 50},
             {u"idcaja"_s, kLong},
             {u"terminal"_s, kText, 50},
             {u"vendedor"_s, kText, 50},
             {u"formapago"_s, kText, 50},
             {u"creditoError"_s, kCurrency},
             {u"manual"_s, kBoolean}}};
}

// Without usuario, which its own step adds in new files too.
TableDef TablaProcesados() {
    return {u"Procesados"_s,
            {{u"idZV"_s, kAutoLong},
             {u"fechaZV"_s, kDate},
             {u"fechaVenta"_s, kDate},
             {u"importeVenta"_s, kCurrency},
             {u"cobrado"_s, kCurrency},
             {u"devuelto"_s, kCurrency},
             {u"saldoZV"_s, kCurrency},
             {u"estado"_s, kText, 20},
             {u"id1"_s, kText, 50},
             {u"id2"_s, kText, 50},
             {u"idcaja"_s, kLong},
             {u"terminal"_s, kText, 50},
             {u"vendedor"_s, kText, 50},
             {u"formapago"_s, kText, 50},
             {u"error"_s, kText, 255},
             {u"idCierre"_s, kLong},
             {u"idcola"_s, kLong}}};
}

TableDef TablaCierres() {
    TableDef tabla{u"Cierres"_s, {{u"idCierre"_s, kAutoLong}, {u"fecha"_s, kDate}}};
    for (const char* columna :
         {"saldoInicial", "cobros", "abonos", "ingresos", "pagos", "saldoZV", "importeCierre",
          "cambioBilletes", "cambioMonedas", "cajonBilletes", "cajonMonedas"}) {
        tabla.columnas.push_back({QString::fromLatin1(columna), kCurrency});
    }
    return tabla;
}

TableDef TablaHistorial() {
    return {u"historial"_s, {{u"idHis"_s, kAutoLong}, {u"id"_s, kText, 255}, {u"fecha"_s, kDate}}};
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
    explicit Creador(DatabaseEngine& catalogo) : catalogo_(catalogo) {}

    void Tabla(const TableDef& tabla) {
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
    void Columna(const QString& tabla, const ColumnDef& columna) {
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
    DatabaseEngine& catalogo_;
};

void CrearLoQueFalta(DatabaseEngine& catalogo) {
    Creador creador(catalogo);
    const QString usuarios = u"Usuarios"_s;
    const QString accesos = u"Accesos"_s;
    const QString cola = u"cola"_s;
    const QString procesados = u"procesados"_s;
    const QString historial = u"historial"_s;
    const QString id = u"id"_s;
    const QString usuario = u"usuario"_s;
    const QString lugar = u"lugar"_s;
    const QStringList id1id2{u"id1"_s, u"id2"_s};
    const QString idcaja = u"idcaja"_s;

    creador.Tabla(TablaUsuarios());
    creador.Indice(usuarios, u"nombre"_s, {u"nombre"_s}, true);
    creador.Tabla(TablaAccesos());
    creador.Indice(accesos, usuario, {usuario});
    creador.Indice(accesos, lugar, {lugar});
    creador.Tabla(TablaCola());
    creador.Indice(cola, id, id1id2);
    creador.Indice(cola, u"idCaja"_s, {idcaja});
    creador.Tabla(TablaProcesados());
    creador.Indice(procesados, id, id1id2);
    creador.Indice(procesados, idcaja, {idcaja});
    creador.Columna(procesados, {usuario, kText, 50});
    creador.Tabla(TablaCierres());
    creador.Vista(u"v_cola_agrupar_id"_s,
                  u"SELECT * FROM cola WHERE id1+' '+id2 IN (SELECT Cola.id1+' "
                  "'+Cola.id2 FROM Cola GROUP BY Cola.id1, Cola.id2 HAVING "
                  "Count(Cola.idcaja)>1)"_s);
    creador.Vista(u"v_cola_grupos_id"_s,
                  u"SELECT id1, id2, sum(importe) as SumaGrupo FROM Cola GROUP BY "
                  "Cola.id1, Cola.id2 HAVING Count(Cola.idcaja)>1"_s);
    creador.Vista(u"v_cola_grupos_farmatic"_s,
                  u"SELECT fecha,vendedor,formapago,terminal,SUM(Importe) AS "
                  "sumaGrupo FROM cola GROUP BY fecha,vendedor,formapago,terminal "
                  "HAVING Count(idCaja)>1"_s);
    creador.Tabla(TablaHistorial());
    creador.Indice(historial, id, {id});
}

} // namespace

bool ExisteTabla(DatabaseEngine& catalogo, const QString& nombre) {
    return Contiene(catalogo.Tablas(), nombre);
}

bool ExisteIndice(DatabaseEngine& catalogo, const QString& tabla, const QString& nombre) {
    return Contiene(catalogo.Indices(tabla), nombre);
}

bool ExisteColumna(DatabaseEngine& catalogo, const QString& tabla, const QString& nombre) {
    return Contiene(catalogo.Columnas(tabla), nombre);
}

void CrearBaseDatos(DatabaseEngine& catalogo, const QString& carpeta, Log& log, Dialogos& dialogos,
                    const Textos& textos) {
    try {
        const QString ruta = RutaBaseDatos(carpeta);
        const QString cadena = u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_s + ruta + u';';
        if (ExisteFichero(ruta)) {
            catalogo.Abrir(cadena);
        } else {
            catalogo.Crear(cadena);
        }
        CrearLoQueFalta(catalogo);
    } catch (const ErrorEjecucion& e) {
        try {
            // The message that follows tells one cause for all; the log tells the real one.
            log.LogLinea(u">>> Error CrearBaseDatos %1 - "_s.arg(e.Numero()) + e.Descripcion());
        } catch (const ErrorEjecucion&) {
            // A log that cannot be written must not hide the message.
        }
        dialogos.MostrarMensaje(textos.Traduce(texto::kErrorDeConfiguracion),
                                textos.Traduce(texto::kErrorMDB));
    }
    catalogo.Cerrar();
}

} // namespace zv
