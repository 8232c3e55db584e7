// The one place where the parts of a monitor are put together.
#include "app/Monitor.h"

#include "barcode/Espera.h"
#include "platform/StringLiterals.h"

namespace zv {

namespace {

FormatoRegional FormatoDe(const Opciones& opciones) {
    return opciones.region.isEmpty() ? FormatoRegional::DelSistema()
                                     : FormatoRegional(opciones.region);
}

QHostAddress DireccionFast(const Opciones& opciones) {
    return opciones.fastDireccion.isEmpty() ? QHostAddress(QHostAddress::Any)
                                            : QHostAddress(opciones.fastDireccion);
}

} // namespace

Servicios::Servicios(Opciones lasOpciones, const Clock& elReloj)
    : opciones(std::move(lasOpciones)), reloj(elReloj),
      log(opciones.carpeta, opciones.programa, VersionPrograma(), elReloj),
      textos(opciones.carpeta), registro(opciones.registro), formato(FormatoDe(opciones)) {}

Monitor::Monitor(Servicios& servicios, const Importes& importes, Exterior exterior)
    : conexion(motor, servicios.opciones.carpeta, servicios.log, exterior.dialogos,
               servicios.textos),
      transacciones(motor, servicios.log),
      registros(motor, servicios.log, exterior.dialogos, seguretat, importes, servicios.reloj),
      ini(servicios.log, exterior.dialogos),
      configuracio(std::make_unique<Configuracio>(ini, servicios.registro,
                                                  servicios.opciones.carpeta, servicios.formato)),
      marca(servicios.registro),
      supervision(exterior.cliente, servicios.registro, servicios.log, exterior.dialogos,
                  servicios.textos, importes, [this] { return configuracio->IP; }),
      entorno{conexion,
              transacciones,
              registros,
              exterior.cliente,
              supervision,
              supervision.LosSaldos(),
              seguretat,
              configuracio,
              ini,
              servicios.opciones.carpeta + u"/ZVMonitor.ini"_s,
              servicios.registro,
              marca,
              servicios.log,
              exterior.dialogos,
              servicios.textos,
              importes,
              servicios.reloj},
      grid(servicios.textos, importes), estado(entorno, controles, grid),
      pulso(entorno, controles, grid, estado), botones(entorno, controles, estado),
      clic(controles, grid), fast(configuracio, servicios.formato, servicios.log, BombaDe(),
                                  DireccionFast(servicios.opciones)),
      barras(
          configuracio, [this] { return datos.get(); }, importes, servicios.reloj,
          exterior.dialogos, servicios.textos, Espera, [this] { pulso.SaldarAbandonadas(); }),
      instancia(servicios.opciones.carpeta),
      conector(configuracio, exterior.procesos, exterior.shell, exterior.dialogos,
               servicios.textos),
      arranque(entorno, estado, pulso, conector, instancia, servicios.log,
               servicios.opciones.carpeta, [] { return std::make_unique<SqliteEngine>(); }) {
    supervision.PonerVista(&estado);
    botones.Registrar(BotonPie::Desconectar, [this] { supervision.Desconectar(); });
    botones.Registrar(BotonPie::Conectar, [this] { supervision.Conectar(); });
    PasosArranque pasos;
    pasos.abrirFast = [this] { fast.AbrirFast(); };
    pasos.inicializarDades = [this, &servicios] {
        datos = std::make_unique<dades>(motor, servicios.reloj);
        datos->Inicialitza();
    };
    arranque.PonerPasos(std::move(pasos));
}

FastPump Monitor::BombaDe() {
    FastPump bomba;
    bomba.datos = [this] { return datos.get(); };
    bomba.preparar = [this] { pulso.SaldarAbandonadas(); };
    bomba.esperar = [this] { return transacciones.HayNivelAbierto(); };
    return bomba;
}

void Monitor::PonerVentana(VentanaPrincipal& ventana) {
    ventana_ = &ventana;
    pulso.PonerVentana(&ventana);
}

} // namespace zv
