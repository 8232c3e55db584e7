// Filing a sale: AñadirColaProcesada in its transaction, beside the same rows read, written and
// deleted by bare sqlite3 calls with the same durability, taken in turns in the same run.
#include "Desnuda.h"
#include "Medida.h"
#include "store/ConexionBD.h"
#include "store/Esquema.h"
#include "store/OperacionesRegistro.h"
#include "store/sqlite/SqliteEngine.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int kVeces = 1000;
constexpr double kLimite = 2.0;

class LogNulo final : public zv::Log {
  public:
    void LogLinea(const QString&) override {}
    void LogFast(const QString&) override {}
};

class DialogosNulos final : public zv::Dialogos {
  public:
    zv::Respuesta MostrarMensaje(const QString&, const QString&, zv::EstiloMensaje) override {
        std::exit(EXIT_FAILURE);
    }
    QString PedirTexto(const QString&, const QString&, const QString&) override { return {}; }
    zv::Currency PedirImporte(const QString&, const QString&, zv::Currency, bool*, bool&) override {
        return {};
    }
    void CajaSimple(const QString&) override { std::exit(EXIT_FAILURE); }
    zv::Impresion ElegirImpresion() override { return zv::Impresion::Nada; }
};

class FirmaFija final : public zv::Firma {
  public:
    bool UsuarioFast() const override { return true; }
    QString GetNom() const override { return {}; }
};

// A database of its own with that many rows queued, keys from 1.
QString Preparar(const QString& carpeta) {
    LogNulo log;
    DialogosNulos dialogos;
    const zv::Textos textos(carpeta);
    zv::SqliteEngine motor;
    zv::CrearBaseDatos(motor, carpeta, log, dialogos, textos);
    QString ruta = zv::RutaBaseDatos(carpeta);
    motor.Abrir(zv::CadenaConexion(u"MDB"_s, {}, ruta, {}, {}));
    motor.Comenzar();
    for (int i = 0; i < kVeces; ++i) {
        motor.Ejecutar(
            u"INSERT INTO cola (fecha,importe,id1,id2,idcaja,terminal,vendedor,formapago,"
            "creditoError) VALUES ('2026-03-14 18:00:00',1250,'T000123','R2',3,'TPV 1','Ana',"
            "'Efectivo',0)"_s);
    }
    motor.Confirmar();
    return ruta;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    // Beside the program: a temporary folder may be in memory, where nothing is durable.
    const QTemporaryDir unaCarpeta(u"bench-XXXXXX"_s);
    const QTemporaryDir otraCarpeta(u"bench-XXXXXX"_s);
    const QString una = Preparar(unaCarpeta.path());
    zv::bench::Desnuda desnuda(Preparar(otraCarpeta.path()));

    LogNulo log;
    DialogosNulos dialogos;
    const FirmaFija firma;
    const zv::SystemClock reloj;
    const zv::Importes importes(zv::FormatoRegional(u"es_ES"_s), [] { return quint8{100}; });
    zv::SqliteEngine motor;
    motor.Abrir(zv::CadenaConexion(u"MDB"_s, {}, una, {}, {}));
    zv::OperacionesRegistro ops(motor, log, dialogos, firma, importes, reloj);

    std::vector<double> nuestros;
    std::vector<double> desnudos;
    for (int id = 1; id <= kVeces; ++id) {
        nuestros.push_back(zv::bench::Medir(1, [&] {
                               motor.Comenzar();
                               if (ops.AñadirColaProcesada(u"ENVIARCOLA"_s, id, u"OK"_s, 2000, 750,
                                                           123456, {}) <= 0) {
                                   std::fputs("filing failed\n", stderr);
                                   std::exit(EXIT_FAILURE);
                               }
                               motor.Confirmar();
                           }).medianaUs);
        desnudos.push_back(zv::bench::Medir(1, [&] { desnuda.Archivar(id); }).medianaUs);
    }
    const auto nuestro = zv::bench::Resumir(std::move(nuestros));
    const auto desnudo = zv::bench::Resumir(std::move(desnudos));

    const quint64 marca = motor.ChangeStamp();
    const auto marcas = zv::bench::Medir(20000, [&] {
        if (motor.ChangeStamp() != marca) {
            std::exit(EXIT_FAILURE);
        }
    });

    const double razon = nuestro.medianaUs / desnudo.medianaUs;
    std::printf("filing a sale, %d times: median %.0f us, worst %.0f us\n", kVeces,
                nuestro.medianaUs, nuestro.peorUs);
    std::printf("the same by bare sqlite3:  median %.0f us, worst %.0f us\n", desnudo.medianaUs,
                desnudo.peorUs);
    std::printf("ratio of the medians: %.2f (limit %.1f)\n", razon, kLimite);
    std::printf("mark of changes: median %.1f us (limit 5)\n", marcas.medianaUs);
    return razon <= kLimite && marcas.medianaUs <= 5 ? EXIT_SUCCESS : EXIT_FAILURE;
}
