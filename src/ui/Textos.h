// Texts that a language file (RWLang.ini beside the program) may replace; the Spanish defaults
// stand in each folder's Claves.h. The file is looked at on each look-up and parsed again only
// when it has changed.
#pragma once

#include "ui/Clave.h"

#include <QString>

#include <memory>

namespace zv {

class Textos {
  public:
    // carpeta: the folder that holds RWLang.ini; the file may be missing.
    explicit Textos(const QString& carpeta);
    ~Textos();
    Textos(const Textos&) = delete;
    Textos& operator=(const Textos&) = delete;

    // "/CRLF/" becomes a line break, blanks at both ends go, in the default too.
    QString TextoIdioma(const QString& seccion, const QString& clave,
                        const QString& porDefecto) const;
    QString Traduce(const Clave& clave) const;
    // For a default that tells of something: detalle stands in it at %1. A text of the file is
    // taken as it is.
    QString Traduce(const Clave& clave, const QString& detalle) const;
    // The same in section COMMON, for a key that is made at run time.
    QString Traduce(const QString& clave, const QString& porDefecto) const;
    // The same in the section named by the screen.
    QString TextoForm(const QString& pantalla, const QString& clave,
                      const QString& porDefecto) const;

  private:
    struct Fichero;
    std::unique_ptr<Fichero> fichero_;
};

} // namespace zv
