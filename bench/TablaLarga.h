// What the measurements of screens over long tables share: the table, the time between two
// repaints, the memory, and a monitor whose queue rests.
#pragma once

#include "BancoMedida.h"
#include "Medida.h"
#include "engine/screens/frmZVMonitor.h"
#include "ui/screens/Tema.h"

#include <QApplication>
#include <QFile>

#include <sqlite3.h>

namespace zv::bench {

using Reloj = std::chrono::steady_clock;

inline double MsDesde(Reloj::time_point inicio) {
    return std::chrono::duration<double, std::milli>(Reloj::now() - inicio).count();
}

class TablaLarga {
  public:
    explicit TablaLarga(const QString& ruta) {
        if (sqlite3_open(ruta.toUtf8().constData(), &base_) != SQLITE_OK) {
            std::exit(EXIT_FAILURE);
        }
    }
    ~TablaLarga() { sqlite3_close(base_); }
    TablaLarga(const TablaLarga&) = delete;
    TablaLarga& operator=(const TablaLarga&) = delete;

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
        return Medir(10,
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

inline double MemoriaMB() {
    QFile estado(u"/proc/self/status"_s);
    if (!estado.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const QByteArray todo = estado.readAll();
    const qsizetype donde = todo.indexOf("VmRSS:");
    return todo.mid(donde + 6, 20).trimmed().split(' ').first().toDouble() / 1024;
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

// Runs a measurement with a table and the parts of a monitor that has loaded; the exit code of the
// program.
template <typename F>
int ConTabla(int argc, char** argv, F&& medir) {
    QApplication app(argc, argv);
    tema::Aplicar(app);
    BancoMedida banco;
    frmZVMonitor principal(banco.monitor.Partes(), {});
    banco.monitor.PonerVentana(principal);
    if (!banco.monitor.Cargar()) {
        return EXIT_FAILURE;
    }
    banco.monitor.Partes().pulso.ParaTimer();
    return medir(TablaLarga(banco.RutaBase()), banco.monitor.Partes().entorno) ? EXIT_SUCCESS
                                                                               : EXIT_FAILURE;
}

} // namespace zv::bench
