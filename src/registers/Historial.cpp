#include "registers/Historial.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "registers/Claves.h"
#include "store/ExportarCSV.h"
#include "store/LecturaPorClaves.h"
#include "store/Palabras.h"
#include "store/Tablas.h"
#include "till/Claves.h"
#include "till/ImpresionHistorial.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zv {

namespace {

// Twips. An amount of "12.345,67 €" stands whole in letters of 16 px.
constexpr int kMinimoFecha = 2250;
constexpr int kMinimoImporte = 1545;
constexpr int kPartesFecha = 3; // of what is left, where an amount takes one

constexpr auto kDerecha = Qt::AlignRight | Qt::AlignVCenter;

Columna Importe(const Clave& titulo) {
    return {.clave = &titulo, .alineacion = kDerecha, .contenido = Contenido::Importe};
}

// In the order of ColumnaCierres.
std::vector<Columna> ColumnasCierres() {
    return {{.alineacion = kDerecha},        {.clave = &texto::kTituloFecha},
            Importe(texto::kTituloInicial),  Importe(texto::kTituloCobros),
            Importe(texto::kTituloAbonos),   Importe(texto::kTituloIngresos),
            Importe(texto::kTituloPagos),    Importe(texto::kTituloSaldo),
            Importe(texto::kTituloCierre),   Importe(texto::kTituloBilletes),
            Importe(texto::kTituloMonedas),  Importe(texto::kTituloCajon),
            Importe(texto::kTituloBilletes), Importe(texto::kTituloMonedas)};
}

// In the order of ColumnaHis.
std::vector<Columna> ColumnasHis() {
    return {{.clave = &texto::kTituloFecha},    {.clave = &texto::kTituloConcepto},
            {.clave = &texto::kTituloTerminal}, {.clave = &texto::kTituloVendedor},
            Importe(texto::kTituloVenta),       Importe(texto::kTituloSaldoZV)};
}

// Shares of the width, in the same order.
constexpr std::array kPartesHis = {4, 6, 3, 3, 3, 3};
static_assert(kPartesHis.size() == ColumnaHis::Cuantas);

} // namespace

Historial::Historial(Entorno& entorno, Impresora& impresora)
    : entorno_(entorno), impresora_(impresora), grdCierres_(ColumnasCierres()),
      grdHis_(ColumnasHis()) {}

void Historial::AlMostrar() {
    grdCierres_.PonerTitulos(entorno_.textos);
    grdHis_.PonerTitulos(entorno_.textos);
    Rellenar();
}

void Historial::Rellenar() {
    grdHis_.Vaciar();
    pendiente_ = false;
    RellenarCierres();
}

void Historial::RellenarCierres() {
    if (!entorno_.conexion.ConectarBD()) {
        return;
    }
    {
        const SinDibujo sinDibujo(grdCierres_);
        grdCierres_.Vaciar();
        entorno_.Database().Recorrer(
            u"SELECT idCierre,fecha,saldoInicial,cobros,abonos,ingresos,pagos,saldoZV,"
            "importeCierre,cambioBilletes,cambioMonedas,cajonBilletes,cajonMonedas FROM cierres "
            "ORDER BY idCierre"_s,
            {}, [this](const Row& fila) {
                PonerCierre(fila);
                return true;
            });
    }
    if (HayCierres()) {
        Elegir(grdCierres_.FilasDatos());
    }
}

void Historial::PonerCierre(const Row& fila) {
    using C = ColumnaCierres;
    const int n = grdCierres_.AñadirFila();
    grdCierres_.PonerTexto(n, C::IdCierre, QString::number(fila.LeerLong(columna::kIdCierre)));
    grdCierres_.PonerTexto(n, C::Fecha, fila.LeerFecha(C::Fecha).toString(u"dd/MM/yy HH:mm:ss"_s));
    const auto poner = [&](int columna, Currency importe) {
        grdCierres_.PonerTexto(n, columna, entorno_.importes.FormatoImporte(importe));
    };
    // The statement has the table's columns, which lack the sum.
    for (int columna = C::Inicial; columna < C::Cajon; ++columna) {
        poner(columna, fila.LeerCurrency(columna));
    }
    const Currency billetes = fila.LeerCurrency(columna::kCajonBilletes);
    const Currency monedas = fila.LeerCurrency(columna::kCajonMonedas);
    poner(C::Cajon, billetes + monedas);
    poner(C::CajonBilletes, billetes);
    poner(C::CajonMonedas, monedas);
}

