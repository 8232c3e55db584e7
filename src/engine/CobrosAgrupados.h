// Several sales paid at once: rows of the grid are marked, the device charges their sum, one record
// is filed for the group and each row as cancelled by it.
#pragma once

#include "engine/Controles.h"
#include "engine/GridCola.h"
#include "engine/PulsoCola.h"
#include "till/Asiento.h"
#include "till/FinOperacion.h"

namespace zv {

class CobrosAgrupados {
  public:
    CobrosAgrupados(Entorno& entorno, Controles& controles, GridCola& grid, EstadoMonitor& estado,
                    PulsoCola& pulso);

    // boton(9): begins the marking, or ends it with the charge of what is marked.
    void Pulsar();
    // Marks the grid's current row, or takes its mark away.
    void MarcarFila();
    // idZV of the marked rows, joined by ",", in the order of marking.
    const QString& Marcados() const { return marcados_; }

    // Charges and files the rows with those idZV. True when the group was charged and filed; a
    // failure is logged and told, never raised.
    bool ProcesarAgrupadas(const QString& ids);

  private:
    // What the rows of a group add up to.
    struct Grupo {
        int filas = 0;
        Currency total;
        QString id;
        QString terminal;
    };
    // The group at the device and in the books.
    struct Operacion {
        Grupo grupo;
        qint32 cantidad = 0; // for the device
        FinOperacion fin;
        bool pedida = false;     // the device has been asked
        bool confirmada = false; // the books tell of it
    };

    void Empezar();
    void Terminar();
    Grupo LeerGrupo(const QString& ids) const;
    void MostrarMarcas();
    bool Cobrar(Operacion& op, const QString& ids);
    bool ArchivarCobro(Operacion& op, const QString& ids);
    void ArchivarFallo(Operacion& op);
    RegistroProcesado RegistroDe(const Operacion& op, const LecturaSaldo& saldo) const;
    void Confirmar(Asiento& asiento, Operacion& op, const LecturaSaldo& saldo);
    void Deshacer(const Operacion& op, const ErrorEjecucion& e) const;
    void DeshacerNivel() const;
    // Nothing has been asked of the device.
    void AvisarSinCobrar(const ErrorEjecucion& e) const;
    void Anotar(const QString& linea) const;

    Entorno& entorno_;
    Controles& controles_;
    GridCola& grid_;
    EstadoMonitor& estado_;
    PulsoCola& pulso_;
    DeviceJournal diario_;
    QString marcados_;
};

} // namespace zv
