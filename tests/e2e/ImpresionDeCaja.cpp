// A print of the cash office or of the history on the system's printer, with no screen:
// zv_print FOLDER resumen|listado|todo|historial|csv ROWS [TEXT]; csv exports the grid instead. So
// many movements stand in the grid, the concept of the first of them is TEXT. Log and language file
// are those of the folder. What would be told to the operator goes to the standard output.
#include "cashoffice/ImpresionCaja.h"
#include "device/gateway/GatewayClient.h"
#include "platform/StringLiterals.h"
#include "store/ExportarCSV.h"
#include "till/ImpresionHistorial.h"
#include "till/TillGraph.h"
#include "ui/LogFiles.h"
#include "ui/screens/ImpresoraSistema.h"

#include <QApplication>
#include <QElapsedTimer>

#include <cstdio>

namespace zv {
namespace {

class Operador final : public Dialogos {
  public:
    explicit Operador(Impresion eleccion) : eleccion_(eleccion) {}
    Respuesta MostrarMensaje(const QString& titulo, const QString& texto,
                             EstiloMensaje estilo) override {
        std::printf("%s: %s\n", qPrintable(titulo), qPrintable(texto));
        return estilo == EstiloMensaje::SiNo ? Respuesta::Si : Respuesta::Aceptar;
    }
    QString PedirTexto(const QString&, const QString&, const QString&) override { return {}; }
    Currency PedirImporte(const QString&, const QString&, Currency, bool*,
                          bool& cancelado) override {
        cancelado = true;
        return {};
    }
    Impresion ElegirImpresion() override { return eleccion_; }
    void CajaSimple(const QString& texto) override { std::printf("%s\n", qPrintable(texto)); }

  private:
    Impresion eleccion_;
};

class SinPantallas final : public Pantallas {
  public:
    bool Existe(Pantalla) const override { return false; }
    void Abrir(Pantalla) override {}
    void AbrirBalanza(Configuracio&) override {}
    bool ValidarUsuari(qint16, const QString&) override { return false; }
};

// Movement n, from 1 on, sells n + 0,50 in the minute n of the day.
void PonerMovimientos(Rejilla& rejilla, const Importes& importes, int cuantos,
                      const QString& concepto) {
    const QDateTime dia(QDate(2026, 3, 14), QTime(0, 0));
    for (int n = 1; n <= cuantos; ++n) {
        const int fila = rejilla.AñadirFila();
        rejilla.PonerTexto(fila, 0, FechaImpresa(dia.addSecs(60 * n)));
        rejilla.PonerTexto(fila, 1, n == 1 && !concepto.isEmpty() ? concepto : u"Cobro Venta"_s);
        rejilla.PonerTexto(fila, 2, u"TPV1"_s);
        rejilla.PonerTexto(fila, 3, u"Íñigo"_s);
        rejilla.PonerTexto(fila, 4, importes.FormatoImporte(100 * n + 50));
        rejilla.PonerTexto(fila, 5, u"no se imprime"_s);
    }
}

void ImprimirUnCierre(const Rejilla& movimientos, Entorno& entorno, Impresora& impresora) {
    std::vector<Columna> columnas(14);
    Rejilla cierres(columnas);
    const int fila = cierres.AñadirFila();
    for (int columna = 0; columna < 14; ++columna) {
        cierres.PonerTexto(fila, columna, entorno.importes.FormatoImporte(columna * 100));
    }
    cierres.PonerFilaActual(fila);
    const QDateTime dia(QDate(2026, 3, 14), QTime(0, 1));
    ImprimirHistorial({cierres, movimientos, dia, dia.addSecs(60 * movimientos.FilasDatos() - 60)},
                      impresora, entorno.dialogos, entorno.textos, entorno.log);
}

int Ejecutar(const QStringList& argumentos) {
    const QString& carpeta = argumentos.at(1);
    const QString& cual = argumentos.at(2);
    const SystemClock reloj;
    Operador operador(cual == u"resumen"_s   ? Impresion::Resumen
                      : cual == u"listado"_s ? Impresion::Listado
                                             : Impresion::Todo);
    LogFiles log(carpeta, u"ZVMonitor"_s, u"0.0.0"_s, reloj);
    const Textos textos(carpeta);
    RegistryTree registry(carpeta + u"/Registro"_s);
    const Importes importes(FormatoRegional(u"es_ES"_s), [] { return quint8{100}; });
    GatewayClient cliente(log, textos, nullptr);
    SinPantallas pantallas;
    TillGraph graph(
        {carpeta, cliente, registry, log, operador, textos, importes, reloj, pantallas});
    Caja caja(graph.Entorno());
    caja.PrepararRejilla();
    for (int columna = 0; columna < ColumnaCaja::Cuantas; ++columna) {
        caja.grdZV().PonerAncho(columna, 1000);
    }
    PonerMovimientos(caja.grdZV(), importes, argumentos.at(3).toInt(), argumentos.value(4));
    caja.totales.cobros = 123450;
    caja.PonerImporte(&EstadoCaja::lbAbonos, 2000);
    caja.PonerImporte(&EstadoCaja::lbPagos, 5000);
    caja.PonerImporte(&EstadoCaja::lbIngresos, 10000);
    caja.PonerImporte(&EstadoCaja::lbSaldoFinal, 126450);
    caja.PonerImporte(&EstadoCaja::lbCambioMonedas, 4210);
    caja.PonerImporte(&EstadoCaja::lbCambioBilletes, 35000);
    caja.PonerImporte(&EstadoCaja::lbCBMonedas, 1200);
    caja.PonerImporte(&EstadoCaja::lbCBBilletes, 86000);
    caja.PonerImporte(&EstadoCaja::lbSaldoCierre, 39210);

    ImpresoraSistema impresora(u"ZVMonitor"_s);
    QElapsedTimer tiempo;
    tiempo.start();
    if (cual == u"csv"_s) {
        ExportarCSV(caja.grdZV(), u"Caja"_s, carpeta, reloj, operador, textos);
    } else if (cual == u"historial"_s) {
        ImprimirUnCierre(caja.grdZV(), graph.Entorno(), impresora);
    } else {
        ImprimirCaja(caja, impresora);
    }
    std::fprintf(stderr, "%lld ms\n", static_cast<long long>(tiempo.elapsed()));
    return EXIT_SUCCESS;
}

} // namespace
} // namespace zv

int main(int argc, char** argv) {
    const QApplication app(argc, argv);
    const QStringList argumentos = QApplication::arguments();
    if (argumentos.size() < 4) {
        std::fputs("usage: zv_print FOLDER resumen|listado|todo|historial|csv ROWS [TEXT]\n",
                   stderr);
        return EXIT_FAILURE;
    }
    return zv::Ejecutar(argumentos);
}
