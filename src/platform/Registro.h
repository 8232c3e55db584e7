// The registry: a tree of small text files, one per value, that outside programs share:
// <folder>/HKLM/Software/Zorvex/ZVMonitor/Saldo_Exit. Names ignore case. Values are written by a
// temporary file and a rename, so a reader sees the old text or the new one.
#pragma once

#include <QByteArray>
#include <QString>

namespace zv {

// Roots by name; INI: the name was the path of an existing file; Ninguna: no root.
enum class Raiz { Ninguna = 0, Ini = 1, HKCU, HKLM, HKU, HKDD, HKCC, HKCR };

class Registro {
  public:
    // carpeta: the folder of the tree; it need not exist.
    explicit Registro(QString carpeta);

    // Result codes: 0 good, the system's error number, 99 for an invalid root.
    static constexpr int kBien = 0;
    static constexpr int kRaizNoValida = 99;

    Raiz RaizRegistro(const QString& raiz) const;
    // tipo, ignoring case: "S" text, "B" boolean, "D" double word. resultado takes defecto first.
    int LeerRegistro(const QString& raiz, const QString& clave, const QString& valor,
                     const QString& tipo, const QString& defecto, QString& resultado) const;
    int EscribirRegistro(const QString& raiz, const QString& clave, const QString& valor,
                         const QString& tipo, const QString& dato);
    int BorrarRegistro(const QString& raiz, const QString& clave, const QString& valor);

    // Text values under HKLM\Software\<clave>; failures yield the default or are ignored.
    // LeerValor is on the path of every idle tick: a few microseconds.
    QString LeerValor(const QString& clave, const QString& valor, const QString& defecto) const;
    void GuardarValor(const QString& clave, const QString& valor, const QString& dato);
    void BorrarValor(const QString& clave, const QString& valor);

  private:
    QString carpeta_;
};

} // namespace zv
