#include "engine/GridCola.h"

#include "engine/Claves.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/Tablas.h"
#include "till/Claves.h"
#include "ui/FechaCorta.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zv {

namespace {

constexpr int kAnchoBotonTwips = 1300;
constexpr ColorCelda kRojo = ColorRGB(255, 0, 0);
// Of a marked row: where a touch would annul or send, and elsewhere.
constexpr ColorCelda kMarcadaBoton = ColorRGB(145, 207, 77);
constexpr ColorCelda kMarcada = ColorRGB(255, 190, 0);
constexpr ColorCelda kSuPropioColor = 0;
const QString kMarcaCredito = u"! >>> "_s;

constexpr auto kCentro = Qt::AlignCenter;
constexpr auto kDerecha = Qt::AlignRight | Qt::AlignVCenter;

struct Definicion {
    Columna columna;
    QString campo = {};                     // of cola
    quint8 Configuracio::*ajuste = nullptr; // shown only while this setting is 1
};

// In the order of ColumnaCola.
const std::array<Definicion, ColumnaCola::Cuantas> kColumnas{{
    {{.clave = &texto::kAnular, .alineacion = kCentro, .contenido = Contenido::Imagen}},
    {{.delante = u"IdCola"_s}, columna::kIdZV},
    {{.clave = &texto::kFechaVenta, .alineacion = kDerecha}, columna::kFecha},
    {{.clave = &texto::kIdVenta}, columna::kId1},
    {{.clave = &texto::kIdVenta, .detras = u" 2"_s}, columna::kId2, &Configuracio::COLID2},
    {{.clave = &texto::kCaja, .delante = u"Id. "_s}, columna::kIdCaja, &Configuracio::COLIDCAJA},
    {{.clave = &texto::kTerminal}, columna::kTerminal, &Configuracio::COLTERMINAL},
    {{.clave = &texto::kVendedor}, columna::kVendedor, &Configuracio::COLVENDEDOR},
    {{.clave = &texto::kFormaPago}, columna::kFormaPago, &Configuracio::COLFORMAPAGO},
    {{.clave = &texto::kImporte, .alineacion = kDerecha, .contenido = Contenido::Importe},
     columna::kImporte},
    {{.clave = &texto::kEnviar, .alineacion = kCentro, .contenido = Contenido::Imagen}},
}};

std::vector<Columna> Columnas() {
    std::vector<Columna> columnas;
    columnas.reserve(kColumnas.size());
    for (const Definicion& definicion : kColumnas) {
        columnas.push_back(definicion.columna);
    }
    return columnas;
}

// Nothing for an amount beyond the type, or for a value that is no number.
std::optional<Currency> LeerImporte(const Row& fila, int campo) {
    try {
        return fila.LeerCurrency(campo);
    } catch (const ErrorEjecucion&) {
        return std::nullopt;
    }
}

} // namespace

// Places of the columns of cola in its rows. By name: another program may have made the file, with
// its columns in another order.
struct GridCola::Campos {
    explicit Campos(const Row& fila)
        : creditoError(fila.Indice(columna::kCreditoError)), manual(fila.Indice(columna::kManual)) {
        for (std::size_t i = 0; i < de.size(); ++i) {
            de[i] = kColumnas[i].campo.isEmpty() ? -1 : fila.Indice(kColumnas[i].campo);
        }
    }

    std::array<int, ColumnaCola::Cuantas> de{}; // by the columns of the grid
    int creditoError;
    int manual;
};

GridCola::GridCola(const Textos& textos, const Importes& importes)
    : textos_(textos), importes_(importes), celdas_(Columnas()) {}

void GridCola::PonerTitulos() {
    celdas_.PonerTitulos(textos_);
}

void GridCola::PonerFila(const Row& fila, const Campos& campos, bool sinHora) {
    // What can fail is read before the row is there: none stays half filled.
    std::array<QString, ColumnaCola::Cuantas> celdas;
    const qint32 idZV = fila.LeerLong(campos.de[ColumnaCola::IdCola]);
    celdas[ColumnaCola::IdCola] = QString::number(idZV);
    celdas[ColumnaCola::Fecha] = FechaCorta(fila.LeerFecha(campos.de[ColumnaCola::Fecha]), sinHora);
    for (std::size_t i = ColumnaCola::Id1; i <= ColumnaCola::FormaPago; ++i) {
        celdas[i] = TextoDeCelda(fila.LeerTexto(campos.de[i]));
    }
    const bool manual = fila.LeerBooleano(campos.manual);

    // An amount that cannot be read or shown leaves its cell empty; the row stands for a person to
    // act on it.
    const int campoImporte = campos.de[ColumnaCola::Importe];
    const std::optional<Currency> importe = LeerImporte(fila, campoImporte);
    const bool abono = importe ? *importe < Currency(0) : fila.Valor(campoImporte).toDouble() < 0;
    const std::optional<Currency> credito = LeerImporte(fila, campos.creditoError);
    const bool conCredito = !credito || !credito->EsCero();
    try {
        if (importe) {
            celdas[ColumnaCola::Importe] =
                (conCredito ? kMarcaCredito : QString()) + importes_.FormatoImporte(*importe);
        }
    } catch (const ErrorEjecucion&) {
        celdas[ColumnaCola::Importe].clear();
    }

    const int n = celdas_.AñadirFila();
    for (std::size_t i = 0; i < celdas.size(); ++i) {
        celdas_.PonerTexto(n, static_cast<int>(i), std::move(celdas[i]));
    }
    celdas_.PonerImagen(n, ColumnaCola::Anular, Imagen::Cancelar);
    celdas_.PonerImagen(n, ColumnaCola::Enviar, abono ? Imagen::Abono : Imagen::Cobro);
    if (manual) {
        celdas_.PonerColorFila(n, kRojo, true);
    }
    ultimoId_ = idZV;
    abonos_ += abono ? 1 : 0;
}

