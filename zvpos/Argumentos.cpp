#include "zvpos/Argumentos.h"

#include "platform/StringLiterals.h"

#include <algorithm>

namespace zv::zvpos {

namespace {

bool EsDigito(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// An argument that starts with a dash and is not meant as a value.
bool PareceOpcion(const QString& texto) {
    return texto.size() > 1 && texto.startsWith(QLatin1Char('-')) && !EsEntero(texto);
}

class Lector {
  public:
    Lector(const QStringList& crudos, const QStringList& banderas, const QStringList& conValor,
           Argumentos& argumentos, QString& error)
        : crudos_(crudos), banderas_(banderas), conValor_(conValor), argumentos_(argumentos),
          error_(error) {}

    bool Leer() {
        bool soloSueltos = false;
        for (; sitio_ < crudos_.size(); ++sitio_) {
            const QString& crudo = crudos_.at(sitio_);
            if (!soloSueltos && crudo == QLatin1String("--")) {
                soloSueltos = true;
            } else if (soloSueltos || !PareceOpcion(crudo)) {
                argumentos_.sueltos.append(crudo);
            } else if (!LeerOpcion(crudo)) {
                return false;
            }
        }
        return true;
    }

  private:
    bool LeerOpcion(const QString& crudo) {
        if (crudo == QLatin1String("-h")) {
            return Anotar(u"help"_s, QString());
        }
        const qsizetype igual = crudo.indexOf(QLatin1Char('='));
        const bool larga = crudo.startsWith(QLatin1String("--"));
        const QString nombre = larga ? crudo.mid(2, igual < 0 ? -1 : igual - 2) : QString();
        if (banderas_.contains(nombre)) {
            if (igual >= 0) {
                return Mal(u"--%1 no lleva valor"_s.arg(nombre));
            }
            return Anotar(nombre, QString());
        }
        if (!conValor_.contains(nombre)) {
            return Mal(u"opción desconocida \"%1\" (delante de un texto que empieza "
                       "por - se escribe --)"_s.arg(crudo));
        }
        if (igual >= 0) {
            return Anotar(nombre, crudo.mid(igual + 1));
        }
        // The next option is no value: it was forgotten.
        if (sitio_ + 1 >= crudos_.size() || PareceOpcion(crudos_.at(sitio_ + 1))) {
            return Mal(u"falta el valor de --%1"_s.arg(nombre));
        }
        return Anotar(nombre, crudos_.at(++sitio_));
    }
    bool Anotar(const QString& nombre, const QString& valor) {
        if (argumentos_.opciones.contains(nombre)) {
            return Mal(u"--%1 está repetida"_s.arg(nombre));
        }
        argumentos_.opciones.insert(nombre, valor);
        return true;
    }
    bool Mal(const QString& texto) {
        error_ = texto;
        return false;
    }

    const QStringList& crudos_;
    const QStringList& banderas_;
    const QStringList& conValor_;
    Argumentos& argumentos_;
    QString& error_;
    qsizetype sitio_ = 0;
};

} // namespace

bool EsEntero(const QString& texto) {
    const bool signo = texto.startsWith(QLatin1Char('-')) || texto.startsWith(QLatin1Char('+'));
    const auto cifras = QStringView(texto).mid(signo ? 1 : 0);
    return !cifras.isEmpty() && std::all_of(cifras.begin(), cifras.end(), EsDigito);
}

bool Separar(const QStringList& crudos, const QStringList& banderas, const QStringList& conValor,
             Argumentos& argumentos, QString& error) {
    return Lector(crudos, banderas, conValor, argumentos, error).Leer();
}

} // namespace zv::zvpos
