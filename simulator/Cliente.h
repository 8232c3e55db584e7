// The scripted customer: what he does next in front of the device.
#pragma once

#include "simulator/Operacion.h"

#include <QStringList>

#include <map>
#include <optional>
#include <vector>

namespace zv::simulador {

enum class Guion {
    Exacto,   // pays with the pieces that make the amount
    Redondeo, // pays with notes, rounding up
    Manual,   // nobody, or the window
};

std::optional<Guion> GuionDeNombre(const QString& nombre);

struct Gesto {
    enum class Tipo { Nada, Pieza, Terminar, Cancelar };
    Tipo tipo = Tipo::Nada;
    qint32 valor = 0;
};

// The next gesture for a running operation, `piezas` pieces after its start.
Gesto Siguiente(Guion guion, const Operacion& op, int piezas);

// A customer with habits, and with orders of his own for some operations. The language is told in
// docs/simulator.md.
class Cliente {
  public:
    Cliente(Guion habito = Guion::Manual) : habito_(habito) {}
    // Nothing, with a text for people, when the script is wrong.
    static std::optional<Cliente> Leer(const QString& guion, QString& error);

    Guion Habito() const { return habito_; }
    void PonerHabito(Guion habito) { habito_ = habito; }

    // An operation has begun: the counting of its kind goes on.
    void AlEmpezar(const Operacion& op);
    // The next gesture for the operation that began last.
    Gesto Siguiente(const Operacion& op, int piezas) const;

  private:
    struct Orden {
        Metodo metodo = Metodo::Cobro;
        int numero = 0; // of its kind; 0: each one
        std::vector<qint32> piezas;
        Gesto::Tipo fin = Gesto::Tipo::Nada;
    };
    static std::optional<Orden> LeerOrden(const QString& texto, QString& error);
    static bool LeerGestos(const QStringList& gestos, Orden& orden, QString& error);

    Guion habito_;
    std::vector<Orden> ordenes_;
    std::map<Metodo, int> cuenta_; // operations of each kind so far
};

} // namespace zv::simulador
