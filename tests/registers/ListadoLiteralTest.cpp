// The streamed reading of a register against a literal walk over the whole table, with every
// column, row by row, on random tables. The seed of each is told; ZV_SEMILLA runs one alone.
#include "BancoListado.h"

#include <random>

namespace zv::test {
namespace {

struct Paseo {
    std::vector<QStringList> filas;
    Currency cobros, pagos;
};

// Written from the rules of the registers, not from the program.
QString Operacion(const Row& r, const Importes& importes) {
    const QString id1 = r.LeerTexto(u"id1"_s);
    const QString id2 = r.LeerTexto(u"id2"_s);
    const QString error = r.LeerTexto(u"error"_s);
    if (importes.Formato().EsNumerico(id1)) {
        return id2.isEmpty() ? id1 : id1 + u"/"_s + id2;
    }
    const bool soloDevuelto =
        r.LeerCurrency(u"devuelto"_s) > Currency(0) && r.LeerCurrency(u"cobrado"_s) == Currency(0);
    if (id1 == u"COBRO_MANUAL"_s) {
        return (soloDevuelto ? u"Abono Manual"_s : u"Cobro Manual"_s) + error;
    }
    if (id1 == u"PAGO"_s) {
        return u"Pago"_s + error;
    }
    if (id1 == u"VACIADO"_s) {
        return (u"VACIADO "_s + r.LeerTexto(u"formapago"_s)).trimmed();
    }
    static const std::pair<QString, QString> kFijos[] = {
        {u"CASHBOXCONTROL"_s, u"Ajuste por descuadre"_s},
        {u"VACIADOCAJONES"_s, u"Vaciado de cajones"_s},
        {u"ARQUEOCAJA"_s, u"Arqueo de caja"_s},
        {u"METER_CAMBIO"_s, u"Cambio añadido"_s},
        {u"PAGO_CAMBIO"_s, u"Cambio cancelado/no autorizado"_s},
        {u"DAR_CAMBIO"_s, u"Cambio"_s}};
    for (const auto& [cual, concepto] : kFijos) {
        if (id1 == cual) {
            return concepto;
        }
    }
    return soloDevuelto ? u"Abono agrupado"_s : u"Cobro agrupado"_s;
}

Paseo Pasear(DatabaseEngine& motor, const Importes& importes, bool incidencias) {
    Paseo p;
    for (const Row& r : motor.Consultar(u"SELECT * FROM procesados ORDER BY idZV"_s)) {
        const QString estado = r.LeerTexto(u"estado"_s);
        if (r.EsNulo(u"idCierre"_s) || r.EsNulo(u"estado"_s) || r.LeerLong(u"idCierre"_s) != 0 ||
            (estado == u"OK"_s) == incidencias) {
            continue;
        }
        const QDateTime fecha = r.LeerFecha(u"fechaZV"_s);
        const QString usuario = r.LeerTexto(u"usuario"_s);
        const auto importe = [&](const QString& columna) {
            return importes.FormatoImporte(r.LeerCurrency(columna));
        };
        p.filas.push_back({QString(), QString::number(r.LeerLong(u"idZV"_s)),
                           fecha.isValid() ? fecha.toString(u"dd/MM/yy HH:mm:ss"_s) : QString(),
                           Operacion(r, importes), usuario == u"Nulo"_s ? QString() : usuario,
                           r.LeerTexto(u"terminal"_s), r.LeerTexto(u"vendedor"_s),
                           r.LeerTexto(u"formapago"_s), importe(u"importeVenta"_s),
                           importe(u"cobrado"_s), importe(u"devuelto"_s),
                           incidencias ? estado : QString(), r.LeerTexto(u"error"_s), QString()});
        if (r.LeerCurrency(u"importeVenta"_s) > Currency(0)) {
            p.cobros += r.LeerCurrency(u"cobrado"_s);
        } else {
            p.pagos += r.LeerCurrency(u"devuelto"_s).Absoluto();
        }
    }
    return p;
}

class Azar {
  public:
    explicit Azar(unsigned semilla) : motor_(semilla) {}
    int Hasta(int n) { return std::uniform_int_distribution<>(0, n - 1)(motor_); }
    template <typename T, std::size_t N>
    const T& De(const T (&lista)[N]) {
        return lista[static_cast<std::size_t>(Hasta(static_cast<int>(N)))];
    }
    QVariant Importe() {
        static const QVariant kRaros[] = {QVariant(), 0, 0, 1, -1, 0.5, -12.3456};
        return Hasta(4) == 0 ? De(kRaros) : QVariant(Hasta(20000) - 5000);
    }

