#include "engine/Envio.h"

#include "engine/Claves.h"
#include "engine/ImporteDispositivo.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/Palabras.h"
#include "store/Tablas.h"
#include "till/ResultadoEnvio.h"

namespace zv {

namespace {

QString N(qint32 numero) {
    return QString::number(numero);
}

} // namespace

Envio::Envio(Entorno& entorno) : entorno_(entorno), diario_(entorno.log) {}

int Envio::EnviarOperacion(const QString& origen, DeviceClient& cliente, qint32 idZV) {
    Operacion op;
    op.origen = origen;
    op.idZV = idZV;
    int resultado = envio::kError;
    entorno_.codigoEnvio = 0;
    try {
        resultado = Enviar(cliente, op);
    } catch (const ErrorEjecucion& e) {
        resultado = envio::kError;
        // A transaction that is open here is ended by TransactionOwner; UsuarioFast is not reset.
        if (entorno_.codigoEnvio == envio::kEnlacePerdido) {
            // What had come in stands in no record: the row is not sent again by itself.
            entorno_.codigoEnvio = 0;
        }
        AnotarFallo(op, e);
    }
    if (!op.creditoRechazado) {
        entorno_.marca.MarcarActivo(false);
    }
    return resultado;
}

void Envio::AnotarFallo(const Operacion& op, const ErrorEjecucion& e) {
    try {
        entorno_.log.LogLinea(u">>> Error nº "_s + N(e.Numero()) + u" al procesar operación nº "_s +
                              N(op.idZV) + u" - "_s + e.Descripcion());
    } catch (const ErrorEjecucion&) {
        // The log itself has failed. The send still ends as an error, and the busy mark falls.
        return;
    }
}

int Envio::Enviar(DeviceClient& cliente, Operacion& op) {
    LeerFila(op);
    if (!op.credito.EsCero() && !AplicarCredito(op)) {
        op.creditoRechazado = true;
        return envio::kCancelado;
    }
    // Half a minor unit and less rounds to 0, which is no charge that the device could be asked
    // for.
    if (op.importe.SeRedondeaACero()) {
        ArchivarSinCobro(op);
        return envio::kBien;
    }
    entorno_.log.LogLinea(u"ENVIARZV_INICIO_CHARGE: "_s + op.importe.ATexto());
    bool cobrado = false;
    const qint32 cantidad = ParaElDispositivo(op.importe);
    cliente.Charge(cantidad, op.paidIn, op.paidOut, cobrado);
    entorno_.codigoEnvio = cobrado ? qint16{0} : cliente.ErrorCode();
    entorno_.mensajeEnvio = cobrado ? QString() : cliente.ErrorMessage();
    if (cobrado) {
        ArchivarCobro(op);
        return envio::kBien;
    }
    return ArchivarFallo(cliente, op);
}

void Envio::LeerFila(Operacion& op) {
    const std::vector<Row> filas = entorno_.Database().Consultar(
        op.idZV == 0 ? u"SELECT TOP 1 * FROM cola ORDER BY idZV"_s
                     : u"SELECT * FROM cola WHERE idzv="_s + N(op.idZV));
    if (filas.empty()) {
        return;
    }
    const Row& fila = filas.front();
    op.idZV = fila.LeerLong(columna::kIdZV);
    op.importe = fila.LeerCurrency(columna::kImporte);
    op.credito = fila.LeerCurrency(columna::kCreditoError);
    op.venta = LeerVenta(fila);
}

bool Envio::AplicarCredito(Operacion& op) {
    if (!op.importe.EsCero()) {
        const Respuesta respuesta = entorno_.dialogos.MostrarMensaje(
            u"Confirmación de Operación Parcial"_s,
            u"Se ha detectado un cobro parcial anterior en esta operación de "_s + u"\r\n"_s +
                entorno_.importes.FormatoImporte(op.credito),
            EstiloMensaje::ReintentarCancelar);
        if (respuesta == Respuesta::Cancelar) {
            entorno_.log.LogLinea(u"ENVIARZV_CREDITO_CANCEL: Importe Venta "_s +
                                  op.importe.ATexto() + u" - Crédito anterior "_s +
                                  op.credito.ATexto());
            return false;
        }
        entorno_.log.LogLinea(u"ENVIARZV_CREDITO_OK: "_s + op.credito.ATexto());
    }
    op.importe = op.importe - op.credito;
    return true;
}

void Envio::ArchivarSinCobro(const Operacion& op) {
    Asiento asiento(entorno_);
    asiento.Abrir(u"ENVIARZV0_BEGINTRANS"_s);
    const LecturaSaldo saldo = entorno_.saldos.Leer(TipoSaldo::Todo);
    const qint32 clave = entorno_.registros.AñadirColaProcesada(op.origen, op.idZV, estado::kOk, 0,
                                                                0, saldo.valor, QString());
    TerminarArchivo(asiento, clave, u"ENVIARZV0_"_s + N(op.idZV));
    entorno_.saldos.Avisar(saldo);
}

void Envio::ArchivarCobro(const Operacion& op) {
    diario_.Charge(u"ENVIARZV_"_s + N(op.idZV), u"OK"_s, op.importe.AEntero32(), op.paidIn,
                   op.paidOut);
    const QString etiqueta = u"ENVIARZV1_"_s + N(op.idZV);
    Asiento asiento(entorno_);
    asiento.Abrir(etiqueta + u"_BEGINTRANS"_s, Asiento::Espera::TrasMoverDinero);
    entorno_.seguretat.PonerUsuarioFast(true);
    // The money has moved: what is wrong with the balance is told when the books are closed.
    const LecturaSaldo saldo = entorno_.saldos.Leer(TipoSaldo::Todo);
    const qint32 clave = entorno_.registros.AñadirColaProcesada(
        op.origen, op.idZV, estado::kOk, op.paidIn, op.paidOut, saldo.valor, QString());
    TerminarArchivo(asiento, clave, etiqueta);
    entorno_.seguretat.PonerUsuarioFast(false);
    entorno_.saldos.Avisar(saldo);
}

void Envio::TerminarArchivo(Asiento& asiento, qint32 clave, const QString& etiqueta) {
    if (clave != 0) {
        asiento.Confirmar(etiqueta + u"_COMMIT"_s);
        return;
    }
    asiento.Deshacer(etiqueta + u"_ROLLBACK"_s, [this] {
        entorno_.dialogos.CajaSimple(entorno_.textos.Traduce(texto::kErrorAlProcesar));
    });
}

int Envio::ArchivarFallo(DeviceClient& cliente, const Operacion& op) {
    const QString etiqueta = u"ENVIARZV2_"_s + N(op.idZV);
    Asiento asiento(entorno_);
    asiento.Abrir(etiqueta + u"_BEGINTRANS"_s, Asiento::Espera::TrasMoverDinero);

    const qint16 codigo = cliente.ErrorCode();
    if (codigo > 0) {
        EditarCredito(op.idZV, Currency(op.paidIn) - Currency(op.paidOut));
        diario_.Charge(etiqueta, u"ERROR_"_s + N(codigo), op.importe.AEntero32(), op.paidIn,
                       op.paidOut);
    } else {
        diario_.Charge(etiqueta, u"CANCEL"_s, op.importe.AEntero32(), op.paidIn, op.paidOut);
    }
    // The credit has been written: what is wrong with the balance is told after the commit.
    const LecturaSaldo saldo = entorno_.saldos.Leer(TipoSaldo::Todo);
    const int resultado = AnotarFalloDelDispositivo(cliente, op, codigo, saldo);
    asiento.Confirmar(etiqueta + u"_COMMIT"_s);
    entorno_.saldos.Avisar(saldo);
    return resultado;
}

int Envio::AnotarFalloDelDispositivo(DeviceClient& cliente, const Operacion& op, qint16 codigo,
                                     const LecturaSaldo& saldo) {
    RegistroProcesado registro;
    registro.fechaVenta = entorno_.reloj.Ahora();
    registro.importeVenta = op.importe;
    registro.cobrado = op.paidIn;
    registro.devuelto = op.paidOut;
    registro.venta = op.venta;
    registro.saldoZV = saldo.valor;
    if (codigo > 0) {
        registro.estado = estado::kError;
        registro.error = N(codigo) + u" - "_s + cliente.ErrorMessage();
        entorno_.registros.AñadirProcesado(op.origen + u"_ERRORZV"_s, registro);
        entorno_.log.LogLinea(u">>> Error en Zorvex: "_s + registro.error);
        return envio::kError;
    }
    registro.estado = estado::kCancel;
    registro.error = op.importe < Currency(0) ? u"Abono cancelado"_s : u"Cobro cancelado"_s;
    entorno_.registros.AñadirProcesado(op.origen + u"_CANCEL"_s, registro);
    return envio::kCancelado;
}

void Envio::EditarCredito(qint32 idZV, Currency importe) {
    const auto cola = entorno_.Database().AbrirTabla(tabla::kCola);
    if (cola->Buscar(idZV)) {
        cola->Poner(columna::kCreditoError, ValorBD(importe));
        cola->Actualizar();
        entorno_.log.LogLinea(u"EDIT_COLA_CREDITO_"_s + N(idZV) + u"_OK"_s);
    }
    cola->Cerrar();
}

} // namespace zv
