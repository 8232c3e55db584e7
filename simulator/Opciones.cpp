#include "simulator/Opciones.h"

#include "platform/StringLiterals.h"
#include "simulator/Protocolo.h"

#include <QCommandLineParser>
#include <QStandardPaths>

namespace zv::simulador {

namespace {

constexpr int kRitmoConVentana = 50;
constexpr int kRitmoSinVentana = 2;
constexpr int kRitmoMayor = 60'000;
constexpr int kCajonMayor = 100'000;

QString Ayuda() {
    return u"Uso: ZVSimulador [opciones]\n"
           "Simula un reciclador de efectivo detrás del protocolo de pasarela, en 127.0.0.1.\n"
           "\n"
           "  --puerto N           puerto de escucha; 0 coge uno libre (16510)\n"
           "  --carpeta DIR        donde guarda su dinero\n"
           "  --sin-ventana        sin pantalla\n"
           "  --cliente GUION      exacto, redondeo o manual (manual), y órdenes, p. ej. "
           "\"exacto,cambio#2=1000+cancelar\"\n"
           "  --ritmo MS           entre pieza y pieza (50; 2 sin ventana)\n"
           "  --fallo GUION        fallos a demanda, p. ej. "
           "\"cobro#2:error=5,niveles:lento=3000\"\n"
           "  --cajones N          piezas que caben en cada cajón (5000 monedas, 2000 billetes)\n"
           "  --traza FICHERO      la traza va al fichero en vez de a la salida\n"
           "  --saldo              escribe en céntimos todo lo que guarda y termina\n"
           "  --help, --version\n"_s;
}

// False with the reason when the option stands but is no number in the range.
bool LeerNumero(const QCommandLineParser& parser, const QString& nombre, int minimo, int maximo,
                int& numero, QString& error) {
    if (!parser.isSet(nombre)) {
        return true;
    }
    bool bien = false;
    const int leido = parser.value(nombre).toInt(&bien);
    if (bien && leido >= minimo && leido <= maximo) {
        numero = leido;
        return true;
    }
    error = u"--%1 va de %2 a %3, no \"%4\""_s.arg(nombre).arg(minimo).arg(maximo).arg(
        parser.value(nombre));
    return false;
}

} // namespace

bool LeerOpciones(const QStringList& argumentos, bool hayVentana, Opciones& opciones,
                  QString& error) {
    const auto N = [](const char* nombre) { return QString::fromLatin1(nombre); };
    QCommandLineParser parser;
    for (const char* const bandera : {"sin-ventana", "saldo", "version"}) {
        parser.addOption(QCommandLineOption(N(bandera)));
    }
    parser.addOption(QCommandLineOption(QStringList{N("h"), N("help")}));
    for (const char* const valor :
         {"puerto", "carpeta", "cliente", "ritmo", "fallo", "cajones", "traza"}) {
        parser.addOption(QCommandLineOption(N(valor), QString(), N("valor")));
    }
    if (!parser.parse(QStringList{N("ZVSimulador")} + argumentos)) {
        error = parser.errorText();
        return false;
    }
    if (parser.isSet(N("help"))) {
        opciones.aviso = Ayuda();
        return true;
    }
    if (parser.isSet(N("version"))) {
        opciones.aviso = u"ZVSimulador %1.%2.%3\n"_s.arg(ZV_VERSION_MAJOR)
                             .arg(ZV_VERSION_MINOR)
                             .arg(ZV_VERSION_REVISION);
        return true;
    }
    if (!parser.positionalArguments().isEmpty()) {
        error = u"sobra \"%1\""_s.arg(parser.positionalArguments().constFirst());
        return false;
    }

    opciones.saldo = parser.isSet(N("saldo"));
    opciones.ventana = !parser.isSet(N("sin-ventana"));
    if (opciones.ventana && !opciones.saldo && !hayVentana) {
        error = u"este programa se ha hecho sin pantallas: use --sin-ventana"_s;
        return false;
    }
    opciones.carpeta = parser.isSet(N("carpeta"))
                           ? parser.value(N("carpeta"))
                           : QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                                 u"/ZVSimulador"_s;
    opciones.traza = parser.value(N("traza"));
    if (parser.isSet(N("cliente"))) {
        QString porque;
        const auto cliente = Cliente::Leer(parser.value(N("cliente")), porque);
        if (!cliente) {
            error = u"--cliente \"%1\": %2"_s.arg(parser.value(N("cliente")), porque);
            return false;
        }
        opciones.cliente = *cliente;
    }
    int puerto = kPuertoNormal;
    int cajones = 0;
    opciones.ritmo = opciones.ventana ? kRitmoConVentana : kRitmoSinVentana;
    if (!LeerNumero(parser, N("puerto"), 0, 65535, puerto, error) ||
        !LeerNumero(parser, N("ritmo"), 0, kRitmoMayor, opciones.ritmo, error) ||
        !LeerNumero(parser, N("cajones"), 1, kCajonMayor, cajones, error)) {
        return false;
    }
    opciones.puerto = static_cast<quint16>(puerto);
    if (cajones > 0) {
        opciones.cajones = {cajones, cajones};
    }
    const QStringList guiones = parser.values(N("fallo"));
    for (const QString& guion : guiones) {
        if (!opciones.fallos.Añadir(guion, error)) {
            return false;
        }
    }
    return true;
}

} // namespace zv::simulador