  private:
    std::mt19937 motor_;
};

class ListadoLiteralTest : public BancoListado {
  protected:
    void LlenarTabla(Azar& azar) {
        static const QVariant kEstados[] = {u"OK"_s,     u"OK"_s,        u"ERROR"_s, u"ok"_s,
                                            u"CANCEL"_s, u"REENVIADO"_s, QString(),  QVariant()};
        static const QVariant kCierres[] = {0, 0, 0, 0, -1, 7, QVariant()};
        static const QVariant kIds[] = {
            u"1001"_s,           u"12,5"_s,           u"1.000"_s,        u"T-77"_s,
            u"COBRO_MANUAL"_s,   u"CASHBOXCONTROL"_s, u"METER_CAMBIO"_s, u"PAGO_CAMBIO"_s,
            u"DAR_CAMBIO"_s,     u"PAGO"_s,           u"pago"_s,         u"VACIADO"_s,
            u"VACIADOCAJONES"_s, u"ARQUEOCAJA"_s,     QString(),         QVariant()};
        static const QVariant kTextos[] = {u"propina"_s, u"José"_s, u"Nulo"_s, QString(),
                                           QVariant()};
        static const QVariant kTerminales[] = {u"ZV"_s, u"TPV1"_s, QVariant()};
        static const QVariant kFechas[] = {u"2026-03-14 09:05:03"_s, u"2026-12-31 23:59:59"_s,
                                           46095.5, QVariant()};
        motor.Comenzar();
        for (int i = 0; i < 120; ++i) {
            Poner({azar.De(kFechas), azar.Importe(), azar.Importe(), azar.Importe(),
                   azar.De(kEstados), azar.De(kIds), azar.De(kTextos), azar.De(kTerminales),
                   azar.De(kTextos), azar.De(kTextos), azar.De(kTextos), azar.De(kCierres),
                   azar.De(kTextos)});
        }
        motor.Confirmar();
    }
};

TEST_F(ListadoLiteralTest, RandomTables) {
    const int sola = qEnvironmentVariableIntValue("ZV_SEMILLA");
    std::size_t filas = 0;
    for (int semilla = sola != 0 ? sola : 1; semilla <= (sola != 0 ? sola : 30); ++semilla) {
        SCOPED_TRACE(semilla);
        Azar azar(static_cast<unsigned>(semilla));
        motor.Ejecutar(u"DELETE FROM procesados"_s);
        LlenarTabla(azar);
        for (const ModoListado modo : {ModoListado::Cobros, ModoListado::Incidencias}) {
            const Paseo paseo = Pasear(motor, importes, modo == ModoListado::Incidencias);
            listado.RellenaGrdZv(modo);
            EXPECT_EQ(E().lbCobros, importes.FormatoImporte(paseo.cobros));
            EXPECT_EQ(E().lbPagos, importes.FormatoImporte(paseo.pagos));
            ASSERT_EQ(listado.grdZV().FilasDatos(), static_cast<int>(paseo.filas.size()));
            for (std::size_t i = 0; i < paseo.filas.size(); ++i) {
                ASSERT_EQ(FilaDe(static_cast<int>(i) + 1), paseo.filas[i]) << i;
            }
            filas += paseo.filas.size();
        }
    }
    EXPECT_GT(filas, sola != 0 ? 0U : 500U);
}

} // namespace
} // namespace zv::test
