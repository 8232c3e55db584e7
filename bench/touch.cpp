// From the moment a finger leaves the picture "Enviar" until the device receives the charge:
// bench_touch DEVICE TRACE-OF-THE-SIMULATOR SALES. The whole program in one process, so that the
// touch is timed where it arrives; a simulator with a customer must be at work behind DEVICE.
#include "Medida.h"
#include "app/screens/Programa.h"
#include "platform/StringLiterals.h"
#include "ui/screens/Tema.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <ctime>

using namespace zv;

namespace {

constexpr double kLimiteMs = 10;
constexpr int kFilas = 20; // always in the queue

double AhoraUs() {
    timespec t{};
    clock_gettime(CLOCK_REALTIME, &t);
    return static_cast<double>(t.tv_sec) * 1e6 + static_cast<double>(t.tv_nsec) / 1e3;
}

[[noreturn]] void Fin(const char* texto) {
    std::fprintf(stderr, "%s\n", texto);
    std::exit(EXIT_FAILURE);
}

// Microseconds of the last charge that the simulator has received.
double InicioEn(QFile& traza) {
    QByteArray ultimo;
    while (!traza.atEnd()) {
        const QList<QByteArray> campos = traza.readLine().trimmed().split(' ');
        if (campos.size() >= 4 && campos[0] == "inicio" && campos[1] == "charge.start") {
            ultimo = campos[3];
        }
    }
    if (ultimo.isEmpty()) {
        Fin("no charge reached the device");
    }
    return static_cast<double>(ultimo.toLongLong()) / 1e3;
}

void Girar(int milisegundos) {
    QElapsedTimer reloj;
    for (reloj.start(); reloj.elapsed() < milisegundos;) {
        QApplication::processEvents(QEventLoop::AllEvents, 5);
    }
}

void Soltar(QWidget& vista, QPoint donde, QEvent::Type tipo) {
    const bool abajo = tipo == QEvent::MouseButtonPress;
    QMouseEvent evento(tipo, donde, vista.mapToGlobal(donde), Qt::LeftButton,
                       abajo ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    // Two quick touches would count as one: the customers come a second apart by the events' clock.
    static quint64 ahoraMs = 0;
    evento.setTimestamp(abajo ? ahoraMs += 1000 : ahoraMs);
    QApplication::sendEvent(&vista, &evento);
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    tema::Aplicar(app);
    const QStringList argumentos = QCoreApplication::arguments();
    if (argumentos.size() != 4) {
        Fin("usage: bench_touch DEVICE TRACE SALES");
    }
    QTemporaryDir carpeta;
    QFile ini(carpeta.filePath(u"ZVMonitor.ini"_s));
    QFile traza(argumentos.at(2));
    if (!ini.open(QIODevice::WriteOnly) || !traza.open(QIODevice::ReadOnly)) {
        Fin("the files do not open");
    }
    ini.write("[ZORVEX]\r\nIP=" + argumentos.at(1).toLatin1() +
              "\r\n[ZVMONITOR]\r\nMODO=MANUAL\r\n[CONECTOR]\r\nZVFastActive=0\r\n");
    ini.close();

    const SystemClock reloj;
    Programa programa({carpeta.path(), carpeta.filePath(u"Registro"_s), u"es_ES"_s, u"ZVMonitor"_s},
                      reloj);
    // The balance of the device is none of this folder's: its message is answered at once.
    QTimer respuestas;
    QObject::connect(&respuestas, &QTimer::timeout, &app, [] {
        if (auto* dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            dialogo->reject();
        }
    });
    respuestas.start(50);
    if (!programa.Arrancar() || !programa.Monitor().Partes().entorno.supervision.Conectado()) {
        Fin("no device");
    }
    respuestas.stop();
    const PartesMonitor& partes = programa.Monitor().Partes();
    DatabaseEngine& motor = partes.entorno.Database();
    const VistaRejilla& grdZV = *programa.Pantalla().Diseno().grdZV;

    const int ventas = argumentos.at(3).toInt();
    std::vector<double> esperas;
    for (int i = 0; i < ventas; ++i) {
        while (partes.grid.FilasDatos() < kFilas) {
            motor.Ejecutar(u"INSERT INTO cola (fecha,importe,id1,terminal) VALUES "
                           "('2026-03-14 10:20:30',500,'T','TPV1')"_s);
            Girar(5);
        }
        Girar(20); // between two customers
        traza.seek(traza.size());
        QWidget& vista = *grdZV.viewport();
        const QPoint donde =
            grdZV.visualRect(grdZV.model()->index(i % kFilas % 8, ColumnaCola::Enviar)).center();
        Soltar(vista, donde, QEvent::MouseButtonPress);
        Girar(2); // the pressed picture is drawn
        const double antes = AhoraUs();
        Soltar(vista, donde, QEvent::MouseButtonRelease);
        esperas.push_back(InicioEn(traza) - antes);
    }
    const auto medida = bench::Resumir(std::move(esperas));
    std::printf(
        "a touch on \"Enviar\" to Charge at the device, %d sales, %d rows in the grid: median "
        "%.2f ms, worst %.2f ms (limit: median %.0f ms)\n",
        ventas, kFilas, medida.medianaUs / 1000, medida.peorUs / 1000, kLimiteMs);
    const auto pregunta = bench::Medir(200, [&partes] {
        QString noms;
        QString levels;
        bool bien = false;
        partes.entorno.cliente.GetLevels(2, noms, levels, bien);
    });
    std::printf("beside it: asking the device for its levels, there and back, median %.2f ms\n",
                pregunta.medianaUs / 1000);
    std::fflush(stdout);
    std::_Exit(medida.medianaUs / 1000 <= kLimiteMs ? EXIT_SUCCESS : EXIT_FAILURE);
}
