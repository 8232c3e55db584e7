#include "cashoffice/VaciadoCaja.h"

#include "cashoffice/ApunteCaja.h"
#include "cashoffice/Claves.h"
#include "platform/StringLiterals.h"
#include "till/Asiento.h"

namespace zv {

namespace {

const QString kZorvex = u"Zorvex"_s;

} // namespace

void VaciadoCaja::Vaciar(const CajonRecaudacion& cajon) {
    // A level that a failed close has left open would take what is filed now back with it.
    entorno_.transacciones.Saldar();
    if (!entorno_.supervision.Conectado()) {
        entorno_.dialogos.MostrarMensaje(kZorvex, entorno_.textos.Traduce(texto::kSinConexion));
        return;
    }
    const Currency antes = entorno_.saldos.SaldoPorTipo(u"VACIAR"_s, cajon.saldo);
    if (antes.EsCero()) {
        entorno_.dialogos.MostrarMensaje(kZorvex, u"No hay "_s + cajon.palabra +
                                                      u" en el cajón de recaudación"_s);
        return;
    }
    qint32 value = 0;
    bool resultado = false;
    entorno_.cliente.EmptyCB(cajon.device, value, resultado);
    const QString etiqueta = u"VACIAR_"_s + cajon.nombre;
    if (!resultado) {
        diario_.EmptyCB(etiqueta, u"ERROR_"_s + QString::number(entorno_.cliente.ErrorCode()),
                        cajon.device, value);
        AvisarFallo(cajon);
        caja_.GuardarSaldoExit();
        return;
    }
    diario_.EmptyCB(etiqueta, u"OK"_s, cajon.device, value);
    if (entorno_.saldos.SaldoPorTipo(u"VACIARPOST"_s, cajon.saldo) == antes) {
        caja_.GuardarSaldoExit();
        return;
    }
    Archivar(cajon, value);
    caja_.RefrescarCaja();
    caja_.GuardarSaldoExit();
}

void VaciadoCaja::AvisarFallo(const CajonRecaudacion& cajon) {
    entorno_.dialogos.MostrarMensaje(u"Zorvex: Error de vaciado"_s,
                                     u"Error al marcar como vaciado el cajón de "_s +
                                         cajon.palabra + u": "_s +
                                         QString::number(entorno_.cliente.ErrorCode()) + u": "_s +
                                         entorno_.cliente.ErrorMessage());
}

void VaciadoCaja::Archivar(const CajonRecaudacion& cajon, qint32 value) {
    Asiento asiento(entorno_);
    asiento.Abrir(u"VACIARCAJON_BEGINTRANS"_s, Asiento::Espera::TrasMoverDinero);
    const LecturaSaldo saldo = entorno_.saldos.Leer(TipoSaldo::Todo);
    const Currency vaciado(value);
    entorno_.registros.AñadirProcesado(
        u"VACIAR_CAJON"_s,
        Registro(entorno_, {tipo::kVaciado, -vaciado, 0, vaciado, saldo.valor, cajon.nombre}));
    asiento.Confirmar(u"VACIARCAJON_COMMIT"_s);
    entorno_.marca.MarcarActivo(false);
    // What there is to tell of the balance waits for nobody under the write lock.
    entorno_.saldos.Avisar(saldo);
}

} // namespace zv
