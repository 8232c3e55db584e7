// The settings screen: until it is shown, and a save until it is in force and on the disk.
#include "BancoMedida.h"
#include "Medida.h"
#include "engine/screens/frmZVMonitor.h"
#include "settings/screens/frmCfgMonitor.h"
#include "ui/screens/PintarYa.h"
#include "ui/screens/Tema.h"

#include <QApplication>
#include <QLineEdit>

#include <fcntl.h>
#include <sys/inotify.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// The answers of an operator who always says yes.
class DialogosSi final : public zv::Dialogos {
  public:
    zv::Respuesta MostrarMensaje(const QString& /*titulo*/, const QString& /*texto*/,
                                 zv::EstiloMensaje /*estilo*/) override {
        return zv::Respuesta::Si;
    }
    QString PedirTexto(const QString& /*titulo*/, const QString& /*texto*/,
                       const QString& /*porDefecto*/) override {
        return {};
    }
    zv::Currency PedirImporte(const QString& /*titulo*/, const QString& /*prompt*/,
                              zv::Currency /*porDefecto*/, bool* /*sinImporte*/,
                              bool& cancelado) override {
        cancelado = true;
        return {};
    }
    void CajaSimple(const QString& /*texto*/) override {}
    zv::Impresion ElegirImpresion() override { return zv::Impresion::Nada; }
};

// Files that are made in the folder while it lives: each is one durable write.
class Escrituras {
  public:
    explicit Escrituras(const QString& carpeta) : cola_(::inotify_init1(IN_NONBLOCK)) {
        ::inotify_add_watch(cola_, qPrintable(carpeta), IN_CREATE);
    }
    ~Escrituras() { ::close(cola_); }
    Escrituras(const Escrituras&) = delete;
    Escrituras& operator=(const Escrituras&) = delete;

    int Cuenta() const {
        alignas(inotify_event) char avisos[65536];
        const ssize_t bytes = ::read(cola_, avisos, sizeof avisos);
        int cuenta = 0;
        for (ssize_t i = 0; i < bytes; ++cuenta) {
            const auto* aviso = reinterpret_cast<const inotify_event*>(avisos + i);
            i += static_cast<ssize_t>(sizeof(inotify_event) + aviso->len);
        }
        return cuenta;
    }

  private:
    int cola_;
};

// Beside it: a bare durable write of as many bytes.
double FsyncMs(const QString& carpeta) {
    const QByteArray ruta = QFile::encodeName(carpeta + u"/desnuda"_s);
    const QByteArray bytes(700, 'x');
    return zv::bench::Medir(
               20,
               [&] {
                   const int fichero = ::open(ruta.constData(), O_CREAT | O_TRUNC | O_WRONLY, 0644);
                   if (::write(fichero, bytes.constData(), 700) != 700 || ::fsync(fichero) != 0) {
                       std::exit(EXIT_FAILURE);
                   }
                   ::close(fichero);
               })
               .medianaUs /
           1000;
}

bool Mostrar(zv::Entorno& entorno) {
    constexpr double kLimiteMs = 150;
    const auto medida = zv::bench::Medir(10, [&] {
        zv::CfgMonitor cfg(entorno);
        zv::frmCfgMonitor pantalla(cfg);
        pantalla.show();
        zv::PintarYa(pantalla);
    });
    std::printf("settings screen shown: median %.1f ms, worst %.1f ms (limit: %.0f ms)\n",
                medida.medianaUs / 1000, medida.peorUs / 1000, kLimiteMs);
    return medida.medianaUs / 1000 <= kLimiteMs;
}

bool Guardar(zv::Monitor& monitor, const QString& carpeta) {
    constexpr double kLimiteMs = 50;
    zv::Entorno& entorno = monitor.Partes().entorno;
    int n = 0;
    int escrituras = 0;
    const auto medida = zv::bench::Medir(20, [&] {
        zv::CfgMonitor cfg(entorno);
        ++n;
        cfg.Escribir(zv::CampoCfg::IP, u"10.0.0.%1"_s.arg(n));
        cfg.Conmutar(n % 11);
        const Escrituras hechas(carpeta);
        if (!cfg.Guardar()) {
            std::exit(EXIT_FAILURE);
        }
        escrituras = std::max(escrituras, hechas.Cuenta());
        monitor.Partes().estado.SeguirConfiguracion();
        monitor.Fast().AbrirFast();
    });
    std::printf("settings saved and in force: median %.1f ms, worst %.1f ms (limit: %.0f ms), "
                "durable writes %d (limit: 1)\nbeside it: a bare durable write %.1f ms\n",
                medida.medianaUs / 1000, medida.peorUs / 1000, kLimiteMs, escrituras,
                FsyncMs(carpeta));
    return medida.medianaUs / 1000 <= kLimiteMs && escrituras == 1;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    zv::tema::Aplicar(app);
    const QTemporaryDir carpeta;
    QFile ini(carpeta.filePath(u"ZVMonitor.ini"_s));
    if (!ini.open(QIODevice::WriteOnly)) {
        return EXIT_FAILURE;
    }
    ini.write("[ZVMONITOR]\r\nMODO=MANUAL\r\n[CONECTOR]\r\nZVFastPort=0\r\n");
    ini.close();
    const zv::SystemClock reloj;
    zv::Servicios servicios({carpeta.path(), carpeta.filePath(u"Registro"_s), u"es_ES"_s,
                             u"ZVMonitor"_s, u"127.0.0.1"_s},
                            reloj);
    zv::bench::DispositivoListo cliente;
    DialogosSi dialogos;
    zv::bench::SinProcesos procesos;
    zv::bench::SinShell shell;
    zv::bench::PantallasAbiertas pantallas;
    zv::Monitor monitor(servicios, {cliente, dialogos, procesos, shell, pantallas});
    zv::frmZVMonitor principal(monitor.Partes(), {});
    monitor.PonerVentana(principal);
    if (!monitor.Cargar()) {
        return EXIT_FAILURE;
    }
    monitor.Partes().pulso.ParaTimer();
    const bool mostrada = Mostrar(monitor.Partes().entorno);
    const bool guardada = Guardar(monitor, carpeta.path());
    return mostrada && guardada ? EXIT_SUCCESS : EXIT_FAILURE;
}
