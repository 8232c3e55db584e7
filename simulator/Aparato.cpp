// The life of an operation: start, intake, delivery, end.
#include "simulator/Aparato.h"

#include "platform/StringLiterals.h"

#include <QDateTime>

#include <algorithm>
#include <chrono>
#include <utility>

namespace zv::simulador {

namespace {

constexpr std::size_t kRecientes = 16;

qint64 NanosegundosUtc() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
}

Mezcla Solo(const Mezcla& mezcla, bool monedas) {
    Mezcla parte{};
    for (std::size_t i = 0; i < kCuantas; ++i) {
        if (EsMoneda(i) == monedas) {
            parte.at(i) = mezcla.at(i);
        }
    }
    return parte;
}

void Restar(Mezcla& de, const Mezcla& cuanto) {
    for (std::size_t i = 0; i < kCuantas; ++i) {
        de.at(i) -= cuanto.at(i);
    }
}

// The first half of the pieces, rounded down: what comes out before one is stuck.
Mezcla Mitad(const Mezcla& mezcla) {
    Mezcla parte{};
    int quedan = Piezas(mezcla) / 2;
    for (std::size_t i = 0; i < kCuantas && quedan > 0; ++i) {
        parte.at(i) = std::min(quedan, mezcla.at(i));
        quedan -= parte.at(i);
    }
    return parte;
}

} // namespace

Aparato::Aparato(Almacen& almacen, Estado estado, CapacidadCajones capacidad)
    : almacen_(almacen), estado_(std::move(estado)), capacidad_(capacidad) {}

bool Aparato::Recuperar(QString& error) {
    if (!EnMarcha()) {
        return true;
    }
    Operacion& op = *estado_.abierta;
    op.acabada = true;
    op.ok = false;
    op.codigo = kReinicio;
    op.mensaje = TextoError(kReinicio);
    return almacen_.Guardar(estado_, error);
}

const Operacion* Aparato::Abierta() const {
    return estado_.abierta ? &*estado_.abierta : nullptr;
}

std::optional<Operacion> Aparato::Conocida(const QString& opId) const {
    if (estado_.abierta && estado_.abierta->opId == opId) {
        return estado_.abierta;
    }
    const auto it = std::ranges::find(estado_.recientes, opId, &Operacion::opId);
    return it == estado_.recientes.end() ? std::nullopt : std::optional(*it);
}

bool Aparato::Confirmar(Estado nuevo) {
    QString error;
    if (roto_) {
        return false;
    }
    if (!almacen_.Guardar(nuevo, error)) {
        roto_ = true;
        fase_ = Fase::Quieta;
        tandas_.clear();
        Q_EMIT roto(error);
        return false;
    }
    estado_ = std::move(nuevo);
    return true;
}

bool Aparato::Empezar(const Operacion& pedida, const Acciones& fallos) {
    if (estado_.abierta) {
        return false;
    }
    Q_EMIT suceso(u"inicio %1 %2 %3 %4"_s.arg(NombreMetodo(pedida.metodo))
                      .arg(pedida.valor)
                      .arg(NanosegundosUtc())
                      .arg(pedida.opId));
    Estado nuevo = estado_;
    nuevo.abierta = pedida;
    if (!Confirmar(std::move(nuevo))) {
        return false;
    }
    fallos_ = fallos;
    metidas_ = {};
    tandas_.clear();
    fase_ = Fase::Empezada;
    terminoPedido_ = false;
    Q_EMIT cambiado();
    return true;
}

void Aparato::Cancelar(const QString& opId) {
    if (!EnMarcha() || estado_.abierta->opId != opId) {
        return;
    }
    if (fase_ == Fase::Empezada || fase_ == Fase::Admision) {
        Devolver({false, 0});
    }
}

void Aparato::PedirTermino(const QString& opId) {
    if (!EnMarcha() || estado_.abierta->opId != opId || !SeTermina(estado_.abierta->metodo)) {
        return;
    }
    if (fase_ == Fase::Empezada || fase_ == Fase::Admision) {
        terminoPedido_ = true;
        Q_EMIT cambiado();
    }
}

void Aparato::Acusar(const QString& opId) {
    if (!estado_.abierta || estado_.abierta->opId != opId || EnMarcha()) {
        return;
    }
    Estado nuevo = estado_;
    nuevo.recientes.push_back(*nuevo.abierta);
    if (nuevo.recientes.size() > kRecientes) {
        nuevo.recientes.erase(nuevo.recientes.begin());
    }
    nuevo.abierta.reset();
    Q_EMIT suceso(u"acuse %1"_s.arg(opId));
    if (Confirmar(std::move(nuevo))) {
        Q_EMIT cambiado();
    }
}

