#include "store/Esquema.h"

#include "platform/ErrorEjecucion.h"
#include "platform/Files.h"
#include "platform/StringLiterals.h"
#include "store/Claves.h"
#include "store/ConexionBD.h"
#include "store/Tablas.h"

namespace zv {

namespace {

constexpr auto kLong = ColumnType::Long;
constexpr auto kAutoLong = ColumnType::AutoLong;
constexpr auto kDate = ColumnType::Date;
constexpr auto kCurrency = ColumnType::Currency;
constexpr auto kText = ColumnType::Text;
constexpr auto kBoolean = ColumnType::Boolean;

TableDef TablaUsuarios() {
    return {tabla::kUsuarios,
            {{columna::kIdUser, kAutoLong},
             {columna::kNombre, kText, 20},
             {columna::kPassword, kText, 40},
             {columna::kRol, kLong}}};
}

TableDef TablaAccesos() {
    return {tabla::kAccesos,
            {{columna::kIdAcceso, kAutoLong},
             {columna::kFecha, kDate},
             {columna::kUsuario, kText, 50},
             {columna::kLugar, kText, 50}}};
}

TableDef TablaCola() {
    return {u"Cola"_s,
            {{columna::kIdZV, kAutoLong},
             {columna::kFecha, kDate},
             {columna::kImporte, kCurrency},
             {columna::kId1, kText, 50},
             {columna::kId2, kText, 50},
             {columna::kIdCaja, kLong},
             {columna::kTerminal, kText, 50},
             {columna::kVendedor, kText, 50},
             {columna::kFormaPago, kText, 50},
             {columna::kCreditoError, kCurrency},
             {columna::kManual, kBoolean}}};
}

// Without usuario, which its own step adds in new files too.
TableDef TablaProcesados() {
    return {u"Procesados"_s,
            {{columna::kIdZV, kAutoLong},
             {columna::kFechaZV, kDate},
             {columna::kFechaVenta, kDate},
             {columna::kImporteVenta, kCurrency},
             {columna::kCobrado, kCurrency},
             {columna::kDevuelto, kCurrency},
             {columna::kSaldoZV, kCurrency},
             {columna::kEstado, kText, 20},
             {columna::kId1, kText, 50},
             {columna::kId2, kText, 50},
             {columna::kIdCaja, kLong},
             {columna::kTerminal, kText, 50},
             {columna::kVendedor, kText, 50},
             {columna::kFormaPago, kText, 50},
             {columna::kError, kText, 255},
             {columna::kIdCierre, kLong},
             {columna::kIdCola, kLong}}};
}

TableDef TablaCierres() {
    TableDef tabla{u"Cierres"_s, {{columna::kIdCierre, kAutoLong}, {columna::kFecha, kDate}}};
    for (const QString* columna :
         {&columna::kSaldoInicial, &columna::kCobros, &columna::kAbonos, &columna::kIngresos,
          &columna::kPagos, &columna::kSaldoZV, &columna::kImporteCierre, &columna::kCambioBilletes,
          &columna::kCambioMonedas, &columna::kCajonBilletes, &columna::kCajonMonedas}) {
        tabla.columnas.push_back({*columna, kCurrency});
    }
    return tabla;
}

TableDef TablaHistorial() {
    return {tabla::kHistorial,
            {{columna::kIdHis, kAutoLong}, {columna::kId, kText, 255}, {columna::kFecha, kDate}}};
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
    const QStringList id1id2{columna::kId1, columna::kId2};

    creador.Tabla(TablaUsuarios());
    creador.Indice(tabla::kUsuarios, columna::kNombre, {columna::kNombre}, true);
    creador.Tabla(TablaAccesos());
    creador.Indice(tabla::kAccesos, columna::kUsuario, {columna::kUsuario});
    creador.Indice(tabla::kAccesos, columna::kLugar, {columna::kLugar});
    creador.Tabla(TablaCola());
    creador.Indice(tabla::kCola, columna::kId, id1id2);
    creador.Indice(tabla::kCola, u"idCaja"_s, {columna::kIdCaja});
    creador.Tabla(TablaProcesados());
    creador.Indice(tabla::kProcesados, columna::kId, id1id2);
    creador.Indice(tabla::kProcesados, columna::kIdCaja, {columna::kIdCaja});
    creador.Columna(tabla::kProcesados, {columna::kUsuario, kText, 50});
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
    creador.Indice(tabla::kHistorial, columna::kId, {columna::kId});
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