void Historial::Elegir(int fila) {
    if (!grdCierres_.Dibujo() || fila < 1 || fila > grdCierres_.FilasDatos() ||
        fila == grdCierres_.FilaActual()) {
        return;
    }
    grdCierres_.PonerCeldaActual(fila, 0);
    MostrarElegido();
    PedirMovimientos();
}

void Historial::MostrarElegido() {
    const int fila = grdCierres_.FilaActual();
    if (fila < grdCierres_.FilaSuperior() && fila > 0) {
        grdCierres_.PonerFilaSuperior(fila);
    } else if (fila >= grdCierres_.FilaSuperior() + grdCierres_.Pagina()) {
        grdCierres_.PonerFilaSuperior(fila - grdCierres_.Pagina() + 1);
    }
}

void Historial::PedirMovimientos() {
    pendiente_ = true;
    if (pedirTurno_) {
        pedirTurno_();
    } else {
        Completar();
    }
}

void Historial::Completar() {
    if (!std::exchange(pendiente_, false)) {
        return;
    }
    const int fila = grdCierres_.FilaActual();
    RellenarMovimientos(grdCierres_.Texto(fila, ColumnaCierres::IdCierre).toInt(), InicialDe(fila));
}

// The amount that the row shows, as minor units.
Currency Historial::InicialDe(int fila) const {
    const Importes& importes = entorno_.importes;
    const Currency principales =
        importes.Formato().LeerCurrency(grdCierres_.Texto(fila, ColumnaCierres::Inicial));
    qint64 menores = 0;
    if (__builtin_mul_overflow(principales.Diezmilesimas(), qint64{importes.Multiplicador()},
                               &menores)) {
        throw errores::Desbordamiento();
    }
    return Currency::DeDiezmilesimas(menores);
}

void Historial::RellenarMovimientos(qint32 idCierre, Currency inicial) {
    const SinDibujo sinDibujo(grdHis_);
    grdHis_.Vaciar();
    primera_ = ultima_ = {};
    const TextosConcepto conceptos(kConceptosHistorial, entorno_.textos);
    Currency saldo = inicial;
    DatabaseEngine& motor = entorno_.Database();
    if (const auto rango = LeerRangoClaves(motor, tabla::kProcesados, columna::kIdZV)) {
        // What is needed, and no more: a table of years holds a million rows.
        const QString sql =
            u"SELECT idZV,fechaZV,importeVenta,cobrado,devuelto,estado,id1,terminal,vendedor,"
            "formapago,error FROM procesados WHERE idZV>=? AND idZV<=? AND idCierre=%1 "
            "ORDER BY idZV"_s.arg(idCierre);
        RecorrerPorClaves(
            motor, *rango, sql, [&](const Row& fila) { PonerMovimiento(fila, conceptos, saldo); },
            [this] { Pintar(); });
    }
    if (HayMovimientos()) {
        grdHis_.PonerCeldaActual(1, 0);
        grdHis_.PonerFilaSuperior(1);
    }
}

