// The cash office over a period of so many movements, with a device that stands still.
#pragma once

#include "cashoffice/screens/frmCaja.h"
#include "platform/Clock.h"
#include "platform/RegistryNames.h"
#include "platform/StringLiterals.h"
#include "store/Esquema.h"
#include "store/sqlite/SqliteEngine.h"
#include "till/TillGraph.h"

#include <QTemporaryDir>

namespace zv::muestra {

class AparatoDeMuestra final : public DeviceClient {
  public:
    qint16 ErrorCode() const override { return 0; }
    QString ErrorMessage() const override { return {}; }
    void Address(const QString& /*direccion*/) override {}
    void Connect(bool& result) override { result = true; }
    void Disconnect() override {}
    void Change(qint32& /*paidIn*/, qint32& /*paidOut*/, bool& /*result*/) override {}
    void AddChange(qint32& /*paidIn*/, bool& /*result*/) override {}
    void Pay(qint32 /*valueInCents*/, qint32& /*paidOut*/, bool& /*result*/) override {}
    void Charge(qint32 /*valueInCents*/, qint32& /*paidIn*/, qint32& /*paidOut*/,
                bool& /*result*/) override {}
    void CashBoxControl(qint32 /*mode*/, qint32& /*coins*/, qint32& /*notes*/, qint32& /*queda*/,
                        bool& /*result*/) override {}
    void Configuration(bool& /*result*/) override {}
    void EmptyCB(qint32 /*device*/, qint32& /*value*/, bool& /*result*/) override {}
    void GetLevels(qint32 levelType, QString& noms, QString& levels, bool& result) override {
        noms = u"1,2,5,10,20,50,100,200,500,1000,2000,5000,10000,20000,50000"_s;
        levels = levelType == 2 ? u"40,38,12,0,61,120,97,45,33,21,60,0,0,0,0"_s
                                : u"0,0,0,75,0,0,12,210,0,18,43,31,4,1,0"_s;
        result = true;
    }
    void SessionFlag(bool /*valor*/) override {}
    quint8 Decimals() const override { return 2; }
    quint8 Multiplier() const override { return 100; }
};

class CajaDeMuestra {
  public:
    CajaDeMuestra(int movimientos, Log& log, Dialogos& dialogos, const Textos& textos,
                  const Importes& importes, const Clock& reloj)
        : registry_(carpeta_.filePath(u"Registro"_s)),
          till_({carpeta_.path(), aparato_, registry_, log, dialogos, textos, importes, reloj,
                 pantallas_}) {
        SqliteEngine catalogo;
        CrearBaseDatos(catalogo, carpeta_.path(), log, dialogos, textos);
        Entorno& entorno = till_.Entorno();
        entorno.conexion.ConectarBD();
        bool existe = false;
        entorno.configuracio->LeerCfgIni(entorno.rutaIni, existe);
        Rellenar(movimientos);
        registry_.GuardarValor(registry_name::kSaldoExit, QString::number(kContenido));
        entorno.supervision.Conectar();
    }
    // With both optional columns, or without.
    void PonerColumnas(bool todas) {
        Configuracio& configuracio = *till_.Entorno().configuracio;
        configuracio.COLVENDEDOR = configuracio.COLTERMINAL = todas ? 1 : 0;
    }
    zv::Caja& Caja() { return caja_; }
    Entorno& ElEntorno() { return till_.Entorno(); }
    // Incidents and accesses of every kind beside the movements.
    void PonerRegistros() {
        DatabaseEngine& motor = till_.Entorno().Database();
        motor.Ejecutar(u"UPDATE procesados SET id1='2026000123',id2='A-17' WHERE id1='T2002'"_s);
        motor.Ejecutar(u"UPDATE procesados SET usuario='MAXIMILIANO' WHERE id1='T2001'"_s);
        motor.Ejecutar(u"INSERT INTO procesados (fechaZV,importeVenta,cobrado,devuelto,estado,id1,"
                       "terminal,vendedor,formapago,error,idCierre,usuario) SELECT fechaZV,"
                       "importeVenta,cobrado,0,CASE idZV%3 WHEN 0 THEN 'CANCEL' WHEN 1 THEN "
                       "'REENVIADO' ELSE 'ERROR' END,id1,terminal,vendedor,formapago,"
                       "'12 - No se puede dar el cambio exacto',0,'14/03/2026' FROM procesados"_s);
        const QString lugares[] = {u"authCaja"_s, u"authConfiguracion"_s, u"authPago"_s,
                                   u"authCobroManual"_s};
        for (int i = 0; i < 40; ++i) {
            motor.Ejecutar(u"INSERT INTO Accesos (Fecha,usuario,lugar) VALUES (?,?,?)"_s,
                           {u"2026-03-14 18:%1:11"_s.arg(i + 10), i % 3 == 0 ? u"ANA"_s : u"LUIS"_s,
                            lugares[i % 4]});
        }
    }

