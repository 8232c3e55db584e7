// Random operations of a till on a whole shop in one process, and what must hold behind each of
// them. The seed is printed; ZV_SEED repeats a run, ZV_PASOS makes it longer.
#pragma once

#include "LibroCaja.h"
#include "Tienda.h"
#include "cashoffice/OperacionesCaja.h"
#include "platform/RegistryNames.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest.h>
#include <map>
#include <random>
#include <utility>
#include <vector>

namespace zv::test {

enum class Clase { Cola, Enviar, Cambio, Ingreso, Pago, Manual, ManualCero, Grupo, Anular, Caja };

struct Paso {
    Clase clase = Clase::Cola;
    bool autoriza = true;
    qint32 importe = 0;
};

class Dinero : public testing::Test {
  protected:
    Dinero() {
        bool bien = false;
        const unsigned dada = qEnvironmentVariable("ZV_SEED").toUInt(&bien);
        semilla = bien ? dada : std::random_device{}();
        azar.seed(semilla);
        RecordProperty("seed", std::to_string(semilla));
        std::printf("seed %u\n", semilla);
        caja.Abrir(CadenaConexion(u"MDB"_s, {}, RutaBaseDatos(tienda.carpeta.path()), {}, {}));
        tienda.log.alEscribir = [this](const QString& linea) {
            // A reconnection begins: the link comes back, or is gone for longer.
            if (linea.contains(u"DISCONNECT_OK"_s) && perdidas > 0 && --perdidas == 0) {
                tienda.aparador.SinFallos();
            }
        };
    }

    int Entre(int de, int a) { return std::uniform_int_distribution<int>(de, a)(azar); }
    bool UnoDe(int n) { return Entre(1, n) == 1; }
    qint32 Importe() {
        return UnoDe(4) ? Entre(1, 99) : UnoDe(3) ? 500 * Entre(1, 12) : Entre(100, 6000);
    }

    qint64 Suma(const QString& sql) {
        const std::vector<Row> filas = tienda.Database().Consultar(sql);
        return filas.front().LeerCurrency(0).AEntero32();
    }
    qint64 Libros() { return Suma(u"SELECT Sum(cobrado-devuelto) AS s FROM procesados"_s); }
    int Accesos() {
        return tienda.Database()
            .Consultar(u"SELECT Count(*) AS n FROM Accesos"_s)
            .front()
            .LeerLong(0);
    }
    std::vector<qint32> Cola() {
        std::vector<qint32> ids;
        for (const Row& fila : tienda.Database().Consultar(
                 u"SELECT idZV FROM cola WHERE id1 LIKE 'V%' ORDER BY idZV"_s)) {
            ids.push_back(fila.LeerLong(0));
        }
        return ids;
    }
    // As a point of sale does it, on a connection of its own that waits for its turn.
    void Vender(qint32 importe) {
        caja.Comenzar(std::chrono::seconds(30));
        caja.Ejecutar(u"INSERT INTO cola (fecha,importe,id1,id2,idcaja,terminal,vendedor,formapago,"
                      "creditoError,manual) VALUES (?,?,?,?,?,?,?,?,?,?)"_s,
                      {u"2026-03-14 10:20:30"_s, importe, u"V"_s + QString::number(++ventas),
                       u"L"_s, 1, u"TPV"_s + QString::number(Entre(1, 3)), u"Ana"_s, u"EFECTIVO"_s,
                       0, false});
        caja.Confirmar();
    }

    // Faults of one operation; perdidas is how many reconnections begin before the link is back.
    QString Fallo(const QString& punto) {
        perdidas = 0;
        switch (Entre(1, 24)) {
        case 1:
            return punto + u":error=12"_s;
        case 2:
            return punto + u":error=31"_s;
        case 3:
            return punto + u":error=4"_s;
        case 4:
            return punto + u":error=27"_s;
        case 5:
            return punto + u":parcial=27"_s;
        case 6:
            return punto + u":parcial=31"_s;
        case 7:
            return punto + u":atasco"_s;
        case 8:
        case 9:
            return punto + u":cancelar"_s;
        case 10:
            return punto + u":nolisto=33"_s;
        case 11:
            return punto + u"#1:cortar=antes"_s;
        case 12:
            return punto + u":cortar=durante"_s;
        case 13:
            return punto + u":cortar=despues"_s;
        case 14:
        case 15:
        case 16: {
            // Gone for good: code 1. The link comes back with the n-th reconnection, or not by
            // itself at all.
            perdidas = Entre(0, 1);
            const QStringList cuando{u"antes"_s, u"durante"_s, u"despues"_s};
            return punto + u"#1:cortar="_s + cuando.at(Entre(0, 2)) + u",conexion:rechazar"_s;
        }
        default:
            return {};
        }
    }

