// Texts that a language file (RWLang.ini beside the program) may replace; Spanish defaults are
// built in at the place of use. The file is looked at on each look-up and parsed again only when
// it has changed.
#pragma once

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
    // The same in section COMMON.
    QString Traduce(const QString& clave, const QString& porDefecto) const;
    // The same in the section named by the screen.
    QString TextoForm(const QString& pantalla, const QString& clave,
                      const QString& porDefecto) const;

  private:
    struct Fichero;
    std::unique_ptr<Fichero> fichero_;
};

} // namespace zv