void GridCola::Rellenar(DatabaseEngine& motor, bool sinHora) {
    const std::optional<Lectura> anterior = std::exchange(lectura_, std::nullopt);
    const SinDibujo sinDibujo(celdas_);
    celdas_.PonerFilaSuperior(1);
    celdas_.PonerFilaActual(0);
    QuitarResaltes();
    // The mark is taken before the reading: a row written in between is read the next time.
    const Lectura ahora{motor.ChangeStampExceptAdded(), sinHora, importes_.Multiplicador()};
    LeerFilas(motor, anterior == ahora, sinHora);
    lectura_ = ahora;
    if (celdas_.FilasDatos() > 0) {
        celdas_.PonerFilaActual(1);
    }
}

void GridCola::ResaltarFila(int fila, bool resaltada) {
    const SinDibujo sinDibujo(celdas_);
    for (int columna = 0; columna < ColumnaCola::Cuantas; ++columna) {
        const bool boton = columna == ColumnaCola::Anular || columna == ColumnaCola::Enviar;
        celdas_.PonerCeldaActual(fila, columna);
        celdas_.PonerFondo(fila, columna,
                           !resaltada ? kSuPropioColor
                           : boton    ? kMarcadaBoton
                                      : kMarcada);
    }
    resaltadas_.push_back(fila);
}

// Rows that stand through a refill would keep them.
void GridCola::QuitarResaltes() {
    for (const int fila : std::exchange(resaltadas_, {})) {
        for (int columna = 0; columna < ColumnaCola::Cuantas; ++columna) {
            celdas_.PonerFondo(fila, columna, kSuPropioColor);
        }
    }
}

void GridCola::LeerFilas(DatabaseEngine& motor, bool soloNuevas, bool sinHora) {
    if (!soloNuevas) {
        celdas_.Vaciar();
        abonos_ = 0;
    }
    std::optional<Campos> campos;
    const auto leer = [&](const Row& fila) {
        if (!campos) {
            campos.emplace(fila);
        }
        PonerFila(fila, *campos, sinHora);
        return true;
    };
    if (celdas_.FilasDatos() == 0) {
        motor.Recorrer(u"SELECT * FROM cola ORDER BY idZV"_s, {}, leer);
    } else {
        motor.Recorrer(u"SELECT * FROM cola WHERE idZV>? ORDER BY idZV"_s, {ultimoId_}, leer);
    }
}

void GridCola::ColocarColumnas(const Configuracio& configuracio, int anchoGrid, int anchoBarra,
                               int altoGrid, int altoFila) {
    anchoGrid_ = anchoGrid;
    anchoBarra_ = anchoBarra;
    const SinDibujo sinDibujo(celdas_);
    RecolocarColumnas(configuracio);
    celdas_.PonerPagina(altoFila > 0 ? altoGrid / altoFila - 1 : 1);
}

void GridCola::RecolocarColumnas(const Configuracio& configuracio) {
    const auto oculta = [&configuracio](const Definicion& definicion) {
        return definicion.ajuste != nullptr && configuracio.*definicion.ajuste != 1;
    };
    const auto ocultas =
        static_cast<int>(std::count_if(kColumnas.begin(), kColumnas.end(), oculta));
    const int parte =
        std::max(0, (anchoGrid_ - 2 * kAnchoBotonTwips - anchoBarra_) / (8 - ocultas));

    const SinDibujo sinDibujo(celdas_);
    for (int columna = 0; columna < ColumnaCola::Cuantas; ++columna) {
        const Definicion& definicion = kColumnas[static_cast<std::size_t>(columna)];
        const bool visible = columna != ColumnaCola::IdCola && !oculta(definicion);
        const int ancho =
            definicion.columna.contenido == Contenido::Imagen ? kAnchoBotonTwips : parte;
        celdas_.PonerAncho(columna, visible ? ancho : 0);
    }
}

} // namespace zv
