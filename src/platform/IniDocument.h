// An INI file in memory, read by the platform's private-profile rules: names ignore case, the
// first of two like sections or keys wins, a line without "=" and a ";" comment say nothing, blanks
// around names and values go, and so does one pair of like quotes around a value.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>

namespace zv {

class IniDocument {
  public:
    // Any bytes: what is no INI text gives an empty document. Encodings as in IniLines.
    static IniDocument Analizar(const QByteArray& bytes);

    // The whole value, empty for "key=" with nothing behind; nothing when the key is absent.
    std::optional<QString> Valor(const QString& seccion, const QString& clave) const;

  private:
    struct Clave {
        int seccion;
        QString nombre;
        bool operator==(const Clave&) const = default;
        friend size_t qHash(const Clave& clave, size_t semilla = 0) {
            return qHashMulti(semilla, clave.seccion, clave.nombre);
        }
    };

    // Names are case-folded. One hash for the keys of all sections: a hash for each would make a
    // file of very many sections slow.
    QHash<QString, int> secciones_;
    QHash<Clave, QString> valores_;
};

} // namespace zv
