#include "cashoffice/FinPeriodo.h"

#include "cashoffice/ApunteCaja.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/Tablas.h"
#include "till/Asiento.h"

#include <chrono>

namespace zv {

namespace {

// The books must tell of money that has moved, however long another program holds the lock.
constexpr std::chrono::seconds kEsperaArqueo{10};
constexpr int kReintentosArqueo = 3;

} // namespace

qint32 SumaCajones(qint32 monedas, qint32 billetes) {
    return (Currency(monedas) + Currency(billetes)).AEntero32();
}

Currency FinPeriodo::Saldo(QLatin1StringView etiqueta, TipoSaldo tipo) {
    return entorno_.saldos.SaldoPorTipo(etiqueta, tipo);
}

CuatroSaldos FinPeriodo::LeerAntes() {
    const auto etiqueta = "CIERRE"_L1;
    CuatroSaldos antes;
    antes.cambioMonedas = Saldo(etiqueta, TipoSaldo::RecicladorMonedas);
    antes.cajonMonedas = Saldo(etiqueta, TipoSaldo::CajonesMonedas);
    antes.cambioBilletes = Saldo(etiqueta, TipoSaldo::RecicladorBilletes);
    antes.cajonBilletes = Saldo(etiqueta, TipoSaldo::CajonesBilletes);
    return antes;
}

CuatroSaldos FinPeriodo::LeerDespues() {
    const auto etiqueta = "CIERREPOST"_L1;
    SaldosCaja& saldos = caja_.saldos;
    saldos.cambioBilletes = Saldo(etiqueta, TipoSaldo::RecicladorBilletes);
    saldos.cambioMonedas = Saldo(etiqueta, TipoSaldo::RecicladorMonedas);
    saldos.cajonBilletes = Saldo(etiqueta, TipoSaldo::CajonesBilletes);
    saldos.cajonMonedas = Saldo(etiqueta, TipoSaldo::CajonesMonedas);
    return {saldos.cambioMonedas, saldos.cambioBilletes, saldos.cajonMonedas, saldos.cajonBilletes};
}

// In a level of its own, for the longer wait alone. Its commit is tried as often as a statement of
// the filing is, and told in the same words.
void FinPeriodo::ArchivarArqueo(qint32 importe, const CuatroSaldos& despues) {
    const Currency movido(importe);
    const QString origen = u"ARQUEOCAJA"_s;
    const RegistroProcesado registro =
        Registro(entorno_, {tipo::kArqueoCaja, -movido, 0, movido, despues.Suma()});
    DatabaseEngine& motor = entorno_.Database();
    for (int reintento = 1;; ++reintento) {
        motor.Comenzar(kEsperaArqueo);
        entorno_.registros.AñadirProcesado(origen, registro);
        try {
            motor.Confirmar();
            return;
        } catch (const ErrorEjecucion& e) {
            const QString linea = u"ADDPROC_ERROR_"_s + QString::number(e.Numero());
            const QString corchete = u" ["_s + origen + u']';
            if (reintento > kReintentosArqueo) {
                entorno_.log.LogLinea(linea + u" - "_s + e.Descripcion() + corchete);
                return;
            }
            entorno_.log.LogLinea(linea + u"_RESUME_"_s + QString::number(reintento) + corchete);
        }
    }
}

qint32 FinPeriodo::AñadirFila(RecordSet& filas, const QDateTime& fecha, const CuatroSaldos& antes,
                              const CuatroSaldos& despues) {
    filas.Nuevo();
    const qint32 idCierre = Currency::DeEntero(filas.ClaveNueva()).AEntero32();
    const auto poner = [&filas](const QString& columna, Currency importe) {
        filas.Poner(columna, ValorBD(importe));
    };
    const TotalesPeriodo& totales = caja_.totales;
    filas.Poner(columna::kFecha, fecha);
    poner(columna::kSaldoInicial, entorno_.supervision.SaldoInicial());
    poner(columna::kCobros, totales.cobros);
    poner(columna::kAbonos, totales.abonos);
    poner(columna::kIngresos, totales.ingresos);
    poner(columna::kPagos, totales.pagos);
    poner(columna::kSaldoZV, caja_.saldos.contenido);
    poner(columna::kImporteCierre, despues.Suma());
    poner(columna::kCambioBilletes, despues.cambioBilletes);
    poner(columna::kCambioMonedas, despues.cambioMonedas);
    poner(columna::kCajonBilletes, antes.Billetes() - despues.Billetes());
    poner(columna::kCajonMonedas, antes.Monedas() - despues.Monedas());
    filas.Actualizar();
    filas.Cerrar();
    return idCierre;
}

void FinPeriodo::Cerrar(QLatin1StringView nombre, const CuatroSaldos& antes,
                        const CuatroSaldos& despues) {
    // Only exactly 1 drops the time.
    const bool sinHora = entorno_.configuracio->SINHORA == 1;
    const QDateTime ahora = entorno_.reloj.Ahora();
    const QDateTime fecha = sinHora ? QDateTime(ahora.date(), QTime(0, 0)) : ahora;
    const QString texto = ahora.toString(sinHora ? u"dd/MM/yy"_s : u"dd/MM/yy HH:mm:ss"_s);
    const QString etiqueta = u"CIERRE_"_s + nombre + u'_';

    DatabaseEngine& motor = entorno_.Database();
    const std::unique_ptr<RecordSet> filas = motor.AbrirTabla(tabla::kCierres);
    Asiento asiento(entorno_);
    asiento.Abrir(etiqueta + u"BEGINTRANS"_s, Asiento::Espera::TrasMoverDinero);
    const QString idCierre = QString::number(AñadirFila(*filas, fecha, antes, despues));
    motor.Ejecutar(u"UPDATE procesados SET idcierre="_s + idCierre + u" WHERE Idcierre=0"_s);
    asiento.Confirmar(etiqueta + idCierre + u"_COMMIT"_s);
    entorno_.marca.MarcarActivo(false);
    entorno_.ini.EscribirIni(entorno_.rutaIni, u"FILTROS"_s, u"ULTCIERRE"_s, texto);
}

void FinPeriodo::RenovarSaldoInicial() {
    entorno_.supervision.RenovarSaldoInicial(Saldo("CIERRESALDOINICIAL"_L1, TipoSaldo::Todo));
}

} // namespace zv
