// A group whose amounts cancel each other, with the real client and the simulated device: the
// device is asked for 0 all the same, and whatever it answers the books are whole.
#include "Tienda.h"
#include "engine/BotonPie.h"
#include "platform/RegistryNames.h"
#include "support/ImprimeQt.h"

namespace zv::test {

namespace {

class GrupoCeroTest : public testing::Test {
  protected:
    void SetUp() override {
        for (const int importe : {1250, -1000, -250}) {
            tienda.Database().Ejecutar(
                u"INSERT INTO cola (fecha,importe,id1,id2,idcaja,terminal,vendedor,formapago,"
                "creditoError,manual) VALUES (?,?,?,'',1,'TPV1','Ana','EFECTIVO',0,0)"_s,
                {u"2026-03-14 10:20:30"_s, importe, u"V"_s + QString::number(importe)});
        }
        tienda.Partes().pulso.ProcesarCola();
        saldo = tienda.aparador.Saldo();
        tienda.operador.mensajes = 0;
    }
    void Agrupar(const QString& fallos) {
        tienda.aparador.Preparar(fallos, simulador::Guion::Exacto);
        const PartesMonitor& p = tienda.Partes();
        p.botones.boton_Click(BotonPie::AgruparCobros);
        for (int fila = 1; fila <= 3; ++fila) {
            p.clic.grdZV_MouseUp(fila, 3, false);
        }
        EXPECT_EQ(p.controles.Estado().aviso.importe, u"Suma: 0,00 €"_s);
        p.botones.boton_Click(BotonPie::AgruparCobros);
    }
    QStringList Procesados() {
        QStringList filas;
        for (
            const Row& f : tienda.Database().Consultar(
                u"SELECT id1,estado,importeVenta,cobrado,devuelto FROM procesados ORDER BY idZV"_s)) {
            filas << f.LeerTexto(0) + u' ' + f.LeerTexto(1) + u' ' +
                         QString::number(f.LeerCurrency(2).AEntero32()) + u' ' +
                         QString::number(f.LeerCurrency(3).AEntero32()) + u' ' +
                         QString::number(f.LeerCurrency(4).AEntero32());
        }
        return filas;
    }
    std::size_t Cola() { return tienda.Database().Consultar(u"SELECT * FROM cola"_s).size(); }
    // Money, transaction, mark and pulse as before.
    void ComprobarReposo() {
        const PartesMonitor& p = tienda.Partes();
        EXPECT_EQ(tienda.aparador.Saldo(), saldo);
        EXPECT_FALSE(tienda.aparador.EnMarcha());
        EXPECT_EQ(tienda.Database().Nivel(), 0);
        EXPECT_EQ(p.entorno.registry.LeerValor(registry_name::kActivo, u"0"_s), u"0"_s);
        EXPECT_TRUE(p.pulso.Armado());
        EXPECT_FALSE(p.estado.Agrupando());
    }
    static QString Grupo(const QString& fin) { return u"V1250 + V-1000 + V-250 "_s + fin; }

    Tienda tienda;
    qint64 saldo = 0;
};

TEST_F(GrupoCeroTest, IsChargedAsNothingAndFiledWithItsRowsCancelled) {
    Agrupar({});
    EXPECT_EQ(Procesados(),
              (QStringList{Grupo(u"OK 0 0 0"_s), u"V1250 CANCEL 1250 0 0"_s,
                           u"V-1000 CANCEL -1000 0 0"_s, u"V-250 CANCEL -250 0 0"_s}));
    EXPECT_EQ(Cola(), 0U);
    const std::vector<simulador::Operacion> fines = tienda.aparador.TomarFines();
    ASSERT_EQ(fines.size(), 1U);
    EXPECT_EQ(fines.front().metodo, simulador::Metodo::Cobro);
    EXPECT_EQ(fines.front().valor, 0);
    EXPECT_EQ(tienda.operador.mensajes, 0);
    ComprobarReposo();
}

TEST_F(GrupoCeroTest, ThatTheDeviceRefusesKeepsItsRows) {
    Agrupar(u"cobro:error=12"_s);
    const QStringList filas = Procesados();
    ASSERT_EQ(filas.size(), 1);
    EXPECT_EQ(filas.front(), Grupo(u"ERROR 0 0 0"_s));
    EXPECT_EQ(Cola(), 3U);
    ComprobarReposo();
}

TEST_F(GrupoCeroTest, WhoseLinkIsLostAndComesBackIsFiledOnce) {
    Agrupar(u"cobro#1:cortar=durante"_s);
    EXPECT_EQ(Procesados().front(), Grupo(u"OK 0 0 0"_s));
    EXPECT_EQ(Procesados().size(), 4);
    EXPECT_EQ(Cola(), 0U);
    ComprobarReposo();
}

} // namespace

} // namespace zv::test