    // The row of the grid that shows the id; 0 when it does not.
    int FilaDe(qint32 id) {
        const Rejilla& celdas = tienda.Partes().grid.Celdas();
        for (int fila = 1; fila <= celdas.FilasDatos(); ++fila) {
            if (celdas.Texto(fila, ColumnaCola::IdCola) == QString::number(id)) {
                return fila;
            }
        }
        return 0;
    }
    void Tocar(qint32 id, int columna) {
        const int fila = FilaDe(id);
        if (fila > 0) {
            tienda.Partes().clic.grdZV_MouseUp(fila, columna, false);
        }
    }
    void Tick() { tienda.Partes().pulso.ProcesarCola(); }

    // ---- the cash office
    void IrACaja();
    void Movimientos(int cuantos);
    QString FalloDeCaja(BotonCaja primero);
    void VisitarCaja(BotonCaja primero);
    void ObrarEnCaja(Caja& pantalla, OperacionesCaja& operaciones, BotonCaja boton);
    EfectoCaja Efecto(Contestaciones& r, BotonCaja boton) const;
    void ComprobarEfecto(const EfectoCaja& efecto, qint32 ultimo);
    void ComprobarNumeros(const EfectoCaja& efecto);
    Contestaciones TomarContestaciones() {
        return Contestaciones(std::exchange(tienda.espia->contestaciones, {}));
    }
    void TomarVista(Contestaciones& r) {
        vista.dinero = r.Refresco();
        vista.totales = PeriodoAbierto(caja);
        vista.saldoInicial = EnRegistro(registry_name::kSaldoInicial);
    }
    qint64 EnRegistro(const RegistryName& nombre) {
        return tienda.registry.LeerValor(nombre, u"0"_s).toLongLong();
    }
    // What the tables of the periods look like to another program.
    struct Periodos {
        qint64 abiertas = 0;
        qint64 cierres = 0;
        qint64 ultimoCierre = 0;
        qint64 enUltimo = 0; // records of that close
        qint64 suma = 0;     // of all records that belong to a close
    };
    Periodos LeerPeriodos() {
        const auto uno = [this](const QString& sql) {
            return caja.Consultar(sql).front().Valor(0).toLongLong();
        };
        Periodos p;
        p.abiertas = uno(u"SELECT count(*) FROM procesados WHERE idCierre=0"_s);
        p.cierres = uno(u"SELECT count(*) FROM cierres"_s);
        p.ultimoCierre = uno(u"SELECT coalesce(max(idCierre),0) FROM cierres"_s);
        p.enUltimo = uno(u"SELECT count(*) FROM procesados WHERE idCierre<>0 AND idCierre="_s +
                         QString::number(p.ultimoCierre));
        p.suma = uno(u"SELECT coalesce(sum(idZV*idCierre),0) FROM procesados WHERE idCierre<>"_s +
                     QString::number(p.ultimoCierre));
        return p;
    }

    Paso Elegir();
    void Obrar(const Paso& paso);
    void Agrupar();
    void DejarEnReposo();
    // Right behind an operation in which no statement failed.
    void ComprobarFinal();
    void Comprobar(const Paso& paso, const QStringList& lineas);
    void ComprobarCierres(const QStringList& lineas);
    void ComprobarRegistros(const QStringList& lineas);
    void DarUnPaso(bool conFallosDeBase);
    void Correr(int pasos);

    Tienda tienda;
    SqliteEngine caja; // a point of sale
    std::mt19937 azar;
    unsigned semilla = 0;
    int ventas = 0;
    int perdidas = 0;
    qint64 dinero = 0;
    qint64 libros = 0;
    std::map<Clase, int> cuantas;
    std::map<QString, int> finales; // how often an operation ended how
    int excepciones = 0;            // ends that the books tell in another way
    bool fallida = false;           // a statement of this step has failed
    int fallidas = 0;               // steps with one
    int reinicios = 0;
    int accesos = 0;
    int paradas = 0;           // the pulse stood stopped behind a touch without a device
    VistaLibro vista;          // what the cash office ought to show
    Periodos periodos;         // before its next operation
    qint64 netoCaja = 0;       // what it has filed in this step
    int cierres = 0;           // that the log calls committed
    bool fallosEnCaja = false; // the device was told to fail in this step
    bool cuentaMal = false;    // it counts wrong, until a reconciling run has mended it
};

} // namespace zv::test
