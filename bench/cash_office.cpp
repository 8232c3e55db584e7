// The cash office's refresh over a million records, and a period of 20,000 movements on the screen.
#include "BancoMedida.h"
#include "Medida.h"
#include "cashoffice/screens/frmCaja.h"
#include "engine/screens/frmZVMonitor.h"
#include "ui/screens/Tema.h"

#include <QApplication>
#include <QFile>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

using Reloj = std::chrono::steady_clock;

double MsDesde(Reloj::time_point inicio) {
    return std::chrono::duration<double, std::milli>(Reloj::now() - inicio).count();
}

class Base {
  public:
    explicit Base(const QString& ruta) {
        if (sqlite3_open(ruta.toUtf8().constData(), &base_) != SQLITE_OK) {
            std::exit(EXIT_FAILURE);
        }
    }
    ~Base() { sqlite3_close(base_); }
    Base(const Base&) = delete;
    Base& operator=(const Base&) = delete;

    void Hacer(const QString& sql) const {
        char* mal = nullptr;
        if (sqlite3_exec(base_, sql.toUtf8().constData(), nullptr, nullptr, &mal) != SQLITE_OK) {
            std::fprintf(stderr, "sqlite3: %s\n", mal);
            std::exit(EXIT_FAILURE);
        }
    }
    // So many records of sales; the last ones open.
    void Llenar(int filas, int abiertas) const {
        Hacer(u"DELETE FROM procesados"_s);
        Hacer(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<%1) "
              "INSERT INTO procesados (fechaZV,fechaVenta,importeVenta,cobrado,devuelto,saldoZV,"
              "estado,id1,id2,idcaja,terminal,vendedor,formapago,error,idCierre,idcola,usuario) "
              "SELECT '2026-03-14 10:20:30','2026-03-14 10:20:31',1000+i%977,2000+i%977,1000,"
              "123456,'OK','T'||i,'A-17',1,'TPV1','Ana','EFECTIVO','',"
              "CASE WHEN i>%2 THEN 0 ELSE 1+i/300 END,i,'ANA' FROM n"_s.arg(filas)
                  .arg(filas - abiertas));
    }
    // A bare scan for open rows.
    double ScanMs() const {
        return zv::bench::Medir(10,
                                [&] {
                                    Hacer(u"SELECT count(*),sum(cobrado) FROM procesados WHERE "
                                          "idCierre=0"_s);
                                })
                   .medianaUs /
               1000;
    }

  private:
    sqlite3* base_ = nullptr;
};

double MemoriaMB() {
    QFile estado(u"/proc/self/status"_s);
    if (!estado.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const QByteArray todo = estado.readAll();
    const qsizetype donde = todo.indexOf("VmRSS:");
    return todo.mid(donde + 6, 20).trimmed().split(' ').first().toDouble() / 1024;
}

bool Millon(const Base& base, zv::Entorno& entorno) {
    constexpr double kLimiteMs = 100;
    base.Llenar(1000000, 300);
    zv::Caja caja(entorno);
    const auto medida = zv::bench::Medir(10, [&] { caja.RefrescarCaja(); });
    std::printf("RefrescarCaja, 1,000,000 records, %d of them open: median %.1f ms, worst %.1f ms "
                "(limit: %.0f ms)\nbeside it: a bare scan for the open ones %.1f ms\n",
                caja.totales.movimientos, medida.medianaUs / 1000, medida.peorUs / 1000, kLimiteMs,
                base.ScanMs());
    return medida.medianaUs / 1000 <= kLimiteMs && caja.totales.movimientos == 300;
}

// When the window was painted last, and how long it ever waited for it.
class Pinturas final : public QObject {
  public:
    explicit Pinturas(QWidget& ventana) { ventana.installEventFilter(this); }
    bool eventFilter(QObject* /*objeto*/, QEvent* evento) override {
        if (evento->type() == QEvent::Paint) {
            mayorEsperaMs = std::max(mayorEsperaMs, MsDesde(ultima_));
            ultima_ = Reloj::now();
        }
        return false;
    }
    double mayorEsperaMs = 0;

  private:
    Reloj::time_point ultima_ = Reloj::now();
};

// What the screen is like while a long period comes up.
bool Larga(const Base& base, zv::Entorno& entorno, int abiertas) {
    base.Llenar(1000000, abiertas);
    const double antesMB = MemoriaMB();
    zv::Caja caja(entorno);
    zv::frmCaja pantalla(caja, {});
    const auto inicio = Reloj::now();
    const Pinturas pinturas(pantalla);
    double desplazableMs = 0;
    pantalla.show();
    while (caja.totales.movimientos == 0 || caja.Estado().rellenados < caja.totales.movimientos) {
        QApplication::processEvents();
        pantalla.repaint();
        if (desplazableMs == 0 && caja.grdZV().HaySiguiente()) {
            desplazableMs = MsDesde(inicio);
        }
    }
    const double todoMs = MsDesde(inicio);
    const double memoriaMB = MemoriaMB() - antesMB;
    std::printf("the screen, 1,000,000 records, %d of them open: can be scrolled after %.0f ms "
                "(limit: 250 ms), all in place after %.0f ms (limit: 1000 ms), longest wait for a "
                "repaint %.0f ms (limit: 100 ms), %.1f MB more (limit: 60 MB)\n",
                caja.totales.movimientos, desplazableMs, todoMs, pinturas.mayorEsperaMs, memoriaMB);
    return desplazableMs <= 250 && todoMs <= 1000 && pinturas.mayorEsperaMs <= 100 &&
           memoriaMB <= 60;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    zv::tema::Aplicar(app);
    zv::bench::BancoMedida banco;
    zv::Monitor& m = banco.monitor;
    zv::frmZVMonitor principal(m.Partes(), {});
    m.PonerVentana(principal);
    if (!m.Cargar()) {
        return EXIT_FAILURE;
    }
    m.Partes().pulso.ParaTimer();
    const Base base(banco.RutaBase());
    const bool millon = Millon(base, m.Partes().entorno);
    const bool larga = Larga(base, m.Partes().entorno, 20000);
    return millon && larga ? EXIT_SUCCESS : EXIT_FAILURE;
}
