// The device itself: takes pieces, gives change, moves money to the boxes. It works in steps that
// somebody else times, and makes each step durable before it tells of it.
#pragma once

#include "simulator/Almacen.h"
#include "simulator/Cambio.h"
#include "simulator/Fallos.h"

#include <QObject>

#include <deque>

namespace zv::simulador {

class Aparato : public QObject {
    Q_OBJECT

  public:
    // `almacen` is open and outlives the device.
    Aparato(Almacen& almacen, Estado estado, CapacidadCajones capacidad);

    // To be called once, before all else: what a kill had left running ends with kReinicio. False
    // with a text when the store cannot be written.
    bool Recuperar(QString& error);

    const Estado& Ver() const { return estado_; }
    const CapacidadCajones& Capacidad() const { return capacidad_; }
    // Running, or ended without an acknowledgement; null when there is none.
    const Operacion* Abierta() const;
    bool EnMarcha() const { return Abierta() != nullptr && !Abierta()->acabada; }
    // The open operation or one acknowledged lately.
    std::optional<Operacion> Conocida(const QString& opId) const;

    // Starts an operation with the faults that strike it. False, and nothing happens, while another
    // one is open or when the store fails. The operation's first step is a later one.
    bool Empezar(const Operacion& pedida, const Acciones& fallos);
    // Asks a running operation to end; nothing happens when it is giving money out, is another one
    // or has ended. What had been put in comes back in the following steps.
    void Cancelar(const QString& opId);
    // Forgets an ended operation; one that runs stays.
    void Acusar(const QString& opId);

    // Asks a running change or float to end well, in a later step; nothing happens when it is
    // giving money out, is another one or has ended.
    void PedirTermino(const QString& opId);

    // The device has something to do that waits for nobody.
    bool TienePaso() const { return fase_ != Fase::Quieta && !Admite(); }
    void Paso();
    // The device takes pieces in.
    bool Admite() const { return fase_ == Fase::Admision && !terminoPedido_; }
    // Pieces that the running operation has taken in.
    int PiezasMetidas() const { return Piezas(metidas_.deReciclador) + Piezas(metidas_.deCajon); }
    // A piece is put in. False: it came back, because the device takes none, knows no such piece or
    // has no room for it.
    bool Meter(qint32 valor);
    // The customer has put in all he wants to: change comes out, float stays. For a charge it is
    // the cancel key.
    void Terminar();
    // No room for what the customer has: the operation ends with kCajonLleno.
    void Rendirse();

    // Counts as the device believes them, in the table's order. `tipo` 2 recycler, 3 boxes,
    // 4 states.
    Mezcla Niveles(int tipo) const;
    // A wrong count of the smallest coin in the recycler, until the reconciling run.
    void Descuadrar(qint32 centimos);
    // A hand takes a box's pieces out; they count until the reconciling run finds out.
    void RetirarAMano(Cajon cual);

  Q_SIGNALS:
    void progreso(const zv::simulador::Operacion& op);
    void acabada(const zv::simulador::Operacion& op);
    // A line for the trace.
    void suceso(const QString& linea);
    // Something that a window shows has changed.
    void cambiado();
    // The store could not be written: the device has stopped for good.
    void roto(const QString& error);

  private:
    enum class Fase { Quieta, Empezada, Admision, Entrega };
    // Pieces, told apart by where they lie.
    struct Sitio {
        Mezcla deReciclador{};
        Mezcla deCajon{};
    };
    struct Desenlace {
        bool ok = true;
        qint32 codigo = 0;
    };

    bool Confirmar(Estado nuevo);
    void Cerrar(Estado nuevo, Desenlace como);
    void Acabar(Desenlace como);
    void Primero();
    void Pagar(qint64 importe, qint32 codigoSinCambio);
    void MoverACajones();
    Mezcla ElegirParaCajon() const;
    void Cuadrar();
    void VaciarCajon();
    void DarVuelta();
    void DarCambio();
    void Devolver(Desenlace como);
    void Entregar(Sitio que, Desenlace como);
    void EntregarTanda();
    bool Falla(TipoFallo tipo) const { return Buscar(fallos_, tipo).has_value(); }

    Almacen& almacen_;
    Estado estado_;
    CapacidadCajones capacidad_;
    Acciones fallos_; // those of the running operation
    Fase fase_ = Fase::Quieta;
    bool terminoPedido_ = false;
    Sitio metidas_; // what the running operation has taken in
    std::deque<Sitio> tandas_;
    Desenlace desenlace_;
    qint32 descuadre_ = 0;
    bool roto_ = false;
};

} // namespace zv::simulador
