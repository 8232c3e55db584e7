// A folder with INI file and registry for the tests of the settings, and what stands around them.
#pragma once

#include "config/Configuracio.h"
#include "config/MarcaActivo.h"
#include "config/ModuloIni.h"
#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/DialogosGuion.h"
#include "support/ImprimeQt.h"
#include "support/LogMemoria.h"

#include <gtest/gtest.h>

namespace zv {

class BancoConfig : public testing::Test {
  protected:
    Configuracio Nueva() { return {ini, registry, carpeta.Ruta(), FormatoRegional(u"es_ES"_s)}; }
    // Loads a new object from a file of these bytes.
    Configuracio Leida(const QByteArray& bytes) {
        carpeta.Pon(u"ZVMonitor.ini"_s, bytes);
        Configuracio cfg = Nueva();
        bool existe = false;
        cfg.LeerCfgIni(ruta, existe);
        EXPECT_TRUE(existe);
        return cfg;
    }
    QByteArray Fichero() const { return carpeta.Lee(u"ZVMonitor.ini"_s); }
    QString Registrado(const char* valor, const char* clave = "Zorvex\\ZVMonitor") const {
        return registry.LeerValor(QString::fromUtf8(clave), QString::fromUtf8(valor), u"(no)"_s);
    }

    test::CarpetaTemporal carpeta;
    test::LogMemoria log;
    test::DialogosGuion dialogos;
    ModuloIni ini{log, dialogos};
    RegistryTree registry{carpeta.Ruta(u"Registro"_s)};
    const QString ruta = carpeta.Ruta(u"ZVMonitor.ini"_s);
};

} // namespace zv
