// The bench of the engine with rows marked by clicks in the grid.
#pragma once

#include "BancoEngine.h"
#include "config/Modo.h"

namespace zv::test {

class BancoAgrupar : public BancoEngine {
  protected:
    void SetUp() override {
        EscribirIni("[ZVMONITOR]\r\nMODO=MANUAL\r\n"); // no return to "AUTO" by itself
        configuracio->Modo = modo::kManual;
        ConectarCon(50000);
    }

    const EstadoControles& C() const { return controles.Estado(); }
    // A row with everything that a group puts together; answers its idZV.
    qint32 PonerVenta(qint64 importe, const QString& id1, const QString& id2 = {},
                      const QString& terminal = u"TPV1"_s) {
        const qint32 id = PonerFila(importe, id1);
        motor.Ejecutar(u"UPDATE cola SET id2 = ?, terminal = ? WHERE idZV = ?"_s,
                       {id2, terminal, id});
        return id;
    }
    // The pulse looks at the queue: its buttons and its grid are up to date.
    void Mirar() {
        pulso.ProcesarCola();
        log.Toma();
    }
    void Agrupar() { botones.boton_Click(BotonPie::AgruparCobros); }
    void ClicEnFila(int fila, int columna = ColumnaCola::Importe) {
        clic.grdZV_MouseUp(fila, columna, false);
    }
    // Marking with these rows of the grid marked.
    void Marcar(std::initializer_list<int> filas) {
        Agrupar();
        for (const int fila : filas) {
            ClicEnFila(fila);
        }
    }
    void EsperaPermiso(bool pasa = true, PantallasGuion::Accion mientras = {}) {
        pantallas.EsperaValidar(2, u"authCobro"_s, pasa, std::move(mientras));
    }
    // Ends the marking with permission to charge.
    void Cobrar() {
        EsperaPermiso();
        Agrupar();
    }
    // Another program's connection to the same file.
    std::unique_ptr<SqliteEngine> Otro() const {
        auto otro = std::make_unique<SqliteEngine>(SqliteOptions{std::chrono::milliseconds(0)});
        otro->Abrir(CadenaConexion(u"MDB"_s, {}, conexion.RutaFichero(), {}, {}));
        return otro;
    }
    static QString TextoFallo() {
        return u"Error al procesar la operación, consulte con el técnico de Zorvex"_s;
    }
};

} // namespace zv::test