void Aparato::Paso() {
    if (roto_) {
        return;
    }
    if (fase_ == Fase::Empezada) {
        Primero();
    } else if (fase_ == Fase::Admision && terminoPedido_) {
        terminoPedido_ = false;
        Terminar();
    } else if (fase_ == Fase::Entrega) {
        EntregarTanda();
    }
}

void Aparato::Cerrar(Estado nuevo, Desenlace como) {
    Operacion& op = *nuevo.abierta;
    const bool movido =
        op.entrado != estado_.abierta->entrado || op.salido != estado_.abierta->salido;
    const Operacion enCurso = op;
    op.acabada = true;
    op.ok = como.ok;
    op.codigo = como.codigo;
    if (!como.ok) {
        op.mensaje = como.codigo > 0 ? TextoError(como.codigo) : u"Cancelado"_s;
    }
    if (!Confirmar(std::move(nuevo))) {
        return;
    }
    fase_ = Fase::Quieta;
    const Operacion fin = *estado_.abierta;
    if (movido) {
        Q_EMIT progreso(enCurso);
    }
    const QString resultado = fin.ok           ? u"ok"_s
                              : fin.codigo > 0 ? u"error %1"_s.arg(fin.codigo)
                                               : u"cancelada"_s;
    Q_EMIT suceso(u"fin %1 %2 %3"_s.arg(resultado).arg(fin.entrado).arg(fin.salido));
    Q_EMIT acabada(fin);
    Q_EMIT cambiado();
}

void Aparato::Acabar(Desenlace como) {
    Cerrar(estado_, como);
}

void Aparato::Primero() {
    if (const auto error = Buscar(fallos_, TipoFallo::Error)) {
        return Acabar({false, error->valor});
    }
    const Operacion& op = *estado_.abierta;
    const bool admite = (op.metodo == Metodo::Cobro && op.valor > 0) ||
                        op.metodo == Metodo::Cambio || op.metodo == Metodo::Ingreso;
    if (admite) {
        fase_ = Fase::Admision;
        Q_EMIT cambiado();
        return;
    }
    if (Falla(TipoFallo::Cancelar)) {
        return Acabar({false, 0});
    }
    switch (op.metodo) {
    case Metodo::Cobro:
        return Pagar(-qint64{op.valor}, kSinCambioExacto);
    case Metodo::Pago:
        return Pagar(op.valor, kSinCambioExacto);
    case Metodo::Cajones:
        return op.valor == 0 ? Cuadrar() : MoverACajones();
    default:
        return VaciarCajon();
    }
}

bool Aparato::Meter(qint32 valor) {
    const auto indice = Indice(valor);
    if (!indice || !Admite() || roto_) {
        return false;
    }
    const bool esCambio = estado_.abierta->metodo == Metodo::Ingreso;
    const Destino destino = estado_.inventario.DestinoDe(*indice, esCambio, capacidad_);
    if (destino == Destino::Rechazada) {
        Q_EMIT suceso(u"rechaza %1"_s.arg(valor));
        return false;
    }
    Estado nuevo = estado_;
    const bool recicla = destino == Destino::Reciclador;
    ++(recicla ? nuevo.inventario.reciclador : nuevo.inventario.cajon).at(*indice);
    nuevo.abierta->entrado += valor;
    Sitio metidas = metidas_;
    ++(recicla ? metidas.deReciclador : metidas.deCajon).at(*indice);

    Q_EMIT suceso(u"entra %1"_s.arg(valor));
    if (const auto parcial = Buscar(fallos_, TipoFallo::Parcial)) {
        Cerrar(std::move(nuevo), {false, parcial->valor});
        return !roto_;
    }
    const Operacion& op = *nuevo.abierta;
    const bool justo = op.metodo == Metodo::Cobro && op.entrado == op.valor;
    if (justo && !Falla(TipoFallo::Cancelar)) {
        // The last piece and the end are one commit.
        const bool atasco = Falla(TipoFallo::Atasco);
        Cerrar(std::move(nuevo), atasco ? Desenlace{false, kAtasco} : Desenlace{});
        return !roto_;
    }
    if (!Confirmar(std::move(nuevo))) {
        return false;
    }
    metidas_ = metidas;
    Q_EMIT progreso(*estado_.abierta);
    const bool sobra = estado_.abierta->metodo == Metodo::Cobro &&
                       estado_.abierta->entrado > estado_.abierta->valor;
    const bool cancela = Falla(TipoFallo::Cancelar);
    if (cancela) {
        Devolver({false, 0});
    }
    if (sobra && !cancela) {
        DarVuelta();
    }
    Q_EMIT cambiado();
    return true;
}

