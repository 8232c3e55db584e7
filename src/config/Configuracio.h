// In-memory image of ZVMonitor.ini and of three registry values. One instance is the global
// configuration; the settings screen works on another and replaces it whole.
#pragma once

#include "config/ModuloIni.h"
#include "platform/FormatoRegional.h"
#include "platform/RegistryTree.h"

#include <QString>

namespace zv {

class Configuracio {
  public:
    // carpeta: application folder, the default of SUITEZV. The services are kept by reference.
    // formato: how numbers in the file are read.
    Configuracio(const ModuloIni& ini, RegistryTree& registry, QString carpeta,
                 FormatoRegional formato = FormatoRegional::DelSistema());

    QString IP;
    QString SUITEZV;
    QString Modo; // "AUTO", "MANUAL" or "SEMI"
    QString ModoInicial;
    QString ModoAnterior;
    qint16 REFRESCO = 0; // seconds; no timer takes it
    quint8 MINIMIZADO = 0;
    quint8 BLOQUEARPAGOS = 0;
    quint8 PREGUNTARANULAR = 0;
    quint8 SINIMPRESORA = 0;
    quint8 PREGUNTARCTO = 0;
    quint8 BOTONACCESO = 0;
    quint8 PAGOSADMIN = 0;
    quint8 SINHORA = 0;
    quint8 COLIDCAJA = 0;
    quint8 COLID2 = 0;
    quint8 COLVENDEDOR = 0;
    quint8 COLTERMINAL = 0;
    quint8 COLFORMAPAGO = 0;
    QString CLAVE_AUTORIZADO;
    QString CLAVE_ADMIN;
    QString CLAVE_TECNICO;
    quint8 BCEAN = 0;
    bool BCTPRE = false;
    quint8 BCTINI = 0;
    quint8 BCTFIN = 0;
    quint8 BCIINI = 0;
    quint8 BCIFIN = 0;
    quint8 BCDEC = 0;
    bool ZVConectorActive = false;
    QString ZVConectorPath;
    bool zvFastActive = false;
    QString ZVFastPort;

    // Fills every field from the file and the registry; ModoAnterior, which neither of them holds,
    // becomes empty. existe: the file is there and can be read; one that cannot is shown once, and
    // the defaults stand in for it. Raises 13 or 6 for a value that is no number of its
    // field's type; the fields before it are filled then.
    void LeerCfgIni(const QString& ruta, bool& existe);
    // Writes every key, in one writing, and the three passwords where they stand otherwise in the
    // registry: in front of them is another writing then. A failure is in the log, and nothing
    // else.
    void GuardarConfig(const QString& ruta);
    // Every field but ModoAnterior.
    void CopyFrom(const Configuracio& otra);

  private:
    bool SinPasswords() const;
    // The registry holds them as they stand here.
    bool PasswordsGuardadas() const;
    void GuardarPasswords();

    const ModuloIni& ini_;
    RegistryTree& registry_;
    QString carpeta_;
    FormatoRegional formato_;
};

} // namespace zv
