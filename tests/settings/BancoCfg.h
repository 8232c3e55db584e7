// A bench for the settings under edit: a till on a temporary folder, scripted device and operator.
#pragma once

#include "platform/RegistryNames.h"
#include "platform/StringLiterals.h"
#include "settings/CfgMonitor.h"
#include "store/Esquema.h"
#include "store/sqlite/SqliteEngine.h"
#include "support/CarpetaTemporal.h"
#include "support/DeviceGuion.h"
#include "support/DialogosGuion.h"
#include "support/FixedClock.h"
#include "support/ImprimeQt.h"
#include "support/LogMemoria.h"
#include "support/NumeroError.h"
#include "support/PantallasGuion.h"
#include "till/TillGraph.h"

#include <gtest/gtest.h>
#include <memory>

namespace zv::test {

class BancoCfg : public testing::Test {
  protected:
    BancoCfg()
        : textos(carpeta.Ruta()), registry(carpeta.Ruta(u"Registro"_s)),
          importes(FormatoRegional(u"es_ES"_s), [this] { return cliente.Multiplier(); }),
          graph({carpeta.Ruta(), cliente, registry, log, dialogos, textos, importes, reloj,
                 pantallas}) {
        exterior.puertoLibre = [this](quint16 puerto) { return !ocupados.contains(puerto); };
        exterior.abrirTeclado = [this] {
            ++teclados;
            return hayTeclado;
        };
    }
    // The till is loaded from a file of these bytes; its settings come under edit.
    void Cargar(const QByteArray& ini = {}) {
        if (!ini.isNull()) {
            carpeta.Pon(u"ZVMonitor.ini"_s, ini);
        }
        bool existe = false;
        entorno.configuracio->LeerCfgIni(entorno.rutaIni, existe);
        Abrir();
    }
    void Abrir() { cfg = std::make_unique<CfgMonitor>(entorno, exterior); }
    void AbrirBase() {
        SqliteEngine catalogo;
        CrearBaseDatos(catalogo, carpeta.Ruta(), log, dialogos, textos);
        ASSERT_TRUE(entorno.conexion.ConectarBD());
        log.Toma();
    }

    const EstadoCfg& E() const { return cfg->Estado(); }
    static std::size_t Indice(const char* clave) {
        for (std::size_t i = 0; i < kInterruptoresCfg.size(); ++i) {
            if (kInterruptoresCfg[i].ajuste->clave == QLatin1StringView(clave)) {
                return i;
            }
        }
        ADD_FAILURE() << clave;
        return 0;
    }
    bool Pulsado(const char* clave) const { return E().pulsado[Indice(clave)]; }
    void Conmutar(const char* clave) { cfg->Conmutar(Indice(clave)); }
    void PreguntaGuardar(Respuesta respuesta = Respuesta::Si) {
        dialogos.EsperaMensaje(u"¡Atención!"_s, u"¿Desea guardar los cambios?"_s, respuesta,
                               EstiloMensaje::SiNo);
    }
    void PreguntaSalir(Respuesta respuesta) {
        dialogos.EsperaMensaje(u"¡Atención!"_s, u"¿Desea salir sin guardar los cambios?"_s,
                               respuesta, EstiloMensaje::SiNo);
    }
    void PreguntaConector(Respuesta respuesta) {
        dialogos.EsperaMensaje(u"Error de configuración"_s,
                               u"No se encuentra el ZVConnector.exe en la ubicación "
                               "especificada\r\n¿Desea continuar igualmente?"_s,
                               respuesta, EstiloMensaje::SiNo);
    }
    void Guardar() {
        PreguntaGuardar();
        EXPECT_TRUE(cfg->Guardar());
    }
    QByteArray Fichero() const { return carpeta.Lee(u"ZVMonitor.ini"_s); }
    QString EnFichero(const char* seccion, const char* clave) const {
        return entorno.ini.LeerIni(entorno.rutaIni, QString::fromLatin1(seccion),
                                   QString::fromLatin1(clave), u"(no)"_s);
    }
    Configuracio& Global() { return *entorno.configuracio; }
    // What a fresh start would read.
    Configuracio Leida() {
        Configuracio leida(entorno.ini, registry, carpeta.Ruta(), importes.Formato());
        bool existe = false;
        leida.LeerCfgIni(entorno.rutaIni, existe);
        return leida;
    }

    CarpetaTemporal carpeta;
    FixedClock reloj;
    LogMemoria log;
    DialogosGuion dialogos;
    PantallasGuion pantallas;
    DeviceGuion cliente;
    Textos textos;
    RegistryTree registry;
    Importes importes;
    TillGraph graph;
    Entorno& entorno = graph.Entorno();
    ExteriorCfg exterior;
    QList<quint16> ocupados;
    int teclados = 0;
    bool hayTeclado = true;
    std::unique_ptr<CfgMonitor> cfg;
};

} // namespace zv::test
