// Whatever a gateway may say. Input: a first line of calls, then what the gateway does
// (PasarelaBytes.h). A first line that begins with "#" has the readers of lines and messages tried
// alone on the rest: cut in chunks of its length, they must say the same as on the whole.
#include "device/gateway/GatewayClient.h"
#include "fuzz/Fuzz.h"
#include "fuzz/PasarelaBytes.h"
#include "fuzz/RelojVirtual.h"
#include "platform/StringLiterals.h"
#include "support/LogMemoria.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>

namespace zv::fuzz {
namespace {

// ---- lines and messages alone

QList<QByteArray> Lineas(const QByteArray& bytes, qsizetype paso) {
    QList<QByteArray> lineas;
    LineSplitter cortador;
    for (qsizetype i = 0; i < bytes.size(); i += paso) {
        cortador.Anadir(bytes.mid(i, paso));
        while (const auto linea = cortador.Siguiente()) {
            lineas << *linea;
        }
    }
    Exige(!cortador.Desbordado(), "short lines do not overflow");
    return lineas;
}

void MirarMensaje(const QByteArray& linea) {
    const std::optional<RpcMessage> mensaje = DescodificarRpc(linea);
    if (!mensaje) {
        return;
    }
    for (const QJsonValue& valor : {mensaje->resultado, QJsonValue(mensaje->params)}) {
        if (const auto estado = LeerEstado(valor)) {
            Exige(!estado->opId.isEmpty() && estado->errorCode != 1 &&
                      (estado->terminada || (!estado->ok && estado->errorCode == 0)),
                  "a state makes sense");
            const QString texto = TextoEstado(*estado);
            Exige(!texto.contains(u'\n') && !texto.contains(u'\r'), "a state is one line");
        }
        if (const auto saludo = LeerSaludo(valor)) {
            Exige(saludo->multiplier >= 1 && saludo->decimals <= 4 && !saludo->storeId.isEmpty(),
                  "a greeting makes sense");
        }
        if (const auto niveles = LeerNiveles(valor)) {
            for (const QString& lista : {niveles->noms, niveles->levels}) {
                for (const QString& numero : lista.split(u',', Qt::SkipEmptyParts)) {
                    bool bien = false;
                    numero.toInt(&bien);
                    Exige(bien, "levels are whole numbers");
                }
            }
        }
    }
}

void MirarLineas(const QByteArray& cabeza, const QByteArray& bytes) {
    const QList<QByteArray> enteras = Lineas(bytes, std::max<qsizetype>(bytes.size(), 1));
    Exige(enteras == Lineas(bytes, cabeza.size()), "chunks make no difference");
    Exige(enteras.size() == bytes.count('\n'), "every line is handed out");
    for (const QByteArray& linea : enteras) {
        MirarMensaje(linea);
        if (const auto direccion = LeerDireccion(QString::fromUtf8(linea))) {
            Exige(!direccion->host.isEmpty() && !direccion->host.contains(u' ') &&
                      direccion->puerto != 0,
                  "an address has a host and a port");
        }
    }
}

// ---- the whole client

class VentanaBytes final : public VentanaOperacion {
  public:
    explicit VentanaBytes(PasarelaBytes& pasarela) : pasarela_(pasarela) {
        pasarela.alCancelar = [this] {
            if (cancelar_) {
                cancelar_();
            }
        };
        pasarela.alTerminar = [this] {
            if (terminar_) {
                terminar_();
            }
        };
    }
    void Abrir(OperationKind /*kind*/, qint32 importe, std::function<void()> cancelar,
               std::function<void()> terminar) override {
        Exige(!abierta && importe >= 0, "one window, an amount without sign");
        abierta = true;
        cancelar_ = std::move(cancelar);
        terminar_ = std::move(terminar);
        entra = sale = 0;
    }
    void Progreso(qint32 paidIn, qint32 paidOut) override {
        Exige(abierta, "progress is shown in an open window");
        entra = paidIn;
        sale = paidOut;
        pasarela_.AnotarMovimiento();
    }
    void Aviso(const QString& /*texto*/) override { Exige(abierta, "a note needs a window"); }
    void SinTerminar() override {
        Exige(abierta && terminar_, "a key goes that was there");
        terminar_ = {};
    }
    void Cerrar() override {
        Exige(abierta, "a window is closed once");
        abierta = false;
        cancelar_ = {};
        terminar_ = {};
    }

    bool abierta = false;
    qint32 entra = 0;
    qint32 sale = 0;

