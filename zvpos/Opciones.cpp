// Options, their defaults and ranges, and what a field of the link can carry.
#include "zvpos/Opciones.h"

#include "platform/CodePage.h"
#include "platform/StringLiterals.h"
#include "zvpos/Argumentos.h"

#include <algorithm>
#include <limits>

namespace zv::zvpos {

namespace {

constexpr int kCaracteres = 50; // the monitor cuts longer texts
constexpr int kPlazoMayorMs = 600'000;
constexpr int kSegundosMayor = 86'400;

QString Ayuda() {
    return u"Uso: zvpos cobrar ID IMPORTE [--id2 TEXTO] [--caja N] [--terminal TEXTO]\n"
           "                             [--vendedor TEXTO] [--formapago TEXTO]\n"
           "     zvpos estado ID\n"
           "     zvpos esperar ID --segundos N\n"
           "Pone ventas en la cola de ZVMonitor y pregunta por ellas, por su enlace rápido.\n"
           "\n"
           "IMPORTE va en unidades menores enteras: 1250 son 12,50 €; negativo es un abono.\n"
           "Los textos tienen 50 caracteres como mucho. \"esperar\" pregunta hasta que la venta\n"
           "haya terminado o hayan pasado N segundos; 0 pregunta una vez.\n"
           "\n"
           "  --servidor HOST      dónde está el monitor (127.0.0.1)\n"
           "  --puerto N           su ZVFastPort (16501)\n"
           "  --plazo MS           lo que se espera una respuesta (5000)\n"
           "  --help, --version\n"
           "  --                   lo que sigue no son opciones\n"
           "\n"
           "La salida es una línea con la respuesta o el estado; los errores van aparte.\n"
           "Códigos de salida:\n"
           "  0  cobrar: puesta en la cola. estado, esperar: cobrada (OK)\n"
           "  1  cobrar: no aceptada. estado, esperar: terminada sin cobrar (ERROR, CANCEL...)\n"
           "  2  orden mal escrita; no se ha enviado nada\n"
           "  3  sin conexión, o sin respuesta a tiempo; repetir la misma orden es seguro\n"
           "  4  estado, esperar: todavía pendiente (PENDING)\n"
           "  5  estado, esperar: no hay ninguna venta con ese ID\n"
           "  6  cobrar: ya hay una venta con ese ID; no se ha puesto otra\n"_s;
}

class LectorOpciones {
  public:
    LectorOpciones(const Argumentos& argumentos, Opciones& opciones, QString& error)
        : dadas_(argumentos.opciones), sueltos_(argumentos.sueltos), opciones_(opciones),
          error_(error) {}

    bool Leer() {
        return LeerOrden() && LeerEnlace() &&
               LeerTexto(u"ID"_s, sueltos_.at(1), opciones_.venta.id) &&
               (opciones_.orden != Orden::Cobrar || LeerVenta()) &&
               (opciones_.orden != Orden::Esperar || LeerSegundos());
    }

  private:
    bool LeerOrden() {
        const QString nombre = sueltos_.value(0);
        QStringList propias;
        qsizetype cuantos = 2;
        if (nombre == QLatin1String("cobrar")) {
            opciones_.orden = Orden::Cobrar;
            propias = {u"id2"_s, u"caja"_s, u"terminal"_s, u"vendedor"_s, u"formapago"_s};
            cuantos = 3;
        } else if (nombre == QLatin1String("estado")) {
            opciones_.orden = Orden::Estado;
        } else if (nombre == QLatin1String("esperar")) {
            opciones_.orden = Orden::Esperar;
            propias = {u"segundos"_s};
        } else {
            return Mal(nombre.isEmpty()
                           ? u"falta la orden: cobrar, estado o esperar"_s
                           : u"la orden es cobrar, estado o esperar, no \"%1\""_s.arg(nombre));
        }
        propias << u"servidor"_s << u"puerto"_s << u"plazo"_s;
        for (auto i = dadas_.begin(); i != dadas_.end(); ++i) {
            if (!propias.contains(i.key())) {
                return Mal(u"--%1 no va con \"%2\""_s.arg(i.key(), nombre));
            }
        }
        if (sueltos_.size() > cuantos) {
            return Mal(u"sobra \"%1\""_s.arg(sueltos_.at(cuantos)));
        }
        if (sueltos_.size() < 2 || sueltos_.at(1).isEmpty()) {
            return Mal(u"falta el ID de la venta"_s);
        }
        if (sueltos_.size() < cuantos) {
            return Mal(u"falta el importe"_s);
        }
        return true;
    }

