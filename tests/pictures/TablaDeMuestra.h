// A database with so many users, for the pictures of their screens.
#pragma once

#include "platform/StringLiterals.h"
#include "store/ConexionBD.h"
#include "store/Esquema.h"
#include "store/sqlite/SqliteEngine.h"
#include "ui/Dialogos.h"
#include "ui/Log.h"
#include "ui/Textos.h"

#include <QTemporaryDir>

namespace zv::muestra {

class TablaDeMuestra {
  public:
    // The first is an administrator, the last but one has a long name.
    TablaDeMuestra(int usuarios, Dialogos& dialogos, const Textos& textos) {
        struct : Log {
            void LogLinea(const QString& /*texto*/) override {}
            void LogFast(const QString& /*texto*/) override {}
        } mudo;
        SqliteEngine catalogo;
        CrearBaseDatos(catalogo, carpeta_.path(), mudo, dialogos, textos);
        motor_.Abrir(CadenaConexion(u"MDB"_s, {}, RutaBaseDatos(carpeta_.path()), {}, {}));
        const QString nombres[] = {u"ANA"_s,     u"María José"_s, u"EVA"_s, u"Íñigo"_s,
                                   u"Tú & yo"_s, u"LUIS"_s,       u"PEPE"_s};
        motor_.Comenzar();
        for (int i = 0; i < usuarios; ++i) {
            const QString nombre = i + 2 == usuarios && usuarios > 3 ? u"MAXIMILIANO WWWWWWWW"_s
                                   : i < 7                           ? nombres[i]
                                                                     : u"USUARIO %1"_s.arg(i);
            motor_.Ejecutar(u"INSERT INTO Usuarios (nombre,password,rol) VALUES (?,'1234',?)"_s,
                            {nombre, qMin(i, 2)});
        }
        motor_.Confirmar();
    }

    DatabaseEngine& Database() { return motor_; }

  private:
    QTemporaryDir carpeta_;
    SqliteEngine motor_;
};

} // namespace zv::muestra
