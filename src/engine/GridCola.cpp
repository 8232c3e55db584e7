// Filling of the queue grid, its widths and its pages.
#include "engine/GridCola.h"

#include "engine/Claves.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

#include <algorithm>
#include <utility>

namespace zv {

namespace {

enum Columna {
    kAnular,
    kIdCola,
    kFecha,
    kId1,
    kId2,
    kIdCaja,
    kTerminal,
    kVendedor,
    kFormaPago,
    kImporte,
    kEnviar
};

constexpr int kAnchoBotonTwips = 1300;

void PonerDosCifras(QString& texto, int valor) {
    texto += QLatin1Char(static_cast<char>('0' + valor / 10 % 10));
    texto += QLatin1Char(static_cast<char>('0' + valor % 10));
}

} // namespace

QString FechaCorta(const QDateTime& fecha, bool sinHora) {
    if (!fecha.isValid()) {
        return {};
    }
    // By hand: this runs for each row of each refill.
    QString texto;
    texto.reserve(17);
    int ano = 0;
    int mes = 0;
    int dia = 0;
    fecha.date().getDate(&ano, &mes, &dia);
    PonerDosCifras(texto, dia);
    texto += QLatin1Char('/');
    PonerDosCifras(texto, mes);
    texto += QLatin1Char('/');
    PonerDosCifras(texto, ano);
    if (!sinHora) {
        const QTime hora = fecha.time();
        texto += QLatin1Char(' ');
        PonerDosCifras(texto, hora.hour());
        texto += QLatin1Char(':');
        PonerDosCifras(texto, hora.minute());
        texto += QLatin1Char(':');
        PonerDosCifras(texto, hora.second());
    }
    return texto;
}

GridCola::GridCola(const Textos& textos, const Importes& importes)
    : textos_(textos), importes_(importes) {}

void GridCola::PonerTitulos() {
    const auto t = [this](const Clave& clave) { return textos_.Traduce(clave); };
    titulos_ = {t(texto::kAnular),
                u"IdCola"_s,
                t(texto::kFechaVenta),
                t(texto::kIdVenta),
                t(texto::kIdVenta) + u" 2"_s,
                u"Id. "_s + t(texto::kCaja),
                t(texto::kTerminal),
                t(texto::kVendedor),
                t(texto::kFormaPago),
                t(texto::kImporte),
                t(texto::kEnviar)};
}

LineaGrid GridCola::LeerLinea(const Row& fila, bool sinHora) const {
    // By name: another program may have made the file, with its columns in another order.
    LineaGrid linea;
    linea.idZV = fila.LeerLong(u"idZV"_s);
    linea.fecha = FechaCorta(fila.LeerFecha(u"fecha"_s), sinHora);
    linea.id1 = fila.LeerTexto(u"id1"_s);
    linea.id2 = fila.LeerTexto(u"id2"_s);
    linea.idcaja = fila.LeerTexto(u"idcaja"_s);
    linea.terminal = fila.LeerTexto(u"terminal"_s);
    linea.vendedor = fila.LeerTexto(u"vendedor"_s);
    linea.formapago = fila.LeerTexto(u"formapago"_s);
    const Currency importe = fila.LeerCurrency(u"importe"_s);
    try {
        linea.importe = importes_.FormatoImporte(importe);
    } catch (const ErrorEjecucion&) {
        // An amount that cannot be shown leaves the cell empty.
        linea.importe.clear();
    }
    linea.credito = !fila.LeerCurrency(u"creditoError"_s).EsCero();
    if (linea.credito && !linea.importe.isEmpty()) {
        linea.importe.prepend(u"! >>> "_s);
    }
    linea.abono = importe < Currency(0);
    linea.manual = fila.LeerBooleano(u"manual"_s);
    return linea;
}

void GridCola::Rellenar(DatabaseEngine& motor, bool sinHora) {
    const std::optional<Lectura> anterior = std::exchange(lectura_, std::nullopt);
    filaSuperior_ = 1;
    filaActual_ = 0;
    conservadas_ = 0;
    const auto avisar = [this] {
        if (alRellenar_) {
            alRellenar_();
        }
    };
    try {
        // The mark is taken before the reading: a row written in between is read the next time.
        const Lectura ahora{motor.ChangeStampExceptAdded(), sinHora, importes_.Multiplicador()};
        LeerFilas(motor, anterior == ahora, sinHora);
        lectura_ = ahora;
    } catch (...) {
        avisar();
        throw;
    }
    if (!lineas_.empty()) {
        filaActual_ = 1;
    }
    avisar();
}

void GridCola::LeerFilas(DatabaseEngine& motor, bool soloNuevas, bool sinHora) {
    if (!soloNuevas) {
        lineas_.clear();
        abonos_ = 0;
    }
    conservadas_ = FilasDatos();
    const auto leer = [this, sinHora](const Row& fila) {
        lineas_.push_back(LeerLinea(fila, sinHora));
        abonos_ += lineas_.back().abono ? 1 : 0;
        return true;
    };
    if (lineas_.empty()) {
        motor.Recorrer(u"SELECT * FROM cola ORDER BY idZV"_s, {}, leer);
    } else {
        motor.Recorrer(u"SELECT * FROM cola WHERE idZV>? ORDER BY idZV"_s, {lineas_.back().idZV},
                       leer);
    }
}

QString GridCola::Texto(int fila, int columna) const {
    if (fila == 0) {
        return Titulo(columna);
    }
    const LineaGrid& linea = Linea(fila);
    switch (columna) {
    case kIdCola:
        return QString::number(linea.idZV);
    case kFecha:
        return linea.fecha;
    case kId1:
        return linea.id1;
    case kId2:
        return linea.id2;
    case kIdCaja:
        return linea.idcaja;
    case kTerminal:
        return linea.terminal;
    case kVendedor:
        return linea.vendedor;
    case kFormaPago:
        return linea.formapago;
    case kImporte:
        return linea.importe;
    default:
        return {};
    }
}

void GridCola::ColocarColumnas(const Configuracio& configuracio, int anchoGrid, int anchoBarra,
                               int altoGrid, int altoFila) {
    const std::array<std::pair<int, bool>, 5> opcionales{
        {{kId2, configuracio.COLID2 == 1},
         {kIdCaja, configuracio.COLIDCAJA == 1},
         {kTerminal, configuracio.COLTERMINAL == 1},
         {kVendedor, configuracio.COLVENDEDOR == 1},
         {kFormaPago, configuracio.COLFORMAPAGO == 1}}};
    const auto ocultas = static_cast<int>(std::count_if(
        opcionales.begin(), opcionales.end(), [](const auto& par) { return !par.second; }));
    const int parte = std::max(0, (anchoGrid - 2 * kAnchoBotonTwips - anchoBarra) / (8 - ocultas));

    anchos_.fill(parte);
    anchos_[kAnular] = kAnchoBotonTwips;
    anchos_[kEnviar] = kAnchoBotonTwips;
    anchos_[kIdCola] = 0;
    for (const auto& [columna, visible] : opcionales) {
        if (!visible) {
            anchos_[static_cast<std::size_t>(columna)] = 0;
        }
    }
    pagina_ = altoFila > 0 ? std::max(1, altoGrid / altoFila - 1) : 1;
}

void GridCola::PonerFilaSuperior(int fila) {
    if (filaSuperior_ != fila) {
        filaSuperior_ = fila;
        if (alMover_) {
            alMover_();
        }
    }
}

void GridCola::PonerFilaActual(int fila) {
    if (filaActual_ != fila) {
        filaActual_ = fila;
        if (alMover_) {
            alMover_();
        }
    }
}

} // namespace zv
