// The English language file that comes with the program.
#pragma once

#include "platform/DocumentoIni.h"

#include <QFile>

#include <gtest/gtest.h>

namespace zv::test {

class IdiomaIngles {
  public:
    IdiomaIngles() {
        QFile fichero(QStringLiteral(QT_TESTCASE_SOURCEDIR "/../packaging/RWLang.en.ini"));
        EXPECT_TRUE(fichero.open(QIODevice::ReadOnly)) << fichero.fileName().toStdString();
        bytes = fichero.readAll();
        documento = DocumentoIni::Analizar(bytes);
    }
    // As the language file of an application folder.
    void PonerEn(const QString& carpeta) const {
        QFile copia(carpeta + QStringLiteral("/RWLang.ini"));
        ASSERT_TRUE(copia.open(QIODevice::WriteOnly)) << copia.fileName().toStdString();
        copia.write(bytes);
    }

    QByteArray bytes;
    DocumentoIni documento;
};

} // namespace zv::test
