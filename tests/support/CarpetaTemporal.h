// A folder of its own for one test, gone with it, with short ways to put and look at files in it.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zv::test {

class CarpetaTemporal {
  public:
    CarpetaTemporal() { EXPECT_TRUE(carpeta_.isValid()); }

    QString Ruta() const { return carpeta_.path(); }
    QString Ruta(const QString& nombre) const { return carpeta_.filePath(nombre); }

    // Writes a file and the folders above it; answers its path.
    QString Pon(const QString& nombre, const QByteArray& bytes) const {
        QString ruta = Ruta(nombre);
        QDir().mkpath(QFileInfo(ruta).path());
        QFile fichero(ruta);
        EXPECT_TRUE(fichero.open(QIODevice::WriteOnly | QIODevice::Truncate));
        EXPECT_EQ(fichero.write(bytes), bytes.size());
        return ruta;
    }
    // The bytes of a file; empty when it is not there.
    QByteArray Lee(const QString& nombre) const {
        QFile fichero(Ruta(nombre));
        return fichero.open(QIODevice::ReadOnly) ? fichero.readAll() : QByteArray();
    }
    QString PonCarpeta(const QString& nombre) const {
        EXPECT_TRUE(QDir().mkpath(Ruta(nombre)));
        return Ruta(nombre);
    }
    bool Esta(const QString& nombre) const { return QFileInfo::exists(Ruta(nombre)); }
    // Everything in it, hidden entries too.
    QStringList Entradas(const QString& subcarpeta = {}) const {
        return QDir(Ruta(subcarpeta))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

  private:
    QTemporaryDir carpeta_;
};

} // namespace zv::test
