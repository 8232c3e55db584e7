// The registers of charges, incidents and accesses: what the grid shows in each mode, the totals
// and the logical state of the controls. No widget: the screen follows.
#pragma once

#include "platform/Currency.h"
#include "till/ConceptoRegistro.h"
#include "till/Entorno.h"
#include "ui/Rejilla.h"
#include "ui/RellenoRejilla.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace zv {

enum class ModoListado { Cobros = 0, Incidencias = 1, Accesos = 2 };
const Clave& TituloDe(ModoListado modo);

// The columns of grdZV in the first two modes.
struct ColumnaListado {
    enum : int {
        Descartar,
        IdZV,
        Fecha,
        Operacion,
        Usuario,
        Terminal,
        Vendedor,
        FormaPago,
        Importe,
        Cobrado,
        Pagado,
        Estado,
        Error,
        Reenviar,
        Cuantas
    };
};
// And in the third, where the first is empty.
struct ColumnaAccesos {
    enum : int { Descartar, IdAcceso, Fecha, Usuario, Lugar, Cuantas };
};

// Logical state of the screen's controls.
struct EstadoListado {
    QString lbTitulo;
    QString lbCobros;
    QString lbPagos;
    bool totalesVisibles = false; // lbCobros, lbPagos and their captions
    bool todasVisible = false;    // boton(2)
    int filas = 0;
    int rellenadas = 0; // of them, those that the grid shows by now
    bool leido = false; // the filling has read its table
    bool punteroEspera = false;
    bool operator==(const EstadoListado&) const = default;
};

// Widths of what shares the grid's, twips.
struct AnchosListado {
    int grid;
    int barra;
    int btnCancelar;
    int btnEnviar;
    double escala = 1; // of the window; the widths that are fixed grow with it
};

class Listado {
  public:
    explicit Listado(Entorno& entorno);
    Listado(const Listado&) = delete;
    Listado& operator=(const Listado&) = delete;

    Entorno& ElEntorno() { return entorno_; }
    const EstadoListado& Estado() const { return estado_; }
    ModoListado Modo() const { return modo_; }
    Rejilla& grdZV() { return grdZV_; }
    const Rejilla& grdZV() const { return grdZV_; }

    // Stores the mode, prepares the grid and fills it. Filled once more in the same mode it keeps
    // its place. A failure of the database and an amount beyond its type go up.
    void RellenaGrdZv(ModoListado modo);
    // A long register fills in steps; see RellenoRejilla.
    void PorPasos(std::function<void()> pedir) { relleno_.PorPasos(std::move(pedir)); }
    bool SeguirRellenando() { return relleno_.Seguir(); }
    void Completar() { relleno_.Completar(); }

    void AjustarColumnas(const AnchosListado& anchos);
    // The selected row by one, up (-1) or down (1), and into view.
    void MoverFila(int paso);
    void IrAlPrincipio();
    void IrAlFinal();
    // All cells of the row in the colour of what is being worked on, the row in view.
    void MarcarFila(int fila);
    void PonerEspera(bool espera);

    // Called at each change of the state; the screen only notes that it has to follow.
    void AlCambiar(std::function<void()> aviso) { aviso_ = std::move(aviso); }
    // The screen follows at once and is painted.
    void Pintar() const {
        if (pintor_) {
            pintor_();
        }
    }
    void AlPintar(std::function<void()> pintor) { pintor_ = std::move(pintor); }

  private:
    // What a row of the grid still waits to be made of; of an access only what it has.
    struct Apunte {
        qint32 id;
        QDateTime fecha;
        QString operacion; // or the place
        QString usuario;
        QString terminal = {};
        QString vendedor = {};
        QString formaPago = {};
        QString estado = {};
        QString error = {};
        qint32 importe = 0; // minor units, as are the other two
        qint32 cobrado = 0;
        qint32 pagado = 0;
    };
    struct Campos;

    bool DeAccesos() const { return modo_ == ModoListado::Accesos; }
    void PrepararRejilla();
    void Leer();
    void LeerRegistro(const Row& fila, const Campos& campos, const TextosConcepto& conceptos);
    QString OperacionDe(const Row& fila, const Campos& campos, const DatosConcepto& datos,
                        const TextosConcepto& conceptos) const;
    void PonerFila(const Apunte& apunte);
    void Avisar() const {
        if (aviso_) {
            aviso_();
        }
    }

    Entorno& entorno_;
    EstadoListado estado_;
    ModoListado modo_ = ModoListado::Cobros;
    Rejilla grdZV_;
    std::optional<AnchosListado> anchos_; // the last that have been told
    Currency cobros_;                     // of the filling
    Currency pagos_;
    std::vector<Apunte> apuntes_; // empty when all of them are in the grid
    RellenoRejilla relleno_;
    std::function<void()> aviso_;
    std::function<void()> pintor_;
};

} // namespace zv