    // So many closes; all movements belong to the last one.
    void PonerCierres(int cuantos) {
        DatabaseEngine& motor = till_.Entorno().Database();
        for (int i = 0; i < cuantos; ++i) {
            motor.Ejecutar(
                u"INSERT INTO cierres (fecha,saldoInicial,cobros,abonos,ingresos,pagos,saldoZV,"
                "importeCierre,cambioBilletes,cambioMonedas,cajonBilletes,cajonMonedas) VALUES "
                "(?,?,?,?,?,?,?,?,?,?,?,?)"_s,
                {u"2026-%1-%2 22:0%3:05"_s.arg(1 + i / 28 % 12, 2, 10, QChar(u'0'))
                     .arg(1 + i % 28, 2, 10, QChar(u'0'))
                     .arg(i % 10),
                 126410 + 731 * i, 384217 + 977 * i, 2050, 15000, 9400 + i, 514177, 401200, 350000,
                 51200, 100000, 12977});
        }
        motor.Ejecutar(u"UPDATE procesados SET idCierre=(SELECT max(idCierre) FROM cierres)"_s);
    }

  private:
    static constexpr qint32 kContenido = 546546; // of the levels above

    struct SinPantallas final : Pantallas {
        bool Existe(Pantalla pantalla) const override { return pantalla == Pantalla::Historial; }
        void Abrir(Pantalla /*pantalla*/) override {}
        void AbrirBalanza(Configuracio& /*cfg*/) override {}
        bool ValidarUsuari(qint16 /*nivel*/, const QString& /*lugar*/) override { return true; }
    };

    void Rellenar(int movimientos) {
        struct Fila {
            QString id1;
            QString terminal;
            int venta;
            int cobrado;
            int devuelto;
            QString estado;
            QString error;
        };
        const Fila filas[] = {
            {u"T2001"_s, u"TPV1"_s, 1685, 2000, 315, u"OK"_s, {}},
            {u"T2002"_s, u"TPV2"_s, 123450, 123450, 0, u"OK"_s, {}},
            {u"T2003"_s, u"TPV1"_s, -800, 0, 800, u"OK"_s, {}},
            {u"DAR_CAMBIO"_s, u"ZV"_s, 0, 5000, 5000, u"OK"_s, {}},
            {u"METER_CAMBIO"_s, u"ZV"_s, 10000, 10000, 0, u"OK"_s, {}},
            {u"PAGO"_s, u"ZV"_s, -4250, 0, 4250, u"OK"_s, u"Mensajería urgente"_s},
            {u"T2004"_s, u"TPV1"_s, 500, 500, 0, u"ERROR"_s, u"5 - Atasco"_s},
            {u"COBRO_MANUAL"_s, u"ZV"_s, 990, 1000, 10, u"OK"_s, u"Bolsas"_s}};
        DatabaseEngine& motor = till_.Entorno().Database();
        motor.Comenzar();
        for (int i = 0; i < movimientos; ++i) {
            const Fila& f = filas[i % 8];
            motor.Ejecutar(u"INSERT INTO procesados (fechaZV,importeVenta,cobrado,devuelto,estado,"
                           "id1,terminal,vendedor,formapago,error,idCierre) VALUES "
                           "(?,?,?,?,?,?,?,'Ana','EFECTIVO',?,0)"_s,
                           {u"2026-03-14 %1:%2:30"_s.arg(9 + i / 60 % 12, 2, 10, QChar(u'0'))
                                .arg(i % 60, 2, 10, QChar(u'0')),
                            f.venta, f.cobrado, f.devuelto, f.estado, f.id1, f.terminal, f.error});
        }
        motor.Confirmar();
    }

    QTemporaryDir carpeta_;
    AparatoDeMuestra aparato_;
    SinPantallas pantallas_;
    RegistryTree registry_;
    TillGraph till_;
    zv::Caja caja_{till_.Entorno()};
};

} // namespace zv::muestra
