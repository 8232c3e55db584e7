// Level lists as a gateway may send them, and amounts as people and registries write them. Input:
// "region|answers|error code", lists of level types 2, 3 and 4 ("noms|levels" each), the two
// balances of the registry, then a text to be read as a number.
#include "device/SupervisionConexion.h"
#include "fuzz/Fuzz.h"
#include "platform/Conversions.h"
#include "platform/RegistryNames.h"
#include "platform/StringLiterals.h"
#include "support/LogMemoria.h"

#include <QTemporaryDir>

#include <array>
#include <cmath>
#include <limits>
#include <map>

namespace zv::fuzz {
namespace {

using registry_name::kSaldoExit;
using registry_name::kSaldoInicial;

struct Niveles {
    bool bien = true;
    QString noms;
    QString levels;
};

// Answers the lists of the input; moves no money.
class ClienteListas final : public DeviceClient {
  public:
    qint16 ErrorCode() const override { return codigo; }
    QString ErrorMessage() const override { return u"fallo"_s; }
    void Address(const QString& /*direccion*/) override {}
    void Connect(bool& result) override { result = true; }
    void Disconnect() override {}
    void Change(qint32&, qint32&, bool& result) override { result = false; }
    void AddChange(qint32&, bool& result) override { result = false; }
    void Pay(qint32, qint32&, bool& result) override { result = false; }
    void Charge(qint32, qint32&, qint32&, bool& result) override { result = false; }
    void CashBoxControl(qint32, qint32&, qint32&, qint32&, bool& result) override {
        result = false;
    }
    void Configuration(bool& result) override { result = false; }
    void EmptyCB(qint32, qint32&, bool& result) override { result = false; }
    void GetLevels(qint32 levelType, QString& noms, QString& levels, bool& result) override {
        const Niveles& niveles = listas[levelType];
        result = niveles.bien;
        noms = niveles.noms;
        levels = niveles.levels;
    }
    void SessionFlag(bool) override {}
    quint8 Decimals() const override { return 2; }
    quint8 Multiplier() const override { return multiplicador; }

    std::map<qint32, Niveles> listas;
    qint16 codigo = 0;
    quint8 multiplicador = 100;
};

class VistaLamparas final : public VistaConexion {
  public:
    void HabilitarConectar(bool) override {}
    void MostrarEspera(bool) override {}
    void ActualizarBotonesMonitor(bool) override {}
    void MostrarLamparas(bool ok, bool alerta, bool critico) override {
        encendidas = static_cast<int>(ok) + static_cast<int>(alerta) + static_cast<int>(critico);
        roja = critico;
    }
    bool Agrupando() const override { return false; }

