// Faults on demand: a script of rules, and which of them strike at a given moment. The language is
// told in docs/simulator.md.
#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <optional>
#include <vector>

namespace zv::simulador {

enum class Punto {
    Cobro,
    Abono,
    Cambio,
    Ingreso,
    Pago,
    Cierre,
    Cuadre,
    Vaciado,
    Terminar,
    Niveles,
    Configuracion,
    Conexion,
};

enum class TipoFallo {
    Error,     // valor: code; ends without having moved anything
    Parcial,   // valor: code; ends in the middle, what moved stays moved
    Atasco,    // a piece is stuck
    Cancelar,  // somebody presses cancel at the device
    NoListo,   // valor: code; the start itself is refused
    Cortar,    // the connection is closed at `momento`; valor: milliseconds without another one
    Matar,     // the process dies at `momento`
    Lento,     // valor: milliseconds that the link stalls
    Repetir,   // what is sent is sent twice
    Basura,    // a line that is no message goes first
    Mudo,      // nothing more is sent on this connection
    Rechazar,  // the connection is closed at once
    Descuadre, // valor: cents by which the count is wrong
    Retirar,   // valor: 0 coin box, 1 note box, 2 both have been taken out by hand
};

enum class Momento { Antes, Durante, Despues };

struct Accion {
    TipoFallo tipo = TipoFallo::Error;
    qint32 valor = 0;
    Momento momento = Momento::Antes;
    QString regla; // as written, for the trace
};
using Acciones = std::vector<Accion>;

// The action of a kind among those that struck, at that moment where the kind has moments.
std::optional<Accion> Buscar(const Acciones& acciones, TipoFallo tipo);
std::optional<Accion> Buscar(const Acciones& acciones, TipoFallo tipo, Momento momento);

class Fallos {
  public:
    // Adds the rules of a script; the counting of the new rules begins now. False with a text for
    // people when a rule is wrong, and then none has been added.
    bool Añadir(const QString& guion, QString& error);
    void Borrar() { reglas_.clear(); }
    bool Vacio() const { return reglas_.empty(); }
    // Rules that may still strike, as written.
    QStringList Pendientes() const;

    // The point is reached once more: what strikes this time.
    Acciones Toca(Punto punto);

  private:
    struct Regla {
        std::vector<Punto> puntos;
        int desde = 1;
        int hasta = 0; // 0: no end
        int veces = 0; // how often a point of it has been reached
        Accion accion;
    };
    static std::optional<Regla> Leer(const QString& texto, QString& error);

    std::vector<Regla> reglas_;
};

} // namespace zv::simulador
