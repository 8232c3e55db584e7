// A folder of its own with a database made by the program's own CrearBaseDatos, and an engine open
// on it. Everything goes when the test ends.
#pragma once

#include "platform/StringLiterals.h"
#include "store/ConexionBD.h"
#include "store/Esquema.h"
#include "store/sqlite/SqliteEngine.h"
#include "support/DialogosGuion.h"
#include "support/LogMemoria.h"
#include "ui/Textos.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace zv::test {

class BaseDeDatosTemporal {
  public:
    // Locked databases answer at once unless the test says otherwise.
    explicit BaseDeDatosTemporal(std::chrono::milliseconds espera = std::chrono::milliseconds(0))
        : motor_({espera}) {
        DialogosGuion dialogos;
        LogMemoria log;
        const Textos textos(carpeta_.path());
        SqliteEngine catalogo({espera});
        CrearBaseDatos(catalogo, carpeta_.path(), log, dialogos, textos);
        motor_.Abrir(Cadena());
    }

    QString Carpeta() const { return carpeta_.path(); }
    QString Ruta() const { return RutaBaseDatos(carpeta_.path()); }
    QString Cadena() const { return CadenaConexion(u"MDB"_s, {}, Ruta(), {}, {}); }
    SqliteEngine& Database() { return motor_; }

    // Another program on the same file, with an engine of its own.
    std::unique_ptr<SqliteEngine> Otro() const {
        auto otro = std::make_unique<SqliteEngine>(SqliteOptions{std::chrono::milliseconds(0)});
        otro->Abrir(Cadena());
        return otro;
    }

    // Number of rows, as SQL counts them.
    qint32 Cuenta(const QString& tabla, const QString& condicion = u"1=1"_s) {
        return motor_.Consultar(u"SELECT count(*) FROM "_s + tabla + u" WHERE "_s + condicion)
            .at(0)
            .LeerLong(0);
    }

  private:
    // In memory where the system offers it: the schema's many commits need no real disk here.
    static QString Plantilla() {
        const QString memoria = u"/dev/shm"_s;
        return (QFileInfo(memoria).isWritable() ? memoria : QDir::tempPath()) + u"/zv-XXXXXX"_s;
    }

    QTemporaryDir carpeta_{Plantilla()};
    SqliteEngine motor_;
};

} // namespace zv::test
