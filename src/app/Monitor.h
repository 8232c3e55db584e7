// One whole monitor without its windows: owns the objects of which there is one per process and
// hands each to the others by reference. Two of them can live side by side.
#pragma once

#include "app/Arranque.h"
#include "app/Conector.h"
#include "app/Servicios.h"
#include "barcode/CobroCodigoBarras.h"
#include "config/ConfiguracioGlobal.h"
#include "config/MarcaActivo.h"
#include "config/ModuloIni.h"
#include "engine/BotonesMonitor.h"
#include "engine/ClicGrid.h"
#include "engine/Controles.h"
#include "engine/EstadoMonitor.h"
#include "engine/GridCola.h"
#include "engine/PulsoCola.h"
#include "fastlink/ServidorFast.h"
#include "platform/SingleInstance.h"
#include "store/dades.h"
#include "store/sqlite/SqliteEngine.h"
#include "till/Entorno.h"

namespace zv {

// What reaches outside the process: replaced in tests.
struct Exterior {
    DeviceClient& cliente;
    Dialogos& dialogos;
    ProcessList& procesos;
    Shell& shell;
};

class Monitor {
  public:
    Monitor(Servicios& servicios, const Importes& importes, Exterior exterior);
    Monitor(const Monitor&) = delete;
    Monitor& operator=(const Monitor&) = delete;

    // The main window, which must outlive the last tick.
    void PonerVentana(VentanaPrincipal& ventana);
    // Start-up; false when the program is to end at once.
    bool Cargar() { return arranque.Cargar(*ventana_); }

    SqliteEngine motor;
    ConexionBD conexion;
    TransactionOwner transacciones;
    Seguretat seguretat;
    OperacionesRegistro registros;
    ModuloIni ini;
    ConfiguracioGlobal configuracio;
    MarcaActivo marca;
    SupervisionConexion supervision;
    Entorno entorno;
    Controles controles;
    GridCola grid;
    EstadoMonitor estado;
    PulsoCola pulso;
    BotonesMonitor botones;
    ClicGrid clic;
    std::unique_ptr<dades> datos; // made by the start, once the database is open
    ServidorFast fast;
    CobroCodigoBarras barras;
    SingleInstance instancia;
    Conector conector;
    Arranque arranque;

  private:
    FastPump BombaDe();

    VentanaPrincipal* ventana_ = nullptr;
};

} // namespace zv
