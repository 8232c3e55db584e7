#include "cashoffice/CierreCaja.h"

#include "cashoffice/Claves.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "till/ResultadoEnvio.h"

namespace zv {

namespace {

const QString kZorvex = u"Zorvex"_s;
const QString kFinLinea = u"\r\n"_s;

} // namespace

void CierreCaja::Cerrar(const VarianteCierre& variante) {
    // A level that a failed close has left open would take what is filed now back with it.
    entorno_.transacciones.Saldar();
    const std::optional<qint32> importe = Preguntar(variante);
    if (!importe) {
        return;
    }
    try {
        Ejecutar(variante, *importe);
    } catch (const ErrorEjecucion& e) {
        // The box stands under whatever is open: the device has done its part, and what has become
        // of the books is for whoever reads the log.
        entorno_.dialogos.MostrarMensaje(entorno_.textos.Traduce(texto::kErrorCierre),
                                         u"Error nº "_s + QString::number(e.Numero()) + u':' +
                                             kFinLinea + e.Descripcion(),
                                         EstiloMensaje::Critico);
    }
}

std::optional<qint32> CierreCaja::Preguntar(const VarianteCierre& variante) {
    const auto t = [this](const Clave& clave) { return entorno_.textos.Traduce(clave); };
    if (!entorno_.supervision.Conectado()) {
        entorno_.dialogos.MostrarMensaje(kZorvex, t(texto::kSinConexion));
        return std::nullopt;
    }
    if (!variante.pideImporte) {
        const Respuesta respuesta = entorno_.dialogos.MostrarMensaje(
            t(texto::kCierreTitulo), t(texto::kCierrePregunta), EstiloMensaje::AceptarCancelar);
        return respuesta == Respuesta::Cancelar ? std::nullopt : std::optional(0);
    }
    const Currency porDefecto =
        entorno_.saldos.SaldoPorTipo(u"CIERRE_VALOR"_s, TipoSaldo::Reciclador);
    bool cancelado = false;
    const Currency importe =
        entorno_.dialogos.PedirImporte(u"Cierre"_s, u"Importe:"_s, porDefecto, nullptr, cancelado);
    return cancelado ? std::nullopt : std::optional(importe.AEntero32());
}

void CierreCaja::Ejecutar(const VarianteCierre& variante, qint32 remainingChange) {
    const CuatroSaldos antes = fin_.LeerAntes();
    entorno_.log.LogLinea(u"CIERRE_LLAMADA_"_s + variante.nombre);
    qint32 coinsValueInCB = 0;
    qint32 notesValueInCB = 0;
    bool resultado = false;
    entorno_.cliente.CashBoxControl(variante.modo, coinsValueInCB, notesValueInCB, remainingChange,
                                    resultado);
    const qint16 codigo = resultado ? qint16{0} : entorno_.cliente.ErrorCode();
    diario_.CashBoxControl(u"CIERRE_"_s + variante.nombre,
                           resultado ? u"OK"_s : u"ERROR_"_s + QString::number(codigo),
                           variante.modo, coinsValueInCB, notesValueInCB, remainingChange);
    if (!resultado) {
        AvisarRechazo(codigo);
        Terminar();
        return;
    }
    const CuatroSaldos despues = fin_.LeerDespues();
    if (const qint32 movido = SumaCajones(coinsValueInCB, notesValueInCB); movido != 0) {
        fin_.ArchivarArqueo(movido, despues);
    }
    fin_.Cerrar(variante.nombre, antes, despues);
    fin_.RenovarSaldoInicial();
    MostrarResultado(antes, despues);
    Terminar();
}

void CierreCaja::AvisarRechazo(qint16 codigo) {
    entorno_.dialogos.MostrarMensaje(entorno_.textos.Traduce(texto::kErrorDeZorvexNumero) +
                                         QString::number(codigo),
                                     entorno_.textos.Traduce(texto::kErrorCierreZorvex));
}

void CierreCaja::MostrarResultado(const CuatroSaldos& antes, const CuatroSaldos& despues) {
    const Currency monedas = antes.Monedas() - despues.Monedas();
    const Currency billetes = antes.Billetes() - despues.Billetes();
    caja_.PonerImporte(&EstadoCaja::lbSaldoCierre, despues.Suma());
    caja_.PonerImporte(&EstadoCaja::lbCambioMonedas, despues.cambioMonedas);
    caja_.PonerImporte(&EstadoCaja::lbCambioBilletes, despues.cambioBilletes);
    caja_.PonerImporte(&EstadoCaja::lbCBMonedas, monedas);
    caja_.Pintar();
    caja_.PonerImporte(&EstadoCaja::lbCBBilletes, billetes);
    caja_.Pintar();
    if (monedas.EsCero() && billetes.EsCero()) {
        return;
    }
    const auto t = [this](const Clave& clave) { return entorno_.textos.Traduce(clave); };
    entorno_.dialogos.MostrarMensaje(
        kZorvex, t(texto::kRecuerdeVaciar) + kFinLinea + t(texto::kImpresionMonedas) +
                     caja_.Estado().lbCBMonedas + kFinLinea + t(texto::kImpresionBilletes) +
                     caja_.Estado().lbCBBilletes);
}

// Of every close that has reached the device.
void CierreCaja::Terminar() {
    caja_.GuardarSaldoExit();
    for (const BotonCaja boton : {BotonCaja::CierreNiveles, BotonCaja::CierreValor,
                                  BotonCaja::VaciarMonedas, BotonCaja::VaciarBilletes}) {
        caja_.PonerBoton(boton, false);
    }
    if (entorno_.cliente.ErrorCode() == envio::kEnlacePerdido) {
        qint16 resultado = 0;
        caja_.Desconnectar(resultado);
    }
    if (entorno_.cliente.ErrorCode() == 0) {
        caja_.Enfocar(entorno_.configuracio->SINIMPRESORA == 1 ? BotonCaja::Historico
                                                               : BotonCaja::Imprimir);
    }
    caja_.RefrescarCaja();
}

} // namespace zv
