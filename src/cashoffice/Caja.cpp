#include "cashoffice/Caja.h"

#include "cashoffice/Claves.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/LecturaPorClaves.h"
#include "store/Palabras.h"
#include "store/Tablas.h"
#include "till/Claves.h"

#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace zv {

namespace {

const QString kTituloZorvex = u"Zorvex"_s;
// As it stands in every language.
const QString kSinConexion = u"No hay conexión con Zorvex"_s;

constexpr auto kDerecha = Qt::AlignRight | Qt::AlignVCenter;

// In the order of ColumnaCaja.
std::vector<Columna> Columnas() {
    return {
        {.clave = &texto::kTituloFecha},
        {.clave = &texto::kTituloConcepto},
        {.clave = &texto::kVendedor},
        {.clave = &texto::kTituloTerminal},
        {.clave = &texto::kTituloVenta, .alineacion = kDerecha, .contenido = Contenido::Importe},
        {.clave = &texto::kTituloSaldoZV, .alineacion = kDerecha, .contenido = Contenido::Importe}};
}

} // namespace

Caja::Caja(Entorno& entorno)
    : entorno_(entorno), grdZV_(Columnas()),
      relleno_(
          grdZV_, [this](std::size_t n) { PonerFila(movimientos_[n]); },
          [this] {
              estado_.rellenados = static_cast<int>(relleno_.Puestas());
              if (!relleno_.Faltan()) {
                  movimientos_ = {};
              }
              Avisar();
          }) {}

void Caja::AlMostrar() {
    RefrescarCaja();
    PonerBoton(BotonCaja::Imprimir, entorno_.configuracio->SINIMPRESORA != 1 && grdZV_.Filas() > 1);
    PonerBoton(BotonCaja::ExportCsv, grdZV_.Filas() >= 2);
}

void Caja::PrepararRejilla() {
    movimientos_.clear();
    relleno_.Olvidar();
    estado_.movimientos = 0;
    estado_.rellenados = 0;
    const SinDibujo sinDibujo(grdZV_);
    grdZV_.Vaciar();
    grdZV_.PonerTitulos(entorno_.textos);
    Avisar();
}

void Caja::RefrescarCaja() {
    {
        const SinDibujo sinDibujo(grdZV_);
        PrepararRejilla();
        totales.saldoFinal = {};
        totales.movimientos = 0;
        LeerPeriodo();
    }
    RellenarSaldos();
}

// Places of the columns in the rows of the statement below.
struct Caja::Campos {
    explicit Campos(const Row& fila)
        : fecha(fila.Indice(columna::kFechaZV)), venta(fila.Indice(columna::kImporteVenta)),
          cobrado(fila.Indice(columna::kCobrado)), devuelto(fila.Indice(columna::kDevuelto)),
          estado(fila.Indice(columna::kEstado)), id1(fila.Indice(columna::kId1)),
          terminal(fila.Indice(columna::kTerminal)), vendedor(fila.Indice(columna::kVendedor)),
          formaPago(fila.Indice(columna::kFormaPago)), error(fila.Indice(columna::kError)) {}

    int fecha;
    int venta;
    int cobrado;
    int devuelto;
    int estado;
    int id1;
    int terminal;
    int vendedor;
    int formaPago;
    int error;
};

void Caja::LeerPeriodo() {
    // What the period can be made of, and no more: a table of years holds a million rows.
    const QString sql =
        u"SELECT idZV,fechaZV,importeVenta,cobrado,devuelto,estado,id1,terminal,vendedor,formapago,"
        "error FROM procesados WHERE idZV>=? AND idZV<=? AND idCierre=0 ORDER BY idZV"_s;
    conceptos_.emplace(kConceptosCaja, entorno_.textos);
    // A failure leaves the grid with the rows before it.
    const auto rejilla = qScopeGuard([this] {
        totales.movimientos = static_cast<int>(movimientos_.size());
        estado_.movimientos = totales.movimientos;
        relleno_.Empezar(movimientos_.size());
    });
    DatabaseEngine& motor = entorno_.Database();
    const auto rango = LeerRangoClaves(motor, tabla::kProcesados, columna::kIdZV);
    totales.cobros = totales.abonos = totales.pagos = totales.ingresos = totales.quebranto = {};
    if (!rango) {
        return;
    }
    std::optional<Campos> campos;
    const auto leer = [&](const Row& fila) {
        if (!campos) {
            campos.emplace(fila);
        }
        LeerMovimiento(fila, *campos);
    };
    // Whoever looks at the screen sees that it lives.
    RecorrerPorClaves(motor, *rango, sql, leer, [this] { Pintar(); });
}

