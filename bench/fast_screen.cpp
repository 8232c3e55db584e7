// Repaints of the main screen while the fast link is under load, in one process with a stopwatch
// on its windows: bench_fast_screen DEVICE manual|paying LOAD ARGUMENTS...
// manual: "MANUAL", the pulse armed, the queue growing. paying: a customer stands at the device and
// the operation's window is up. LOAD is a program that is started with the address and the port
// of the fast link put in place of @; the measurement ends with it.
#include "app/screens/Programa.h"
#include "platform/StringLiterals.h"
#include "ui/screens/Tema.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace {

// The longest time between two repaints of any window, from the moment it is started.
class Cronometro final : public QObject {
  public:
    void Empezar() {
        peor_ = 0;
        repintados_ = 0;
        desde_.start();
    }
    bool eventFilter(QObject* objeto, QEvent* evento) override {
        if (evento->type() == QEvent::Paint && desde_.isValid()) {
            peor_ = std::max(peor_, desde_.restart());
            ++repintados_;
        }
        return QObject::eventFilter(objeto, evento);
    }
    void Parar() {
        peor_ = std::max(peor_, desde_.elapsed());
        desde_.invalidate();
    }
    qint64 Peor() const { return peor_; }
    int Repintados() const { return repintados_; }

  private:
    QElapsedTimer desde_;
    qint64 peor_ = 0;
    int repintados_ = 0;
};

constexpr qint64 kLimiteMs = 100;
constexpr int kPeticionMs = 10;

} // namespace

int main(int argc, char** argv) {
    using namespace zv;
    QApplication app(argc, argv);
    tema::Aplicar(app);
    const QStringList argumentos = QCoreApplication::arguments();
    if (argumentos.size() < 4) {
        std::fputs("usage: bench_fast_screen DEVICE manual|paying LOAD ARGUMENTS...\n", stderr);
        return 2;
    }
    const bool pagando = argumentos.at(2) == QLatin1String("paying");
    QTemporaryDir carpeta;
    QFile ini(carpeta.filePath(u"ZVMonitor.ini"_s));
    if (!ini.open(QIODevice::WriteOnly)) {
        return EXIT_FAILURE;
    }
    ini.write("[ZORVEX]\r\nIP=" + argumentos.at(1).toLatin1() + "\r\n[ZVMONITOR]\r\nMODO=" +
              (pagando ? "AUTO" : "MANUAL") + "\r\n[CONECTOR]\r\nZVFastPort=0\r\n");
    ini.close();

    const SystemClock reloj;
    Programa programa({carpeta.path(), carpeta.filePath(u"Registro"_s), u"es_ES"_s, u"ZVMonitor"_s,
                       u"127.0.0.1"_s},
                      reloj);
    // The balance of the device is none of this folder's: its message is answered at once.
    QTimer respuestas;
    QObject::connect(&respuestas, &QTimer::timeout, &app, [] {
        auto* dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialogo != nullptr) {
            dialogo->reject();
        }
    });
    respuestas.start(50);
    if (!programa.Arrancar() || !programa.Monitor().Partes().entorno.supervision.Conectado()) {
        std::fputs("no device\n", stderr);
        return EXIT_FAILURE;
    }
    frmZVMonitor& pantalla = programa.Pantalla();
    respuestas.stop();

    Cronometro cronometro;
    app.installEventFilter(&cronometro);
    // Somebody wants to see something new all the time, also while nothing changes.
    QTimer peticiones;
    QObject::connect(&peticiones, &QTimer::timeout, &pantalla,
                     [&pantalla] { pantalla.update(0, 0, 1, 1); });
    peticiones.start(kPeticionMs);
    bool medido = false;
    QProcess carga;
    carga.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // Its first words are its figures: the load is over.
    QObject::connect(&carga, &QProcess::readyReadStandardOutput, &app, [&] {
        if (!medido) {
            medido = true;
            cronometro.Parar();
        }
        std::fputs(carga.readAllStandardOutput().constData(), stdout);
    });
    const auto empezar = [&] {
        QStringList resto = argumentos.mid(4);
        const qsizetype sitio = resto.indexOf(u"@"_s);
        if (sitio >= 0) {
            resto.replace(sitio, u"127.0.0.1"_s);
            resto.insert(sitio + 1, QString::number(programa.Monitor().Fast().WS().Puerto()));
        }
        carga.start(argumentos.at(3), resto);
        cronometro.Empezar();
    };
    int codigo = EXIT_FAILURE;
    QObject::connect(&carga, &QProcess::finished, &app, [&](int salida) {
        const qint64 peor = cronometro.Peor();
        std::printf("repaints during it: %d, longest pause %lld ms (limit: %lld ms)\n",
                    cronometro.Repintados(), static_cast<long long>(peor),
                    static_cast<long long>(kLimiteMs));
        std::fflush(stdout);
        codigo = salida == 0 && peor <= kLimiteMs ? EXIT_SUCCESS : EXIT_FAILURE;
        // Out of the operation too, which nobody will end.
        std::_Exit(codigo);
    });
    if (pagando) {
        programa.Monitor().Partes().entorno.Database().Ejecutar(
            u"INSERT INTO cola (id1,importe) VALUES ('CUSTOMER',5000)"_s);
        QTimer mirar;
        QObject::connect(&mirar, &QTimer::timeout, &app, [&] {
            if (QApplication::activeModalWidget() != nullptr &&
                carga.state() == QProcess::NotRunning) {
                mirar.stop();
                empezar();
            }
        });
        mirar.start(20);
        return QApplication::exec();
    }
    QTimer::singleShot(0, &app, empezar);
    return QApplication::exec();
}
