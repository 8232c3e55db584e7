// The registry: a tree of small text files, one per value, that outside programs share:
// <folder>/HKLM/Software/Zorvex/ZVMonitor/Saldo_Exit. Names ignore case. Values are written by a
// temporary file and a rename, so a reader sees the old text or the new one. A key is a folder; a
// name that could leave the tree (empty, "." or "..", with a separator in a value's name) is
// refused.
#pragma once

#include "platform/Files.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

#include <memory>

namespace zv {

// Roots by name; INI: the name was the path of an existing file; Ninguna: no root.
enum class Raiz { Ninguna = 0, Ini = 1, HKCU, HKLM, HKU, HKDD, HKCC, HKCR };

// A text value under HKLM\Software: its key and its name.
struct RegistryName {
    QString key;
    QString value;
};

class RegistryTree {
  public:
    // carpeta: the folder of the tree; it need not exist.
    explicit RegistryTree(const QString& carpeta);

    // Result codes: 0 good, the system's error number, 99 for an invalid root.
    static constexpr int kBien = 0;
    static constexpr int kNoExiste = 2;
    static constexpr int kAccesoDenegado = 5;
    static constexpr int kDatoNoValido = 13;
    static constexpr int kParametroNoValido = 87; // a kind of value that is none of the three
    static constexpr int kRaizNoValida = 99;
    static constexpr int kNombreNoValido = 161;

    // Ignores case.
    Raiz RaizRegistro(const QString& raiz) const;
    // Keys part at back-slashes and slashes. tipo, ignoring case: "S" text, "B" boolean ("True",
    // "False"), "D" double word. resultado takes defecto first. A text loses one line end, which
    // programs like to leave behind it, and a NUL at its end. With an INI file as root, clave is
    // the section: "S" gives at most 255 characters, any other kind answers the value's whole
    // number as the result code.
    int LeerRegistro(const QString& raiz, const QString& clave, const QString& valor,
                     const QString& tipo, const QString& defecto, QString& resultado) const;
    // "S" is UTF-8 text without a terminator, "B" two bytes, "D" four bytes of a 16-bit number, low
    // byte first; 13 for a dato that is no such value. In an INI file only "S".
    int EscribirRegistro(const QString& raiz, const QString& clave, const QString& valor,
                         const QString& tipo, const QString& dato,
                         Guardado guardado = Guardado::Duradero);
    // A value that is not there is no failure. In an INI file the value becomes empty.
    int BorrarRegistro(const QString& raiz, const QString& clave, const QString& valor);

    // Text values under HKLM\Software\<clave>; failures yield the default or are ignored.
    // LeerValor takes a few microseconds; what is asked for at every tick is a WatchedValue.
    QString LeerValor(const QString& clave, const QString& valor, const QString& defecto) const;
    // A passing value need not outlive a power cut, and costs no wait for the disk.
    void GuardarValor(const QString& clave, const QString& valor, const QString& dato,
                      Guardado guardado = Guardado::Duradero);
    void BorrarValor(const QString& clave, const QString& valor);
    // The same by name.
    QString LeerValor(const RegistryName& nombre, const QString& defecto) const {
        return LeerValor(nombre.key, nombre.value, defecto);
    }
    void GuardarValor(const RegistryName& nombre, const QString& dato,
                      Guardado guardado = Guardado::Duradero) {
        GuardarValor(nombre.key, nombre.value, dato, guardado);
    }
    void BorrarValor(const RegistryName& nombre) { BorrarValor(nombre.key, nombre.value); }
    // The folders whose entries decide what LeerValor answers: from that of the tree down to that
    // of the value, as far as they exist, in the system's encoding.
    QList<QByteArray> Carpetas(const RegistryName& nombre) const;

  private:
    struct Nombre {
        Raiz raiz;
        QString clave;
        QString valor;
        bool operator==(const Nombre&) const = default;
        friend size_t qHash(const Nombre& nombre, size_t semilla = 0) {
            return qHashMulti(semilla, static_cast<int>(nombre.raiz), nombre.clave, nombre.valor);
        }
    };
    // What a folder looked like; any change of its entries changes it.
    struct Sello;
    // Where a value stands, found out once and believed while the folders stay as they were.
    struct Sitio;

    int LeerTexto(Raiz raiz, const QString& clave, const QString& valor, QByteArray& bytes) const;
    int Escribir(Raiz raiz, const QString& clave, const QString& valor, const QByteArray& bytes,
                 Guardado guardado);
    int Borrar(Raiz raiz, const QString& clave, const QString& valor);
    QByteArray Carpeta(Raiz raiz) const;

    QByteArray carpeta_; // in the system's encoding
    mutable QHash<Nombre, std::shared_ptr<Sitio>> sitios_;
};

} // namespace zv
