#include "engine/ClicGrid.h"

#include "engine/Claves.h"
#include "platform/StringLiterals.h"
#include "store/Palabras.h"
#include "till/Asiento.h"

namespace zv {

ClicGrid::ClicGrid(Entorno& entorno, const Controles& controles, GridCola& grid,
                   EstadoMonitor& estado, PulsoCola& pulso, CobrosAgrupados& agrupados)
    : entorno_(entorno), controles_(controles), grid_(grid), estado_(estado), pulso_(pulso),
      agrupados_(agrupados) {}

void ClicGrid::grdZV_MouseUp(int fila, int columna, bool debajo) {
    // A click that was under way when the pulse disabled the grid comes too late.
    if (!controles_.Estado().grdZV || debajo || fila < 1 || columna < 0) {
        return;
    }
    grid_.Celdas().PonerCeldaActual(fila, columna);
    if (estado_.Agrupando()) {
        // The group that is being charged is what was marked before.
        if (estado_.Marcando()) {
            agrupados_.MarcarFila();
        }
        return;
    }
    const qint32 idZV = grid_.IdDeFila(fila).toInt();
    pulso_.ParaTimer();
    if (columna == ColumnaCola::Enviar && entorno_.supervision.Conectado()) {
        Enviar(idZV);
    } else if (columna == ColumnaCola::Anular && !Anular(idZV)) {
        pulso_.ArrancaTimer();
        return;
    }
    if (entorno_.supervision.Conectado()) {
        pulso_.ArrancaTimer();
        entorno_.supervision.GuardarSaldoExit();
    } else {
        pulso_.DejarParado();
    }
}

void ClicGrid::Enviar(qint32 idZV) {
    if (entorno_.pantallas.ValidarUsuari(2, u"authCobroManual"_s) &&
        pulso_.EnviarConReconexion(idZV)) {
        estado_.RellenarGrid();
        estado_.ActualizarEstado(true);
    }
}

bool ClicGrid::Anular(qint32 idZV) {
    if (!entorno_.pantallas.ValidarUsuari(1, u"authRegistro"_s)) {
        return false;
    }
    const std::optional<QString> motivo = Motivo();
    if (motivo) {
        ArchivarAnulacion(idZV, *motivo);
    }
    return motivo.has_value();
}

std::optional<QString> ClicGrid::Motivo() {
    const auto t = [this](const Clave& clave) { return entorno_.textos.Traduce(clave); };
    if (entorno_.configuracio->PREGUNTARANULAR != 1) {
        return t(texto::kMotivoSinCausa);
    }
    const QString causa =
        entorno_.dialogos.PedirTexto(t(texto::kAnularMovimiento), t(texto::kIntroduzcaCausa));
    if (causa.isEmpty()) {
        entorno_.dialogos.MostrarMensaje(t(texto::kAnulacionCancelada),
                                         t(texto::kAnulacionCancelada2));
        return std::nullopt;
    }
    return t(texto::kMotivoConCausa) + causa;
}

void ClicGrid::ArchivarAnulacion(qint32 idZV, const QString& motivo) {
    entorno_.transacciones.Saldar();
    Asiento asiento(entorno_);
    asiento.Abrir(u"ANULARCOBRO_BEGINTRANS"_s);
    const qint32 clave = entorno_.registros.AñadirColaProcesada(u"ZVMONITOR_CLICK"_s, idZV,
                                                                estado::kCancel, 0, 0, 0, motivo);
    // Committed in both cases.
    asiento.Confirmar(u"ANULARCOBRO_COMMIT"_s, [this, clave] {
        if (clave > 0) {
            estado_.RellenarGrid();
            estado_.ActualizarEstado(true);
        } else {
            entorno_.dialogos.CajaSimple(entorno_.textos.Traduce(texto::kErrorAlProcesar));
        }
    });
    entorno_.marca.MarcarActivo(false);
}

} // namespace zv
