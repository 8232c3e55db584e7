#include "device/Saldos.h"

#include "device/Claves.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

#include <QStringList>

#include <algorithm>

namespace zv {

namespace {

// Level lists of the device.
constexpr qint32 kNivelesReciclador = 2;
constexpr qint32 kNivelesCajones = 3;

struct Suma {
    Currency monedas;
    Currency billetes;
};

// A whole number of a list of the device.
qint64 LeerItem(const QString& texto) {
    bool bien = false;
    const qint64 valor = texto.trimmed().toLongLong(&bien);
    if (!bien) {
        throw errores::TipoNoCoincide();
    }
    return valor;
}

// An empty text is an empty list.
QStringList Partir(const QString& lista) {
    return lista.isEmpty() ? QStringList() : lista.split(u',');
}

Suma SumarNiveles(const QString& noms, const QString& levels) {
    const QStringList denominaciones = Partir(noms);
    const QStringList piezas = Partir(levels);
    if (denominaciones.size() != piezas.size()) {
        throw errores::FueraDeIntervalo();
    }
    Suma suma;
    for (qsizetype i = 0; i < piezas.size(); ++i) {
        const qint64 cuantas = LeerItem(piezas[i]);
        if (cuantas <= 0) {
            continue;
        }
        const qint64 denominacion = LeerItem(denominaciones[i]);
        qint64 valor = 0;
        if (__builtin_mul_overflow(cuantas, denominacion, &valor)) {
            throw errores::Desbordamiento();
        }
        (denominacion > kMayorMoneda ? suma.billetes : suma.monedas) += Currency::DeEntero(valor);
    }
    return suma;
}

// The pieces of lists that have been summed up: what is no denomination there, is left out.
std::vector<NivelPiezas> Piezas(const QString& noms, const QString& levels) {
    const QStringList denominaciones = Partir(noms);
    const QStringList piezas = Partir(levels);
    std::vector<NivelPiezas> niveles;
    niveles.reserve(static_cast<std::size_t>(piezas.size()));
    for (qsizetype i = 0; i < piezas.size(); ++i) {
        const qint32 denominacion = denominaciones[i].trimmed().toInt();
        if (denominacion > 0) {
            niveles.push_back({denominacion, std::max<qint64>(0, LeerItem(piezas[i]))});
        }
    }
    return niveles;
}

// None when the device does not tell them.
std::optional<Suma> LeerNiveles(DeviceClient& cliente, qint32 levelType,
                                std::vector<NivelPiezas>& niveles) {
    QString noms;
    QString levels;
    bool bien = false;
    niveles.clear();
    cliente.GetLevels(levelType, noms, levels, bien);
    if (!bien) {
        return std::nullopt;
    }
    const Suma suma = SumarNiveles(noms, levels);
    niveles = Piezas(noms, levels);
    return suma;
}

} // namespace

Saldos::Saldos(DeviceClient& cliente, std::function<bool()> conectado, Dialogos& dialogos,
               const Textos& textos)
    : cliente_(cliente), conectado_(std::move(conectado)), dialogos_(dialogos), textos_(textos) {}

Currency Saldos::SaldoPorTipo(const QString& /*etiqueta*/, TipoSaldo tipo) {
    const LecturaSaldo lectura = Leer(tipo);
    Avisar(lectura);
    return lectura.valor;
}

LecturaSaldo Saldos::Leer(TipoSaldo tipo) {
    LecturaSaldo lectura;
    try {
        lectura.valor = Sumar(tipo, lectura);
    } catch (const ErrorEjecucion& error) {
        lectura.caja = textos_.Traduce(texto::kErrorAlRecuperarSaldo) + u' ' +
                       QString::number(error.Numero()) + u" - "_s + error.Descripcion();
    }
    return lectura;
}

Currency Saldos::Sumar(TipoSaldo tipo, LecturaSaldo& lectura) {
    Suma reciclador;
    Suma cajones;
    const bool conectado = conectado_();
    const bool todo = tipo == TipoSaldo::Todo;
    if (conectado && (todo || (tipo >= TipoSaldo::Cajones && tipo <= TipoSaldo::CajonesBilletes))) {
        cajones = LeerNiveles(cliente_, kNivelesCajones, niveles_.cajones).value_or(Suma());
    }
    if (conectado &&
        (todo || (tipo >= TipoSaldo::Reciclador && tipo <= TipoSaldo::RecicladorBilletes))) {
        if (const auto leido = LeerNiveles(cliente_, kNivelesReciclador, niveles_.reciclador)) {
            reciclador = *leido;
        } else if (cliente_.ErrorCode() != 0) {
            lectura.mensaje = cliente_.ErrorMessage();
        }
    }
    switch (tipo) {
    case TipoSaldo::Todo:
        return reciclador.monedas + reciclador.billetes + cajones.monedas + cajones.billetes;
    case TipoSaldo::Reciclador:
        return reciclador.monedas + reciclador.billetes;
    case TipoSaldo::RecicladorMonedas:
        return reciclador.monedas;
    case TipoSaldo::RecicladorBilletes:
        return reciclador.billetes;
    case TipoSaldo::Cajones:
        return cajones.monedas + cajones.billetes;
    case TipoSaldo::CajonesMonedas:
        return cajones.monedas;
    case TipoSaldo::CajonesBilletes:
        return cajones.billetes;
    }
    return {}; // a kind that there is not
}

void Saldos::Avisar(const LecturaSaldo& lectura) {
    if (lectura.mensaje) {
        dialogos_.MostrarMensaje(textos_.Traduce(texto::kOperacionAnulada), *lectura.mensaje);
    }
    if (lectura.caja) {
        dialogos_.CajaSimple(*lectura.caja);
    }
}

} // namespace zv