    bool LeerEnlace() {
        if (dadas_.contains(u"servidor"_s)) {
            opciones_.servidor = dadas_.value(u"servidor"_s);
            if (opciones_.servidor.trimmed().isEmpty()) {
                return Mal(u"--servidor está vacío"_s);
            }
        }
        qint32 puerto = opciones_.puerto;
        if (!LeerNumero(u"puerto"_s, 1, 65535, puerto) ||
            !LeerNumero(u"plazo"_s, 1, kPlazoMayorMs, opciones_.plazoMs)) {
            return false;
        }
        opciones_.puerto = static_cast<quint16>(puerto);
        return true;
    }

    bool LeerVenta() {
        Venta& venta = opciones_.venta;
        return LeerImporte() &&
               LeerNumero(u"caja"_s, std::numeric_limits<qint32>::min(),
                          std::numeric_limits<qint32>::max(), venta.caja) &&
               LeerCampo(u"id2"_s, venta.id2) && LeerCampo(u"terminal"_s, venta.terminal) &&
               LeerCampo(u"vendedor"_s, venta.vendedor) &&
               LeerCampo(u"formapago"_s, venta.formaPago);
    }

    bool LeerImporte() {
        const QString& texto = sueltos_.at(2);
        if (!EsEntero(texto)) {
            return Mal(u"el importe \"%1\" no es un número entero de unidades "
                       "menores (12,50 € se escribe 1250)"_s.arg(texto));
        }
        bool cabe = false;
        opciones_.venta.importe = texto.toInt(&cabe);
        return cabe || Mal(u"el importe %1 no cabe: va de -2147483648 a 2147483647"_s.arg(texto));
    }

    bool LeerSegundos() {
        return dadas_.contains(u"segundos"_s)
                   ? LeerNumero(u"segundos"_s, 0, kSegundosMayor, opciones_.segundos)
                   : Mal(u"falta --segundos"_s);
    }

    bool LeerNumero(const QString& nombre, qint32 minimo, qint32 maximo, qint32& numero) {
        if (!dadas_.contains(nombre)) {
            return true;
        }
        const QString texto = dadas_.value(nombre);
        bool cabe = false;
        const qint32 leido = texto.toInt(&cabe);
        if (!cabe || !EsEntero(texto) || leido < minimo || leido > maximo) {
            return Mal(
                u"--%1 va de %2 a %3, no \"%4\""_s.arg(nombre).arg(minimo).arg(maximo).arg(texto));
        }
        numero = leido;
        return true;
    }

    bool LeerCampo(const QString& nombre, QString& campo) {
        return !dadas_.contains(nombre) || LeerTexto(u"--"_s + nombre, dadas_.value(nombre), campo);
    }

    // The link has no escapes: a text that holds its mark, or that the code page cannot write,
    // would arrive as something else.
    bool LeerTexto(const QString& nombre, const QString& crudo, QString& campo) {
        // A letter and its accent may come as two characters; the code page has them as one.
        const QString texto = crudo.normalized(QString::NormalizationForm_C);
        const auto esControl = [](QChar c) { return c.category() == QChar::Other_Control; };
        if (texto.contains(QLatin1Char('|'))) {
            return Mal(nombre + u" no puede llevar el carácter |"_s);
        }
        if (std::any_of(texto.begin(), texto.end(), esControl)) {
            return Mal(nombre + u" no puede llevar saltos de línea ni otros "
                                "caracteres de control"_s);
        }
        if (DeCodePage(ACodePage(texto)) != texto) {
            return Mal(nombre + u" lleva caracteres que el enlace no puede "
                                "transmitir (Windows-1252)"_s);
        }
        if (texto.size() > kCaracteres) {
            return Mal(u"%1 tiene %2 caracteres y caben %3"_s.arg(nombre)
                           .arg(texto.size())
                           .arg(kCaracteres));
        }
        campo = texto;
        return true;
    }

    bool Mal(const QString& texto) {
        error_ = texto;
        return false;
    }

    const QMap<QString, QString>& dadas_;
    const QStringList& sueltos_;
    Opciones& opciones_;
    QString& error_;
};

} // namespace

bool LeerOpciones(const QStringList& argumentos, Opciones& opciones, QString& error) {
    Argumentos separados;
    const QStringList banderas{u"help"_s, u"version"_s};
    const QStringList conValor{u"servidor"_s, u"puerto"_s,   u"plazo"_s,    u"segundos"_s, u"id2"_s,
                               u"caja"_s,     u"terminal"_s, u"vendedor"_s, u"formapago"_s};
    if (!Separar(argumentos, banderas, conValor, separados, error)) {
        return false;
    }
    if (separados.opciones.contains(u"help"_s)) {
        opciones.aviso = Ayuda();
        return true;
    }
    if (separados.opciones.contains(u"version"_s)) {
        opciones.aviso = u"zvpos %1.%2.%3\n"_s.arg(ZV_VERSION_MAJOR)
                             .arg(ZV_VERSION_MINOR)
                             .arg(ZV_VERSION_REVISION);
        return true;
    }
    return LectorOpciones(separados, opciones, error).Leer();
}

} // namespace zv::zvpos
