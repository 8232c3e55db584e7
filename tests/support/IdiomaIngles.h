// The English language file that comes with the program.
#pragma once

#include "platform/IniDocument.h"
#include "platform/StringLiterals.h"

#include <QFile>

#include <gtest/gtest.h>

namespace zv::test {

class IdiomaIngles {
  public:
    IdiomaIngles() {
        QFile fichero(QString::fromUtf8(QT_TESTCASE_SOURCEDIR "/../packaging/RWLang.en.ini"));
        EXPECT_TRUE(fichero.open(QIODevice::ReadOnly)) << fichero.fileName().toStdString();
        bytes = fichero.readAll();
        documento = IniDocument::Analizar(bytes);
    }
    // As the language file of an application folder.
    void PonerEn(const QString& carpeta) const {
        QFile copia(carpeta + u"/RWLang.ini"_s);
        ASSERT_TRUE(copia.open(QIODevice::WriteOnly)) << copia.fileName().toStdString();
        copia.write(bytes);
    }

    QByteArray bytes;
    IniDocument documento;
};

} // namespace zv::test
