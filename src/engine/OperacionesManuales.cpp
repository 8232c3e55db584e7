#include "engine/OperacionesManuales.h"

#include "access/Claves.h"
#include "engine/Claves.h"
#include "platform/StringLiterals.h"
#include "store/Palabras.h"
#include "till/ResultadoEnvio.h"

namespace zv {

namespace {

constexpr Asiento::Espera kTrasMoverDinero = Asiento::Espera::TrasMoverDinero;
constexpr qint16 kPagoImposible = 4;    // the pieces there cannot make the amount
constexpr qint16 kCobroIncompleto = 27; // the charge has ended short
constexpr qint16 kNivelCualquiera = 2;  // lowest rank
constexpr qint16 kNivelAutorizado = 1;

const QString kBien = u"OK"_s;
const QString kCancelado = u"CANCEL"_s;

QString N(qint32 numero) {
    return QString::number(numero);
}

// The result of a journal line, of an end that is not good.
QString ResultadoFallo(qint16 codigo) {
    return codigo != 0 ? u"ERRORZV"_s + N(codigo) : kCancelado;
}

} // namespace

OperacionesManuales::OperacionesManuales(Entorno& entorno, PulsoCola& pulso)
    : entorno_(entorno), pulso_(pulso), diario_(entorno.log) {}

// ---- give change

void OperacionesManuales::DarCambio() {
    entorno_.transacciones.Saldar();
    Asiento asiento(entorno_);
    FinOperacion fin;
    do {
        pulso_.ParaTimer();
        // After a reconnection it nests in the one before, which has written nothing.
        asiento.Abrir(u"DARCAMBIO_BEGINTRANS"_s, kTrasMoverDinero);
        fin = {};
        entorno_.cliente.Change(fin.paidIn, fin.paidOut, fin.bien);
        fin.Tomar(entorno_.cliente);
    } while (Reconectado(fin));
    Terminar(asiento, u"DARCAMBIO_COMMIT"_s, ArchivarCambio(fin));
}

OperacionesManuales::Avisos OperacionesManuales::ArchivarCambio(const FinOperacion& fin) {
    if (fin.bien && fin.paidIn == 0) {
        return {};
    }
    const QString etiqueta = u"DARCAMBIO"_s;
    diario_.Change(etiqueta, fin.bien ? kBien : ResultadoFallo(fin.codigo), fin.paidIn,
                   fin.paidOut);
    const auto archivar = [&](const QString& origen, const QString& estado, const QString& error) {
        return Archivar(
            origen, Registro(tipo::kDarCambio, estado, error, fin.paidIn, fin.paidIn, fin.paidOut));
    };
    if (fin.bien) {
        return {archivar(etiqueta, estado::kOk, {})};
    }
    if (fin.codigo == 0) {
        return {archivar(etiqueta + u"_CANCEL"_s, estado::kCancel, u"Cambio cancelado"_s)};
    }
    return {archivar(etiqueta + u"_ERRORZV"_s, estado::kError,
                     u"Error al dar cambio ZV: "_s + fin.Detalle()),
            &texto::kDarCambioAnulado, N(fin.codigo) + u": "_s + fin.mensaje};
}

// ---- add float

void OperacionesManuales::AñadirCambio() {
    entorno_.transacciones.Saldar();
    Asiento asiento(entorno_);
    FinOperacion fin;
    do {
        pulso_.ParaTimer();
        asiento.Abrir(u"AÑADIRCAMBIO_BEGINTRANS"_s, kTrasMoverDinero);
        fin = {};
        entorno_.cliente.AddChange(fin.paidIn, fin.bien);
        fin.Tomar(entorno_.cliente);
    } while (Reconectado(fin));
    Terminar(asiento, u"AÑADIRCAMBIO_COMMIT"_s, ArchivarAñadido(fin));
}

OperacionesManuales::Avisos OperacionesManuales::ArchivarAñadido(const FinOperacion& fin) {
    if (fin.bien && fin.paidIn == 0) {
        return {};
    }
    if (fin.bien) {
        // Asked with the transaction open: it has written nothing, so nobody waits for its lock.
        return entorno_.pantallas.ValidarUsuari(kNivelCualquiera, u"authCambio"_s)
                   ? ArchivarAñadidoBueno(fin.paidIn)
                   : DevolverAñadido(fin.paidIn);
    }
    diario_.AddChange(u"AÑADIRCAMBIO"_s, ResultadoFallo(fin.codigo), fin.paidIn);
    if (fin.codigo == 0) {
        return ArchivarAñadidoCancelado(fin.paidIn);
    }
    return {
        Archivar(u"AÑADIRCAMBIO_ERRORZV"_s, Registro(tipo::kMeterCambio, estado::kError,
                                                     u"Error al añadir cambio: "_s + fin.Detalle(),
                                                     fin.paidIn, fin.paidIn, 0)),
        &texto::kAnadirCambioAnulado, N(fin.codigo) + u": "_s + fin.mensaje};
}

OperacionesManuales::Avisos OperacionesManuales::ArchivarAñadidoBueno(qint32 paidIn) {
    diario_.AddChange(u"AÑADIRCAMBIO"_s, kBien, paidIn);
    return {Archivar(u"AÑADIRCAMBIO_OK"_s,
                     Registro(tipo::kMeterCambio, estado::kOk, {}, paidIn, paidIn, 0))};
}

OperacionesManuales::Avisos OperacionesManuales::DevolverAñadido(qint32 paidIn) {
    FinOperacion fin;
    entorno_.cliente.Pay(paidIn, fin.paidOut, fin.bien);
    fin.Tomar(entorno_.cliente);
    diario_.Pay(u"AÑADIRCAMBIO_NOAUTH"_s, fin.bien ? kBien : ResultadoFallo(fin.codigo), paidIn,
                fin.paidOut);
    const QString origen = u"AÑADIRCAMBIO_AUTH"_s;
    const auto archivar = [&](const QString& sufijo, const QString& id1, const QString& estado,
                              const QString& error) {
        return Avisos{Archivar(origen + sufijo,
                               Registro(id1, estado, error, -Currency(paidIn), 0, fin.paidOut))};
    };
    if (fin.bien) {
        return archivar({}, tipo::kPagoCambio, estado::kOk,
                        u"Añadir Cambio Devuelto por no autorización"_s);
    }
    if (fin.codigo == 0) {
        return archivar(u"_CANCEL"_s, tipo::kMeterCambio, estado::kCancel,
                        u"Devolución de Cambio Cancelado"_s);
    }
    return archivar(u"_ERRORZV"_s, tipo::kMeterCambio, estado::kError, fin.Detalle());
}

// What was put in and came out again: two records that cancel each other.
OperacionesManuales::Avisos OperacionesManuales::ArchivarAñadidoCancelado(qint32 paidIn) {
    const QString origen = u"AÑADIRCAMBIO_CANCEL"_s;
    const LecturaSaldo saldo = entorno_.saldos.Leer(TipoSaldo::Todo);
    RegistroProcesado entrada = Registro(tipo::kMeterCambio, estado::kOk, {}, paidIn, paidIn, 0);
    entrada.saldoZV = saldo.valor + paidIn;
    entorno_.registros.AñadirProcesado(origen, entrada);
    if (paidIn != 0) {
        RegistroProcesado vuelta = Registro(tipo::kPagoCambio, estado::kOk, u"Cambio cancelado"_s,
                                            -Currency(paidIn), 0, paidIn);
        vuelta.saldoZV = saldo.valor;
        entorno_.registros.AñadirProcesado(origen, vuelta);
    }
    return {saldo};
}

// ---- pay out

bool OperacionesManuales::Pago() {
    Asiento asiento(entorno_);
    Pedido pedido;
    FinOperacion fin;
    do {
        // What an attempt before a reconnection has left open ends here: who is there goes into
        // the access log, and within a level that row would hold the lock while the operator is
        // asked and the device pays, and take the record of the payment back with it.
        entorno_.transacciones.Saldar();
        pulso_.ParaTimer();
        const std::optional<Pedido> respuesta = PedirPago();
        if (!respuesta) {
            entorno_.marca.MarcarActivo(false); // raised by that attempt
            return false;
        }
        pedido = *respuesta;
        asiento.Abrir(u"PAGO_BEGINTRANS ("_s + pedido.importe.ATexto() + u')', kTrasMoverDinero);
        fin = {};
        entorno_.cliente.Pay(pedido.importe.AEntero32(), fin.paidOut, fin.bien);
        fin.Tomar(entorno_.cliente);
    } while (Reconectado(fin));
    Terminar(asiento, u"PAGO_COMMIT"_s, ArchivarPago(fin, pedido));
    return true;
}

std::optional<OperacionesManuales::Pedido> OperacionesManuales::PedirPago() {
    const auto t = [this](const Clave& clave) { return entorno_.textos.Traduce(clave); };
    if (!entorno_.pantallas.ValidarUsuari(kNivelAutorizado, u"authPago"_s)) {
        return std::nullopt;
    }
    Pedido pedido;
    if (entorno_.configuracio->PREGUNTARCTO != 0) {
        pedido.concepto =
            entorno_.dialogos.PedirTexto(t(texto::kPagoTitulo), t(texto::kPagoConcepto));
        if (pedido.concepto.isEmpty()) {
            entorno_.dialogos.MostrarMensaje(t(texto::kPagoAnulado), t(texto::kPagoSinConcepto));
            return std::nullopt;
        }
    }
    bool cancelado = false;
    pedido.importe =
        entorno_.dialogos.PedirImporte(u"Pago"_s, u"Importe a pagar"_s, 0, nullptr, cancelado)
            .AEntero32();
    return pedido.importe.EsCero() ? std::nullopt : std::optional(pedido);
}

OperacionesManuales::Avisos OperacionesManuales::ArchivarPago(const FinOperacion& fin,
                                                              const Pedido& pedido) {
    const QString etiqueta = u"PAGO"_s;
    diario_.Pay(etiqueta, fin.bien ? kBien : ResultadoFallo(fin.codigo), pedido.importe.AEntero32(),
                fin.paidOut);
    const auto archivar = [&](const QString& origen, const QString& estado, const QString& error) {
        return Archivar(origen,
                        Registro(tipo::kPago, estado, error, -pedido.importe, 0, fin.paidOut));
    };
    if (fin.bien) {
        return {archivar(etiqueta, estado::kOk, pedido.concepto)};
    }
    if (fin.codigo == 0) {
        return {archivar(etiqueta + u"_CANCEL"_s, estado::kCancel,
                         u"Pago cancelado "_s + pedido.concepto)};
    }
    Avisos avisos{{}, &texto::kPagoAnulado, N(fin.codigo) + u": "_s + fin.mensaje};
    if (fin.codigo != kPagoImposible) {
        avisos.saldo = archivar(etiqueta + u"_ERRORZV"_s, estado::kError,
                                u"Error en el pago: "_s + fin.Detalle());
    }
    return avisos;
}

// ---- charge by hand

void OperacionesManuales::cobroManual(const QString& concepto) {
    entorno_.transacciones.Saldar();
    pulso_.ParaTimer();
    Asiento asiento(entorno_);
    QString elConcepto = concepto;
    for (;;) {
        const std::optional<Pedido> pedido = PedirCobro(elConcepto);
        if (!pedido) {
            entorno_.marca.MarcarActivo(false); // raised by an attempt before a reconnection
            pulso_.ArrancaTimer();
            return;
        }
        asiento.Abrir(u"COBROMAN_BEGINTRANS"_s, kTrasMoverDinero);
        const FinOperacion fin = Cobrar(pedido->importe);
        if (!Reconectado(fin)) {
            Terminar(asiento, u"COBROMAN_COMMIT"_s, ArchivarCobro(fin, *pedido));
            return;
        }
        asiento.Deshacer(u"COBROMAN_ROLLBACK"_s);
    }
}

std::optional<OperacionesManuales::Pedido> OperacionesManuales::PedirCobro(QString& concepto) {
    const auto t = [this](const Clave& clave) { return entorno_.textos.Traduce(clave); };
    if (entorno_.configuracio->PREGUNTARCTO != 0 && concepto.isEmpty()) {
        concepto = entorno_.dialogos.PedirTexto(t(texto::kCobroManual), t(texto::kCobroConcepto));
        if (concepto.isEmpty()) {
            entorno_.dialogos.MostrarMensaje(t(texto::kCobroAnulado), t(texto::kCobroSinConcepto));
            return std::nullopt;
        }
    }
    bool cancelado = false;
    bool sinImporte = false;
    const Currency tecleado = entorno_.dialogos.PedirImporte(
        t(texto::kCobroManual), t(texto::kIntroduzcaImporte), 0, &sinImporte, cancelado);
    const Currency importe = tecleado.AEntero32();
    // A 0 has to be meant: neither a cancel nor a fraction of the smallest unit is one.
    const bool ceroAceptado = sinImporte || (!cancelado && tecleado.EsCero());
    return importe.EsCero() && !ceroAceptado ? std::nullopt
                                             : std::optional(Pedido{importe, concepto});
}

// Without an amount the device takes whatever is put in.
FinOperacion OperacionesManuales::Cobrar(Currency importe) {
    FinOperacion fin;
    if (importe.EsCero()) {
        entorno_.cliente.AddChange(fin.paidIn, fin.bien);
    } else {
        entorno_.cliente.Charge(importe.AEntero32(), fin.paidIn, fin.paidOut, fin.bien);
    }
    fin.Tomar(entorno_.cliente);
    return fin;
}

OperacionesManuales::Avisos OperacionesManuales::ArchivarCobro(const FinOperacion& fin,
                                                               const Pedido& pedido) {
    const QString resultado = fin.bien         ? kBien
                              : fin.codigo > 0 ? u"ERROR_"_s + N(fin.codigo)
                                               : kCancelado;
    diario_.Charge(u"COBROMAN"_s, resultado, pedido.importe.AEntero32(), fin.paidIn, fin.paidOut);
    const Currency vendido = pedido.importe.EsCero() ? Currency(fin.paidIn) : pedido.importe;
    const RegistroProcesado registro = Registro(tipo::kCobroManual, estado::kOk, pedido.concepto,
                                                vendido, fin.paidIn, fin.paidOut);
    if (fin.bien) {
        return {Archivar(u"COBROMAN_OK"_s, registro)};
    }
    entorno_.codigoEnvio = fin.codigo;
    entorno_.mensajeEnvio = fin.mensaje;
    if (fin.codigo <= 0) {
        entorno_.ResultadoEnvio = envio::kCancelado;
        return {};
    }
    return ArchivarCobroFallido(fin, registro, pedido.importe);
}

OperacionesManuales::Avisos
OperacionesManuales::ArchivarCobroFallido(const FinOperacion& fin,
                                          const RegistroProcesado& registro, Currency importe) {
    Avisos avisos;
    if (fin.codigo == kCobroIncompleto && Currency(fin.paidIn) != importe) {
        RegistroProcesado fallido = registro;
        fallido.estado = estado::kError;
        fallido.error = fin.Detalle();
        avisos.saldo = Archivar(u"COBROMAN_ERRORZV"_s, fallido);
    }
    entorno_.log.LogLinea(u">>> Error en Zorvex: "_s + fin.Detalle());
    entorno_.ResultadoEnvio = envio::kError;
    return avisos;
}

// ---- what they share

RegistroProcesado OperacionesManuales::Registro(const QString& id1, const QString& estado,
                                                const QString& error, Currency importeVenta,
                                                qint32 cobrado, qint32 devuelto) const {
    RegistroProcesado registro;
    registro.fechaVenta = entorno_.reloj.Ahora();
    registro.importeVenta = importeVenta;
    registro.cobrado = cobrado;
    registro.devuelto = devuelto;
    registro.estado = estado;
    registro.venta.id1 = id1;
    registro.venta.terminal = u"ZV"_s;
    registro.error = error;
    return registro;
}

LecturaSaldo OperacionesManuales::Archivar(const QString& origen, RegistroProcesado registro) {
    LecturaSaldo saldo = entorno_.saldos.Leer(TipoSaldo::Todo);
    registro.saldoZV = saldo.valor;
    entorno_.registros.AñadirProcesado(origen, registro);
    return saldo;
}

// Its boxes come with the transaction open; nothing has been written in it, so that they keep
// nobody from the database.
bool OperacionesManuales::Reconectado(const FinOperacion& fin) {
    return fin.EnlacePerdido() && entorno_.supervision.IntentarReconnectar();
}

void OperacionesManuales::Terminar(Asiento& asiento, const QString& linea, const Avisos& avisos) {
    asiento.Confirmar(linea);
    entorno_.saldos.Avisar(avisos.saldo);
    if (avisos.titulo != nullptr) {
        entorno_.dialogos.MostrarMensaje(entorno_.textos.Traduce(*avisos.titulo), avisos.texto);
    }
    entorno_.marca.MarcarActivo(false);
    entorno_.supervision.GuardarSaldoExit();
    pulso_.ArrancaTimer();
}

} // namespace zv
