#include "engine/CobrosAgrupados.h"

#include "engine/Claves.h"
#include "engine/ImporteDispositivo.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/Palabras.h"
#include "store/Tablas.h"
#include "till/ResultadoEnvio.h"

namespace zv {

namespace {

const QString kOrigen = u"AGR_MAN"_s;

QString N(qint32 numero) {
    return QString::number(numero);
}

// Both kinds of text are joined with a blank and parted without one: only the first terminal is
// ever found again.
bool EstaListado(const QString& lista, const QString& terminal) {
    return !lista.isEmpty() && lista.split(u',').contains(terminal);
}

} // namespace

CobrosAgrupados::CobrosAgrupados(Entorno& entorno, Controles& controles, GridCola& grid,
                                 EstadoMonitor& estado, PulsoCola& pulso)
    : entorno_(entorno), controles_(controles), grid_(grid), estado_(estado), pulso_(pulso),
      diario_(entorno.log) {}

void CobrosAgrupados::Pulsar() {
    if (estado_.Agrupando()) {
        Terminar();
    } else {
        Empezar();
    }
}

void CobrosAgrupados::Empezar() {
    pulso_.ParaTimer();
    // No tick will come to settle what an earlier operation has left open.
    entorno_.transacciones.Saldar();
    controles_.Poner(&EstadoControles::framePie, true);
    controles_.Poner(&EstadoControles::grdZV, true);
    estado_.ActualizarBotonesMonitor(false);
    controles_.PonerBoton(BotonPie::AgruparCobros, true);
    estado_.PonerAgrupando(true);
    marcados_.clear();
    estado_.RellenarGrid();
}

void CobrosAgrupados::Terminar() {
    estado_.DejarDeMarcar();
    if (!marcados_.isEmpty() && entorno_.pantallas.ValidarUsuari(2, u"authCobro"_s)) {
        ProcesarAgrupadas(marcados_);
    }
    estado_.RellenarGrid();
    estado_.ActualizarEstado(true);
    estado_.ActualizarBotonesMonitor(entorno_.supervision.Conectado());
    estado_.PonerAgrupando(false);
    pulso_.ArrancaTimer();
}

void CobrosAgrupados::MarcarFila() {
    const int fila = grid_.Celdas().FilaActual();
    const QString id = grid_.IdDeFila(fila);
    QStringList ids = marcados_.isEmpty() ? QStringList() : marcados_.split(u',');
    const bool marcada = ids.removeAll(id) > 0;
    if (!marcada) {
        ids << id;
    }
    marcados_ = ids.join(u',');
    grid_.ResaltarFila(fila, !marcada);
    MostrarMarcas();
}

void CobrosAgrupados::MostrarMarcas() {
    if (marcados_.isEmpty()) {
        estado_.PonerMarcas(0, std::nullopt);
        return;
    }
    try {
        // As the table has them now, which is what would be charged.
        const Grupo grupo = LeerGrupo(marcados_);
        estado_.PonerMarcas(grupo.filas, grupo.total);
    } catch (const ErrorEjecucion&) {
        // What is wrong with them is told when they are to be charged.
        estado_.PonerMarcas(static_cast<int>(marcados_.count(u',')) + 1, std::nullopt);
    }
}

CobrosAgrupados::Grupo CobrosAgrupados::LeerGrupo(const QString& ids) const {
    Grupo grupo;
    const std::vector<Row> filas =
        entorno_.Database().Consultar(u"SELECT * FROM cola WHERE idzv IN ("_s + ids + u')');
    for (const Row& fila : filas) {
        ++grupo.filas;
        // A credit of the row is not looked at.
        grupo.total += fila.LeerCurrency(columna::kImporte);
        const DatosVenta venta = LeerVenta(fila);
        grupo.id += (grupo.id.isEmpty() ? QString() : u" + "_s) + venta.id1 +
                    (venta.id2.isEmpty() ? QString() : u'/' + venta.id2);
        if (!EstaListado(grupo.terminal, venta.terminal)) {
            grupo.terminal += (grupo.terminal.isEmpty() ? QString() : u", "_s) + venta.terminal;
        }
    }
    return grupo;
}

bool CobrosAgrupados::ProcesarAgrupadas(const QString& ids) {
    Operacion op;
    try {
        op.grupo = LeerGrupo(ids);
    } catch (const ErrorEjecucion& e) {
        // What another program has written into the rows ends no till.
        Anotar(u">>> Error nº "_s + N(e.Numero()) + u" al leer los cobros marcados - "_s +
               e.Descripcion());
        AvisarSinCobrar(e);
        return false;
    }
    if (!entorno_.supervision.Conectado()) {
        return false;
    }
    entorno_.transacciones.Saldar();
    try {
        return Cobrar(op, ids);
    } catch (const ErrorEjecucion& e) {
        Deshacer(op, e);
        return false;
    }
}

bool CobrosAgrupados::Cobrar(Operacion& op, const QString& ids) {
    estado_.ActualizarBotonesMonitor(false);
    op.cantidad = ParaElDispositivo(op.grupo.total);
    op.pedida = true;
    entorno_.cliente.Charge(op.cantidad, op.fin.paidIn, op.fin.paidOut, op.fin.bien);
    op.fin.Tomar(entorno_.cliente);
    entorno_.codigoEnvio = op.fin.codigo;
    entorno_.mensajeEnvio = op.fin.mensaje;
    bool archivado = false;
    if (op.fin.bien) {
        archivado = ArchivarCobro(op, ids);
    } else {
        ArchivarFallo(op);
    }
    entorno_.supervision.GuardarSaldoExit();
    if (op.fin.bien && !archivado) {
        // The money has come in and the rows still wait.
        entorno_.dialogos.CajaSimple(entorno_.textos.Traduce(texto::kErrorAlProcesar));
    }
    return archivado;
}

RegistroProcesado CobrosAgrupados::RegistroDe(const Operacion& op,
                                              const LecturaSaldo& saldo) const {
    RegistroProcesado registro;
    registro.fechaVenta = entorno_.reloj.Ahora();
    registro.importeVenta = op.grupo.total;
    registro.cobrado = op.fin.paidIn;
    registro.devuelto = op.fin.paidOut;
    registro.venta.id1 = op.grupo.id;
    registro.venta.terminal = op.grupo.terminal;
    registro.saldoZV = saldo.valor;
    return registro;
}

bool CobrosAgrupados::ArchivarCobro(Operacion& op, const QString& ids) {
    diario_.Charge(kOrigen, u"OK"_s, op.cantidad, op.fin.paidIn, op.fin.paidOut);
    Asiento asiento(entorno_, Asiento::Marca::Dejar);
    asiento.Abrir(kOrigen + u"_BEGINTRANS"_s, Asiento::Espera::TrasMoverDinero);
    const LecturaSaldo saldo = entorno_.saldos.Leer(TipoSaldo::Todo);
    RegistroProcesado registro = RegistroDe(op, saldo);
    registro.estado = estado::kOk;
    registro.error = u"Cobro agrupado"_s;
    const bool archivado = entorno_.registros.AñadirProcesado(kOrigen, registro) > 0;
    if (archivado) {
        for (const QString& id : ids.split(u',')) {
            entorno_.registros.BorrarColaGrupo(kOrigen, id.toInt(), u"MANUAL"_s);
        }
    }
    Confirmar(asiento, op, saldo);
    return archivado;
}

void CobrosAgrupados::ArchivarFallo(Operacion& op) {
    Asiento asiento(entorno_, Asiento::Marca::Dejar);
    asiento.Abrir(kOrigen + u"_BEGINTRANS"_s, Asiento::Espera::TrasMoverDinero);
    const bool error = op.fin.codigo > 0;
    diario_.Charge(kOrigen, error ? u"ERROR_"_s + N(op.fin.codigo) : u"CANCEL"_s, op.cantidad,
                   op.fin.paidIn, op.fin.paidOut);
    entorno_.log.LogLinea(kOrigen + (error ? u"_ERRORZV_"_s : u"_CANCEL_"_s) + op.fin.Detalle());
    const LecturaSaldo saldo = entorno_.saldos.Leer(TipoSaldo::Todo);
    RegistroProcesado registro = RegistroDe(op, saldo);
    registro.estado = error ? estado::kError : estado::kCancel;
    registro.error =
        error ? u"Error cobro agrupado: "_s + op.fin.Detalle() : u"Cobro agrupado cancelado"_s;
    entorno_.registros.AñadirProcesado(kOrigen, registro);
    entorno_.ResultadoEnvio = error ? envio::kError : envio::kCancelado;
    Confirmar(asiento, op, saldo);
}

void CobrosAgrupados::Confirmar(Asiento& asiento, Operacion& op, const LecturaSaldo& saldo) {
    asiento.Confirmar(kOrigen + u"_COMMIT"_s, [&op] { op.confirmada = true; });
    entorno_.saldos.Avisar(saldo);
}

void CobrosAgrupados::Anotar(const QString& linea) const {
    try {
        entorno_.log.LogLinea(linea);
    } catch (const ErrorEjecucion&) {
        // The log itself has failed; the operator is told all the same.
        return;
    }
}

void CobrosAgrupados::AvisarSinCobrar(const ErrorEjecucion& e) const {
    entorno_.dialogos.MostrarMensaje(entorno_.textos.Traduce(texto::kCobrosNoAgrupados),
                                     u"Error nº "_s + N(e.Numero()) + u" - "_s + e.Descripcion());
}

void CobrosAgrupados::DeshacerNivel() const {
    if (entorno_.Database().Nivel() == 0) {
        return;
    }
    try {
        entorno_.Database().Deshacer();
    } catch (const ErrorEjecucion&) {
        // The level has ended all the same; the first failure is the one that is told.
        return;
    }
}

void CobrosAgrupados::Deshacer(const Operacion& op, const ErrorEjecucion& e) const {
    DeshacerNivel();
    Anotar(kOrigen + u"_ROLLBACK_ERROR_"_s + N(e.Numero()) + u" - "_s + e.Descripcion());
    if (!op.pedida) {
        AvisarSinCobrar(e);
    } else if (!op.confirmada) {
        // Money may have moved, and no record tells of it.
        entorno_.dialogos.CajaSimple(entorno_.textos.Traduce(texto::kErrorAlProcesar));
    }
}

} // namespace zv
