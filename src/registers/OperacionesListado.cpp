#include "registers/OperacionesListado.h"

#include "platform/Conversions.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "registers/Claves.h"
#include "store/Palabras.h"

#include <algorithm>

namespace zv {

bool OperacionesListado::Preguntar(const QString& titulo, const Clave& pregunta) {
    return entorno_.dialogos.MostrarMensaje(titulo, entorno_.textos.Traduce(pregunta),
                                            EstiloMensaje::SiNo) == Respuesta::Si;
}

bool OperacionesListado::grdZV_Click(int fila, int columna, bool debajo) {
    if (debajo || fila < 1 || fila > listado_.grdZV().FilasDatos()) {
        return false;
    }
    listado_.grdZV().PonerCeldaActual(fila, std::max(0, columna));
    if (columna == ColumnaListado::Reenviar) {
        return Reenviar(fila);
    }
    if (columna == ColumnaListado::Descartar) {
        Descartar(fila);
    }
    return false;
}

// The cell's text as it is: that of a manual operation is its concept.
bool OperacionesListado::SePuedeReenviar(int fila) {
    const QString operacion = Celda(fila, ColumnaListado::Operacion);
    const QString noAutomaticas[] = {tipo::kPagoCambio,     tipo::kPago,        tipo::kDarCambio,
                                     tipo::kCashBoxControl, tipo::kMeterCambio, tipo::kVaciado};
    const auto decir = [this](const Clave& clave) {
        entorno_.dialogos.MostrarMensaje({}, entorno_.textos.Traduce(clave));
        return false;
    };
    if (std::find(std::begin(noAutomaticas), std::end(noAutomaticas), operacion) !=
        std::end(noAutomaticas)) {
        return decir(texto::kNoAutomatica);
    }
    const FormatoRegional& formato = entorno_.importes.Formato();
    if (formato.LeerCurrency(Celda(fila, ColumnaListado::Importe)).EsCero()) {
        return decir(texto::kNoReenviada);
    }
    if (Celda(fila, ColumnaListado::Estado) == estado::kReenviado) {
        return decir(texto::kYaReenviada);
    }
    return Preguntar({}, texto::kDeseaReenviar);
}

// From the column of the user, as it has always been. Nobody catches the failure that this is for a
// name, so that its own words have to say what is to be done.
QDateTime OperacionesListado::FechaDe(int fila) const {
    try {
        return AFecha(Celda(fila, ColumnaListado::Usuario), entorno_.importes.Formato(),
                      entorno_.reloj.Ahora().date());
    } catch (const ErrorEjecucion& e) {
        throw ErrorEjecucion(e.Numero(), e.Descripcion() + u". "_s +
                                             entorno_.textos.Traduce(texto::kReenvioSinFecha));
    }
}

bool OperacionesListado::Reenviar(int fila) {
    if (!SePuedeReenviar(fila)) {
        return false;
    }
    listado_.MarcarFila(fila);
    const FormatoRegional& formato = entorno_.importes.Formato();
    const QDateTime fecha = FechaDe(fila);
    const Currency importe = Currency::DeDoble(
        ADoble(Celda(fila, ColumnaListado::Importe), formato) * entorno_.importes.Multiplicador());
    const DatosVenta venta{Celda(fila, ColumnaListado::Operacion),
                           {},
                           0,
                           Celda(fila, ColumnaListado::Terminal),
                           Celda(fila, ColumnaListado::Vendedor),
                           Celda(fila, ColumnaListado::FormaPago)};
    Encolar(fila, fecha, importe, venta);
    return true;
}

// Both or neither: a row that is queued and not marked would be charged twice, one that is marked
// and not queued never.
void OperacionesListado::Encolar(int fila, const QDateTime& fecha, Currency importe,
                                 const DatosVenta& venta) {
    entorno_.transacciones.Saldar();
    DatabaseEngine& motor = entorno_.Database();
    bool avisado = false;
    motor.Comenzar();
    const qint32 clave =
        entorno_.registros.AñadirCola(u"REENVIAR"_s, fecha, importe, venta, true, [&] {
            motor.Deshacer(); // the box may stand for minutes
            avisado = true;
        });
    if (clave > 0) {
        motor.Ejecutar(u"UPDATE procesados SET estado='REENVIADO' WHERE idZV="_s +
                       Celda(fila, ColumnaListado::IdZV));
        motor.Confirmar();
    } else if (!avisado) {
        // Not every failure of the queue has a box of its own.
        motor.Deshacer();
        entorno_.dialogos.MostrarMensaje({}, entorno_.textos.Traduce(texto::kSinReenviar));
    }
}

void OperacionesListado::Descartar(int fila) {
    if (!Preguntar({}, texto::kDeseaEliminar)) {
        return;
    }
    listado_.MarcarFila(fila);
    entorno_.transacciones.Saldar();
    entorno_.Database().Ejecutar(
        u"UPDATE procesados SET idcierre=-1  WHERE estado<>'OK' and idZV="_s +
        Celda(fila, ColumnaListado::IdZV));
    listado_.RellenaGrdZv(listado_.Modo());
}

void OperacionesListado::Todas() {
    const bool accesos = listado_.Modo() == ModoListado::Accesos;
    const QString titulo =
        entorno_.textos.Traduce(accesos ? texto::kEliminarAccesos : texto::kDescartarIncidencias);
    if (Preguntar(titulo, accesos ? texto::kEliminarAccesosPregunta
                                  : texto::kDescartarIncidenciasPregunta)) {
        entorno_.transacciones.Saldar();
        entorno_.Database().Ejecutar(
            accesos ? u"DELETE FROM Accesos"_s
                    : u"UPDATE procesados SET idcierre=-1 WHERE idcierre=0 and estado<>'OK'"_s);
    }
    listado_.RellenaGrdZv(listado_.Modo());
}

} // namespace zv