void Aparato::Terminar() {
    if (!Admite()) {
        return;
    }
    const Operacion& op = *estado_.abierta;
    if (op.metodo == Metodo::Cobro) {
        Devolver({false, 0});
    } else if (op.metodo == Metodo::Cambio && op.entrado > 0) {
        DarCambio();
    } else {
        Acabar(Falla(TipoFallo::Atasco) ? Desenlace{false, kAtasco} : Desenlace{});
    }
}

void Aparato::Rendirse() {
    if (Admite()) {
        Devolver({false, kCajonLleno});
    }
}

void Aparato::DarVuelta() {
    const Operacion& op = *estado_.abierta;
    const auto vuelta = CambioExacto(qint64{op.entrado} - op.valor, estado_.inventario.reciclador,
                                     Preferencia::CuidarNiveles);
    if (vuelta) {
        Entregar({*vuelta, {}}, {});
    } else {
        Devolver({false, kCobroSinCambio});
    }
}

void Aparato::DarCambio() {
    // Other denominations than those that came in.
    Mezcla disponible = estado_.inventario.reciclador;
    for (std::size_t i = 0; i < kCuantas; ++i) {
        if (metidas_.deReciclador.at(i) + metidas_.deCajon.at(i) > 0) {
            disponible.at(i) = 0;
        }
    }
    const auto piezas =
        CambioExacto(estado_.abierta->entrado, disponible, Preferencia::CuidarNiveles);
    if (piezas) {
        Entregar({*piezas, {}}, {});
    } else {
        Devolver({false, kSinCambioExacto});
    }
}

void Aparato::Devolver(Desenlace como) {
    Entregar(metidas_, como);
}

void Aparato::Pagar(qint64 importe, qint32 codigoSinCambio) {
    const auto piezas =
        CambioExacto(importe, estado_.inventario.reciclador, Preferencia::CuidarNiveles);
    if (!piezas) {
        return Acabar({false, codigoSinCambio});
    }
    Entregar({*piezas, {}}, {});
}

void Aparato::Entregar(Sitio que, Desenlace como) {
    const auto parcial = Buscar(fallos_, TipoFallo::Parcial);
    if (Falla(TipoFallo::Atasco) || parcial) {
        que = {Mitad(que.deReciclador), Mitad(que.deCajon)};
        como = {false, parcial ? parcial->valor : kAtasco};
    }
    // Coins and notes leave by two ways.
    tandas_.clear();
    for (const bool monedas : {true, false}) {
        Sitio tanda{Solo(que.deReciclador, monedas), Solo(que.deCajon, monedas)};
        if (Piezas(tanda.deReciclador) + Piezas(tanda.deCajon) > 0) {
            tandas_.push_back(tanda);
        }
    }
    desenlace_ = como;
    fase_ = Fase::Entrega;
    Q_EMIT cambiado();
}

void Aparato::EntregarTanda() {
    if (tandas_.empty()) {
        return Acabar(desenlace_);
    }
    const Sitio tanda = tandas_.front();
    tandas_.pop_front();
    Estado nuevo = estado_;
    Restar(nuevo.inventario.reciclador, tanda.deReciclador);
    Restar(nuevo.inventario.cajon, tanda.deCajon);
    const qint64 importe = Total(tanda.deReciclador) + Total(tanda.deCajon);
    nuevo.abierta->salido += static_cast<qint32>(importe);
    Q_EMIT suceso(u"sale %1"_s.arg(importe));
    if (tandas_.empty()) {
        return Cerrar(std::move(nuevo), desenlace_);
    }
    if (!Confirmar(std::move(nuevo))) {
        return;
    }
    Q_EMIT progreso(*estado_.abierta);
    Q_EMIT cambiado();
}

Mezcla Aparato::ElegirParaCajon() const {
    const Inventario& hay = estado_.inventario;
    const Operacion& op = *estado_.abierta;
    if (op.valor == 7) {
        return hay.SobreOptimo();
    }
    // What stays is never less than asked.
    const qint64 sobra = Total(hay.reciclador) - op.dejar;
    return CambioMasCercano(sobra, hay.reciclador, Preferencia::MenosPiezas);
}

