#include "app/screens/PantallasPrograma.h"

#include "access/Usuarios.h"
#include "access/screens/frmUsuarios.h"
#include "barcode/screens/Balanza.h"
#include "cashoffice/ImpresionCaja.h"
#include "cashoffice/OperacionesCaja.h"
#include "cashoffice/screens/frmCaja.h"
#include "platform/StringLiterals.h"
#include "registers/Historial.h"
#include "registers/ImpresionListado.h"
#include "registers/OperacionesListado.h"
#include "registers/screens/frmHistorial.h"
#include "registers/screens/frmListado.h"
#include "settings/screens/frmCfgMonitor.h"
#include "store/ExportarCSV.h"
#include "ui/TecladoPantalla.h"
#include "ui/screens/ImpresoraSistema.h"

#include <QApplication>

namespace zv {

void PantallasPrograma::PonerEntorno(Entorno& entorno) {
    entorno_ = &entorno;
    login_.emplace(entorno.Database(), entorno.dialogos, entorno.textos, padre_);
    entorno.seguretat.PonerLogin(*login_);
}

bool PantallasPrograma::Existe(Pantalla pantalla) const {
    switch (pantalla) {
    case Pantalla::Cobros:
    case Pantalla::Incidencias:
    case Pantalla::Accesos:
    case Pantalla::CambioContrasena:
    case Pantalla::Usuarios:
    case Pantalla::Caja:
    case Pantalla::Balanza:
    case Pantalla::Configuracion:
    case Pantalla::Historial:
        return true;
    case Pantalla::BotonAcceso:
        return static_cast<bool>(botonAcceso_);
    }
    return false;
}

void PantallasPrograma::Abrir(Pantalla pantalla) {
    if (pantalla == Pantalla::CambioContrasena) {
        if (login_->CambiarContrasena()) {
            entorno_->seguretat.PonerRecargar(true); // the table of users is another now
        }
    } else if (pantalla == Pantalla::Usuarios) {
        AbrirUsuarios();
    } else if (pantalla == Pantalla::Caja) {
        AbrirCaja();
    } else if (pantalla == Pantalla::Historial) {
        AbrirHistorial();
    } else if (pantalla == Pantalla::Cobros) {
        AbrirListado(ModoListado::Cobros);
    } else if (pantalla == Pantalla::Incidencias) {
        AbrirListado(ModoListado::Incidencias);
    } else if (pantalla == Pantalla::Accesos) {
        AbrirListado(ModoListado::Accesos);
    } else if (pantalla == Pantalla::Configuracion) {
        AbrirConfiguracion();
    } else if (pantalla == Pantalla::BotonAcceso && botonAcceso_) {
        botonAcceso_();
    }
}

void PantallasPrograma::AbrirBalanza(Configuracio& cfg) {
    Entorno& e = *entorno_;
    // Over the screen that it is opened from.
    QWidget* sobre = QApplication::activeModalWidget();
    Balanza pantalla(
        e.importes, [&e] { return e.cliente.Decimals(); }, e.reloj, e.dialogos, e.textos,
        sobre != nullptr ? sobre : PadreVisible(padre_));
    pantalla.CarregaConfig(cfg);
    pantalla.exec();
    pantalla.LanzarFallo();
}

void PantallasPrograma::AbrirUsuarios() {
    Usuarios usuarios(entorno_->Database(), entorno_->dialogos, entorno_->textos);
    frmUsuarios pantalla(usuarios, entorno_->seguretat, entorno_->dialogos, entorno_->textos,
                         PadreVisible(padre_));
    pantalla.exec();
    pantalla.LanzarFallo();
}

void PantallasPrograma::AbrirCaja() {
    Entorno& e = *entorno_;
    Caja caja(e);
    ImpresoraSistema impresora(u"ZVMonitor"_s);
    OperacionesCaja operaciones(caja);
    AccionesCaja acciones;
    for (const BotonCaja boton :
         {BotonCaja::CierreNiveles, BotonCaja::CierreValor, BotonCaja::Cuadrar,
          BotonCaja::VaciarMonedas, BotonCaja::VaciarBilletes, BotonCaja::Configuracion}) {
        acciones[boton] = [&operaciones, boton] { operaciones.boton_Click(boton); };
    }
    acciones[BotonCaja::Imprimir] = [&] { ImprimirCaja(caja, impresora); };
    acciones[BotonCaja::ExportCsv] = [&] {
        ExportarCSV(caja.grdZV(), u"Caja"_s, e.carpeta, e.reloj, e.dialogos, e.textos);
    };
    frmCaja pantalla(caja, std::move(acciones), padre_ ? padre_() : nullptr);
    pantalla.exec();
    pantalla.LanzarFallo();
}

void PantallasPrograma::AbrirListado(ModoListado modo) {
    Entorno& e = *entorno_;
    // What a failed operation has left open must not be read as if it stood.
    e.transacciones.Saldar();
    Listado listado(e);
    ImpresoraSistema impresora(u"ZVMonitor"_s);
    OperacionesListado operaciones(listado);
    // Over the screen that it is opened from.
    QWidget* sobre = QApplication::activeModalWidget();
    frmListado pantalla(listado, modo,
                        {[&operaciones](int fila, int columna, bool debajo) {
                             return operaciones.grdZV_Click(fila, columna, debajo);
                         },
                         [&] { ImprimirListado(listado, impresora); },
                         [&operaciones] { operaciones.Todas(); },
                         [&] {
                             ExportarCSV(listado.grdZV(), listado.Estado().lbTitulo, e.carpeta,
                                         e.reloj, e.dialogos, e.textos);
                         }},
                        sobre != nullptr ? sobre : PadreVisible(padre_));
    pantalla.exec();
    pantalla.LanzarFallo();
}

void PantallasPrograma::AbrirConfiguracion() {
    CfgMonitor cfg(*entorno_, {puertoLibre_, [] { return AbrirTecladoPantalla(); }});
    frmCfgMonitor pantalla(cfg, padre_ ? padre_() : nullptr);
    pantalla.exec();
    pantalla.LanzarFallo();
}

void PantallasPrograma::AbrirHistorial() {
    ImpresoraSistema impresora(u"ZVMonitor"_s);
    Historial historial(*entorno_, impresora);
    // Over the screen that has opened it.
    QWidget* sobre = QApplication::activeModalWidget();
    frmHistorial pantalla(historial, sobre != nullptr ? sobre : PadreVisible(padre_));
    pantalla.exec();
    pantalla.LanzarFallo();
}

bool PantallasPrograma::ValidarUsuari(qint16 nivel, const QString& lugar) {
    return entorno_->seguretat.ValidarUsuari(nivel, lugar);
}

} // namespace zv
