// Filing a sale: AñadirColaProcesada in its transaction, beside the same rows read, written and
// deleted by bare sqlite3 calls with the same durability, taken in turns in the same run.
#include "Medida.h"
#include "store/ConexionBD.h"
#include "store/Esquema.h"
#include "store/OperacionesRegistro.h"
#include "store/sqlite/SqliteEngine.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <sqlite3.h>

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
};

class FirmaFija final : public zv::Firma {
  public:
    bool UsuarioFast() const override { return true; }
    QString GetNom() const override { return {}; }
};

class Desnuda {
  public:
    explicit Desnuda(const QString& ruta) {
        Exigir(sqlite3_open(ruta.toUtf8().constData(), &base_) == SQLITE_OK);
        Hacer("PRAGMA journal_mode=WAL");
        Hacer("PRAGMA synchronous=FULL");
        leer_ = Preparar("SELECT * FROM cola WHERE idZV=?");
        comenzar_ = Preparar("BEGIN IMMEDIATE");
        clave_ = Preparar("SELECT max(coalesce((SELECT max(idZV) FROM procesados),0),coalesce(("
                          "SELECT seq FROM sqlite_sequence WHERE name='Procesados'),0))+1");
        insertar_ = Preparar("INSERT INTO procesados (idZV,fechaZV,fechaVenta,importeVenta,cobrado,"
                             "devuelto,estado,id1,id2,idcaja,terminal,vendedor,formapago,error,"
                             "idCierre,saldoZV,idcola,usuario) VALUES "
                             "(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
        borrar_ = Preparar("DELETE FROM cola WHERE idZV=?");
        confirmar_ = Preparar("COMMIT");
    }
    ~Desnuda() {
        for (sqlite3_stmt* s : {leer_, comenzar_, clave_, insertar_, borrar_, confirmar_}) {
            sqlite3_finalize(s);
        }
        sqlite3_close(base_);
    }
    Desnuda(const Desnuda&) = delete;
    Desnuda& operator=(const Desnuda&) = delete;

    void Archivar(sqlite3_int64 id) {
        Correr(comenzar_);
        sqlite3_bind_int64(leer_, 1, id);
        Exigir(sqlite3_step(leer_) == SQLITE_ROW);
        Exigir(sqlite3_step(clave_) == SQLITE_ROW);
        sqlite3_bind_int64(insertar_, 1, sqlite3_column_int64(clave_, 0));
        Texto(2, "2026-03-14 18:04:11");
        Texto(3, "2026-03-14 18:04:11");
        sqlite3_bind_int64(insertar_, 4, sqlite3_column_int64(leer_, 2));
        sqlite3_bind_int64(insertar_, 5, 2000);
        sqlite3_bind_int64(insertar_, 6, 750);
        Texto(7, "OK");
        // id1, id2, idcaja, terminal, vendedor, formapago stand in the same order in both tables.
        for (int i = 0; i < 6; ++i) {
            sqlite3_bind_value(insertar_, 8 + i, sqlite3_column_value(leer_, 3 + i));
        }
        Texto(14, "");
        sqlite3_bind_int64(insertar_, 15, 0);
        sqlite3_bind_int64(insertar_, 16, 123456);
        sqlite3_bind_int64(insertar_, 17, id);
        Texto(18, "ZVFast");
        sqlite3_reset(leer_);
        sqlite3_reset(clave_);
        Correr(insertar_);
        sqlite3_bind_int64(borrar_, 1, id);
        Correr(borrar_);
        Correr(confirmar_);
    }

  private:
    static void Exigir(bool bien) {
        if (!bien) {
            std::fputs("sqlite3 failed\n", stderr);
            std::exit(EXIT_FAILURE);
        }
    }
    void Hacer(const char* sql) {
        Exigir(sqlite3_exec(base_, sql, nullptr, nullptr, nullptr) == SQLITE_OK);
    }
    sqlite3_stmt* Preparar(const char* sql) {
        sqlite3_stmt* sentencia = nullptr;
        Exigir(sqlite3_prepare_v2(base_, sql, -1, &sentencia, nullptr) == SQLITE_OK);
        return sentencia;
    }
    static void Correr(sqlite3_stmt* sentencia) {
        Exigir(sqlite3_step(sentencia) == SQLITE_DONE);
        sqlite3_reset(sentencia);
    }
    void Texto(int posicion, const char* texto) {
        sqlite3_bind_text(insertar_, posicion, texto, -1, SQLITE_STATIC);
    }

    sqlite3* base_ = nullptr;
    sqlite3_stmt* leer_ = nullptr;
    sqlite3_stmt* comenzar_ = nullptr;
    sqlite3_stmt* clave_ = nullptr;
    sqlite3_stmt* insertar_ = nullptr;
    sqlite3_stmt* borrar_ = nullptr;
    sqlite3_stmt* confirmar_ = nullptr;
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
    Desnuda desnuda(Preparar(otraCarpeta.path()));

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
