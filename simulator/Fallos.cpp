// Reads the rules, `point[#n[+]]:action[=value]` parted by commas or semicolons, and counts.
#include "simulator/Fallos.h"

#include "platform/StringLiterals.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <utility>

namespace zv::simulador {

namespace {

using NombrePunto = std::pair<const char*, Punto>;
constexpr std::array<NombrePunto, 12> kPuntos{{
    {"cobro", Punto::Cobro},
    {"abono", Punto::Abono},
    {"cambio", Punto::Cambio},
    {"ingreso", Punto::Ingreso},
    {"pago", Punto::Pago},
    {"cierre", Punto::Cierre},
    {"cuadre", Punto::Cuadre},
    {"vaciado", Punto::Vaciado},
    {"terminar", Punto::Terminar},
    {"niveles", Punto::Niveles},
    {"configuracion", Punto::Configuracion},
    {"conexion", Punto::Conexion},
}};

enum class Valor { Ninguno, Codigo, Milisegundos, Centimos, Momento, Corte, Cajon };
enum Donde : unsigned {
    Operaciones = 1,
    Consultas = 2,
    LaConexion = 4,
    SoloNiveles = 8,
    SoloCuadre = 16
};

struct NombreAccion {
    const char* nombre;
    TipoFallo tipo;
    Valor valor;
    unsigned donde;
};
constexpr unsigned kTodo = Operaciones | Consultas | LaConexion;
constexpr std::array<NombreAccion, 14> kAcciones{{
    {"error", TipoFallo::Error, Valor::Codigo, kTodo},
    {"parcial", TipoFallo::Parcial, Valor::Codigo, Operaciones},
    {"atasco", TipoFallo::Atasco, Valor::Ninguno, Operaciones},
    {"cancelar", TipoFallo::Cancelar, Valor::Ninguno, Operaciones},
    {"nolisto", TipoFallo::NoListo, Valor::Codigo, Operaciones},
    {"cortar", TipoFallo::Cortar, Valor::Corte, kTodo},
    {"matar", TipoFallo::Matar, Valor::Momento, kTodo},
    {"lento", TipoFallo::Lento, Valor::Milisegundos, kTodo},
    {"repetir", TipoFallo::Repetir, Valor::Ninguno, Operaciones | Consultas},
    {"basura", TipoFallo::Basura, Valor::Ninguno, kTodo},
    {"mudo", TipoFallo::Mudo, Valor::Ninguno, kTodo},
    {"rechazar", TipoFallo::Rechazar, Valor::Ninguno, LaConexion},
    {"descuadre", TipoFallo::Descuadre, Valor::Centimos, SoloNiveles},
    {"retirar", TipoFallo::Retirar, Valor::Cajon, SoloCuadre},
}};

unsigned DondeEsta(Punto punto) {
    switch (punto) {
    case Punto::Niveles:
        return Consultas | SoloNiveles;
    case Punto::Terminar:
    case Punto::Configuracion:
        return Consultas;
    case Punto::Conexion:
        return LaConexion;
    case Punto::Cuadre:
        return Operaciones | SoloCuadre;
    default:
        return Operaciones;
    }
}

bool LeerNumero(const QString& texto, qint32 minimo, qint32 maximo, qint32& numero) {
    bool bien = false;
    numero = texto.toInt(&bien);
    return bien && numero >= minimo && numero <= maximo;
}

// The place of the word among those allowed.
template <class T>
bool LeerPalabra(const QString& texto, const QStringList& palabras, T& cual) {
    const qsizetype sitio = palabras.indexOf(texto);
    if (sitio >= 0) {
        cual = static_cast<T>(sitio);
    }
    return sitio >= 0;
}

bool LeerMomento(const QString& texto, Momento& momento) {
    return LeerPalabra(texto, {u"antes"_s, u"durante"_s, u"despues"_s}, momento);
}

// What the value must be, in words; empty when it is right and has been stored.
QString LeerValor(Valor clase, const QString& texto, Accion& accion) {
    constexpr qint32 kErrorMayor = 32767; // the client's codes have 16 bits
    constexpr qint32 kEsperaMayor = 600'000;
    constexpr qint32 kDescuadreMayor = 100'000;
    switch (clase) {
    case Valor::Ninguno:
        return texto.isNull() ? QString() : u"no lleva valor"_s;
    case Valor::Codigo:
        return LeerNumero(texto, 2, kErrorMayor, accion.valor) ? QString()
                                                               : u"el código va de 2 a 32767"_s;
    case Valor::Milisegundos:
        return LeerNumero(texto, 1, kEsperaMayor, accion.valor)
                   ? QString()
                   : u"los milisegundos van de 1 a 600000"_s;
    case Valor::Centimos:
        return LeerNumero(texto, -kDescuadreMayor, kDescuadreMayor, accion.valor)
                   ? QString()
                   : u"el descuadre va de -100000 a 100000"_s;
    case Valor::Momento:
        return LeerMomento(texto, accion.momento) ? QString()
                                                  : u"el momento es antes, durante o despues"_s;
    case Valor::Corte: {
        const qsizetype mas = texto.indexOf(u'+');
        if (!LeerMomento(mas < 0 ? texto : texto.left(mas), accion.momento)) {
            return u"el momento es antes, durante o despues"_s;
        }
        return mas < 0 || LeerNumero(texto.mid(mas + 1), 1, kEsperaMayor, accion.valor)
                   ? QString()
                   : u"los milisegundos van de 1 a 600000"_s;
    }
    case Valor::Cajon:
        return LeerPalabra(texto, {u"monedas"_s, u"billetes"_s, u"todo"_s}, accion.valor)
                   ? QString()
                   : u"el cajón es monedas, billetes o todo"_s;
    }
    return {};
}

} // namespace

std::optional<Accion> Buscar(const Acciones& acciones, TipoFallo tipo) {
    const auto it =
        std::ranges::find_if(acciones, [tipo](const Accion& a) { return a.tipo == tipo; });
    return it == acciones.end() ? std::nullopt : std::optional(*it);
}

std::optional<Accion> Buscar(const Acciones& acciones, TipoFallo tipo, Momento momento) {
    const auto it = std::ranges::find_if(
        acciones, [&](const Accion& a) { return a.tipo == tipo && a.momento == momento; });
    return it == acciones.end() ? std::nullopt : std::optional(*it);
}

std::optional<Fallos::Regla> Fallos::Leer(const QString& texto, QString& error) {
    const auto mal = [&](const QString& porque) {
        error = u"fallo \"%1\": %2"_s.arg(texto, porque);
        return std::nullopt;
    };
    const QRegularExpression forma(u"^([a-z]+)(?:#([0-9]{1,6})(\\+)?)?:([a-z]+)(?:=(.*))?$"_s);
    const QRegularExpressionMatch partes = forma.match(texto);
    if (!partes.hasMatch()) {
        return mal(u"la forma es punto[#n]:acción[=valor]"_s);
    }

    Regla regla;
    const QString punto = partes.captured(1);
    for (const auto& [nombre, cual] : kPuntos) {
        const bool operacion = (DondeEsta(cual) & Operaciones) != 0;
        if (punto == QLatin1String(nombre) || (punto == QLatin1String("todo") && operacion)) {
            regla.puntos.push_back(cual);
        }
    }
    if (regla.puntos.empty()) {
        return mal(u"no hay ningún punto \"%1\""_s.arg(punto));
    }
    if (!partes.captured(2).isEmpty()) {
        regla.desde = partes.captured(2).toInt();
        if (regla.desde < 1) {
            return mal(u"la cuenta empieza en 1"_s);
        }
        regla.hasta = partes.captured(3).isEmpty() ? regla.desde : 0;
    }

    const QString accion = partes.captured(4);
    const auto* const conocida = std::ranges::find_if(
        kAcciones, [&](const NombreAccion& una) { return accion == QLatin1String(una.nombre); });
    if (conocida == kAcciones.end()) {
        return mal(u"no hay ninguna acción \"%1\""_s.arg(accion));
    }
    if (!std::ranges::all_of(regla.puntos,
                             [&](Punto uno) { return (DondeEsta(uno) & conocida->donde) != 0; })) {
        return mal(u"\"%1\" no vale en \"%2\""_s.arg(accion, punto));
    }
    regla.accion.tipo = conocida->tipo;
    regla.accion.regla = texto;
    const QString porque = LeerValor(conocida->valor, partes.captured(5), regla.accion);
    if (!porque.isEmpty()) {
        return mal(porque);
    }
    return regla;
}

bool Fallos::Añadir(const QString& guion, QString& error) {
    std::vector<Regla> nuevas;
    const QStringList textos = guion.split(QRegularExpression(u"[,;]"_s), Qt::SkipEmptyParts);
    for (const QString& texto : textos) {
        const QString limpio = texto.trimmed();
        if (limpio.isEmpty()) {
            continue;
        }
        auto regla = Leer(limpio, error);
        if (!regla) {
            return false;
        }
        nuevas.push_back(std::move(*regla));
    }
    std::ranges::move(nuevas, std::back_inserter(reglas_));
    return true;
}

QStringList Fallos::Pendientes() const {
    QStringList reglas;
    for (const Regla& regla : reglas_) {
        if (regla.hasta == 0 || regla.veces < regla.hasta) {
            reglas.append(regla.accion.regla);
        }
    }
    return reglas;
}

Acciones Fallos::Toca(Punto punto) {
    Acciones acciones;
    for (Regla& regla : reglas_) {
        if (std::ranges::find(regla.puntos, punto) == regla.puntos.end()) {
            continue;
        }
        ++regla.veces;
        if (regla.veces >= regla.desde && (regla.hasta == 0 || regla.veces <= regla.hasta)) {
            acciones.push_back(regla.accion);
        }
    }
    return acciones;
}

} // namespace zv::simulador
