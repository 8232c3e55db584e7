#include "cashoffice/Caja.h"

#include "cashoffice/Claves.h"
#include "platform/StringLiterals.h"
#include "till/Claves.h"

#include <QScopeGuard>

namespace zv {

namespace {

const QString kTituloZorvex = u"Zorvex"_s;
// As it stands in every language.
const QString kSinConexion = u"No hay conexión con Zorvex"_s;

constexpr auto kDerecha = Qt::AlignRight | Qt::AlignVCenter;

// In the order of ColumnaCaja.
std::vector<Columna> Columnas() {
    return {
        {.clave = &texto::kCajaFecha},
        {.clave = &texto::kCajaConcepto},
        {.clave = &texto::kVendedor},
        {.clave = &texto::kCajaTerminal},
        {.clave = &texto::kCajaVenta, .alineacion = kDerecha, .contenido = Contenido::Importe},
        {.clave = &texto::kCajaSaldoZV, .alineacion = kDerecha, .contenido = Contenido::Importe}};
}

} // namespace

Caja::Caja(Entorno& entorno) : entorno_(entorno), grdZV_(Columnas()) {}

void Caja::AlMostrar() {
    RefrescarCaja();
    PonerBoton(BotonCaja::Imprimir, entorno_.configuracio->SINIMPRESORA != 1 && grdZV_.Filas() > 1);
    PonerBoton(BotonCaja::ExportCsv, grdZV_.Filas() >= 2);
}

void Caja::PrepararRejilla() {
    grdZV_.Vaciar();
    grdZV_.PonerTitulos(entorno_.textos);
}

void Caja::RefrescarCaja() {
    {
        const SinDibujo sinDibujo(grdZV_);
        PrepararRejilla();
        LeerPeriodo();
    }
    RellenarSaldos();
}

void Caja::LeerPeriodo() {
    totales = {};
}

void Caja::RellenarSaldos() {
    entorno_.supervision.LeerSaldoInicial();
    PonerEspera(true);
    const auto fin = qScopeGuard([this] { PonerEspera(false); });
    if (entorno_.supervision.Conectado()) {
        LeerSaldosDispositivo();
    } else {
        saldos = {};
        for (const BotonCaja boton :
             {BotonCaja::CierreNiveles, BotonCaja::CierreValor, BotonCaja::VaciarMonedas,
              BotonCaja::VaciarBilletes, BotonCaja::Cuadrar}) {
            PonerBoton(boton, false);
        }
        entorno_.dialogos.MostrarMensaje(kTituloZorvex, kSinConexion);
    }
    EscribirEtiquetas();
}

void Caja::LeerSaldosDispositivo() {
    Saldos& dispositivo = entorno_.saldos;
    const auto leer = [&dispositivo](const QString& cual, TipoSaldo tipo) {
        return dispositivo.SaldoPorTipo(u"CAJA_RELLENASALDOSZV_"_s + cual, tipo);
    };
    saldos.cambioMonedas = leer(u"CAMBIOMONEDAS"_s, TipoSaldo::RecicladorMonedas);
    saldos.cambioBilletes = leer(u"CAMBIOBILLETES"_s, TipoSaldo::RecicladorBilletes);
    saldos.cajonMonedas = leer(u"CBMONEDAS"_s, TipoSaldo::CajonesMonedas);
    saldos.cajonBilletes = leer(u"CBBILLETES"_s, TipoSaldo::CajonesBilletes);
    saldos.contenido =
        saldos.cambioMonedas + saldos.cambioBilletes + saldos.cajonMonedas + saldos.cajonBilletes;
}

void Caja::EscribirEtiquetas() {
    PonerImporte(&EstadoCaja::lbCobros, totales.cobros);
    PonerImporte(&EstadoCaja::lbAbonos, totales.abonos);
    PonerImporte(&EstadoCaja::lbPagos, totales.pagos);
    PonerImporte(&EstadoCaja::lbIngresos, totales.ingresos);
    PonerImporte(&EstadoCaja::lbSaldoFinal, totales.saldoFinal);
    PonerImporte(&EstadoCaja::lbContenido, saldos.contenido);
    PonerImporte(&EstadoCaja::lbCambioMonedas, saldos.cambioMonedas);
    PonerImporte(&EstadoCaja::lbCambioBilletes, saldos.cambioBilletes);
    PonerImporte(&EstadoCaja::lbCBMonedas, saldos.cajonMonedas);
    PonerImporte(&EstadoCaja::lbCBBilletes, saldos.cajonBilletes);
    if (totales.quebranto.EsCero()) {
        PonerEtiqueta(&EstadoCaja::lbQuebranto, QString());
    } else {
        PonerImporte(&EstadoCaja::lbQuebranto, totales.quebranto);
    }
}

void Caja::AjustarColumnas(int anchoGrid, int anchoBarra) {
    const Configuracio& configuracio = *entorno_.configuracio;
    const bool vendedor = configuracio.COLVENDEDOR == 1;
    const bool terminal = configuracio.COLTERMINAL == 1;
    const int cuantas = ColumnaCaja::Cuantas - (vendedor ? 0 : 1) - (terminal ? 0 : 1);
    const int parte = qMax(0, anchoGrid - anchoBarra) / cuantas;
    const SinDibujo sinDibujo(grdZV_);
    for (int columna = 0; columna < ColumnaCaja::Cuantas; ++columna) {
        const bool oculta = (columna == ColumnaCaja::Vendedor && !vendedor) ||
                            (columna == ColumnaCaja::Terminal && !terminal);
        grdZV_.PonerAncho(columna, oculta ? 0 : parte);
    }
}

void Caja::ActualizarBotones(bool habilitar) {
    const bool hayFilas = grdZV_.Filas() >= 2;
    PonerBoton(BotonCaja::Imprimir, hayFilas && habilitar);
    PonerBoton(BotonCaja::ExportCsv, hayFilas);
    PonerBoton(BotonCaja::CierreNiveles, habilitar);
    PonerBoton(BotonCaja::CierreValor, habilitar);
    PonerBoton(BotonCaja::Cuadrar, habilitar);
}

void Caja::Desconectar(qint16& resultado) {
    entorno_.supervision.Cortar();
    ActualizarBotones(false);
    resultado = 0;
}

void Caja::PonerEtiqueta(QString EstadoCaja::*etiqueta, const QString& texto) {
    if (estado_.*etiqueta == texto) {
        return;
    }
    estado_.*etiqueta = texto;
    const auto numero = entorno_.importes.Formato().LeerNumero(texto);
    if (etiqueta == &EstadoCaja::lbCBMonedas) {
        estado_.boton[BotonCaja::VaciarMonedas] = numero > 0;
    } else if (etiqueta == &EstadoCaja::lbCBBilletes) {
        estado_.boton[BotonCaja::VaciarBilletes] = numero > 0;
    } else if (etiqueta == &EstadoCaja::lbQuebranto) {
        estado_.quebrantoVisible = numero.has_value();
    }
    Avisar();
}

void Caja::PonerBoton(BotonCaja boton, bool habilitado) {
    if (estado_.boton[boton] != habilitado) {
        estado_.boton[boton] = habilitado;
        Avisar();
    }
}

void Caja::PonerEspera(bool espera) {
    if (estado_.punteroEspera != espera) {
        estado_.punteroEspera = espera;
        Avisar();
    }
}

void Caja::Enfocar(BotonCaja boton) {
    estado_.foco = boton;
    Avisar();
}

} // namespace zv