void Aparato::MoverACajones() {
    Estado nuevo = estado_;
    Mezcla elegidas = ElegirParaCajon();
    Desenlace como;
    if (const auto parcial = Buscar(fallos_, TipoFallo::Parcial);
        parcial || Falla(TipoFallo::Atasco)) {
        elegidas = Mitad(elegidas);
        como = {false, parcial ? parcial->valor : kAtasco};
    }
    const Mezcla movidas = nuevo.inventario.PasarACajon(elegidas, capacidad_);
    if (como.ok && movidas != elegidas) {
        como = {false, kCajonLleno};
    }
    nuevo.abierta->monedasCajon = static_cast<qint32>(TotalClase(movidas, true));
    nuevo.abierta->billetesCajon = static_cast<qint32>(TotalClase(movidas, false));
    nuevo.abierta->resta = static_cast<qint32>(Total(nuevo.inventario.reciclador));
    Q_EMIT suceso(u"mueve %1"_s.arg(Total(movidas)));
    Cerrar(std::move(nuevo), como);
}

void Aparato::Cuadrar() {
    if (const auto parcial = Buscar(fallos_, TipoFallo::Parcial)) {
        return Acabar({false, parcial->valor});
    }
    if (Falla(TipoFallo::Atasco)) {
        return Acabar({false, kAtasco});
    }
    if (const auto retirar = Buscar(fallos_, TipoFallo::Retirar)) {
        if (retirar->valor != 1) {
            RetirarAMano(Cajon::Monedas);
        }
        if (retirar->valor != 0) {
            RetirarAMano(Cajon::Billetes);
        }
    }
    Estado nuevo = estado_;
    nuevo.abierta->monedasCajon = static_cast<qint32>(TotalClase(nuevo.retirado, true));
    nuevo.abierta->billetesCajon = static_cast<qint32>(TotalClase(nuevo.retirado, false));
    Restar(nuevo.inventario.cajon, nuevo.retirado);
    Q_EMIT suceso(u"cuadra %1"_s.arg(Total(nuevo.retirado)));
    nuevo.retirado = {};
    nuevo.abierta->resta = static_cast<qint32>(Total(nuevo.inventario.reciclador));
    descuadre_ = 0;
    Cerrar(std::move(nuevo), {});
}

void Aparato::VaciarCajon() {
    if (const auto parcial = Buscar(fallos_, TipoFallo::Parcial)) {
        return Acabar({false, parcial->valor});
    }
    if (Falla(TipoFallo::Atasco)) {
        return Acabar({false, kAtasco});
    }
    Estado nuevo = estado_;
    const auto cual = static_cast<Cajon>(nuevo.abierta->valor);
    nuevo.abierta->vaciado = static_cast<qint32>(nuevo.inventario.Vaciar(cual));
    Restar(nuevo.retirado, Solo(nuevo.retirado, cual == Cajon::Monedas));
    Q_EMIT suceso(u"vacia %1"_s.arg(nuevo.abierta->vaciado));
    Cerrar(std::move(nuevo), {});
}

Mezcla Aparato::Niveles(int tipo) const {
    if (tipo == 3) {
        return estado_.inventario.cajon;
    }
    Mezcla niveles = estado_.inventario.reciclador;
    if (tipo == 4) {
        for (std::size_t i = 0; i < kCuantas; ++i) {
            niveles.at(i) = estado_.inventario.EstadoDe(i, capacidad_);
        }
    } else {
        niveles.front() = std::max(0, niveles.front() + descuadre_);
    }
    return niveles;
}

void Aparato::Descuadrar(qint32 centimos) {
    descuadre_ = centimos;
    Q_EMIT suceso(u"descuadre %1"_s.arg(centimos));
}

void Aparato::RetirarAMano(Cajon cual) {
    // Not under an operation that may still give back what lies in the box.
    if (EnMarcha() && estado_.abierta->metodo != Metodo::Cajones) {
        return;
    }
    const bool monedas = cual == Cajon::Monedas;
    Estado nuevo = estado_;
    const Mezcla todas = Solo(estado_.inventario.cajon, monedas);
    for (std::size_t i = 0; i < kCuantas; ++i) {
        nuevo.retirado.at(i) = std::max(nuevo.retirado.at(i), todas.at(i));
    }
    Q_EMIT suceso(u"retirado %1"_s.arg(TotalClase(nuevo.retirado, monedas)));
    if (Confirmar(std::move(nuevo))) {
        Q_EMIT cambiado();
    }
}

} // namespace zv::simulador