void Historial::PonerMovimiento(const Row& fila, const TextosConcepto& conceptos, Currency& saldo) {
    // The database compares without case.
    if (fila.LeerTexto(columna::kEstado) != estado::kOk) {
        return;
    }
    const DatosConcepto datos{fila.LeerTexto(columna::kTerminal), fila.LeerTexto(columna::kId1),
                              fila.LeerCurrency(columna::kImporteVenta),
                              fila.LeerCurrency(columna::kCobrado),
                              fila.LeerCurrency(columna::kDevuelto)};
    const std::size_t n = kConceptosHistorial.Clasificar(datos);
    const ReglaConcepto& regla = kConceptosHistorial.Regla(n);
    saldo += ValorDe(regla.movimiento, datos);
    QString detalle;
    if (regla.detalle != DetalleConcepto::Ninguno) {
        detalle = fila.LeerTexto(regla.detalle == DetalleConcepto::Error ? columna::kError
                                                                         : columna::kFormaPago);
    }
    const Importes& importes = entorno_.importes;
    const QString venta = importes.FormatoImporte(datos.importeVenta);
    const QString saldoZV = importes.FormatoImporte(saldo);
    ultima_ = fila.LeerFecha(columna::kFechaZV);
    const int fin = grdHis_.AñadirFila();
    if (fin == 1) {
        primera_ = ultima_;
    }
    grdHis_.PonerTexto(fin, ColumnaHis::Fecha, importes.Formato().FechaGeneral(ultima_));
    grdHis_.PonerTexto(fin, ColumnaHis::Concepto, conceptos.Texto(n, TextoDeCelda(detalle)));
    grdHis_.PonerTexto(fin, ColumnaHis::Terminal, TextoDeCelda(datos.terminal));
    grdHis_.PonerTexto(fin, ColumnaHis::Vendedor, TextoDeCelda(fila.LeerTexto(columna::kVendedor)));
    grdHis_.PonerTexto(fin, ColumnaHis::Venta, venta);
    grdHis_.PonerTexto(fin, ColumnaHis::SaldoZV, saldoZV);
}

void Historial::AjustarCierres(int anchoGrid, int anchoBarra) {
    constexpr int kVisibles = ColumnaCierres::Cuantas - 1;
    constexpr int kMinimo = kMinimoFecha + (kVisibles - 1) * kMinimoImporte;
    const int mas = std::max(0, anchoGrid - anchoBarra - kMinimo) / (kVisibles - 1 + kPartesFecha);
    const SinDibujo sinDibujo(grdCierres_);
    for (int columna = ColumnaCierres::Fecha; columna < ColumnaCierres::Cuantas; ++columna) {
        grdCierres_.PonerAncho(columna, columna == ColumnaCierres::Fecha
                                            ? kMinimoFecha + kPartesFecha * mas
                                            : kMinimoImporte + mas);
    }
}

void Historial::AjustarMovimientos(int anchoGrid, int anchoBarra) {
    constexpr int kPartes = [] {
        int suma = 0;
        for (const int parte : kPartesHis) {
            suma += parte;
        }
        return suma;
    }();
    const int parte = std::max(0, anchoGrid - anchoBarra) / kPartes;
    const SinDibujo sinDibujo(grdHis_);
    for (int columna = 0; columna < ColumnaHis::Cuantas; ++columna) {
        grdHis_.PonerAncho(columna, parte * kPartesHis[static_cast<std::size_t>(columna)]);
    }
}

void Historial::Imprimir() {
    Completar();
    ImprimirHistorial({grdCierres_, grdHis_, primera_, ultima_}, impresora_, entorno_.dialogos,
                      entorno_.textos, entorno_.log);
}

void Historial::Limpiar() {
    const Textos& textos = entorno_.textos;
    if (entorno_.dialogos.MostrarMensaje(textos.Traduce(texto::kLimpiarTitulo),
                                         textos.Traduce(texto::kLimpiarPregunta),
                                         EstiloMensaje::SiNo) != Respuesta::Si) {
        return;
    }
    // No database takes the apostrophe at the end: its failure goes up, and no close is deleted.
    entorno_.Database().Ejecutar(u"DELETE FROM cierres'"_s);
    Rellenar();
}

void Historial::ExportarCierres() {
    Exportar(grdCierres_, u"Historial"_s);
}

void Historial::ExportarMovimientos() {
    Completar();
    Exportar(grdHis_, u"HistorialMovements"_s);
}

void Historial::Exportar(const Rejilla& grid, const QString& nombre) {
    const Entorno& e = entorno_;
    ExportarCSV(grid, nombre, e.carpeta, e.reloj, e.dialogos, e.textos);
}

} // namespace zv