    int encendidas = 1;
    bool roja = false;
};

using Grande = __int128;

// Coins and notes of one pair of lists, reckoned with room to spare; nothing when the lists make no
// sense or leave the type that holds them.
std::optional<std::array<Grande, 2>> Sumas(const Niveles& niveles) {
    const auto partir = [](const QString& lista) {
        return lista.isEmpty() ? QStringList() : lista.split(u',');
    };
    const QStringList noms = partir(niveles.noms);
    const QStringList levels = partir(niveles.levels);
    if (noms.size() != levels.size()) {
        return std::nullopt;
    }
    constexpr Grande kTope = std::numeric_limits<qint64>::max() / Currency::kEscala;
    std::array<Grande, 2> sumas{};
    for (qsizetype i = 0; i < levels.size(); ++i) {
        bool bien = false;
        const qint64 piezas = levels[i].trimmed().toLongLong(&bien);
        if (!bien) {
            return std::nullopt;
        }
        if (piezas <= 0) {
            continue;
        }
        const qint64 valor = noms[i].trimmed().toLongLong(&bien);
        const Grande producto = Grande{piezas} * valor;
        Grande& suma = sumas[valor > 200 ? 1 : 0];
        suma += producto;
        if (!bien || producto > kTope || producto < -kTope || suma > kTope || suma < -kTope) {
            return std::nullopt;
        }
    }
    return sumas;
}

void MirarSaldos(Saldos& saldos, ClienteListas& cliente, DialogosMudos& dialogos) {
    const auto sumas = [&](qint32 clase) {
        return cliente.listas[clase].bien ? Sumas(cliente.listas[clase]) : std::array<Grande, 2>{};
    };
    const auto reciclador = sumas(2);
    const auto cajon = sumas(3);
    for (qint32 tipo = -1; tipo <= 7; ++tipo) {
        dialogos.cajas.clear();
        const Currency saldo = saldos.SaldoPorTipo(u"FUZZ"_s, TipoSaldo{tipo});
        const bool conReciclador = tipo >= 0 && tipo <= 3;
        const bool conCajon = tipo == 0 || (tipo >= 4 && tipo <= 6);
        const bool sentido = (!conReciclador || reciclador) && (!conCajon || cajon);
        if (!sentido || !dialogos.cajas.isEmpty()) {
            Exige(saldo.EsCero(), "a balance that fails is 0");
        }
        Exige(sentido || !dialogos.cajas.isEmpty(), "lists without sense are told");
        if (!sentido || !dialogos.cajas.isEmpty()) {
            continue; // sums of sums may leave the range too
        }
        Grande esperado = 0;
        if (tipo == 0 || tipo == 1 || tipo == 2) {
            esperado += (*reciclador)[0];
        }
        if (tipo == 0 || tipo == 1 || tipo == 3) {
            esperado += (*reciclador)[1];
        }
        if (tipo == 0 || tipo == 4 || tipo == 5) {
            esperado += (*cajon)[0];
        }
        if (tipo == 0 || tipo == 4 || tipo == 6) {
            esperado += (*cajon)[1];
        }
        Exige(Grande{saldo.Diezmilesimas()} == esperado * Currency::kEscala,
              "a balance is the sum of its lists");
    }
}

void MirarNumero(const FormatoRegional& formato, const QString& texto) {
    const auto numero = formato.LeerNumero(texto);
    Currency importe;
    const int error = Numero([&] { importe = formato.LeerCurrency(texto); });
    constexpr double kTope = 922337203685477.0;
    if (error == 0) {
        Exige(numero.has_value(), "an amount is a number");
        Exige(std::abs(importe.ADoble() - *numero) <= 0.0001 + std::abs(*numero) * 1e-15,
              "an amount is the number it is read from");
        const QString escrito = formato.FormatoCurrency(importe);
        Currency vuelta;
        const int alLeer = Numero([&] { vuelta = formato.LeerCurrency(escrito); });
        Exige(alLeer == 0 || std::abs(importe.ADoble()) >= kTope - 1, "an amount written is read");
        Exige(alLeer != 0 ||
                  std::abs(vuelta.ADoble() - importe.ADoble()) <= 0.50001 + kTope * 1e-15,
              "an amount written is read as it was");
        Numero([&] { importe.AEntero32(); });
    } else if (error == 6) {
        Exige(!numero || std::abs(*numero) >= kTope, "only a big number leaves the range");
    } else {
        Exige(error == 13 && !numero, "what is no number is none for both readers");
    }
    qint32 entero = 0;
    const int aEntero = Numero([&] { entero = AEntero32(texto, formato); });
    Exige(aEntero == 0 ? std::abs(*numero - entero) <= 0.5 : aEntero == (numero ? 6 : 13),
          "a whole number is the nearest one");
    Numero([&] { AByte(texto, formato); });
    Numero([&] { AEntero16(texto, formato); });
}

const FormatoRegional& Formato(const QString& cual) {
    static const std::array<FormatoRegional, 8> formatos = {
        FormatoRegional(u"es_ES"_s), FormatoRegional(u"en_US"_s), FormatoRegional(u"de_CH"_s),
        FormatoRegional(u"fr_FR"_s), FormatoRegional(u"ja_JP"_s), FormatoRegional(u"ar_EG"_s),
        FormatoRegional(u"hi_IN"_s), FormatoRegional(u"pt_PT"_s)};
    return formatos[cual.isEmpty() ? 0 : cual.front().unicode() % formatos.size()];
}

void UnaEntrada(Entrada entrada) {
    static const QTemporaryDir carpeta;
    const QStringList cabeza = entrada.Campos(4);
    const FormatoRegional& formato = Formato(cabeza[0]);
    ClienteListas cliente;
    cliente.codigo = static_cast<qint16>(cabeza[2].toInt());
    cliente.multiplicador = static_cast<quint8>(cabeza[3].isEmpty() ? 100 : cabeza[3].toUInt());
    for (qint32 clase = 2; clase <= 4; ++clase) {
        const QStringList listas = entrada.Campos(2);
        cliente.listas[clase] = {!cabeza[1].contains(QChar(u'0' + clase)), listas[0], listas[1]};
    }
    RegistryTree registry(carpeta.path());
    registry.GuardarValor(kSaldoExit, entrada.Texto(), Guardado::Pasajero);
    registry.GuardarValor(kSaldoInicial, entrada.Texto(), Guardado::Pasajero);

    test::LogMemoria log;
    DialogosMudos dialogos;
    const Textos textos(carpeta.path());
    const Importes importes(formato, [&] { return cliente.Multiplier(); });
    VistaLamparas vista;
    SupervisionConexion supervision(cliente, registry, log, dialogos, textos, importes,
                                    [] { return QString(); });
    supervision.PonerVista(&vista);

    const int alEmpezar = Numero([&] { supervision.LeerSaldos(); });
    Exige(alEmpezar == 0 || alEmpezar == 6 || alEmpezar == 13, "balances fail by 6 or 13");
    supervision.MostrarNivel();
    Exige(vista.roja && vista.encendidas == 1, "no device is red");
    const int alConectar = Numero([&] { supervision.Conectar(); });
    Exige(alConectar == 0 || alConectar == 6 || alConectar == 13 ||
              (alConectar == 11 && cliente.multiplicador == 0),
          "a connection fails by 6, 11 or 13");
    Exige(supervision.Conectado(), "the balance does not undo a connection");
    supervision.MostrarNivel();
    Exige(vista.encendidas == 1, "one lamp is lit");
    Exige(!cliente.listas[4].bien || vista.roja == cliente.listas[4].levels.contains(u'2'),
          "a 2 is red");
    MirarSaldos(supervision.LosSaldos(), cliente, dialogos);

    supervision.GuardarSaldoExit();
    const QString guardado = registry.LeerValor(kSaldoExit, QString());
    Exige(guardado == supervision.SaldoExit().ATexto(), "the balance stored is the one held");
    supervision.Cortar();
    Exige(supervision.LosSaldos().SaldoPorTipo(u"FUZZ"_s, TipoSaldo::Todo).EsCero(),
          "no device, no balance");

    MirarNumero(formato, QString::fromUtf8(entrada.Resto()));
}

} // namespace
} // namespace zv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    zv::fuzz::UnaEntrada(zv::fuzz::Entrada(datos, largo));
    return 0;
}
