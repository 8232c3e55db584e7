// Sending of one sale operation: credit, charge, and the filing of its outcome.
#include "engine/Envio.h"

#include "engine/Vocabulario.h"
#include "platform/ErrorEjecucion.h"

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
    try {
        resultado = Enviar(cliente, op);
    } catch (const ErrorEjecucion& e) {
        resultado = envio::kError;
        // An open transaction stays open and UsuarioFast stays as it is.
        AnotarFallo(op, e);
    }
    if (!op.creditoRechazado) {
        entorno_.marca.MarcarActivo(false);
    }
    return resultado;
}

void Envio::AnotarFallo(const Operacion& op, const ErrorEjecucion& e) {
    try {
        entorno_.log.LogLinea(QStringLiteral(">>> Error nº ") + N(e.Numero()) +
                              QStringLiteral(" al procesar operación nº ") + N(op.idZV) +
                              QStringLiteral(" - ") + e.Descripcion());
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
    if (op.importe.EsCero()) {
        ArchivarSinCobro(op);
        return envio::kBien;
    }
    entorno_.log.LogLinea(QStringLiteral("ENVIARZV_INICIO_CHARGE: ") + op.importe.ATexto());
    bool cobrado = false;
    cliente.Charge(op.importe.AEntero32(), op.paidIn, op.paidOut, cobrado);
    if (cobrado) {
        ArchivarCobro(op);
        return envio::kBien;
    }
    return ArchivarFallo(cliente, op);
}

void Envio::LeerFila(Operacion& op) {
    const std::vector<Fila> filas = entorno_.Motor().Consultar(
        op.idZV == 0 ? QStringLiteral("SELECT TOP 1 * FROM cola ORDER BY idZV")
                     : QStringLiteral("SELECT * FROM cola WHERE idzv=") + N(op.idZV));
    if (filas.empty()) {
        return;
    }
    const Fila& fila = filas.front();
    op.idZV = fila.LeerLong(QStringLiteral("idZV"));
    op.importe = fila.LeerCurrency(QStringLiteral("importe"));
    op.credito = fila.LeerCurrency(QStringLiteral("creditoError"));
    op.venta.id1 = fila.LeerTexto(QStringLiteral("id1"));
    op.venta.id2 = fila.LeerTexto(QStringLiteral("id2"));
    op.venta.idcaja = fila.LeerLong(QStringLiteral("idcaja"));
    op.venta.terminal = fila.LeerTexto(QStringLiteral("terminal"));
    op.venta.vendedor = fila.LeerTexto(QStringLiteral("vendedor"));
    op.venta.formapago = fila.LeerTexto(QStringLiteral("formapago"));
}

bool Envio::AplicarCredito(Operacion& op) {
    if (!op.importe.EsCero()) {
        const int respuesta = entorno_.dialogos.MostrarMensaje(
            QStringLiteral("Confirmación de Operación Parcial"),
            QStringLiteral("Se ha detectado un cobro parcial anterior en esta operación de ") +
                QStringLiteral("\r\n") + entorno_.importes.FormatoImporte(op.credito),
            5);
        if (respuesta == resultado::kCancelar) {
            entorno_.log.LogLinea(QStringLiteral("ENVIARZV_CREDITO_CANCEL: Importe Venta ") +
                                  op.importe.ATexto() + QStringLiteral(" - Crédito anterior ") +
                                  op.credito.ATexto());
            return false;
        }
        entorno_.log.LogLinea(QStringLiteral("ENVIARZV_CREDITO_OK: ") + op.credito.ATexto());
    }
    op.importe = op.importe - op.credito;
    return true;
}

QString Envio::EtiquetaSaldo(const QString& prefijo, const Operacion& op) const {
    return prefijo + N(op.idZV) + QLatin1Char('_') + op.origen;
}

void Envio::ArchivarSinCobro(const Operacion& op) {
    entorno_.marca.MarcarActivo(true);
    entorno_.Motor().Comenzar();
    entorno_.log.LogLinea(QStringLiteral("ENVIARZV0_BEGINTRANS"));
    const qint32 clave = entorno_.registros.AñadirColaProcesada(
        op.origen, op.idZV, estado::kOk, 0, 0,
        entorno_.supervision.SaldoPorTipo(EtiquetaSaldo(QStringLiteral("ENVIARZV0_"), op), 0),
        QString());
    TerminarArchivo(clave, QStringLiteral("ENVIARZV0_") + N(op.idZV));
}

void Envio::ArchivarCobro(const Operacion& op) {
    diario_.Charge(QStringLiteral("ENVIARZV_") + N(op.idZV), QStringLiteral("OK"),
                   op.importe.AEntero32(), op.paidIn, op.paidOut);
    entorno_.marca.MarcarActivo(true);
    entorno_.Motor().Comenzar();
    const QString etiqueta = QStringLiteral("ENVIARZV1_") + N(op.idZV);
    entorno_.log.LogLinea(etiqueta + QStringLiteral("_BEGINTRANS"));
    entorno_.seguretat.UsuarioFast = true;
    const qint32 clave = entorno_.registros.AñadirColaProcesada(
        op.origen, op.idZV, estado::kOk, op.paidIn, op.paidOut,
        entorno_.supervision.SaldoPorTipo(EtiquetaSaldo(QStringLiteral("ENVIARZV_"), op), 0),
        QString());
    TerminarArchivo(clave, etiqueta);
    entorno_.seguretat.UsuarioFast = false;
}

void Envio::TerminarArchivo(qint32 clave, const QString& etiqueta) {
    if (clave == 0) {
        entorno_.dialogos.CajaSimple(entorno_.textos.Traduce(
            QStringLiteral("errorAlProcesarOperacion"),
            QStringLiteral("Error al procesar la operación, consulte con el técnico de Zorvex")));
        entorno_.Motor().Deshacer();
        entorno_.log.LogLinea(etiqueta + QStringLiteral("_ROLLBACK"));
        return;
    }
    entorno_.Motor().Confirmar();
    entorno_.log.LogLinea(etiqueta + QStringLiteral("_COMMIT"));
}

int Envio::ArchivarFallo(DeviceClient& cliente, const Operacion& op) {
    const QString etiqueta = QStringLiteral("ENVIARZV2_") + N(op.idZV);
    const QString etiquetaSaldo = QStringLiteral("ENVIARZV_") + op.origen;
    entorno_.marca.MarcarActivo(true);
    entorno_.Motor().Comenzar();
    entorno_.log.LogLinea(etiqueta + QStringLiteral("_BEGINTRANS"));

    const qint16 codigo = cliente.ErrorCode();
    RegistroProcesado registro;
    registro.fechaVenta = entorno_.reloj.Ahora();
    registro.importeVenta = op.importe;
    registro.cobrado = op.paidIn;
    registro.devuelto = op.paidOut;
    registro.venta = op.venta;
    int resultado = envio::kCancelado;
    if (codigo > 0) {
        EditarCredito(op.idZV, Currency(op.paidIn) - Currency(op.paidOut));
        diario_.Charge(etiqueta, QStringLiteral("ERROR_") + N(codigo), op.importe.AEntero32(),
                       op.paidIn, op.paidOut);
        registro.saldoZV = entorno_.supervision.SaldoPorTipo(etiquetaSaldo, 0);
        registro.estado = estado::kError;
        registro.error = N(codigo) + QStringLiteral(" - ") + cliente.ErrorMessage();
        entorno_.registros.AñadirProcesado(op.origen + QStringLiteral("_ERRORZV"), registro);
        entorno_.log.LogLinea(QStringLiteral(">>> Error en Zorvex: ") + registro.error);
        resultado = envio::kError;
    } else {
        diario_.Charge(etiqueta, QStringLiteral("CANCEL"), op.importe.AEntero32(), op.paidIn,
                       op.paidOut);
        registro.saldoZV = entorno_.supervision.SaldoPorTipo(etiquetaSaldo, 0);
        registro.estado = estado::kCancel;
        registro.error = op.importe < Currency(0) ? QStringLiteral("Abono cancelado")
                                                  : QStringLiteral("Cobro cancelado");
        entorno_.registros.AñadirProcesado(op.origen + QStringLiteral("_CANCEL"), registro);
    }
    entorno_.Motor().Confirmar();
    entorno_.log.LogLinea(etiqueta + QStringLiteral("_COMMIT"));
    return resultado;
}

void Envio::EditarCredito(qint32 idZV, Currency importe) {
    const auto cola = entorno_.Motor().AbrirTabla(QStringLiteral("cola"));
    if (cola->Buscar(idZV)) {
        cola->Poner(QStringLiteral("creditoError"), ValorBD(importe));
        cola->Actualizar();
        entorno_.log.LogLinea(QStringLiteral("EDIT_COLA_CREDITO_") + N(idZV) +
                              QStringLiteral("_OK"));
    }
    cola->Cerrar();
}

} // namespace zv
