// A configuration whose barcode layout is edited: 13 characters, the ticket in 2 to 7, the amount
// in 8 to 12 with 2 decimals.
#pragma once

#include "barcode/CamposBalanza.h"
#include "config/Configuracio.h"
#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/DialogosGuion.h"
#include "support/FixedClock.h"
#include "support/ImprimeQt.h"
#include "support/LogMemoria.h"
#include "ui/Importes.h"
#include "ui/Textos.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace zv::test {

class BancoBalanza : public testing::Test {
  protected:
    BancoBalanza() { PonerLayout(13, true, 2, 7, 8, 12, 2); }

    void PonerLayout(quint8 largo, bool ticket, quint8 tini, quint8 tfin, quint8 iini, quint8 ifin,
                     quint8 dec) {
        cfg.BCEAN = largo;
        cfg.BCTPRE = ticket;
        cfg.BCTINI = tini;
        cfg.BCTFIN = tfin;
        cfg.BCIINI = iini;
        cfg.BCIFIN = ifin;
        cfg.BCDEC = dec;
    }
    // The settings in the order of the fields.
    QString Ajustes() const {
        return u"%1 %2 %3 %4 %5 %6 %7"_s.arg(
            QString::number(cfg.BCEAN), QString::number(static_cast<int>(cfg.BCTPRE)),
            QString::number(cfg.BCTINI), QString::number(cfg.BCTFIN), QString::number(cfg.BCIINI),
            QString::number(cfg.BCIFIN), QString::number(cfg.BCDEC));
    }

    const CarpetaTemporal carpeta;
    LogMemoria log;
    DialogosGuion dialogos;
    const ModuloIni ini{log, dialogos};
    RegistryTree registry{carpeta.Ruta(u"Registro"_s)};
    const FormatoRegional formato{u"es_ES"_s};
    Configuracio cfg{ini, registry, carpeta.Ruta(), formato};
    const Textos textos{carpeta.Ruta()};
    int decimales = 2;
    quint8 multiplicador = 100;
    const Importes importes{formato, [this] { return multiplicador; }};
    FixedClock reloj{QDateTime(QDate(2026, 3, 4), QTime(8, 4, 1))};
};

} // namespace zv::test