void Caja::LeerMovimiento(const Row& fila, const Campos& campos) {
    QString estadoFila = fila.LeerTexto(campos.estado);
    const bool bien = estadoFila == estado::kOk;
    if (!bien && !estadoFila.contains(estado::kError)) {
        return;
    }
    const DatosConcepto datos{fila.LeerTexto(campos.terminal), fila.LeerTexto(campos.id1),
                              fila.LeerCurrency(campos.venta), fila.LeerCurrency(campos.cobrado),
                              fila.LeerCurrency(campos.devuelto)};
    const std::size_t n = kConceptosCaja.Clasificar(datos);
    const ReglaConcepto& regla = kConceptosCaja.Regla(n);
    for (const auto& [suma, aporte] : regla.apuntes) {
        Currency* const sumas[kSumasPeriodo] = {&totales.cobros, &totales.abonos, &totales.pagos,
                                                &totales.ingresos};
        *sumas[static_cast<std::size_t>(suma)] += ValorDe(aporte, datos);
    }
    totales.saldoFinal += datos.cobrado - datos.devuelto;
    QString detalle;
    if (regla.detalle != DetalleConcepto::Ninguno) {
        detalle = fila.LeerTexto(regla.detalle == DetalleConcepto::Error ? campos.error
                                                                         : campos.formaPago);
    }
    // What cannot be shown fails here, in its row, though its cell is written later.
    Movimiento movimiento{fila.LeerFecha(campos.fecha),
                          n,
                          std::move(detalle),
                          bien ? QString() : std::move(estadoFila),
                          datos.terminal,
                          fila.LeerTexto(campos.vendedor),
                          datos.importeVenta.AEntero32(),
                          totales.saldoFinal.AEntero32()};
    if (entorno_.importes.Multiplicador() == 0) {
        throw errores::DivisionPorCero();
    }
    movimientos_.push_back(std::move(movimiento));
}

void Caja::PonerFila(const Movimiento& movimiento) {
    // Cut piece by piece: a long detail must not hide that the row is an error.
    QString concepto = conceptos_->Texto(movimiento.regla, TextoDeCelda(movimiento.detalle));
    if (!movimiento.estado.isEmpty()) {
        concepto += u" ["_s + TextoDeCelda(movimiento.estado) + u']';
    }
    const Importes& importes = entorno_.importes;
    const int n = grdZV_.AñadirFila();
    grdZV_.PonerTexto(n, ColumnaCaja::Fecha, importes.Formato().FechaGeneral(movimiento.fecha));
    grdZV_.PonerTexto(n, ColumnaCaja::Concepto, concepto);
    // Crossed: the terminal stands under the seller's title, and the seller under the terminal's.
    grdZV_.PonerTexto(n, ColumnaCaja::Vendedor, TextoDeCelda(movimiento.terminal));
    grdZV_.PonerTexto(n, ColumnaCaja::Terminal, TextoDeCelda(movimiento.vendedor));
    grdZV_.PonerTexto(n, ColumnaCaja::Venta, importes.FormatoImporte(movimiento.venta));
    grdZV_.PonerTexto(n, ColumnaCaja::SaldoZV, importes.FormatoImporte(movimiento.saldo));
}

void Caja::RellenarSaldos() {
    entorno_.supervision.LeerSaldoInicial();
    PonerEspera(true);
    const auto fin = qScopeGuard([this] { PonerEspera(false); });
    Pintar(); // the device may be silent for seconds
    if (entorno_.supervision.Conectado()) {
        LeerSaldosDispositivo();
    } else {
        saldos = {};
        estado_.niveles = {};
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
    estado_.niveles = dispositivo.UltimosNiveles();
    Avisar();
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
        estado_.quebrantoVisible = false; // the first refresh takes the line away
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

void Caja::AbrirHistorial() {
    entorno_.transacciones.Saldar();
    entorno_.pantallas.Abrir(Pantalla::Historial);
}

void Caja::Desconnectar(qint16& resultado) {
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
