// Texts, amounts and log lines: what every message, cell and step of an operation costs.
#include "BancoMedida.h"
#include "Medida.h"
#include "engine/screens/frmZVMonitor.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QApplication>
#include <QThread>

#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kClaves = 300;
constexpr int kVeces = 20000;
int malas = 0;

void Mostrar(const char* que, double valor, double limite, const char* unidad) {
    std::printf("%s: median %.2f %s (limit: %g %s)\n", que, valor, unidad, limite, unidad);
    if (valor > limite) {
        ++malas;
    }
}

void PonerIdioma(const QString& ruta) {
    QFile fichero(ruta);
    if (!fichero.open(QIODevice::WriteOnly)) {
        std::exit(EXIT_FAILURE);
    }
    fichero.write("[GEN]\r\nFrmCaption=Zorvex\r\n[frmZVMonitor]\r\n");
    for (int i = 0; i <= 12; ++i) {
        fichero.write(u"boton_%1=Button %1\r\n"_s.arg(i).toUtf8());
    }
    fichero.write("[COMMON]\r\n");
    for (int i = 14; i < kClaves; ++i) {
        fichero.write(u"clave%1=Text number %1/CRLF/of many\r\n"_s.arg(i).toUtf8());
    }
}

// One line the way any program would: open, append, close.
double LineaDesnuda(const QByteArray& ruta) {
    const QByteArray linea("v26.5.1 - 18:04:11 - ENVIARZV_INICIO_CHARGE: 1250\r\n");
    const auto medida = zv::bench::Medir(kVeces, [&] {
        const int fd = ::open(ruta.constData(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
        if (fd < 0 || ::write(fd, linea.constData(), static_cast<std::size_t>(linea.size())) < 0) {
            std::exit(EXIT_FAILURE);
        }
        ::close(fd);
    });
    return medida.medianaUs;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    zv::tema::Aplicar(app);
    zv::bench::BancoMedida banco;
    PonerIdioma(banco.carpeta.filePath(u"RWLang.ini"_s));
    zv::Monitor& m = banco.monitor;
    zv::frmZVMonitor pantalla(m.Partes(), {});
    m.PonerVentana(pantalla);
    if (!m.Cargar()) {
        return EXIT_FAILURE;
    }
    m.Partes().pulso.ParaTimer();
    // A file written just now is read again each time: its clock might not show a further change.
    QThread::msleep(100);

    const zv::Textos& textos = banco.servicios.textos;
    std::vector<std::u16string> nombres;
    for (int i = 14; i < kClaves; ++i) {
        nombres.push_back(u"clave%1"_s.arg(i).toStdU16String());
    }
    std::size_t i = 0;
    qsizetype letras = 0;
    const auto traduce = zv::bench::Medir(kVeces, [&] {
        letras += textos.Traduce(zv::Clave(nombres[i], u"Por defecto")).size();
        i = (i + 1) % nombres.size();
    });
    if (letras < kVeces * 20) {
        std::puts("the language file was not read");
        return EXIT_FAILURE;
    }
    Mostrar("Traduce, unchanged file of 300 keys", traduce.medianaUs, 10, "us");

    const auto pantallaEntera =
        zv::bench::Medir(500, [&] { zv::TraducirPantalla(pantalla, textos); });
    Mostrar("TraducirPantalla of the main screen", pantallaEntera.medianaUs / 1000, 2, "ms");

    const double desnuda = LineaDesnuda(QFile::encodeName(banco.carpeta.filePath(u"bare.log"_s)));
    const auto linea = zv::bench::Medir(
        kVeces, [&] { banco.servicios.log.LogLinea(u"ENVIARZV_INICIO_CHARGE: 1250"_s); });
    std::printf("LogLinea: median %.2f us; bare open, append, close: %.2f us\n", linea.medianaUs,
                desnuda);
    Mostrar("LogLinea to the bare line", linea.medianaUs / desnuda, 3, "times");

    const zv::Importes& importes = banco.servicios.importes;
    qint32 importe = 1;
    const auto escribir = zv::bench::Medir(kVeces, [&] {
        letras += importes.FormatoImporte(importe).size();
        importe += 9973;
    });
    Mostrar("FormatoImporte", escribir.medianaUs, 2, "us");
    const QString texto = importes.FormatoImporte(123456789);
    const auto leer = zv::bench::Medir(
        kVeces, [&] { letras += importes.Formato().LeerCurrency(texto).Diezmilesimas() & 1; });
    Mostrar("its reading back", leer.medianaUs, 2, "us");
    return malas == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
