#include "cashoffice/CuadreCaja.h"

#include "cashoffice/ApunteCaja.h"
#include "cashoffice/Claves.h"
#include "platform/StringLiterals.h"
#include "till/Asiento.h"
#include "till/ResultadoEnvio.h"

namespace zv {

namespace {

constexpr qint32 kModoCuadre = 0;

// One movement in a transaction of its own. The mark goes down after it, raised for it or not.
void Archivar(Entorno& entorno, Asiento::Marca marca, const QString& origen,
              const ApunteCaja& apunte) {
    Asiento asiento(entorno, marca);
    asiento.Abrir(u"CASHBOXCONTROL_BEGINTRANS"_s, Asiento::Espera::TrasMoverDinero);
    entorno.registros.AñadirProcesado(origen, Registro(entorno, apunte));
    asiento.Confirmar(u"CASHBOXCONTROL_COMMIT"_s);
    entorno.marca.MarcarActivo(false);
}

} // namespace

void CuadreCaja::Cuadrar() {
    // A level that a failed close has left open would take what is filed now back with it.
    entorno_.transacciones.Saldar();
    if (!entorno_.supervision.Conectado()) {
        entorno_.dialogos.MostrarMensaje(u"Zorvex"_s, entorno_.textos.Traduce(texto::kSinConexion));
        return;
    }
    const Currency antes = entorno_.saldos.SaldoPorTipo(u"CASHBOX"_s, TipoSaldo::Todo);
    const CuatroSaldos partesAntes = fin_.LeerAntes();
    const qint32 retirado = Preguntar();
    const Currency despues = entorno_.saldos.SaldoPorTipo(u"CASHBOXPOST"_s, TipoSaldo::Todo);
    ApuntarDescuadre(antes, despues, retirado);
    if (retirado != 0) {
        const Currency sacado(retirado);
        Archivar(entorno_, Asiento::Marca::Dejar, u"VACIADOCAJONES"_s,
                 {tipo::kVaciadoCajones, -sacado, 0, sacado, despues});
    }
    if (antes != despues) {
        CerrarPeriodo(partesAntes, retirado);
    }
    entorno_.supervision.PonerSaldoExit(despues.AEntero32());
    caja_.RefrescarCaja();
}

// What the device answers is not looked at; a lost link is, and then it holds nothing from here on.
qint32 CuadreCaja::Preguntar() {
    qint32 coinsValueInCB = 0;
    qint32 notesValueInCB = 0;
    qint32 remainingChange = 0;
    bool resultado = false;
    entorno_.cliente.CashBoxControl(kModoCuadre, coinsValueInCB, notesValueInCB, remainingChange,
                                    resultado);
    if (entorno_.cliente.ErrorCode() == envio::kEnlacePerdido) {
        qint16 desconexion = 0;
        caja_.Desconnectar(desconexion);
    }
    diario_.CashBoxControl(u"CASHBOXCONTROL"_s, u"OK"_s, kModoCuadre, coinsValueInCB,
                           notesValueInCB, remainingChange);
    return SumaCajones(coinsValueInCB, notesValueInCB);
}

void CuadreCaja::ApuntarDescuadre(Currency antes, Currency despues, qint32 retirado) {
    const Currency descuadre = antes - (despues + Currency(retirado));
    if (descuadre.EsCero()) {
        return;
    }
    // The question tells the difference between the totals, the entry that which is not explained.
    const auto t = [this](const Clave& clave) { return entorno_.textos.Traduce(clave); };
    const Respuesta respuesta = entorno_.dialogos.MostrarMensaje(
        t(texto::kDescuadreTitulo),
        t(texto::kDescuadreDe) + entorno_.importes.FormatoImporte(antes - despues) + u"\r\n\r\n"_s +
            t(texto::kDescuadrePregunta),
        EstiloMensaje::SiNo);
    if (respuesta != Respuesta::Si) {
        return;
    }
    const QString origen = u"CASHBOXCONTROL"_s;
    if (descuadre > Currency(0)) {
        Archivar(entorno_, Asiento::Marca::Poner, origen,
                 {tipo::kVaciadoCajones, -descuadre, 0, descuadre, despues});
    } else {
        // Negative against what came in: so the records have it.
        Archivar(entorno_, Asiento::Marca::Poner, origen,
                 {tipo::kCashBoxControl, descuadre, -descuadre, 0, despues});
    }
}

// The boxes' money goes in twice, as taken out of them and as part of the close.
void CuadreCaja::CerrarPeriodo(const CuatroSaldos& antes, qint32 retirado) {
    const CuatroSaldos despues = fin_.LeerDespues();
    fin_.ArchivarArqueo(retirado, despues);
    fin_.Cerrar("CASHBOXCONTROL"_L1, antes, despues);
    fin_.RenovarSaldoInicial();
}

} // namespace zv