  private:
    PasarelaBytes& pasarela_;
    std::function<void()> cancelar_;
    std::function<void()> terminar_;
};

class Mostrador {
  public:
    // pasos: how many things the gateway does at most.
    Mostrador(PasarelaBytes& pasarela, qsizetype pasos) : pasarela_(pasarela) {
        constexpr qint64 kSegundos = 1000;
        // The longest wait told (a cancelled operation) and what the gateway's own steps may add.
        limite_ = (400 + 20 * pasos) * kSegundos;
        pasarela_.alPedirNiveles = [this] { Niveles(); };
        enlace_ = QObject::connect(QAbstractEventDispatcher::instance(),
                                   &QAbstractEventDispatcher::aboutToBlock, &contexto_, [this] {
                                       constexpr int kRato = 100;
                                       if (!pasarela_.Paso(true)) {
                                           reloj::Avanzar(kRato);
                                       }
                                       Exige(reloj::Ahora() - principio_ < limite_,
                                             "every call ends by itself");
                                       QAbstractEventDispatcher::instance()->wakeUp();
                                   });
        cliente_.Address(u"127.0.0.1"_s);
    }

    void Llamar(char letra) {
        principio_ = reloj::Ahora();
        bool bien = false;
        qint32 entra = 0;
        qint32 sale = 0;
        qint32 otro = 0;
        ventana_.entra = ventana_.sale = 0;
        const QString antes = pasarela_.UltimoOpId();
        switch (letra) {
        case 'C':
            cliente_.Connect(bien);
            Exige(bien || cliente_.ErrorCode() == 1, "a connection fails by 1");
            break;
        case 'D':
            cliente_.Disconnect();
            return;
        case 'c':
        case 'r':
            cliente_.Charge(letra == 'c' ? 1250 : std::numeric_limits<qint32>::min(), entra, sale,
                            bien);
            Exige(entra == ventana_.entra && sale == ventana_.sale,
                  "the amounts are those last shown");
            break;
        case 'p':
            cliente_.Pay(1503, sale, bien);
            Exige(sale == ventana_.sale, "the amount paid is the one last shown");
            break;
        case 'x':
            cliente_.Change(entra, sale, bien);
            break;
        case 'a':
            cliente_.AddChange(entra, bien);
            break;
        case 'b':
            otro = 10000;
            cliente_.CashBoxControl(15, entra, sale, otro, bien);
            break;
        case 'e':
            cliente_.EmptyCB(1, otro, bien);
            break;
        case 'f':
            cliente_.Configuration(bien);
            break;
        case 'g':
            Niveles();
            return;
        case 's': {
            QEventLoop reposo;
            constexpr int kReposo = 20000; // ms
            QTimer::singleShot(kReposo, &reposo, &QEventLoop::quit);
            reposo.exec();
            return;
        }
        default:
            return;
        }
        Exige(!ventana_.abierta, "no window is left behind");
        Exige(!bien || cliente_.ErrorCode() == 0, "success has no error");
        if (letra != 'C' && letra != 'f' && bien) {
            Exige(pasarela_.UltimoOpId() != antes && pasarela_.DichaHecha(pasarela_.UltimoOpId()),
                  "success has been told by the gateway");
        }
        Exige(cliente_.Multiplier() >= 1 && cliente_.Decimals() <= 4, "the currency makes sense");
        for (const QString& linea : log_.Toma()) {
            Exige(!linea.contains(u'\n') && !linea.contains(u'\r'), "a log line is one line");
        }
    }

  private:
    void Niveles() {
        const qint16 codigo = cliente_.ErrorCode();
        QString noms;
        QString levels;
        bool bien = false;
        cliente_.GetLevels(2, noms, levels, bien);
        Exige(bien ? cliente_.ErrorCode() == codigo
                   : noms.isEmpty() && levels.isEmpty() && cliente_.ErrorCode() > 0,
              "levels leave the error code alone or set it");
    }

    PasarelaBytes& pasarela_;
    test::LogMemoria log_;
    Textos textos_{u"/nonexistent"_s};
    VentanaBytes ventana_{pasarela_};
    GatewayClient cliente_{
        log_, textos_, &ventana_, {}, [this] { return pasarela_.NuevoSocket(); }};
    QObject contexto_;
    QMetaObject::Connection enlace_;
    qint64 principio_ = 0;
    qint64 limite_ = 0;
};

void UnaEntrada(Entrada entrada) {
    const QByteArray llamadas = entrada.Linea();
    if (llamadas.startsWith('#')) {
        MirarLineas(llamadas, entrada.Resto());
        return;
    }
    PasarelaBytes pasarela(entrada.Resto());
    {
        Mostrador mostrador(pasarela, entrada.Resto().size());
        constexpr qsizetype kLlamadas = 8;
        for (const char letra : llamadas.first(std::min(llamadas.size(), kLlamadas))) {
            mostrador.Llamar(letra);
        }
    }
    // Sockets go later, and look for their gateway then.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace
} // namespace zv::fuzz

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    // Qt's own event loop: it asks nobody but the clock.
    qputenv("QT_NO_GLIB", "1");
    static QCoreApplication app(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    zv::fuzz::UnaEntrada(zv::fuzz::Entrada(datos, largo));
    return 0;
}
